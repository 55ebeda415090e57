#pragma once

#include "ui/form.h"

#include <functional>
#include <string>

namespace zvr {

class Program;

/// Colours and measures of the dialogs that no skin describes, taken from the general section of the applied one.
struct DialogLook {
    Color ground = 0;
    Color edge = 0;
    Color text = 0;
    Color dim = 0;
    Color accent = 0;  ///< of marks
    Color off = 0;     ///< text of what can't be chosen
    Color selection = 0;
    Color pressedText = 0;
    Plate key;  ///< of a button at rest
    Plate pressed;
    Plate sunk;        ///< of what can't be chosen
    int target = 0;    ///< height of a button or row, pixels: what a finger finds in a moving car
    double scale = 0;  ///< of everything else, 1 on screens up to 633 pixels high

    [[nodiscard]] int Scaled(int pixels) const;
    [[nodiscard]] Font TextFont(double points) const;  ///< in points of the smallest screen
};

[[nodiscard]] DialogLook LookOfSkin(const Program& program);

/// A button of a dialog: a plate and the text in its middle. Made once, dressed for each showing.
struct DialogButton {
    Control* plate = nullptr;
    Control* label = nullptr;

    void Dress(Rect place, const DialogLook& look) const;  ///< `place` in pixels of the form
    void Show(bool visible) const;
};

/// `look` outlives the form and is that of its present showing. An empty handler makes the button deaf.
DialogButton AddDialogButton(Form& form, const std::string& plateName, std::string textName, int index,
                             std::string caption, const DialogLook& look, std::function<void()> onClick);

/// Puts a label's line into the middle of the height of a place, in pixels of the form.
void PlaceDialogText(Control& label, Rect place);

/// The title at the top of a dialog. Made once, dressed for each showing.
Control& AddDialogTitle(Form& form, std::string caption);
void DressDialogTitle(Control& title, Rect place, const DialogLook& look);

/// Background and edge of a dialog: its rearmost control, made first.
Control& AddDialogGround(Form& form);
/// Sizes the dialog, in pixels, and puts it into the middle of the root.
void FrameDialog(const Program& program, Form& form, Control& ground, Size size, const DialogLook& look);

inline constexpr int dialogMargin = 12;  ///< pixels, to be scaled
inline constexpr int dialogGap = 8;

}  // namespace zvr
