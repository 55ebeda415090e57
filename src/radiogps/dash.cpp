#include "radiogps/dash.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace zvr {
namespace {

constexpr double radiansPerDegree = 0.017453292519943278;
constexpr double whisker = 1e-6;  ///< pixels: what an edge may miss a pixel's middle by and still count as through it

/// A part of a row, empty to begin with.
struct Span {
    double from = std::numeric_limits<double>::max();
    double to = std::numeric_limits<double>::lowest();

    void Reach(double x) {
        from = std::min(from, x);
        to = std::max(to, x);
    }
    void Reach(const Span& other) {
        from = std::min(from, other.from);
        to = std::max(to, other.to);
    }
};

struct Place {
    double x = 0;
    double y = 0;
};

/// Where a row goes through a disc.
Span DiscSpan(Place middle, double radius, double row) {
    Span span;
    const double inside = radius * radius - (row - middle.y) * (row - middle.y);
    if (inside >= -whisker) {
        const double half = std::sqrt(std::max(inside, 0.0));
        span.Reach(middle.x - half);
        span.Reach(middle.x + half);
    }
    return span;
}

/// The needle: a rectangle with a disc at either end. That is a shape without dents, so each row goes through one
/// piece.
class Blade {
public:
    explicit Blade(const Needle& needle)
        : radius(needle.width / 2), foot{double(needle.middle.x), double(needle.middle.y)} {
        const double angle = needle.degrees * radiansPerDegree;
        const double across = std::cos(angle);
        const double down = std::sin(angle);
        tip = {foot.x + needle.length * across, foot.y + needle.length * down};
        const Place side{-down * radius, across * radius};
        corners = {Place{foot.x + side.x, foot.y + side.y}, Place{tip.x + side.x, tip.y + side.y},
                   Place{tip.x - side.x, tip.y - side.y}, Place{foot.x - side.x, foot.y - side.y}};
    }

    [[nodiscard]] Span At(double row) const {
        Span span = DiscSpan(foot, radius, row);
        span.Reach(DiscSpan(tip, radius, row));
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const Place a = corners[i];
            const Place b = corners[(i + 1) % corners.size()];
            if ((a.y < row) != (b.y < row)) {
                span.Reach(a.x + (row - a.y) / (b.y - a.y) * (b.x - a.x));
            }
        }
        return span;
    }

private:
    double radius;
    Place foot;
    Place tip;
    std::array<Place, 4> corners;
};

void Add(std::vector<Rect>& runs, int y, const Span& span, int width) {
    if (span.from > span.to) {
        return;
    }
    const int from = static_cast<int>(std::clamp(std::ceil(span.from - whisker), 0.0, double(width)));
    const int to = static_cast<int>(std::clamp(std::floor(span.to + whisker), -1.0, double(width) - 1));
    if (from > to) {
        return;
    }
    if (!runs.empty() && runs.back().y == y && runs.back().x + runs.back().width >= from) {
        const int end = std::max(runs.back().x + runs.back().width, to + 1);
        runs.back().width = end - runs.back().x;
    } else {
        runs.push_back({from, y, to - from + 1, 1});
    }
}

}  // namespace

std::vector<Rect> NeedleRuns(const Needle& needle, Size area) {
    const Blade blade(needle);
    const Place middle{double(needle.middle.x), double(needle.middle.y)};
    std::vector<Rect> runs;
    for (int y = 0; y < area.height; ++y) {
        std::array<Span, 2> spans{DiscSpan(middle, needle.hub, y), blade.At(y)};
        if (spans[1].from < spans[0].from) {
            std::swap(spans[0], spans[1]);
        }
        Add(runs, y, spans[0], area.width);
        Add(runs, y, spans[1], area.width);
    }
    return runs;
}

}  // namespace zvr
