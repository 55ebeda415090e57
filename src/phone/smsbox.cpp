#include "phone/smsbox.h"

#include "core/moduleform.h"

namespace zvr {

SmsBox::SmsBox(Program& program) : program(program) {}

void SmsBox::Load() {
    LoadModuleForm(program, form, History::notRecorded);
    smsnumberbox = &form.Add(ControlKind::textBox, "smsnumberbox");
    smstextbox = &form.Add(ControlKind::textBox, "smstextbox");
    smstextbox->text->multiline = true;
}

}  // namespace zvr
