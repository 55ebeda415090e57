#pragma once

#include "ui/geometry.h"

#include <optional>
#include <string_view>

namespace zvr {

/// The size in pixels of a PNG file that is whole: right header, every chunk with its check sum, picture data and
/// an end. Far cheaper than decoding it, and finds what breaks files in practice: cut, overwritten, flipped bits.
[[nodiscard]] std::optional<Size> CheckPng(std::string_view file);

}  // namespace zvr
