#include "radiogps/radio.h"

#include "core/moduleform.h"

namespace zvr {

Radio::Radio(Program& program) : program(program) {}

void Radio::Load() {
    LoadModuleForm(program, form);
}

}  // namespace zvr
