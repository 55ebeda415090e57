#pragma once

#include "ui/form.h"

#include <functional>
#include <string>

namespace zvr {

class Program;

/// Colours of the dialogs that no skin describes, taken from the general section of the applied one.
struct DialogLook {
    Color ground = 0;
    Color plate = 0;  ///< of a button
    Color edge = 0;
    Color text = 0;
    Color dim = 0;
    Color selection = 0;
};

[[nodiscard]] DialogLook LookOfSkin(const Program& program);

inline constexpr int dialogTarget = 76;  ///< pixels: the least that a finger finds in a moving car
inline constexpr int dialogMargin = 12;

[[nodiscard]] Font DialogFont(double points, bool bold = false);

/// A text in the dialog; `place` in pixels.
Control& AddDialogText(Form& form, std::string name, int index, Rect place, const std::string& caption, Color color,
                       double points);

/// A button that takes the touch, with its text in the middle. An empty handler makes it deaf.
Control& AddDialogButton(Form& form, std::string plateName, std::string textName, int index, Rect place,
                         const std::string& caption, const DialogLook& look, std::function<void()> onClick);

/// Background and edge of the dialog, in the middle of the root; the size in pixels.
void FrameDialog(Program& program, Form& form, Size size, const DialogLook& look);

}  // namespace zvr
