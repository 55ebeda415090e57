#pragma once

#include "ui/form.h"

#include <string>

namespace zvr {

class Program;

/// The menu of the user's favourite commands. It needs no skin; it takes the skin's colours.
class QuickJump {
public:
    explicit QuickJump(Program& program);

    Form form{"quickjump"};
    std::string quickJumpCommand;  ///< picked last, empty for none

    /// Waits, with events running, until the driver has picked, then runs the pick.
    void showQuickJump();

private:
    void Load();
    void Close();
    void Accept();
    void Cancel();

    Program& program;
    Control* sevJumpList = nullptr;
};

}  // namespace zvr
