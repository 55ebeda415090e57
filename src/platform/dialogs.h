#pragma once

#include <functional>
#include <memory>
#include <string>

namespace zvr {

/// Boxes of the desktop, for the time before a skin stands and for its faults.
class Dialogs {
public:
    Dialogs();
    ~Dialogs();

    /// A critical box with an OK button. Runs events until it is closed.
    void ShowCritical(const std::string& text);
    /// The same without the critical icon.
    /// `needless` is asked now and then while it stands: true closes it.
    void ShowPlain(const std::string& text, const std::function<bool()>& needless = {});
    /// A question; true for yes. Runs events until it is answered; false too when the program ends meanwhile.
    [[nodiscard]] bool AskPlain(const std::string& text);

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
