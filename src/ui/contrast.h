#pragma once

#include "ui/geometry.h"

#include <algorithm>
#include <cmath>

namespace zvr {

/// How bright a colour looks, 0 black to 1 white.
[[nodiscard]] inline double Luminance(Color color) {
    const auto linear = [](int value) {
        const double share = value / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(RedOf(color)) + 0.7152 * linear(GreenOf(color)) + 0.0722 * linear(BlueOf(color));
}

/// How well one colour stands out against another, 1 not at all to 21.
[[nodiscard]] inline double Contrast(Color a, Color b) {
    const auto [dark, bright] = std::minmax({Luminance(a), Luminance(b)});
    return (bright + 0.05) / (dark + 0.05);
}

}  // namespace zvr
