#pragma once

#include "ui/geometry.h"

#include <cstdint>

namespace zvr {

/// A strip along the screen's top edge that maximized windows stay clear of, for as long as this lives and the process.
/// A window of its own: window managers keep strips for windows that they manage, and cover those by full-screen
/// programs.
class TopStrip {
public:
    explicit TopStrip(Size size);  ///< pixels
    ~TopStrip();
    TopStrip(const TopStrip&) = delete;
    TopStrip& operator=(const TopStrip&) = delete;

    const Size size;

private:
    std::uint32_t window = 0;
};

}  // namespace zvr
