#include "options/optionlook.h"

#include "platform/textmeasure.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zvr {
namespace {

constexpr double pixelsOfPoint = 96.0 / 72;
constexpr double capitalsBelowTop = 0.69;  ///< of the size in pixels: the middle of a capital below its label's top

constexpr Color Rgb(unsigned hex) {
    return ((hex & 0xFFU) << 16U) | (hex & 0xFF00U) | (hex >> 16U);
}

constexpr OptionLook dayLook{Rgb(0x20262B), Rgb(0x0F1214), Rgb(0x14181B), Rgb(0x191E22), Rgb(0x0A0C0E), Rgb(0x363E45),
                             Rgb(0x272D33), Rgb(0x56616A), Rgb(0x262C31), Rgb(0x1F2429), Rgb(0x3A434A), Rgb(0xF1F4F6),
                             Rgb(0xAEB8BF), Rgb(0xCBD3D8), Rgb(0xF4F7F8), Rgb(0xFF9447), Rgb(0x84461B), Rgb(0xFFFFFF),
                             Rgb(0x727D85), Rgb(0xE3E8EB), Rgb(0xB4BEC5), Rgb(0xFFFFFF), Rgb(0x15191C)};
constexpr OptionLook nightLook{Rgb(0x0E0B09), Rgb(0x070504), Rgb(0x0A0806), Rgb(0x0D0A08), Rgb(0x030202), Rgb(0x1C1612),
                               Rgb(0x15110E), Rgb(0x3D3026), Rgb(0x120E0B), Rgb(0x0F0C09), Rgb(0x251D16), Rgb(0xBF9D80),
                               Rgb(0x977B63), Rgb(0x9A806A), Rgb(0xB3967C), Rgb(0xD0712B), Rgb(0x683716), Rgb(0xCDAA8C),
                               Rgb(0x5C4A3A), Rgb(0x9B8675), Rgb(0x897564), Rgb(0xB09883), Rgb(0x050302)};

int TextPixels(const Font& font) {
    return static_cast<int>(std::lround(font.points * pixelsOfPoint));
}

/// The text broken at blanks into lines of that width at most; a word that is too wide stays whole.
std::vector<std::string> Broken(const std::string& text, const Font& font, int width) {
    std::vector<std::string> lines{""};
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        const std::string word = text.substr(at, end - at);
        const std::string longer = lines.back().empty() ? word : lines.back() + " " + word;
        if (!lines.back().empty() && TextSize(font, longer).width > width) {
            lines.push_back(word);
        } else {
            lines.back() = longer;
        }
        at = end + 1;
    }
    return lines;
}

bool Fits(const std::vector<std::string>& lines, const Font& font, int width) {
    return std::all_of(lines.begin(), lines.end(),
                       [&](const std::string& line) { return TextSize(font, line).width <= width; });
}

}  // namespace

int OptionLook::Scaled(int pixels) const {
    return static_cast<int>(std::lround(pixels * scale));
}

Font OptionLook::TextFont(double points, bool medium) const {
    Font font;
    font.face = medium ? "Roboto Medium" : "Roboto";
    font.points = points * scale;
    return font;
}

Plate OptionLook::Sunk(int radius) const {
    return {wellEdge, wellEdge, line, Scaled(radius), 1, true};
}

OptionLook LookFor(Size screen, bool night) {
    OptionLook look = night ? nightLook : dayLook;
    const bool low = screen.height < 540;
    look.scale = std::clamp(std::min(screen.height / (low ? 480.0 : 600.0), screen.width / 800.0), 0.5, 3.0);
    look.margin = look.Scaled(low ? 12 : 16);
    look.footGap = look.Scaled(low ? 8 : 12);
    look.foot = look.Scaled(76);
    look.tabWidth = look.Scaled(screen.width >= 1000 * look.scale ? 272 : 236);
    look.tabRow = look.Scaled(low ? 50 : 62);
    look.row = look.Scaled(low ? 56 : 60);
    look.heading = look.Scaled(low ? 36 : 40);
    return look;
}

void PlaceText(Control& label, Rect room, const std::string& text, const OptionLook& look, double points, bool medium) {
    label.caption = text;
    label.overflow = Overflow::ellipsis;
    const int width = room.width - 3;  // what is measured and what is painted differ by a pixel or two
    Font font = look.TextFont(points, medium);
    std::vector<std::string> lines{text};
    if (TextSize(font, text).width > width) {
        for (const double smaller : {std::min(points, 15.0), 14.0, 13.0}) {
            font = look.TextFont(std::min(points, smaller), medium);
            lines = Broken(text, font, width);
            const bool high = static_cast<int>(lines.size()) * TextSize(font, text).height <= room.height + 4;
            if (high && Fits(lines, font, width)) {
                break;
            }
            lines = {text};
        }
    }
    label.font = font;
    const int lineHeight = TextSize(font, text).height;
    const int others = (static_cast<int>(lines.size()) - 1) * lineHeight;
    const int top = room.y + room.height / 2 - others / 2 - static_cast<int>(capitalsBelowTop * TextPixels(font));
    if (lines.size() > 1) {
        std::string broken;
        for (const std::string& line : lines) {
            broken += (broken.empty() ? "" : "\n") + line;
        }
        label.caption = broken;
    } else if (TextSize(font, text).width > width) {
        // One line whose middle is left out: it must not break at a blank.
        std::string tied;
        for (const char c : text) {
            tied += c == ' ' ? "\xC2\xA0" : std::string(1, c);
        }
        label.caption = tied;
    }
    label.Move({room.x, top, room.width, others + lineHeight + 2});
}

