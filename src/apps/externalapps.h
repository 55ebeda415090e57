#pragma once

#include "ui/form.h"

#include <array>
#include <string>

namespace zvr {

class Program;

/// The screen of other programs.
class ExternalApps {
public:
    explicit ExternalApps(Program& program);

    Form form{"externalapps"};
    Control* applist = nullptr;

    std::string oskExe;
    std::string naviExe;
    std::string naviQuickbar = "docked";  ///< or "floating"
    int floatingWindowX = -1;             ///< pixels, -1 for never placed
    int floatingWindowY = -1;
    int floatingWindowTransparency = 0;  ///< 0 opaque to 10
    int dockedWindowTransparency = 0;
    int msecToWaitOnSwitchback = 200;
    std::array<std::string, 5> appLauncherCommands;

    void Load();

private:
    Program& program;
};

}  // namespace zvr
