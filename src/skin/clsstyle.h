#pragma once

#include "ui/form.h"

#include <cstdint>

namespace zvr {

class Screen;

/// The frame of a form's window: each property is some bits of the form's style words. Writing one reports whether
/// the words hold it afterwards; without a client nothing is held.
class clsStyle {
public:
    explicit clsStyle(Screen& screen) : screen(&screen) {}

    Form* Client = nullptr;  ///< the form that is styled, or null
    bool AutoDrag = false;   ///< a press moves the window

    [[nodiscard]] bool Titlebar() const { return Has(&Form::style, 0xC00000); }  ///< any of its two bits

    bool SetSizable(bool on) { return Set(&Form::style, 0x40000, on); }
    bool SetTitlebar(bool on) { return Set(&Form::style, 0xC00000, on); }
    bool SetTopMost(bool on);  ///< by the stacking order, not by a bit; neither moves nor sizes the window

    void MouseDown();  ///< what a form forwards: a press of the main button

private:
    using Words = Property<Form, std::uint32_t> Form::*;

    [[nodiscard]] bool Has(Words words, std::uint32_t bits) const {
        return Client != nullptr && ((Client->*words).get() & bits) != 0;
    }
    bool Set(Words words, std::uint32_t bits, bool on);

    Screen* screen;
};

/// Makes the form's window translucent: 0 clear to 254. Asked for 255 it toggles: an opaque window becomes a
/// layered one of full opacity, a layered one an ordinary one.
void SetFormAlpha(Form& form, int alpha);

}  // namespace zvr
