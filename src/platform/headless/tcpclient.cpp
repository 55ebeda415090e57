#include "platform/headless/tcpclient.h"

#include <cerrno>
#include <cstring>
#include <utility>

namespace zvr {
namespace {

SocketFault FaultOf(int number) {
    return {number, std::strerror(number)};
}

}  // namespace

TcpClient::TcpClient(EventLoop& loop) : state(std::make_unique<State>()) {
    state->client = this;
    state->loop = &loop;
}

TcpClient::~TcpClient() {
    Close();
}

void TcpClient::Connect(const std::string& address, int port) {
    Close();
    ++state->attempts;
    state->address = address;
    state->port = port;
    state->sent.clear();
    state->phase = SocketState::connecting;
    state->Post([this] { state->Tried(); });
}

void TcpClient::State::Tried() {
    if (peerListens) {
        phase = SocketState::connected;
        if (client->onConnect) {
            client->onConnect();
        }
        return;
    }
    Drop(SocketState::error);
    if (client->onError) {
        client->onError(FaultOf(ECONNREFUSED));
    }
}

void TcpClient::State::Post(std::function<void()> task) {
    loop->Post([task = std::move(task), present = connection, number = *connection] {
        if (*present == number) {
            task();
        }
    });
}

void TcpClient::State::Drop(SocketState next) {
    ++*connection;
    phase = next;
}

void TcpClient::Close() {
    state->Drop(SocketState::closed);
    state->received.clear();
}

SocketState TcpClient::CurrentState() const {
    return state->phase;
}

void TcpClient::State::Deliver(std::string_view bytes) {
    Post([this, text = std::string(bytes)] {
        if (phase != SocketState::connected || text.empty()) {
            return;
        }
        received += text;
        if (client->onDataArrival) {
            client->onDataArrival();
        }
    });
}

void TcpClient::State::CloseFromPeer() {
    Post([this] {
        if (phase != SocketState::connected) {
            return;
        }
        Drop(SocketState::closed);
        if (client->onClose) {
            client->onClose();
        }
    });
}

std::optional<SocketFault> TcpClient::SendData(std::string_view bytes) {
    if (state->phase != SocketState::connected) {
        return FaultOf(ENOTCONN);
    }
    state->sent += bytes;
    return std::nullopt;
}

std::string TcpClient::GetData() {
    return std::exchange(state->received, {});
}

}  // namespace zvr
