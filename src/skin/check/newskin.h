#pragma once

#include "ui/geometry.h"

#include <string>
#include <vector>

namespace zvr {

/// A picture that a new skin names, to be drawn.
struct NewPicture {
    std::string file;  ///< below the skin's folder
    Size size;
    std::string caption;  ///< empty for none
    bool pressed = false;
};

struct NewSkin {
    std::string data;  ///< its skindata.xml
    std::vector<NewPicture> pictures;
};

inline constexpr Size smallestScreen{640, 400};  ///< that has room for fingers
inline constexpr Size largestScreen{4096, 4096};

/// The smallest skin that loads and locks nobody in: each screen with its required parts, one above the other, and
/// the few keys that it can't do without. To begin from.
[[nodiscard]] NewSkin SmallestSkin(Size screen);

}  // namespace zvr
