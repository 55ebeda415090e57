#pragma once

#include <span>
#include <string_view>

namespace zvr {

class Program;

/// The special elements of one module's screens: its lists, boxes, sliders, areas.
struct ModuleLayout {
    std::string_view module;
    void (*apply)(Program&);
};

/// In the order in which a skin's load applies them.
[[nodiscard]] std::span<const ModuleLayout> ModuleLayouts();

}  // namespace zvr
