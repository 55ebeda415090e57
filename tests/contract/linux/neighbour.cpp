#include "contract/backend.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>
#include <array>

namespace zvr::contract {
namespace {

constexpr Milliseconds moment{20};

}  // namespace

struct Neighbour::State {
    EventLoop* loop = nullptr;
    int listener = -1;
    int connection = -1;
    int port = 0;
    std::string received;

    void Take() {
        for (int next = 0; (next = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK)) >= 0;) {
            close(connection);
            connection = next;
            received.clear();
        }
    }
};

Neighbour::Neighbour(EventLoop& loop, TcpClient&) : state(std::make_unique<State>()) {
    state->loop = &loop;
    state->listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    sockaddr_in own{};
    own.sin_family = AF_INET;
    own.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof own;
    if (bind(state->listener, reinterpret_cast<const sockaddr*>(&own), size) == 0 && listen(state->listener, 4) == 0 &&
        getsockname(state->listener, reinterpret_cast<sockaddr*>(&own), &size) == 0) {
        state->port = ntohs(own.sin_port);
    }
}

Neighbour::~Neighbour() {
    close(state->connection);
    close(state->listener);
}

int Neighbour::Port() const {
    return state->port;
}

void Neighbour::Send(std::string_view bytes) {
    state->Take();
    while (!bytes.empty()) {
        const ssize_t count = send(state->connection, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        bytes.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
        state->loop->Wait(count > 0 ? moment : Milliseconds{1});
    }
}

std::string Neighbour::Received() {
    state->Take();
    std::array<char, 65536> buffer;
    for (int quiet = 0; quiet < 3;) {
        const ssize_t count = recv(state->connection, buffer.data(), buffer.size(), 0);
        if (count > 0) {
            state->received.append(buffer.data(), static_cast<std::size_t>(count));
        }
        quiet = count > 0 ? 0 : quiet + 1;
        state->loop->Wait(Milliseconds{5});
    }
    return state->received;
}

void Neighbour::HangUp() {
    state->Take();
    close(state->connection);
    state->connection = -1;
    state->loop->Wait(moment);
}

void Neighbour::StopListening() {
    close(state->listener);
    state->listener = -1;
    state->loop->Wait(moment);
}

}  // namespace zvr::contract
