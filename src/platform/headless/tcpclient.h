#pragma once

#include "platform/tcpclient.h"

namespace zvr {

/// A connection that the test holds the other end of.
struct TcpClient::State {
    // What the test arranges.
    bool peerListens = false;

    // What the program did.
    int attempts = 0;  ///< to connect
    std::string address;
    int port = 0;
    std::string sent;  ///< in this connection

    TcpClient* client = nullptr;
    EventLoop* loop = nullptr;
    SocketState phase = SocketState::closed;
    std::string received;
    std::shared_ptr<unsigned> connection = std::make_shared<unsigned>(0);  ///< number of the present one

    /// The other side sends, or goes away. Both arrive at the loop's next turn; lost while no connection stands.
    void Deliver(std::string_view bytes);
    void CloseFromPeer();

    void Tried();
    void Drop(SocketState next);
    void Post(std::function<void()> task);
};

}  // namespace zvr
