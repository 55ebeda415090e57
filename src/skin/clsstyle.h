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

    Form* Client = nullptr;    ///< the form that is styled, or null
    bool AutoDrag = false;     ///< a press of the main button moves the window
    bool AutoSysMenu = false;  ///< a press of the second button opens the window's menu

    [[nodiscard]] bool ControlBox() const { return Has(&Form::style, 0x80000); }
    [[nodiscard]] bool MaxButton() const { return Has(&Form::style, 0x10000); }
    [[nodiscard]] bool MinButton() const { return Has(&Form::style, 0x20000); }
    [[nodiscard]] bool Sizable() const { return Has(&Form::style, 0x40000); }
    [[nodiscard]] bool Titlebar() const { return Has(&Form::style, 0xC00000); }  ///< any of its two bits
    [[nodiscard]] bool ToolWindow() const { return Has(&Form::extendedStyle, 0x80); }
    [[nodiscard]] bool WhatsThisButton() const { return Has(&Form::extendedStyle, 0x400); }
    [[nodiscard]] bool TopMost() const { return Client != nullptr && Client->topMost; }

    bool SetControlBox(bool on) { return Set(&Form::style, 0x80000, on); }
    bool SetMaxButton(bool on) { return Set(&Form::style, 0x10000, on); }
    bool SetMinButton(bool on) { return Set(&Form::style, 0x20000, on); }
    bool SetSizable(bool on) { return Set(&Form::style, 0x40000, on); }
    bool SetTitlebar(bool on) { return Set(&Form::style, 0xC00000, on); }
    bool SetToolWindow(bool on) { return Set(&Form::extendedStyle, 0x80, on); }
    bool SetWhatsThisButton(bool on) { return Set(&Form::extendedStyle, 0x400, on); }
    bool SetTopMost(bool on);  ///< by the stacking order, not by a bit; neither moves nor sizes the window

    void ShowSysMenu(Point onScreen);
    /// What a form forwards: presses of the main or the second button, `onScreen` in pixels.
    void MouseDown(bool mainButton, Point onScreen);

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
