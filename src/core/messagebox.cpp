#include "core/messagebox.h"

#include "core/commanddispatcher.h"
#include "core/godfather.h"
#include "core/moduleform.h"
#include "core/program.h"
#include "platform/platform.h"
#include "ui/stage.h"

#include <utility>

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
    Question question{buttons, std::nullopt};
    openQuestion = &question;
    program.stage.ShowModal(form);
    if (!question.answer) {
        Settle();  // the box never stood, or went with the program
    }
    return question.answer.value_or(MessageAnswer::ok);
}

void MessageBox::Answer(std::string_view word) {
    program.godfather.msgBoxCommVar = word;
    program.stage.Hide(form);
    Settle();
}

void MessageBox::Settle() {
    // At once, not when the caller goes on: the next question waits inside of this one's wait, so its box
    // comes up, and is answered, before this caller sees its own answer.
    if (Question* const question = std::exchange(openQuestion, nullptr); question != nullptr) {
        const std::string& word = program.godfather.msgBoxCommVar;
        const bool asks = question->buttons == MessageButtons::yesNo;
        question->answer = word == "yes"                            ? MessageAnswer::yes
                           : word == "no" || (asks && word != "ok") ? MessageAnswer::no
                                                                    : MessageAnswer::ok;
        program.godfather.modalBoxOpen = false;
    }
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
        case Key::escape:
            program.dispatchCommand(asksYesNo ? "messagebox.no" : "messagebox.ok");
            break;
        case Key::enter:
            program.dispatchCommand(asksYesNo ? "messagebox.yes" : "messagebox.ok");
            break;
        default:
            program.commanddispatcher.dispatchFunctionKey(key);
    }
}

}  // namespace zvr
