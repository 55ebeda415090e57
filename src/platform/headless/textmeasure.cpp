#include "platform/textmeasure.h"

#include "platform/text.h"

#include <cmath>

namespace zvr {

/// Without typefaces every character is half as wide as the letters are high: near enough, and the same everywhere.
Size TextSize(const Font& font, std::string_view line) {
    const double pixels = font.points * 96 / 72;
    return {static_cast<int>(std::lround(static_cast<double>(text::Length(line)) * pixels / 2)),
            static_cast<int>(std::lround(pixels * 1.2))};
}

/// The machine has all but those that say so.
std::string TypefaceShown(std::string_view face) {
    return face.starts_with("Unknown") ? "Standard" : std::string(face);
}

}  // namespace zvr
