#pragma once

#include "ui/form.h"

namespace zvr {

class Program;

/// The box to read and write short messages in. `Phone::ShowSmsBox` opens it.
class SmsBox {
public:
    explicit SmsBox(Program& program);

    Form form{"smsbox"};
    Control* smsnumberbox = nullptr;
    Control* smstextbox = nullptr;

    void Load();
    /// Fills the box from `phone.smsBoxCommVar`, to write or to read; closes it where that is neither.
    void Prepare();
    /// What a new skin has undone: its place, and which keys show. Closes the box if there is none left to close it
    /// with.
    void Dress();
    [[nodiscard]] bool CanBeClosed() const;  ///< the skin has a key for it
    void Send();  ///< sends what was written; of a message that was read: opens the box anew, for the answer

private:
    void Fill(std::string_view number, std::string_view text, bool toRead);

    Program& program;
};

}  // namespace zvr