std::string WithoutColon(std::string text) {
    if (text.ends_with(':')) {
        text.pop_back();
    }
    return text;
}

void OptionKey::Make(Form& form, std::string name, int index, Rect newPlace, const OptionLook& newLook) {
    look = &newLook;
    place = newPlace;
    plate = &form.Add(ControlKind::picture, std::move(name), index);
    plate->role = "key";
    plate->Move(place);
    plate->caption = text;
    plate->SetTag(icon);
    if (!icon.empty()) {
        image = &form.Add(ControlKind::image, "icon", index);
        image->container = plate;
    }
    if (!text.empty()) {
        label = &form.Add(ControlKind::label, "text", index);
        label->align = iconBeside ? Align::left : Align::center;
    }
    if (swatch) {
        chip = &form.Add(ControlKind::picture, "swatch", index);
        chip->container = plate;
    }
    ControlEvents& events = plate->events;
    events.onDown = [this](Point) {
        if (enabled) {
            Dress(true);
            if (onDown) {
                onDown();
            }
        }
    };
    events.onUp = [this](Point) {
        Dress(false);
        if (onUp) {
            onUp();
        }
    };
    events.onClick = [this](Point) {
        if (enabled && onClick) {
            onClick();
        }
    };
    Dress(false);
}

void OptionKey::Enable(bool on) {
    if (enabled != on) {
        enabled = on;
        Dress(false);
    }
}

void OptionKey::SetText(const std::string& newText) {
    if (text != newText && label != nullptr) {
        text = newText;
        plate->caption = text;
        Dress(false);
    }
}

void OptionKey::SetSwatch(Color color) {
    if (swatch != color) {
        swatch = color;
        Dress(false);
    }
}

void OptionKey::Dress(bool pressed) {
    const int radius = look->Scaled(10);
    const bool raised = style != KeyStyle::quiet && enabled;
    Plate body{raised ? look->keyTop : look->flatTop,
               raised ? look->keyBottom : look->flatBottom,
               raised ? look->keyHigh : look->line,
               radius,
               1,
               true};
    if (style == KeyStyle::primary && enabled) {
        body.edge = look->silver;
        body.edgeWidth = 2;
    }
    if (pressed) {
        body = {look->pressTop, look->pressBottom, look->pressEdge, radius, 2, true};
    }
    plate->plate = body;
    const Color ink = pressed ? look->pressInk : !enabled ? look->off : raised ? look->text : look->silver;
    const int down = pressed ? 2 : 0;
    if (chip != nullptr) {
        const int inset = look->Scaled(12);
        chip->Move({inset, inset + down, place.width - 2 * inset, place.height - 2 * inset});
        chip->plate = {*swatch, *swatch, ink, look->Scaled(5), 1, true};
    }
    const int gap = look->Scaled(6);
    int iconSize = look->Scaled(text.empty() ? 34 : 24);
    if (text.empty() && place.height < look->Scaled(60)) {
        iconSize = look->Scaled(28);
    }
    const int capitals = look->Scaled(14);
    if (image != nullptr) {
        image->picture = IconPicture(icon, iconSize, ink);
        const Size size = image->picture.get() == nullptr ? Size{} : image->picture.get()->PixelSize();
        const int block = text.empty() || iconBeside ? size.height : size.height + gap + capitals;
        const int left = iconBeside ? look->Scaled(10) : (place.width - size.width) / 2;
        image->Move({left, (place.height - block) / 2 + down, size.width, size.height});
    }
    if (label != nullptr) {
        Rect room{place.x + 4, place.y + down, place.width - 8, place.height};
        if (image != nullptr && iconBeside) {
            const int begin = look->Scaled(10 + 24 + 8);
            room = {place.x + begin, place.y + down, place.width - begin - 4, place.height};
        } else if (image != nullptr) {
            const int block = iconSize + gap + capitals;
            const int middle = place.y + (place.height - block) / 2 + iconSize + gap + capitals / 2 + down;
            room = {place.x + 4, middle - look->Scaled(12), place.width - 8, look->Scaled(24)};
        }
        label->foreColor = ink;
        PlaceText(*label, room, text, *look, 15, true);
    }
}

}  // namespace zvr
