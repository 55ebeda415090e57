#pragma once

namespace zvr {

class Program;

/// The command: by the settings an end, a question at the end, or the shutdown prompt.
void ExitByCommand(Program& program);

[[nodiscard]] bool isHibernateAllowed(const Program& program);
/// Sleeps the machine, or says why not. The program lives on.
void hibernate(Program& program);
/// Saves everything and restarts the machine. The program lives on until the machine ends it.
void reboot(Program& program);

inline constexpr unsigned exitReboot = 2;
/// Restarts the machine if `flags` has `exitReboot`. Saves nothing, and doesn't wait.
void exitWindows(Program& program, unsigned flags);

}  // namespace zvr
