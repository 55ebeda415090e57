#pragma once

#include "apps/externalappsctl.h"
#include "platform/lifetime.h"
#include "ui/form.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace zvr {

class Program;

/// The screen of other programs, and the programs that run.
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

    bool registeredAppBar = false;         ///< the docked bar is the one in use
    unsigned barShows = 0;                 ///< how often a bar came up
    std::int32_t noOfRunningPrograms = 0;  ///< started from here and not yet seen to end
    std::int32_t lastActiveProgram = 0;    ///< slot last brought to the front; its program may have ended
    /// By slot. One without a command is free for the next program.
    std::vector<ExternalApp> runningPrograms;

    void Load();
    void RefreshAppList();
    void SkinApplied();  ///< the list and a bar that shows have other measures

    /// Starts the navigation, or what is selected; brings it to the front if it runs. Waits until it has ended.
    void StartSelectedProgram(bool isNavigation);
    void RunPreparedProgram(std::int32_t slot);  ///< waits until it has ended
    void SwitchToRunningApp(std::int32_t slot);  ///< -1: to any that runs, the last slot first
    void SwitchTask();                           ///< to the next one that runs
    void ShowOSK();                              ///< the on-screen keyboard; doesn't wait
    void BackToMainMenu();                       ///< the programs run on
    void LeaveProgram();                         ///< the same at once, to the screen that was in front

private:
    void ClickList(bool isDoubleClick);
    [[nodiscard]] bool Runs(const ExternalApp& app) const;
    void ShowBar(bool docked);
    void ShowMainForm();
    void FocusTextBox();

    Program& program;
    ProcessId keyboard = 0;  ///< 0: not running
    Lifetime lifetime;
};

}  // namespace zvr
