#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zvr {

/// What a copy is made of: folders before what lies in them.
struct CopySource {
    struct Entry {
        std::string path;         ///< below the source, without a leading separator
        std::uint64_t bytes = 0;  ///< of a file
        bool isFolder = false;
    };
    std::vector<Entry> entries;
    std::uint64_t bytes = 0;   ///< of all files
    std::uint64_t onDisk = 0;  ///< less where files have holes
    int fault = 0;             ///< the first; what it concerned is left out
};

/// Looks through the folder, links followed. `target` is left out where it lies in there.
[[nodiscard]] CopySource LookThrough(const std::string& folder, const std::string& target);

}  // namespace zvr
