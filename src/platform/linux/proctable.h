#pragma once

#include <sys/types.h>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The processes of this machine, as the kernel's table of files tells them. A process may end between two questions.
namespace zvr::proctable {

struct Process {
    pid_t id = 0;
    pid_t parent = 0;
    pid_t group = 0;
    bool lives = false;  ///< false: it has ended and only waits to be noticed
};

[[nodiscard]] std::optional<Process> Look(pid_t id);
[[nodiscard]] std::vector<Process> All();
/// Whether it was started with this "NAME=value" in its environment. False where that is not to be read.
[[nodiscard]] bool HasInEnvironment(pid_t id, std::string_view entry);
/// What it may be called, in lower case: its program's file, the name it was started by, the script that it runs.
[[nodiscard]] std::vector<std::string> NamesOf(pid_t id);

}  // namespace zvr::proctable
