#pragma once

#include "platform/display.h"

namespace zvr {

/// A display that the test looks into.
struct Display::State {
    std::optional<GammaRamp> ramp;  ///< none: a display without one. Starts as the straight line
    bool refuses = false;           ///< keeps what it has
    int writes = 0;                 ///< calls of SetRamp

    State();
};

}  // namespace zvr
