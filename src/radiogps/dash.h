#pragma once

#include "ui/geometry.h"

#include <vector>

namespace zvr {

/// A needle with a round end that turns around the middle of a hub, in pixels of its dial.
struct Needle {
    Point middle;
    double length = 0;
    double width = 0;
    int hub = 0;         ///< radius
    double degrees = 0;  ///< 0 points right; it turns clockwise
};

/// The pixels that needle and hub cover within an area, as pieces of rows: from top to bottom, in a row from left to
/// right, none touching another.
[[nodiscard]] std::vector<Rect> NeedleRuns(const Needle& needle, Size area);

}  // namespace zvr
