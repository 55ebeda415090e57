#pragma once

#include "platform/linux/runtimefile.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <string>

/// Where the radio and its command line tool meet: one word there, an answer back until the end of the stream.

inline constexpr std::size_t longestWord = 64;

/// A socket, or -1. `open` is bind or connect.
template <typename Open>
int RadioSocket(Open open) {
    std::string path = zvr::SessionFile("radiator.sock");
    path = path.empty() ? zvr::TemporaryFile("radiator.sock") : path;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        return -1;
    }
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    const int line = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (line >= 0 && open(line, path, address) != 0) {
        close(line);
        return -1;
    }
    return line;
}

/// -1 when no radio is there.
inline int CallRadio() {
    return RadioSocket([](int line, const std::string&, const sockaddr_un& address) {
        return connect(line, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    });
}

inline void SendText(int line, std::string_view text) {
    while (!text.empty()) {
        const ssize_t sent = send(line, text.data(), text.size(), MSG_NOSIGNAL);
        if (sent <= 0) {
            return;
        }
        text.remove_prefix(static_cast<std::size_t>(sent));
    }
}
