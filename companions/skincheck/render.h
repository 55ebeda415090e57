#pragma once

#include "skin/check/samples.h"

#include <filesystem>
#include <string>

namespace zvr {
struct Platform;
}

namespace skincheck {

struct RenderWish {
    std::filesystem::path out;
    zvr::SampleState state;
    bool outlines = false;
    std::string language = "en";  ///< of captions and fixed texts
};

/// Paints each screen of the skin into a file of its own. `programFolder` has the languages. Empty when all was
/// written, else why not.
[[nodiscard]] std::string Render(zvr::Platform& platform, const std::filesystem::path& skin,
                                 const std::filesystem::path& programFolder, const RenderWish& wish);

}  // namespace skincheck
