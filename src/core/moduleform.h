#pragma once

#include "ui/form.h"

namespace zvr {

class Program;

enum class History { recorded, notRecorded };

/// What all skinned forms have in common: their place on the stage, function keys, released buttons, and the
/// note that they came to the front.
void LoadModuleForm(Program& program, Form& form, History history = History::recorded);

}  // namespace zvr
