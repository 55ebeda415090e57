#include "phone/smsbox.h"

#include "core/commanddispatcher.h"
#include "core/dialogqueue.h"
#include "core/godfather.h"
#include "core/moduleform.h"
#include "core/program.h"
#include "phone/phone.h"
#include "platform/text.h"
#include "skin/skinner.h"

#include <algorithm>

namespace zvr {
namespace {

constexpr std::string_view keyboardCommand = "externalapps.onscreenkeyboard";
constexpr std::string_view closeCommand = "smsbox.close";
constexpr std::string_view noNumber = "0";  ///< stands in where there was none to take over
constexpr char separator = '\0';

bool IsToRead(std::string_view commVar) {
    return commVar.starts_with('2');
}

/// The number in "name (number)", else the whole sender.
std::string NumberToAnswer(std::string_view commVar) {
    const std::size_t first = commVar.find(separator) + 1;
    const std::size_t last = commVar.rfind(separator);
    const std::string_view sender = commVar.substr(first, last - first);
    const std::size_t open = sender.find(" (");
    const std::size_t close = sender.rfind(')');
    const bool hasNumber = open != sender.npos && close != sender.npos && open + 2 <= close;
    return std::string(hasNumber ? sender.substr(open + 2, close - open - 2) : sender);
}

}  // namespace

SmsBox::SmsBox(Program& program) : program(program) {}

void SmsBox::Load() {
    LoadModuleForm(program, form, History::notRecorded);
    smsnumberbox = &form.Add(ControlKind::textBox, "smsnumberbox");
    smsnumberbox->text->digits = true;
    smstextbox = &form.Add(ControlKind::textBox, "smstextbox");
    smstextbox->text->multiline = true;
    form.onKeyDown = [this](const KeyEvent& key) {
        if (key.key == Key::escape) {
            program.dispatchCommand(closeCommand);
        } else {
            program.commanddispatcher.dispatchFunctionKey(key);
        }
    };
}

void SmsBox::Prepare() {
    const std::string& commVar = program.phone.smsBoxCommVar;
    const auto fields = text::Split(commVar, separator);
    if (fields.size() == 2 && fields[0] == "1") {
        Fill(fields[1], {}, false);
    } else if (fields.size() == 3 && fields[0] == "2") {
        Fill(fields[1], fields[2], true);
    } else {
        program.dialogs.Settle(form, "");
    }
}

void SmsBox::Fill(std::string_view number, std::string_view text, bool toRead) {
    const bool numberMissing = !toRead && number == noNumber;
    smsnumberbox->SetText(number, 0, numberMissing ? static_cast<int>(noNumber.size()) : 0);
    smstextbox->SetText(text);
    smsnumberbox->SetReadOnly(toRead);
    smstextbox->SetReadOnly(toRead);
    form.focus = numberMissing ? smsnumberbox : smstextbox;
}

void SmsBox::Dress() {
    form.CentreIn(program.godfather.form);
    program.commanddispatcher.ShowButton(form, keyboardCommand, !IsToRead(program.phone.smsBoxCommVar));
    if (!CanBeClosed()) {
        program.dialogs.Settle(form, "");
    }
}

bool SmsBox::CanBeClosed() const {
    const auto closes = [](const Control* control) {
        return control->Tag() == closeCommand && control->visible && control->normalPicture != nullptr;
    };
    // While a skin is being loaded no key has its picture; once it is there the box is dressed again.
    return program.skinner.IsLoading() || std::any_of(form.Controls().begin(), form.Controls().end(), closes);
}

void SmsBox::Send() {
    const DialogRequest* const open = program.dialogs.Open();
    if (open == nullptr || &open->form != &form) {
        return;  // a second tap: what it was meant for is sent
    }
    if (!IsToRead(program.phone.smsBoxCommVar)) {
        program.phone.SendSMS2PhoCo();
        return;
    }
    const std::string number = NumberToAnswer(program.phone.smsBoxCommVar);
    program.dialogs.Settle(form, "");
    program.phone.SendSMS(number);
}

}  // namespace zvr
