#include "radiogps/gps.h"

#include "core/moduleform.h"

namespace zvr {

Gps::Gps(Program& program) : program(program) {}

void Gps::Load() {
    LoadModuleForm(program, form);
    picSpeedo = &form.Add(ControlKind::picture, "picSpeedo");
    picNeedle = &form.Add(ControlKind::picture, "picNeedle");
    picNeedle->visible = false;
}

}  // namespace zvr
