#include "apps/quickbars.h"

#include "core/moduleform.h"

namespace zvr {

QuickBars::QuickBars(Program& program) : program(program) {}

void QuickBars::Load() {
    LoadModuleForm(program, docked, History::notRecorded);
    LoadModuleForm(program, floating, History::notRecorded);
}

}  // namespace zvr
