#include "platform/linux/sessionmanager.h"

#include "platform/log.h"
#include "platform/text.h"

#include <X11/ICE/ICElib.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <string_view>

namespace zvr::sessionmanager {
namespace {

constexpr int answerLimit = 1000;  // milliseconds

/// Where a local manager listens, of an entry such as "local/host:@/tmp/.ICE-unix/1234"; empty for one on the network.
std::string_view SocketOf(std::string_view entry) {
    const std::size_t colon = entry.find(':');
    return colon != entry.npos && (entry.starts_with("local/") || entry.starts_with("unix/")) ? entry.substr(colon + 1)
                                                                                              : std::string_view();
}

/// Whoever accepts a connection of this protocol speaks first. True also where nobody listens: that is known at once.
bool Speaks(std::string_view path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        return true;
    }
    std::copy(path.begin(), path.end(), address.sun_path);
    std::size_t length = offsetof(sockaddr_un, sun_path) + path.size() + 1;
    if (path.front() == '@') {  // a name that is no file
        address.sun_path[0] = '\0';
        --length;
    }
    const int file = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    bool speaks = true;
    if (connect(file, reinterpret_cast<const sockaddr*>(&address), static_cast<socklen_t>(length)) == 0) {
        pollfd news{file, POLLIN, 0};
        speaks = poll(&news, 1, answerLimit) > 0;
    } else {
        speaks = errno != EAGAIN;  // its queue is full: it has been asleep for long
    }
    close(file);
    return speaks;
}

/// In place of the library's own, which ends the process. The toolkit goes on listening to the dead line, at full
/// speed: it gets one that nothing ever comes from instead.
void OnLoss(IceConn connection) {
    Log::Warning("the session manager has gone");
    const int silence = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    dup3(silence, IceConnectionNumber(connection), O_CLOEXEC);
    close(silence);
}

}  // namespace

bool Answers() {
    const char* const manager = std::getenv("SESSION_MANAGER");
    if (manager == nullptr) {
        return true;
    }
    for (const std::string_view entry : text::Split(manager, ',')) {
        if (const std::string_view path = SocketOf(entry); !path.empty()) {
            const bool speaks = Speaks(path);
            if (!speaks) {
                Log::Warning("the session manager doesn't answer; the end of the session is seen by others");
            }
            return speaks;
        }
    }
    return true;
}

void Outlive() {
    IceSetIOErrorHandler(&OnLoss);
}

}  // namespace zvr::sessionmanager
