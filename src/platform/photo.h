#pragma once

#include "platform/picture.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace zvr {

/// Reads a photo or a drawing for an area of the screen: a JPEG, PNG, GIF, BMP, WebP or TIFF file, turned as its camera
/// says. PixelSize is the whole picture's; it holds no more pixels than the area needs, see FittedInto.
/// Null if the file is missing, broken, or larger than can be taken to memory. Takes its time; any thread may call.
[[nodiscard]] PicturePointer LoadPhoto(const std::string& path, Size area);

/// The size that a picture is shown in: its own, or as much smaller as the area asks for. At least 1 by 1.
[[nodiscard]] inline Size FittedInto(Size picture, Size area) {
    double width = picture.width;
    double height = picture.height;
    const double ratio = width / height;
    if (width > area.width) {
        width = area.width;
        height = width / ratio;
    }
    if (height > area.height) {
        height = area.height;
        width = height * ratio;
    }
    return {std::max(1, static_cast<int>(std::lround(width))), std::max(1, static_cast<int>(std::lround(height)))};
}

}  // namespace zvr
