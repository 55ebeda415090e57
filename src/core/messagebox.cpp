#include "core/messagebox.h"

#include "core/commanddispatcher.h"
#include "core/dialogqueue.h"
#include "core/godfather.h"
#include "core/moduleform.h"
#include "core/program.h"
#include "platform/platform.h"
#include "skin/skinner.h"

#include <algorithm>

namespace zvr {
namespace {

constexpr std::string_view textToken = "**MESSAGEBOXTEXT**";

}  // namespace

MessageBox::MessageBox(Program& program) : program(program) {}

void MessageBox::Load() {
    LoadModuleForm(program, form, History::notRecorded);
    form.onKeyDown = [this](const KeyEvent& key) { KeyPressed(key); };
}

MessageAnswer MessageBox::showMessage(std::string_view text, MessageButtons buttons) {
    Question question{++questions, std::string(text), buttons == MessageButtons::yesNo};
    if (!question.asksYesNo && program.dialogs.HasNews(text)) {
        return MessageAnswer::ok;
    }
    DialogRequest request{form, [this, &question] { Fill(question); }};
    if (!question.asksYesNo) {
        request.news = question.text;
    }
    if (!program.dialogs.Show(request)) {
        return MessageAnswer::none;
    }
    return request.answer == "yes"  ? MessageAnswer::yes
           : request.answer == "no" ? MessageAnswer::no
                                    : MessageAnswer::ok;
}

void MessageBox::Answer(std::string_view word) {
    program.godfather.msgBoxCommVar = word;
    program.dialogs.Settle(form, word);
}

void MessageBox::Fill(Question& question) {
    shownNumber = question.number;
    asksYesNo = question.asksYesNo;
    program.godfather.msgBoxCommVar = question.text + "\t" + (asksYesNo ? "yesno" : "ok");
    form.visible = CanBeAnswered(asksYesNo);
    if (!form.visible) {
        if (!question.askedPlainly) {
            question.askedPlainly = true;
            AskPlainly(question);
        }
        return;
    }
    form.CentreIn(program.godfather.form);
    CommandDispatcher& dispatcher = program.commanddispatcher;
    dispatcher.ShowButton(form, "messagebox.yes", asksYesNo);
    dispatcher.ShowButton(form, "messagebox.no", asksYesNo);
    dispatcher.ShowButton(form, "messagebox.ok", !asksYesNo);
    for (Control* control : form.Controls()) {
        if (control->Tag() == textToken) {
            control->overflow = Overflow::fit;
            control->caption = question.text;
        }
    }
}

bool MessageBox::CanBeAnswered(bool yesNo) const {
    const auto has = [this](std::string_view tag) {
        return std::any_of(form.Controls().begin(), form.Controls().end(), [tag](const Control* control) {
            return control->Tag() == tag && (control->kind == ControlKind::label || control->normalPicture != nullptr);
        });
    };
    const bool keys = yesNo ? has("messagebox.yes") && has("messagebox.no") : has("messagebox.ok");
    return keys && has(textToken) && !program.skinner.IsLoading();
}

bool MessageBox::IsOpen(unsigned number) const {
    const DialogRequest* const open = program.dialogs.Open();
    return open != nullptr && &open->form == &form && shownNumber == number;
}

/// In the middle of a skin's load, while a fault of it is told, the box has no look and maybe no keys; and a skin may
/// have none at all. The driver must not be locked out by that.
void MessageBox::AskPlainly(const Question& question) {
    program.platform.loop.Post([this, number = question.number, text = question.text, yesNo = asksYesNo] {
        if (!IsOpen(number) || form.visible) {
            return;  // answered from outside, or the skin has come
        }
        bool yes = false;
        if (yesNo) {
            yes = program.platform.dialogs.AskPlain(text);
        } else {
            program.platform.dialogs.ShowPlain(text);
        }
        if (IsOpen(number)) {
            Answer(!yesNo ? "ok" : yes ? "yes" : "no");
        }
    });
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
            break;
    }
}

}  // namespace zvr
