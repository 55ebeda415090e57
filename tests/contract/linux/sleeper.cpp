#include "contract/sleeper.h"

#include <csignal>
#include <filesystem>

namespace zvr::contract {

Sleeper::Sleeper(EventLoop& loop, Processes& processes)
    : path(std::filesystem::temp_directory_path().string() + "/zvr contract/" + name),
      loop(loop),
      processes(processes) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::filesystem::copy_file("/bin/sleep", path, std::filesystem::copy_options::overwrite_existing);
}

Sleeper::~Sleeper() {
    std::filesystem::remove_all(std::filesystem::path(path).parent_path());
}

void Sleeper::Kill(ProcessId id) {
    ::kill(id, SIGKILL);
}

}  // namespace zvr::contract
