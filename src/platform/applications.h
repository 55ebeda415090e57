#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// A program that the machine's menus offer.
struct Application {
    std::string name;         ///< for people, in their language where its entry has that
    std::string commandLine;  ///< as Processes::Start takes it, without the places that stand for files
};

/// What the entries in the folders offer, by name without case. Of two entries of one file name the one in the earlier
/// folder counts. Left out are those that menus hide, and those that need a terminal. Reads all files: tens of
/// milliseconds for some hundreds of them. `language`: such as "de".
[[nodiscard]] std::vector<Application> ApplicationsIn(const std::vector<std::string>& folders,
                                                      std::string_view language);

/// Where entries lie: the user's own, then the machine's.
[[nodiscard]] std::vector<std::string> ApplicationFolders();

}  // namespace zvr
