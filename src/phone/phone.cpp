#include "phone/phone.h"

#include "core/moduleform.h"

namespace zvr {

Phone::Phone(Program& program) : program(program) {}

void Phone::Load() {
    LoadModuleForm(program, form);
    phonebooklist = &form.Add(ControlKind::grid, "phonebooklist");
    numberbox = &form.Add(ControlKind::textBox, "numberbox");
    form.focus = phonebooklist;
}

}  // namespace zvr
