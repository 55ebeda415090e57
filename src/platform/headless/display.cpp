#include "platform/headless/display.h"

namespace zvr {

Display::State::State() {
    GammaRamp straight{};
    for (auto& colour : straight) {
        for (std::size_t i = 0; i < colour.size(); ++i) {
            colour[i] = static_cast<std::uint16_t>(i * 257);
        }
    }
    ramp = straight;
}

Display::Display() : state(std::make_unique<State>()) {}
Display::~Display() = default;

std::optional<GammaRamp> Display::Ramp() const {
    return state->ramp;
}

void Display::SetRamp(const GammaRamp& ramp) {
    ++state->writes;
    if (state->ramp && !state->refuses) {
        state->ramp = ramp;
    }
}

}  // namespace zvr
