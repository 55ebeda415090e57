#pragma once

#include <unistd.h>
#include <cstdlib>
#include <string>

namespace zvr {

/// Where programs of this user meet: zvr.ENDING in the folder of the session. Empty if there is none.
[[nodiscard]] inline std::string SessionFile(const std::string& ending) {
    const char* const folder = std::getenv("XDG_RUNTIME_DIR");
    return folder != nullptr && *folder == '/' ? std::string(folder) + "/zvr." + ending : std::string();
}
/// Where they meet without a session.
[[nodiscard]] inline std::string TemporaryFile(const std::string& ending) {
    return "/tmp/zvr-" + std::to_string(getuid()) + "." + ending;
}

/// The control socket.
[[nodiscard]] inline std::string ControlSocket() {
    const std::string path = SessionFile("sock");
    return path.empty() ? TemporaryFile("sock") : path;
}

}  // namespace zvr
