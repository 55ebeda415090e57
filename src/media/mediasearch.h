#pragma once

#include "ui/form.h"

#include <string>

namespace zvr {

class Program;

/// The screen of the search over the user's media.
class MediaSearch {
public:
    explicit MediaSearch(Program& program);

    Form form{"mediasearch"};
    Control* resultlist = nullptr;
    Control* txtSearchTerm = nullptr;

    std::string indexBaseFolder = "*";  ///< "*": all fixed drives
    int refreshTimespan = 0;            ///< 0 never, 1 day, 2 week, 3 month
    bool askBeforeIndexBuild = false;
    std::string mediaSearchResult;  ///< what the status label shows
    bool creatingIndex = false;

    void Load();
    void TypeCharacter(std::string_view character);  ///< replaces the selection of the search box
    void ClearSearchTerm();

private:
    Program& program;
};

}  // namespace zvr
