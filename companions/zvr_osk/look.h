#pragma once

#include "ui/geometry.h"

#include <optional>
#include <string>
#include <string_view>

namespace zvr::osk {

/// What zvr tells of itself.
struct ZvrLook {
    std::string language;
    std::string skinFolder;  ///< with a trailing separator; empty without a skin
    Color background = RgbColor(0x0F, 0x12, 0x14);
    Color text = RgbColor(0xF1, 0xF4, 0xF6);
    Color selection = RgbColor(0x84, 0x46, 0x1B);
    bool dialog = false;      ///< asks the driver something
    bool shown = true;        ///< and not behind another program
    double dim = 0;           ///< share that zvr darkens its windows by
    bool digits = false;      ///< are typed into the box
    std::optional<Rect> box;  ///< that the driver types into, pixels of the screen
};
/// None from anything else than an answer to "look".
[[nodiscard]] std::optional<ZvrLook> ReadLook(std::string_view answer);

/// Top and bottom colour of a surface.
struct Shade {
    Color top = 0;
    Color bottom = 0;
};
struct Palette {
    Shade ground;
    Color shadow = 0;    ///< below keys and above the ground
    Color hairline = 0;  ///< of silver, on top
    Shade key;
    Color keyEdge = 0;
    Shade quiet;
    Color quietEdge = 0;
    Shade rim;  ///< of the key that matters
    Shade pressed;
    Color pressedEdge = 0;
    Color ink = 0;
    Color quietInk = 0;
    Color pressedInk = 0;
    Color litInk = 0;  ///< of what is switched on
};
/// Surfaces lie between the skin's background and its text, nearer to the background the dimmer the text is.
[[nodiscard]] Palette PaletteOf(const ZvrLook& look);
/// The ink, or black or white where that would be read better on this ground.
[[nodiscard]] Color Legible(Color ink, Color ground);

}  // namespace zvr::osk
