#include "platform/desktop.h"

#include "platform/linux/otherwindows.h"

#include <unistd.h>
#include <algorithm>
#include <cstdint>
#include <vector>

namespace zvr {
namespace {

constexpr std::string_view purpose = "the taskbar can't be hidden or shown";

/// A hidden panel as it is noted at the root window: its window, and its process, since window numbers come again.
struct Panel {
    std::uint32_t window = 0;
    std::uint32_t process = 0;
    friend bool operator==(const Panel&, const Panel&) = default;
};

}  // namespace

struct Desktop::State {
    OtherWindows windows;

    [[nodiscard]] xcb_atom_t Note() const { return windows.Atom("_ZVR_HIDDEN_PANELS"); }
    [[nodiscard]] std::vector<Panel> Noted() const;
    void HidePanels();
};

std::vector<Panel> Desktop::State::Noted() const {
    const std::vector<std::uint32_t> numbers = windows.Numbers(windows.Root(), Note(), XCB_ATOM_CARDINAL);
    std::vector<Panel> panels;
    for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) {
        panels.push_back({numbers[i], numbers[i + 1]});
    }
    return panels;
}

void Desktop::State::HidePanels() {
    std::vector<Panel> noted = Noted();
    std::vector<Panel> found;
    for (const xcb_window_t window : windows.All()) {
        const Panel panel{window, windows.IsDock(window) ? windows.ProcessOf(window) : 0};
        if (windows.IsDock(window) && panel.process != static_cast<std::uint32_t>(getpid()) &&
            windows.IsViewable(window)) {
            found.push_back(panel);
            if (std::find(noted.begin(), noted.end(), panel) == noted.end()) {
                noted.push_back(panel);
            }
        }
    }
    if (found.empty()) {
        return;
    }
    // The note comes first: a run that is killed between the two leaves a screen that the next one can mend.
    static_assert(sizeof(Panel) == 8);
    xcb_change_property(windows.Connection(), XCB_PROP_MODE_REPLACE, windows.Root(), Note(), XCB_ATOM_CARDINAL, 32,
                        static_cast<std::uint32_t>(noted.size() * 2), noted.data());
    for (const Panel& panel : found) {
        xcb_unmap_window(windows.Connection(), panel.window);
    }
    xcb_flush(windows.Connection());
}

Desktop::Desktop() : state(std::make_unique<State>()) {}
Desktop::~Desktop() = default;

void Desktop::HideTaskbar() {
    if (!state->windows.Connect(purpose)) {
        return;
    }
    state->HidePanels();
    // A panel that was started again comes up visible.
    state->windows.Watch([this] { state->HidePanels(); });
}

void Desktop::ShowTaskbar() {
    OtherWindows& windows = state->windows;
    if (!windows.Connect(purpose)) {
        return;
    }
    for (const Panel& panel : state->Noted()) {
        if (windows.IsDock(panel.window) && windows.ProcessOf(panel.window) == panel.process) {
            xcb_map_window(windows.Connection(), panel.window);
        }
    }
    xcb_delete_property(windows.Connection(), windows.Root(), state->Note());
    xcb_flush(windows.Connection());
    windows.StopWatching();
}

}  // namespace zvr
