#include "core/messagebox.h"

#include "core/moduleform.h"
#include "core/program.h"

namespace zvr {

MessageBox::MessageBox(Program& program) : program(program) {}

void MessageBox::Load() {
    LoadModuleForm(program, form, History::notRecorded);
    form.onActivate = [this] { Activated(); };
    form.onKeyDown = [this](const KeyEvent& key) { KeyPressed(key); };
}

void MessageBox::waitForMessageBox() {
    while (program.godfather.modalBoxOpen && !program.platform.loop.IsQuitting()) {
        program.platform.loop.Wait(Milliseconds{100});
    }
}

MessageAnswer MessageBox::showMessage(std::string_view text, MessageButtons buttons) {
    waitForMessageBox();
    GodFather& godfather = program.godfather;
    godfather.modalBoxOpen = true;
    godfather.msgBoxCommVar = std::string(text) + "\t" + (buttons == MessageButtons::yesNo ? "yesno" : "ok");
    program.stage.ShowModal(form);
    const std::string answer = godfather.msgBoxCommVar;
    godfather.modalBoxOpen = false;
    if (answer == "yes") {
        return MessageAnswer::yes;
    }
    return answer == "no" || (answer != "ok" && buttons == MessageButtons::yesNo) ? MessageAnswer::no
                                                                                  : MessageAnswer::ok;
}

void MessageBox::Answer(std::string_view word) {
    program.godfather.msgBoxCommVar = word;
    program.stage.Hide(form);
}

void MessageBox::Activated() {
    const std::string& question = program.godfather.msgBoxCommVar;
    if (question.empty() || question.back() == '\t') {
        program.stage.Hide(form);
        return;
    }
    const Form& root = program.godfather.form;
    form.left = (root.width - form.width) / 2;
    form.top = (root.height - form.height) / 2;
    // The last tab: the text keeps its own.
    const auto tab = question.rfind('\t');
    asksYesNo = question.substr(tab + 1) == "yesno";
    CommandDispatcher& dispatcher = program.commanddispatcher;
    dispatcher.ShowButton(form, "messagebox.yes", asksYesNo);
    dispatcher.ShowButton(form, "messagebox.no", asksYesNo);
    dispatcher.ShowButton(form, "messagebox.ok", !asksYesNo);
    for (Control* control : form.Controls()) {
        if (control->Tag() == "**MESSAGEBOXTEXT**") {
            control->caption = question.substr(0, tab);
        }
    }
}

void MessageBox::KeyPressed(const KeyEvent& key) {
    switch (key.key) {
        case Key::escape: program.dispatchCommand(asksYesNo ? "messagebox.no" : "messagebox.ok"); break;
        case Key::enter: program.dispatchCommand(asksYesNo ? "messagebox.yes" : "messagebox.ok"); break;
        default: program.commanddispatcher.dispatchFunctionKey(key);
    }
}

}  // namespace zvr
