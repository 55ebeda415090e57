#include "zvr_osk/linux/zvrlink.h"

#include "platform/linux/runtimefile.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string_view>

namespace zvr::osk {
namespace {

constexpr std::size_t longestAnswer = 65536;

}  // namespace

ZvrLink::~ZvrLink() {
    if (file >= 0) {
        close(file);
    }
}

std::optional<ZvrLook> ZvrLink::Open(std::chrono::milliseconds limit) {
    constexpr std::string_view request = "look follow\n";
    const std::string path = ControlSocket();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        return std::nullopt;
    }
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    file = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (file < 0 || connect(file, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        send(file, request.data(), request.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(request.size())) {
        if (file >= 0) {
            close(file);
        }
        file = -1;
        return std::nullopt;
    }
    pollfd wait{file, POLLIN, 0};
    return poll(&wait, 1, static_cast<int>(limit.count())) > 0 ? Read() : std::nullopt;
}

std::optional<ZvrLook> ZvrLink::Read() {
    char buffer[4096];
    ssize_t count = 0;
    while ((count = read(file, buffer, sizeof buffer)) > 0) {
        received.append(buffer, static_cast<std::size_t>(count));
    }
    std::optional<ZvrLook> latest;
    for (std::size_t end = received.find('\n'); end != received.npos; end = received.find('\n')) {
        if (auto look = ReadLook(std::string_view(received).substr(0, end))) {
            latest = std::move(look);
        }
        received.erase(0, end + 1);
    }
    if (count == 0 || (errno != EAGAIN && errno != EINTR) || received.size() > longestAnswer) {
        close(file);
        file = -1;
    }
    return latest;
}

}  // namespace zvr::osk
