#pragma once

#include "ui/geometry.h"

#include <string>
#include <string_view>

namespace zvr {

/// Room in pixels that one line of text takes as the screen paints it.
[[nodiscard]] Size TextSize(const Font& font, std::string_view line);

/// The typeface that shows for a name: the name itself, in any case, or what stands in where the machine lacks it.
[[nodiscard]] std::string TypefaceShown(std::string_view face);

}  // namespace zvr
