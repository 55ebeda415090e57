#pragma once

#include "platform/processes.h"

#include <string>
#include <string_view>
#include <vector>

namespace zvr {

class Program;

/// A program of the driver's list, or one that runs.
struct ExternalApp {
    std::string name;
    std::string command;      ///< whole command line
    bool docked = true;       ///< the docked quick bar above it, else the floating one
    bool maximized = true;    ///< how its window comes up, else normal
    ProcessId processId = 0;  ///< 0 when it isn't started
};

/// The list of other programs and its file, and programs that are started without a bar.
class ExternalAppsCtl {
public:
    explicit ExternalAppsCtl(Program& program) : program(program) {}

    std::vector<ExternalApp> externalApps;  ///< no two of one name

    void LoadAppList();  ///< a file that isn't there is an empty list
    void SaveAppList();  ///< a failure stays silent; a file that couldn't be read is kept as bad
    [[nodiscard]] bool AppNameExists(std::string_view name) const;

    /// Runs events until the program has ended. False when this program ends instead.
    bool WaitForProcess(ProcessId processId);
    /// Starts a command line and forgets it. A failure is told by a plain box if `fromOptions`, else by a message.
    void RunLauncherCommand(const std::string& command, bool fromOptions);

private:
    [[nodiscard]] std::string ListFile() const;
    void Tell(const std::string& text, bool fromOptions);

    Program& program;
    bool listWasUnread = false;
};

}  // namespace zvr
