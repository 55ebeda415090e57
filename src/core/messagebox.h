#pragma once

#include "core/messageanswer.h"
#include "ui/form.h"

#include <string>
#include <string_view>

namespace zvr {

class Program;

/// The skinned question and news box.
class MessageBox {
public:
    explicit MessageBox(Program& program);

    Form form{"messagebox"};

    /// Waits, with events running, until the driver has answered. News that are on the screen or wait for it already
    /// are not shown twice: the second caller goes on at once.
    MessageAnswer showMessage(std::string_view text, MessageButtons buttons = MessageButtons::ok);

    void Load();
    void Answer(std::string_view word);  ///< "ok", "yes" or "no", to the question that is open

private:
    /// What one caller asks.
    struct Question {
        unsigned number = 0;
        std::string text;
        bool asksYesNo = false;
        bool askedPlainly = false;
    };

    void Fill(Question& question);
    void AskPlainly(const Question& question);
    [[nodiscard]] bool IsOpen(unsigned number) const;
    [[nodiscard]] bool CanBeAnswered(bool yesNo) const;
    void KeyPressed(const KeyEvent& key);

    Program& program;
    unsigned questions = 0;    ///< so far
    unsigned shownNumber = 0;  ///< of them, filled in last
    bool asksYesNo = false;    ///< that one
};

}  // namespace zvr
