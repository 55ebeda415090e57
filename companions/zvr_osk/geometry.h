#pragma once

#include "ui/geometry.h"
#include "zvr_osk/layouts.h"

#include <vector>

namespace zvr::osk {

/// Pixels, unless said otherwise.
struct Measures {
    int height = 0;  ///< of all, two fifths of the screen's at most
    int keyHeight = 0;
    int gap = 0;     ///< between keys
    int margin = 0;  ///< left and right of all keys, and above them
    int icon = 0;
    double points = 0;  ///< size of the letters
};
[[nodiscard]] Measures MeasuresFor(int screenHeight);

struct PlacedKey {
    Key key;
    Rect place;
    Rect touch;  ///< with half of the gaps around: there is no dead place between two keys
};
[[nodiscard]] std::vector<PlacedKey> PlaceKeys(const KeyRows& rows, const Measures& measures, int width);

enum class Edge { bottom, top };
[[nodiscard]] Edge Other(Edge edge);
/// Where a keyboard of this height lies in the part of the screen that is free.
[[nodiscard]] Rect KeyboardPlace(Rect area, int height, Edge edge);
/// The present edge, or the other one if the box would be covered here and not there.
[[nodiscard]] Edge EdgeClearOf(Rect box, Rect area, int height, Edge present);
/// The edge that a keyboard is nearer to whose top was dragged to `top`.
[[nodiscard]] Edge NearestEdge(int top, Rect area, int height);

}  // namespace zvr::osk
