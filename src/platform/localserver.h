#pragma once

#include "platform/eventloop.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace zvr {

/// A line-based socket of this user alone. Lines come without their end.
class LocalServer {
public:
    explicit LocalServer(EventLoop& loop);
    ~LocalServer();
    LocalServer(const LocalServer&) = delete;
    LocalServer& operator=(const LocalServer&) = delete;

    using Client = std::uint64_t;
    static constexpr std::size_t longestLine = 4096;  ///< bytes

    /// Path with mode 0600; a socket left by a dead process is replaced. False if it can't be made.
    bool Listen(const std::string& path);
    void Close();
    void Send(Client client, std::string_view line);  ///< the line end is added; unknown clients are ignored
    void Drop(Client client);                         ///< after what was sent has gone out
    /// What is sent to the client has a way to it: it is there, not dropped, and has read most of what was sent before.
    [[nodiscard]] bool Reaches(Client client) const;

    std::function<void(Client, const std::string& line)> onLine;
    std::function<void(Client)> onTooLong;  ///< more than longestLine bytes without a line end; the rest is thrown away
    std::function<void(Client)> onGone;
    /// Whether a client that has long been silent is wanted all the same. When too many are there the one that has been
    /// silent longest goes, of those that are not wanted; without such a one the newcomer goes.
    std::function<bool(Client)> isWanted;

    struct State;
    std::unique_ptr<State> state;
};

/// Where the socket lies: $XDG_RUNTIME_DIR/zvr.sock, else /tmp/zvr-UID.sock.
[[nodiscard]] std::string ControlSocketPath();

}  // namespace zvr
