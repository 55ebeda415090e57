#pragma once

#include "core/messageanswer.h"
#include "ui/form.h"

#include <optional>
#include <string>
#include <string_view>

namespace zvr {

class Program;

/// The skinned question and news box. Callers queue: the second box comes up when the first is answered.
class MessageBox {
public:
    explicit MessageBox(Program& program);

    Form form{"messagebox"};

    /// Waits, with events running, until the driver has answered.
    MessageAnswer showMessage(std::string_view text, MessageButtons buttons = MessageButtons::ok);
    /// Waits, with events running, until no dialog is open.
    void waitForMessageBox();

    void Load();
    void Answer(std::string_view word);  ///< "ok", "yes" or "no": stores it and hides the box

private:
    struct Question {
        MessageButtons buttons;
        std::optional<MessageAnswer> answer;
    };

    void Settle();  ///< gives the open question its answer and lets the next dialog in
    void Activated();
    void KeyPressed(const KeyEvent& key);

    Program& program;
    Question* openQuestion = nullptr;  ///< on its caller's stack
    bool asksYesNo = false;
};

}  // namespace zvr
