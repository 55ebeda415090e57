#pragma once

#include "platform/screen.h"

#include <string>

namespace zvr {

/// A screen that nobody sees: it counts paints and lets a test see what would be painted.
struct Screen::State {
    EventLoop* loop = nullptr;
    Stage* stage = nullptr;
    Size size{800, 600};
    Point origin;  ///< of the root window on the screen
    bool frame = false;
    bool pointerHidden = false;
    double dim = 0;
    WindowState rootState = WindowState::normal;
    bool translucent = true;  ///< what windows may be
    std::string title;
    const Form* dragged = nullptr;
    int paints = 0;           ///< turns of the loop that repainted something
    int paintedControls = 0;  ///< dirty controls of all paints
    int paintedForms = 0;     ///< forms repainted whole

    void Paint();
    void SetRootSize(Size next);  ///< as a user or a window manager does
};

/// One shown control a line, back to front: kind, name, place, what it holds.
[[nodiscard]] std::string SceneOf(const Form& form);

}  // namespace zvr
