#include "skin/skinvalues.h"

#include "core/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace zvr {
namespace {

/// No screen is as wide; beyond it places would not fit the numbers of a screen.
constexpr double farthestPixel = 1'000'000;

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const auto begin = text.find_first_not_of(blanks);
    return begin == text.npos ? std::string_view() : text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

std::string Listed(std::string list, std::string_view item) {
    return list + (list.empty() ? "" : ", ") + std::string(item);
}

}  // namespace

std::string SkinVersionTaken() {
    return std::to_string(ZVR_VERSION_MAJOR) + "." + std::to_string(ZVR_VERSION_MINOR);
}

std::string_view SkinText(const XmlElement& element) {
    return Trimmed(element.Text());
}

bool IsSkinColor(std::string_view text) {
    return text.size() == 7 && text[0] == '#' &&
           text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string_view::npos;
}

Color ParseSkinColor(std::string_view text) {
    if (!IsSkinColor(text)) {
        return 0;
    }
    unsigned value = 0;
    std::from_chars(text.data() + 1, text.data() + text.size(), value, 16);
    return RgbColor(static_cast<int>(value >> 16U), static_cast<int>(value >> 8U & 0xFFU),
                    static_cast<int>(value & 0xFFU));
}

double SkinNumber(std::string_view text) {
    return std::clamp(LeadingNumber(text), -farthestPixel, farthestPixel);
}

bool IsStrictNumber(std::string_view text) {
    text = Trimmed(text);
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc{} && result.ptr == text.data() + text.size() && std::isfinite(value);
}

std::string Written(double number) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

std::string InWords(const SkinRange& range) {
    std::string words;
    if (std::isfinite(range.least)) {
        words = (range.aboveLeast ? "above " : "at least ") + Written(range.least);
    }
    if (std::isfinite(range.most)) {
        words = Listed(words, (range.belowMost ? "below " : "at most ") + Written(range.most));
    }
    return words;
}

std::string InWords(const SkinValue& value) {
    return value.IsNumber() ? Listed(std::string(value.unit), InWords(value.range)) : std::string(value.unit);
}

}  // namespace zvr
