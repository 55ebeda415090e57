#include "zvr_osk/look.h"

#include "answers/answerreader.h"
#include "ui/contrast.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zvr::osk {
namespace {

constexpr double leastContrast = 4.5;

Color Mixed(Color from, Color to, double share) {
    const auto mix = [share](int a, int b) {
        return std::clamp(static_cast<int>(std::lround(a + (b - a) * share)), 0, 255);
    };
    return RgbColor(mix(RedOf(from), RedOf(to)), mix(GreenOf(from), GreenOf(to)), mix(BlueOf(from), BlueOf(to)));
}

/// 0 black to 1 white or any full colour.
double Lightness(Color color) {
    const auto [low, high] = std::minmax({RedOf(color), GreenOf(color), BlueOf(color)});
    return (low + high) / 510.0;
}

Color Brightened(Color color, double factor) {
    const auto part = [factor](int value) { return std::min(255, static_cast<int>(value * factor)); };
    return RgbColor(part(RedOf(color)), part(GreenOf(color)), part(BlueOf(color)));
}

std::optional<Color> ReadColor(std::string_view text) {
    if (text.size() != 7 || text.front() != '#' || text.find_first_not_of("0123456789ABCDEF", 1) != text.npos) {
        return std::nullopt;
    }
    const auto part = [text](std::size_t at) {
        return static_cast<int>(std::strtol(std::string(text.substr(at, 2)).c_str(), nullptr, 16));
    };
    return RgbColor(part(1), part(3), part(5));
}

bool TakeColor(AnswerReader& reader, std::string_view key, Color& color) {
    const auto text = reader.Take(key) ? reader.TakeString() : std::nullopt;
    const auto read = text ? ReadColor(*text) : std::nullopt;
    color = read.value_or(color);
    return read.has_value();
}

std::optional<bool> TakeBoolean(AnswerReader& reader, std::string_view key) {
    if (!reader.Take(key)) {
        return std::nullopt;
    }
    return reader.Take("true") ? std::optional(true) : reader.Take("false") ? std::optional(false) : std::nullopt;
}

bool TakeBox(AnswerReader& reader, Rect& box) {
    const auto take = [&reader](std::string_view key, int& value) {
        const auto number = reader.Take(key) ? reader.TakeNumber() : std::nullopt;
        value = number.value_or(0);
        return number.has_value();
    };
    return take(R"({"x":)", box.x) && take(R"(,"y":)", box.y) && take(R"(,"width":)", box.width) &&
           take(R"(,"height":)", box.height) && reader.Take("}");
}

}  // namespace

std::optional<ZvrLook> ReadLook(std::string_view answer) {
    AnswerReader reader(answer);
    ZvrLook look;
    const auto language = reader.Take(R"({"ok":true,"language":)") ? reader.TakeString() : std::nullopt;
    const auto skin = language && reader.Take(R"(,"skin":)") ? reader.TakeString() : std::nullopt;
    if (!skin || !TakeColor(reader, R"(,"background":)", look.background) ||
        !TakeColor(reader, R"(,"text":)", look.text) || !TakeColor(reader, R"(,"selection":)", look.selection)) {
        return std::nullopt;
    }
    const auto dialog = TakeBoolean(reader, R"(,"dialog":)");
    const auto shown = dialog ? TakeBoolean(reader, R"(,"shown":)") : std::nullopt;
    const auto dim = shown && reader.Take(R"(,"dim":)") ? reader.TakeNumber() : std::nullopt;
    const auto digits = dim ? TakeBoolean(reader, R"(,"digits":)") : std::nullopt;
    if (!digits || !reader.Take(R"(,"box":)")) {
        return std::nullopt;
    }
    look.dialog = *dialog;
    look.shown = *shown;
    look.dim = std::clamp(*dim, 0, 100) / 100.0;
    look.digits = *digits;
    if (!reader.Take("null")) {
        Rect box;
        if (!TakeBox(reader, box)) {
            return std::nullopt;
        }
        look.box = box;
    }
    look.language = *language;
    look.skinFolder = *skin;
    return look;
}

Color Legible(Color ink, Color ground) {
    if (Contrast(ink, ground) >= leastContrast) {
        return ink;
    }
    const Color black = RgbColor(0, 0, 0);
    const Color white = RgbColor(255, 255, 255);
    return Contrast(black, ground) > Contrast(white, ground) ? black : white;
}

Palette PaletteOf(const ZvrLook& look) {
    const Color ground = look.background;
    const Color text = look.text;
    const double span = std::abs(Lightness(text) - Lightness(ground));
    // How far each surface is lifted from the ground, of the way that the text stands above it.
    const auto lifted = [&](double share) { return Mixed(ground, text, share * span); };
    Palette palette;
    palette.ground = {lifted(0.137), lifted(0.04)};
    palette.shadow = Mixed(ground, RgbColor(0, 0, 0), 0.45);
    palette.hairline = Mixed(ground, text, 0.55);
    palette.key = {lifted(0.192), lifted(0.122)};
    palette.keyEdge = lifted(0.35);
    palette.quiet = {lifted(0.113), lifted(0.082)};
    palette.quietEdge = lifted(0.208);
    palette.rim = {Mixed(ground, text, 0.96), Mixed(ground, text, 0.48)};
    palette.pressed = {Mixed(ground, text, 0.92), Mixed(ground, text, 0.73)};
    palette.pressedEdge = Mixed(ground, text, 1.04);
    palette.ink = Legible(text, palette.key.top);
    palette.quietInk = Legible(Mixed(ground, text, 0.82), palette.quiet.top);
    palette.pressedInk = Legible(Mixed(ground, text, 0.02), palette.pressed.bottom);
    palette.litInk = Legible(Brightened(look.selection, 2), palette.quiet.top);
    return palette;
}

}  // namespace zvr::osk
