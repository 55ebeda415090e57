#include "options/optioneditor.h"

#include "core/dialogqueue.h"
#include "core/program.h"
#include "platform/platform.h"
#include "ui/stage.h"

namespace zvr {

OptionEditor::OptionEditor(Program& program, std::string formName)
    : form(std::move(formName)), sheet(program, form), program(program) {
    // From the loop: a control's own event must not end the control.
    sheet.onOk = [this] { this->program.platform.loop.Post(lifetime.Guard([this] { Accept(); })); };
    sheet.onCancel = [this] { this->program.platform.loop.Post(lifetime.Guard([this] { Close(); })); };
    program.stage.Add(form);
}

void OptionEditor::Open(std::vector<Option> newRows, Values values) {
    if (program.dialogs.IsOpenBelow(form)) {
        return;
    }
    rows = std::move(newRows);
    sheet.rows = rows;
    sheet.values = std::move(values);
    program.dialogs.OpenBelow(form, [this] { sheet.Build(); });
}

void OptionEditor::Accept() {
    if (asking || !program.dialogs.IsOpenBelow(form)) {
        return;
    }
    if (const std::string wrong = fault ? fault(sheet.values) : std::string(); !wrong.empty()) {
        asking = true;
        (void)program.showMessage(wrong);
        asking = false;
        return;
    }
    const Values values = sheet.values;
    Close();
    if (done) {
        done(values);
    }
}

void OptionEditor::Close() {
    if (!asking && program.dialogs.IsOpenBelow(form)) {
        program.dialogs.CloseBelow(form);
        sheet.Forget();
    }
}

}  // namespace zvr
