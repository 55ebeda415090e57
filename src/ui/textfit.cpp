#include "ui/textfit.h"

#include "platform/text.h"

#include <algorithm>
#include <array>

namespace zvr {
namespace {

constexpr std::string_view ellipsis = "…";
constexpr std::size_t longestText = 4000;  ///< characters that are looked at: no room has more
constexpr std::size_t leastKept = 12;      ///< characters of a word that lost its middle
constexpr std::array scales{1.0, 0.9, 0.8};

using Lines = std::vector<std::string>;

class Breaker {
public:
    Breaker(int width, double scale, const MeasureLine& measure) : width(width), scale(scale), measure(measure) {}

    [[nodiscard]] bool Fits(std::string_view line) const { return measure(line, scale).width <= width; }

    [[nodiscard]] Lines Break(std::string_view text) const {
        Lines lines;
        for (const std::string_view paragraph : text::Split(text, '\n')) {
            lines.emplace_back();
            bool first = true;
            for (std::string_view word : text::Split(paragraph, ' ')) {
                const std::string joined = lines.back() + (first ? "" : " ") + std::string(word);
                if (first || Fits(joined)) {
                    lines.back() = joined;
                } else {
                    lines.emplace_back(word);
                }
                first = false;
                BreakLast(lines);
            }
        }
        return lines;
    }

private:
    /// Breaks the last line, one word, as often as it is too wide.
    void BreakLast(Lines& lines) const {
        while (!Fits(lines.back())) {
            const std::string line = lines.back();
            const std::size_t length = FittingLength(line);
            if (length >= line.size()) {
                return;  // a single character: nothing is left to break
            }
            lines.back() = line.substr(0, length);
            lines.push_back(line.substr(length));
        }
    }

    /// Bytes that fit, at least one character; up to behind the last slash among them, if there is one.
    [[nodiscard]] std::size_t FittingLength(std::string_view line) const {
        std::size_t low = 1;
        for (std::size_t high = text::Length(line); low < high;) {
            const std::size_t middle = (low + high + 1) / 2;
            if (Fits(text::Mid(line, 0, middle))) {
                low = middle;
            } else {
                high = middle - 1;
            }
        }
        const std::string_view fitting = text::Mid(line, 0, low);
        const auto slash = fitting.find_last_of("/\\");
        return slash == fitting.npos || slash == 0 ? fitting.size() : slash + 1;
    }

    int width;
    double scale;
    const MeasureLine& measure;
};

std::string_view LongestWord(std::string_view text) {
    std::string_view longest;
    for (const std::string_view paragraph : text::Split(text, '\n')) {
        for (const std::string_view word : text::Split(paragraph, ' ')) {
            if (text::Length(word) > text::Length(longest)) {
                longest = word;
            }
        }
    }
    return longest;
}

/// The text with its longest word cut in the middle, as little as makes it fit into so many lines; none if that isn't
/// enough.
std::string WithoutMiddle(const std::string& text, const Breaker& breaker, std::size_t most) {
    const std::string_view word = LongestWord(text);
    const auto begin = static_cast<std::size_t>(word.data() - text.data());
    const auto cut = [&](std::size_t kept) {
        const std::size_t length = text::Length(word);
        const std::string shorter = std::string(text::Mid(word, 0, kept / 2)) + std::string(ellipsis) +
                                    std::string(text::Mid(word, length - (kept - kept / 2), kept));
        return text.substr(0, begin) + shorter + text.substr(begin + word.size());
    };
    std::size_t low = leastKept;
    std::size_t high = text::Length(word);
    if (high <= low || breaker.Break(cut(low)).size() > most) {
        return {};
    }
    while (low + 1 < high) {
        const std::size_t middle = (low + high) / 2;
        (breaker.Break(cut(middle)).size() <= most ? low : high) = middle;
    }
    return cut(low);
}

Lines CutAtEnd(Lines lines, std::size_t most, const Breaker& breaker) {
    lines.resize(most);
    std::string& last = lines.back();
    while (!last.empty() && !breaker.Fits(last + std::string(ellipsis))) {
        last = text::Mid(last, 0, text::Length(last) - 1);
    }
    last += ellipsis;
    return lines;
}

}  // namespace

FittedText FitText(std::string_view wanted, Size room, const MeasureLine& measure) {
    std::string text(text::Mid(wanted, 0, longestText));
    std::erase(text, '\r');
    for (const double scale : scales) {
        const Breaker breaker(room.width, scale, measure);
        const int height = std::max(1, measure("X", scale).height);
        const auto most = static_cast<std::size_t>(std::max(1, room.height / height));
        Lines lines = breaker.Break(text);
        if (lines.size() <= most) {
            return {std::move(lines), scale};
        }
        if (!breaker.Fits(LongestWord(text)) || scale == scales.back()) {
            if (const std::string shorter = WithoutMiddle(text, breaker, most); !shorter.empty()) {
                return {breaker.Break(shorter), scale};
            }
        }
        if (scale == scales.back()) {
            return {CutAtEnd(std::move(lines), most, breaker), scale};
        }
    }
    return {};
}

}  // namespace zvr
