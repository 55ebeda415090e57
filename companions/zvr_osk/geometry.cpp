#include "zvr_osk/geometry.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zvr::osk {
namespace {

struct Row {
    int screenHeight;  ///< from this height on
    Measures measures;
};
constexpr double iconOfPoints = 1.25;
constexpr std::array table{
    Row{480, {192, 44, 3, 4, 25, 20}},
    Row{600, {240, 53, 5, 6, 28, 22}},
    Row{800, {320, 71, 6, 8, 36, 29}},
};

Measures Scaled(const Measures& from, double factor) {
    // Cut, not rounded: never more than two fifths of the screen.
    const auto scale = [factor](int pixels) { return static_cast<int>(pixels * factor); };
    Measures to{scale(from.height),  scale(from.keyHeight), scale(from.gap), scale(from.margin), 0,
                from.points * factor};
    to.icon = static_cast<int>(std::lround(to.points * iconOfPoints));
    return to;
}

bool Meet(Rect a, Rect b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

}  // namespace

Measures MeasuresFor(int screenHeight) {
    const Row* fitting = &table.front();
    for (const Row& row : table) {
        if (screenHeight >= row.screenHeight) {
            fitting = &row;
        }
    }
    // The sizes of car screens are drawn as they stand; what is smaller or larger than all of them is scaled.
    if (screenHeight >= table.front().screenHeight && screenHeight < table.back().screenHeight) {
        return fitting->measures;
    }
    return Scaled(fitting->measures, static_cast<double>(screenHeight) / fitting->screenHeight);
}

std::vector<PlacedKey> PlaceKeys(const KeyRows& rows, const Measures& measures, int width) {
    const double unit = (width - 2 * measures.margin + measures.gap) / rows.columns;
    const int pitch = measures.keyHeight + measures.gap;
    std::vector<PlacedKey> placed;
    for (std::size_t r = 0; r < rows.rows.size(); ++r) {
        double column = 0;
        const int y = measures.margin + pitch * static_cast<int>(r);
        for (const Key& key : rows.rows[r]) {
            const auto edge = [&](double at) { return static_cast<int>(std::lround(measures.margin + at * unit)); };
            const int left = edge(column);
            column += key.columns;
            const int right = edge(column);
            if (key.act == Act::nothing) {
                continue;
            }
            const Rect place{left, y, right - left - measures.gap, measures.keyHeight};
            placed.push_back({key, place, {left - measures.gap / 2, y - measures.gap / 2, right - left, pitch}});
        }
    }
    return placed;
}

Edge Other(Edge edge) {
    return edge == Edge::bottom ? Edge::top : Edge::bottom;
}

Rect KeyboardPlace(Rect area, int height, Edge edge) {
    return {area.x, edge == Edge::top ? area.y : area.y + area.height - height, area.width, height};
}

Edge EdgeClearOf(Rect box, Rect area, int height, Edge present) {
    const bool covered = Meet(box, KeyboardPlace(area, height, present));
    return covered && !Meet(box, KeyboardPlace(area, height, Other(present))) ? Other(present) : present;
}

Edge NearestEdge(int top, Rect area, int height) {
    return top + height / 2 < area.y + area.height / 2 ? Edge::top : Edge::bottom;
}

}  // namespace zvr::osk
