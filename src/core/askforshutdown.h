#pragma once

#include "core/dialoglook.h"
#include "ui/form.h"

#include <array>

namespace zvr {

class Program;

enum class ShutdownChoice { quit = 0, hibernate = 1, reboot = 2, none = 255 };

/// Quit, hibernate or reboot: what the driver means by the end.
class AskForShutdown {
public:
    explicit AskForShutdown(Program& program);

    Form form{"askforshutdown"};

    void Load();
    /// Waits, with events running, until the driver has chosen. None when he cancelled or couldn't be asked.
    [[nodiscard]] ShutdownChoice Ask();

private:
    void Dress();

    Program& program;
    DialogLook look;
    Control* picShutdown = nullptr;
    Control* lblTitle = nullptr;
    std::array<DialogButton, 4> actions;  ///< by ShutdownChoice; the last is the deaf twin of hibernate
    DialogButton cancel;
};

}  // namespace zvr
