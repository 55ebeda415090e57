#pragma once

#include "ui/geometry.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// Room that a line takes when its font is set in `scale` times its size. Width and height in pixels.
using MeasureLine = std::function<Size(std::string_view line, double scale)>;

struct FittedText {
    std::vector<std::string> lines;
    double scale = 1;  ///< of the font's size
};

/// The text as lines that fit into the room, whatever it holds. Lines break at blanks, behind a slash of a path, and in
/// the end anywhere. A path that is still too much loses its middle, since its end tells most; a long tale is set
/// smaller; what even then finds no room ends in an ellipsis.
[[nodiscard]] FittedText FitText(std::string_view text, Size room, const MeasureLine& measure);

}  // namespace zvr
