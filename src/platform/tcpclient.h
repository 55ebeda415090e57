#pragma once

#include "platform/eventloop.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zvr {

/// Numbered as the programs on the other side know them.
enum class SocketState { closed = 0, connecting = 6, connected = 7, error = 9 };

/// What the system said of a connection that failed.
struct SocketFault {
    int number = 0;           ///< errno
    std::string description;  ///< in English, without the address
};

/// One connection to another program. Nothing of it ever waits.
class TcpClient {
public:
    explicit TcpClient(EventLoop& loop);
    ~TcpClient();
    TcpClient(const TcpClient&) = delete;
    TcpClient& operator=(const TcpClient&) = delete;

    static constexpr std::size_t mostUnsent = 1024 * 1024;  ///< bytes that the other side may be behind

    /// Closes what was open, then tries. `address` is numeric, such as "127.0.0.1": names are not looked up. What came
    /// of it is told by onConnect or onError, never before this returns.
    void Connect(const std::string& address, int port);
    void Close();  ///< no event follows; what was not sent or not taken is thrown away
    [[nodiscard]] SocketState CurrentState() const;

    /// Takes all of it or, with a fault, nothing. What the other side doesn't take at once is sent as it reads.
    [[nodiscard]] std::optional<SocketFault> SendData(std::string_view bytes);
    /// All that has arrived since the last call. Bytes that came before the other side closed are still there in
    /// onClose.
    [[nodiscard]] std::string GetData();

    // Called from the event loop, never from inside an operation of this object; also while a handler waits.
    std::function<void()> onConnect;
    std::function<void()> onDataArrival;
    std::function<void()> onClose;                    ///< a connection that stood has ended, in whichever way
    std::function<void(const SocketFault&)> onError;  ///< none came about

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
