#pragma once

#include "ui/form.h"

namespace zvr {

class Program;

enum class ShutdownChoice { quit = 0, hibernate = 1, reboot = 2, none = 255 };

/// Quit, hibernate or reboot: what the driver means by the end.
class AskForShutdown {
public:
    explicit AskForShutdown(Program& program);

    Form form{"askforshutdown"};
    ShutdownChoice shutdownChoice = ShutdownChoice::none;

    /// Waits, with events running, until the driver has chosen or cancelled.
    ShutdownChoice Ask();

private:
    void Load();
    void Close();
    void AddAction(int action, const char* languageKey, bool allowed);
    void Choose(int action);

    Program& program;
};

}  // namespace zvr
