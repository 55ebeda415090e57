#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

namespace zvr {

/// Three tables of 256 levels, 0..65535: red, green, blue.
using GammaRamp = std::array<std::array<std::uint16_t, 256>, 3>;

/// The display's brightness tables.
class Display {
public:
    Display();
    ~Display();

    /// The tables as the display holds them now, scaled to 256 entries. None if it has no ramp.
    [[nodiscard]] std::optional<GammaRamp> Ramp() const;
    void SetRamp(const GammaRamp& ramp);  ///< a display that refuses stays as it is

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
