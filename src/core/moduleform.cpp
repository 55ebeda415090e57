#include "core/moduleform.h"

#include "core/commanddispatcher.h"
#include "core/program.h"
#include "skin/buttons.h"
#include "ui/stage.h"

namespace zvr {

void LoadModuleForm(Program& program, Form& form, History history) {
    program.stage.Add(form);
    form.isModule = true;
    form.onKeyDown = [&program](const KeyEvent& key) { program.commanddispatcher.dispatchFunctionKey(key); };
    form.onRelease = [&program, &form] { ButtonsRelease(program, form); };
    if (history == History::recorded) {
        form.onActivate = [&program, &form] { program.commanddispatcher.pushModuleHistory(form.name); };
    }
}

}  // namespace zvr
