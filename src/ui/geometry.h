#pragma once

#include <cmath>
#include <cstdint>
#include <string>

namespace zvr {

/// Forms and controls are placed in twips, whatever the screen's resolution says.
inline constexpr int twipsPerPixel = 15;
[[nodiscard]] inline constexpr double Twips(double pixels) {
    return pixels * twipsPerPixel;
}
/// The nearest pixel.
[[nodiscard]] inline int Pixels(double twips) {
    return static_cast<int>(std::lround(twips / twipsPerPixel));
}
/// Where a thing begins that lies in the middle of a room; below 0 if it is larger.
[[nodiscard]] inline constexpr double Centred(double room, double size) {
    return (room - size) / 2;
}

/// A place in pixels: of a form in its window, or of a pointer event in the root window.
struct Point {
    int x = 0;
    int y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    int width = 0;
    int height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    [[nodiscard]] bool Contains(Point p) const { return p.x >= x && p.y >= y && p.x < x + width && p.y < y + height; }
    [[nodiscard]] bool IsEmpty() const { return width <= 0 || height <= 0; }
    friend bool operator==(const Rect&, const Rect&) = default;
};

/// 0x00BBGGRR: blue in the high byte, as skins and settings carry it.
using Color = std::uint32_t;

inline constexpr int RedOf(Color c) {
    return static_cast<int>(c & 0xFF);
}
inline constexpr int GreenOf(Color c) {
    return static_cast<int>((c >> 8) & 0xFF);
}
inline constexpr int BlueOf(Color c) {
    return static_cast<int>((c >> 16) & 0xFF);
}
inline constexpr Color RgbColor(int red, int green, int blue) {
    return static_cast<Color>(red) | static_cast<Color>(green) << 8 | static_cast<Color>(blue) << 16;
}

struct Font {
    std::string face = "Arial";
    double points = 12;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikethrough = false;
    friend bool operator==(const Font&, const Font&) = default;
};

enum class Align { left, center, right };

/// The body of a key that no skin draws: a plate with round corners, its colour running from top to bottom, an edge.
struct Plate {
    Color top = 0;
    Color bottom = 0;
    Color edge = 0;
    int radius = 0;     ///< pixels
    int edgeWidth = 0;  ///< pixels, 0 for no edge
    bool shown = false;
    friend bool operator==(const Plate&, const Plate&) = default;
};

}  // namespace zvr
