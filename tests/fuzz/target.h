#pragma once

#include <cstdlib>
#include <string_view>

namespace zvr {

/// What a target does with any bytes at all; its comment names the property that must hold.
void Try(std::string_view input);

inline void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// For a choice that the input makes.
inline unsigned FirstByte(std::string_view input) {
    return input.empty() ? 0 : static_cast<unsigned char>(input.front());
}

}  // namespace zvr
