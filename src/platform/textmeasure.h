#pragma once

#include "ui/geometry.h"

#include <string_view>

namespace zvr {

/// Room in pixels that one line of text takes as the screen paints it.
[[nodiscard]] Size TextSize(const Font& font, std::string_view line);

}  // namespace zvr
