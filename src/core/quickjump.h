#pragma once

#include "core/dialoglook.h"
#include "core/godfather.h"
#include "ui/form.h"

#include <vector>

namespace zvr {

class Program;

/// The menu of the user's favourite commands. It needs no skin; it takes the skin's colours.
class QuickJump {
public:
    explicit QuickJump(Program& program);

    Form form{"quickjump"};

    void Load();
    /// Waits, with events running, until the driver has picked, then runs the pick.
    void showQuickJump();

private:
    void List(const std::vector<QuickJumpEntry>& entries);
    void Dress();
    void Accept();
    void Cancel();

    Program& program;
    DialogLook look;
    Control* picQuickjump = nullptr;
    Control* lblTitle = nullptr;
    Control* sevJumpList = nullptr;
    DialogButton ok;
    DialogButton cancel;
};

}  // namespace zvr
