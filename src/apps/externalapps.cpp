#include "apps/externalapps.h"

#include "core/moduleform.h"

namespace zvr {

ExternalApps::ExternalApps(Program& program) : program(program) {}

void ExternalApps::Load() {
    LoadModuleForm(program, form);
    applist = &form.Add(ControlKind::grid, "applist");
    form.focus = applist;
}

}  // namespace zvr
