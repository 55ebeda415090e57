#include "skin/buttons.h"

#include "core/commanddispatcher.h"
#include "core/godfather.h"
#include "core/program.h"
#include "radiogps/radio.h"

namespace zvr {
namespace {

bool Repeats(const Control& button) {
    return ActsOf(button.Tag()) == Acts::onPressAndRepeats;
}

/// A button that a broken load left without its pictures keeps what it shows.
void ShowPicture(Control& button, const PicturePointer& picture) {
    if (picture != nullptr) {
        button.picture = picture;
    }
}

}  // namespace

void BindButton(Program& program, Control& button) {
    button.events.onDown = [&program, &button](Point) { ButtonDown(program, button); };
    button.events.onDrag = [&button](Point p) { ButtonDrag(button, p); };
    button.events.onUp = [&program, &button](Point) { ButtonsRelease(program, button.form); };
    button.events.onClick = [&program, &button](Point) { ButtonUp(program, button); };
}

void ButtonDown(Program& program, Control& button) {
    if (button.activePicture == nullptr) {
        return;
    }
    button.picture = button.activePicture;
    program.radio.ButtonDown(button.Tag());
    if (!Repeats(button)) {
        return;
    }
    GodFather& godfather = program.godfather;
    godfather.repetitiveCommand = button.Tag();
    // Enabled first: should the command let events run, a finger that lifts meanwhile must end the repeat.
    godfather.tmrRepetitiveExecute.Start();
    godfather.tmrRepetitiveExecute_Timer();
}

void ButtonDrag(Control& button, Point inButton) {
    const Rect place = button.Place();
    const bool outside = inButton.x < 0 || inButton.y < 0 || inButton.x > place.width || inButton.y > place.height;
    ShowPicture(button, outside ? button.normalPicture : button.activePicture);
}

void ButtonUp(Program& program, Control& button) {
    ShowPicture(button, button.normalPicture);
    if (!Repeats(button)) {
        program.dispatchCommand(button.Tag());
    }
}

void ButtonsRelease(Program& program, Form& form) {
    program.godfather.tmrRepetitiveExecute.Stop();
    program.radio.ButtonsReleased();
    for (Control* control : form.Controls()) {
        if (control->name == "abutton") {
            ShowPicture(*control, control->normalPicture);
        }
    }
}

}  // namespace zvr
