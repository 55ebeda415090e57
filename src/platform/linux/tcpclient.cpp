#include "platform/tcpclient.h"

#include <QSocketNotifier>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace zvr {
namespace {

SocketFault FaultOf(int number) {
    return {number, std::strerror(number)};
}

/// The handler of a notifier may end its life and still has to come to its end.
void Retire(std::unique_ptr<QSocketNotifier>& notifier) {
    if (notifier) {
        notifier->setEnabled(false);
        notifier.release()->deleteLater();
    }
}

}  // namespace

// Plain sockets: the tool kit's own would not tell of bytes that arrive while the handler of earlier ones waits, and
// its library takes 10 ms of every start.
struct TcpClient::State {
    TcpClient* client = nullptr;
    EventLoop* loop = nullptr;
    SocketState phase = SocketState::closed;
    int descriptor = -1;
    std::unique_ptr<QSocketNotifier> readable;
    std::unique_ptr<QSocketNotifier> writable;
    std::string received;
    std::string unsent;
    std::shared_ptr<unsigned> connection = std::make_shared<unsigned>(0);  ///< number of the present one

    [[nodiscard]] int Begin(const std::string& address, int port);
    void Drop(SocketState next);
    void Fail(int error);
    void Tried();
    void Read();
    void Write();
    void Ended();
    /// Runs it from the loop, unless the connection is another one by then.
    template <typename Task>
    void Post(Task task) {
        loop->Post([task, present = connection, number = *connection] {
            if (*present == number) {
                task();
            }
        });
    }
};

TcpClient::TcpClient(EventLoop& loop) : state(std::make_unique<State>()) {
    state->client = this;
    state->loop = &loop;
}

TcpClient::~TcpClient() {
    Close();
}

void TcpClient::Connect(const std::string& address, int port) {
    Close();
    state->phase = SocketState::connecting;
    if (const int error = state->Begin(address, port); error != 0) {
        state->Post([this, error] { state->Fail(error); });
    }
}

int TcpClient::State::Begin(const std::string& address, int port) {
    sockaddr_in to{};
    to.sin_family = AF_INET;
    to.sin_port = htons(static_cast<std::uint16_t>(port));
    if (port <= 0 || port > 65535 || inet_pton(AF_INET, address.c_str(), &to.sin_addr) != 1) {
        return EADDRNOTAVAIL;
    }
    descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (descriptor < 0) {
        return errno;
    }
    const int atOnce = 1;
    setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof atOnce);
    if (connect(descriptor, reinterpret_cast<const sockaddr*>(&to), sizeof to) != 0 && errno != EINPROGRESS) {
        return errno;
    }
    readable = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    readable->setEnabled(false);
    writable = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Write);
    QObject::connect(readable.get(), &QSocketNotifier::activated, [this] { Read(); });
    QObject::connect(writable.get(), &QSocketNotifier::activated, [this] {
        if (phase == SocketState::connecting) {
            Tried();
        } else {
            Write();
        }
    });
    return 0;
}

void TcpClient::State::Tried() {
    int error = 0;
    socklen_t size = sizeof error;
    if (getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size) != 0) {
        error = errno;
    }
    // A port that nobody listens on may be given to this very socket, which then talks to itself.
    sockaddr_in own{};
    sockaddr_in other{};
    socklen_t ownSize = sizeof own;
    socklen_t otherSize = sizeof other;
    if (error == 0 && getsockname(descriptor, reinterpret_cast<sockaddr*>(&own), &ownSize) == 0 &&
        getpeername(descriptor, reinterpret_cast<sockaddr*>(&other), &otherSize) == 0 &&
        own.sin_port == other.sin_port && own.sin_addr.s_addr == other.sin_addr.s_addr) {
        error = ECONNREFUSED;
    }
    if (error != 0) {
        Fail(error);
        return;
    }
    phase = SocketState::connected;
    writable->setEnabled(false);
    readable->setEnabled(true);
    if (client->onConnect) {
        client->onConnect();
    }
}

void TcpClient::State::Fail(int error) {
    Drop(SocketState::error);
    if (client->onError) {
        client->onError(FaultOf(error));
    }
}

void TcpClient::State::Drop(SocketState next) {
    ++*connection;
    Retire(readable);
    Retire(writable);
    if (descriptor >= 0) {
        close(descriptor);
        descriptor = -1;
    }
    unsent.clear();
    phase = next;
}

void TcpClient::Close() {
    state->Drop(SocketState::closed);
    state->received.clear();
}

SocketState TcpClient::CurrentState() const {
    return state->phase;
}

void TcpClient::State::Read() {
    std::array<char, 65536> buffer;
    const ssize_t count = recv(descriptor, buffer.data(), buffer.size(), 0);
    if (count > 0) {
        received.append(buffer.data(), static_cast<std::size_t>(count));
        if (client->onDataArrival) {
            client->onDataArrival();
        }
    } else if (count == 0 || (errno != EAGAIN && errno != EINTR)) {
        Ended();
    }
}

void TcpClient::State::Ended() {
    Drop(SocketState::closed);
    if (client->onClose) {
        client->onClose();
    }
}

std::optional<SocketFault> TcpClient::SendData(std::string_view bytes) {
    if (state->phase != SocketState::connected) {
        return FaultOf(ENOTCONN);
    }
    if (state->unsent.size() + bytes.size() > mostUnsent) {
        return FaultOf(ENOBUFS);
    }
    state->unsent += bytes;
    state->Write();
    return std::nullopt;
}

void TcpClient::State::Write() {
    while (!unsent.empty()) {
        const ssize_t count = send(descriptor, unsent.data(), unsent.size(), MSG_NOSIGNAL);
        if (count > 0) {
            unsent.erase(0, static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            break;
        } else if (errno != EINTR) {
            // The end shows in the next read, behind what the other side has sent before it went.
            unsent.clear();
        }
    }
    writable->setEnabled(!unsent.empty());
}

std::string TcpClient::GetData() {
    return std::exchange(state->received, {});
}

}  // namespace zvr
