#pragma once

#include "ui/form.h"

namespace zvr {

class Program;

/// How a skin button behaves under the finger. `button` is an element of the form's `abutton` array.

/// Connects a new button's events.
void BindButton(Program& program, Control& button);

void ButtonDown(Program& program, Control& button);  ///< pressed picture; a volume command starts and repeats
void ButtonDrag(Control& button, Point inButton);    ///< pressed picture inside, normal picture outside
void ButtonUp(Program& program, Control& button);    ///< normal picture; any other command runs
void ButtonsRelease(Program& program, Form& form);   ///< ends the repeat; no button stays pressed

}  // namespace zvr
