#include "platform/localserver.h"

#include "platform/lifetime.h"
#include "platform/linux/runtimefile.h"
#include "platform/log.h"

#include <QSocketNotifier>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace zvr {
namespace {

/// A client that doesn't read what it asked for is not worth more memory than this.
constexpr std::size_t mostUnsentBytes = 1024 * 1024;
constexpr std::size_t mostClients = 32;

bool FillAddress(const std::string& path, sockaddr_un& address) {
    address = {};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path) {
        return false;
    }
    std::memcpy(address.sun_path, path.data(), path.size());
    return true;
}

bool SomebodyListens(const sockaddr_un& address) {
    const int probe = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (probe < 0) {
        return false;
    }
    const bool answered = connect(probe, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 ||
                          errno == EAGAIN || errno == EINPROGRESS;
    close(probe);
    return answered;
}

bool IsOwnUser(int descriptor) {
    ucred credentials{};
    socklen_t size = sizeof credentials;
    return getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &credentials, &size) == 0 && credentials.uid == getuid();
}

struct Connection {
    int descriptor = -1;
    std::unique_ptr<QSocketNotifier> readable;
    std::unique_ptr<QSocketNotifier> writable;
    std::string received;
    std::string unsent;
    bool throwingAway = false;  ///< the rest of a line that was too long
    bool closing = false;       ///< takes nothing any more; goes when all is sent
    std::uint64_t heard = 0;    ///< grows from one sign of life, of any client, to the next

    Connection() = default;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() {
        // One of them may be on the stack.
        for (auto* const notifier : {&readable, &writable}) {
            if (*notifier) {
                (*notifier)->setEnabled(false);
                notifier->release()->deleteLater();
            }
        }
        if (descriptor >= 0) {
            close(descriptor);
        }
    }
};

}  // namespace

struct LocalServer::State {
    LocalServer* server = nullptr;
    EventLoop* loop = nullptr;
    std::string path;
    int descriptor = -1;
    std::unique_ptr<QSocketNotifier> incoming;
    std::map<Client, std::unique_ptr<Connection>> connections;
    Client lastClient = 0;
    std::uint64_t lastHeard = 0;
    Lifetime lifetime;

    void Accept();
    void MakeRoom();
    void Read(Client client);
    void Take(Client client, std::string_view bytes);
    void Write(Client client);
    void Remove(Client client);
    [[nodiscard]] Connection* Find(Client client) const;
};

LocalServer::LocalServer(EventLoop& loop) : state(std::make_unique<State>()) {
    state->server = this;
    state->loop = &loop;
}

LocalServer::~LocalServer() {
    Close();
}

bool LocalServer::Listen(const std::string& path) {
    Close();
    const auto failed = [&path](const char* why) {
        Log::Error("no control from outside, the socket {} can't be made: {}", path, why);
        return false;
    };
    sockaddr_un address;
    if (!FillAddress(path, address)) {
        return failed(std::strerror(ENAMETOOLONG));
    }
    if (SomebodyListens(address)) {
        return failed("somebody listens there");
    }
    struct stat left {};
    if (lstat(path.c_str(), &left) == 0 && (!S_ISSOCK(left.st_mode) || unlink(path.c_str()) != 0)) {
        return failed("something else is in its place");
    }
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (descriptor < 0) {
        return failed(std::strerror(errno));
    }
    // The mode has to be right from the first moment on.
    const mode_t before = umask(0177);
    const bool bound = bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    umask(before);
    if (!bound || listen(descriptor, 8) != 0) {
        const int error = errno;
        close(descriptor);
        return failed(std::strerror(error));
    }
    state->path = path;
    state->descriptor = descriptor;
    state->incoming = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(state->incoming.get(), &QSocketNotifier::activated, [this] { state->Accept(); });
    return true;
}

void LocalServer::Close() {
    state->incoming.reset();
    state->connections.clear();
    if (state->descriptor >= 0) {
        close(state->descriptor);
        unlink(state->path.c_str());
        state->descriptor = -1;
    }
}

void LocalServer::State::Accept() {
    for (;;) {
        const int accepted = accept4(descriptor, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (accepted < 0) {
            return;
        }
        auto connection = std::make_unique<Connection>();
        connection->descriptor = accepted;
        connection->heard = ++lastHeard;
        if (connections.size() >= mostClients && IsOwnUser(accepted)) {
            MakeRoom();
        }
        if (!IsOwnUser(accepted) || connections.size() >= mostClients) {
            Log::Warning("a client of the control socket was sent away: {}",
                         connections.size() >= mostClients ? "too many are there" : "it is another user's");
            continue;
        }
        const Client client = ++lastClient;
        connection->readable = std::make_unique<QSocketNotifier>(accepted, QSocketNotifier::Read);
        connection->writable = std::make_unique<QSocketNotifier>(accepted, QSocketNotifier::Write);
        connection->writable->setEnabled(false);
        QObject::connect(connection->readable.get(), &QSocketNotifier::activated, [this, client] { Read(client); });
        QObject::connect(connection->writable.get(), &QSocketNotifier::activated, [this, client] { Write(client); });
        connections.emplace(client, std::move(connection));
    }
}

void LocalServer::State::MakeRoom() {
    const auto longerSilent = [](const auto& a, const auto& b) { return a.second->heard < b.second->heard; };
    std::vector<std::pair<Client, const Connection*>> unwanted;
    for (const auto& [client, connection] : connections) {
        if (!server->isWanted || !server->isWanted(client)) {
            unwanted.emplace_back(client, connection.get());
        }
    }
    if (const auto silent = std::min_element(unwanted.begin(), unwanted.end(), longerSilent);
        silent != unwanted.end()) {
        Log::Note("the longest silent of {} clients of the control socket makes room for another", mostClients);
        Remove(silent->first);
    }
}

Connection* LocalServer::State::Find(Client client) const {
    const auto found = connections.find(client);
    return found == connections.end() ? nullptr : found->second.get();
}

void LocalServer::State::Read(Client client) {
    std::array<char, 4096> buffer;
    Connection* const connection = Find(client);
    if (connection == nullptr) {
        return;
    }
    const ssize_t count = recv(connection->descriptor, buffer.data(), buffer.size(), 0);
    if (count > 0) {
        connection->heard = ++lastHeard;
        Take(client, {buffer.data(), static_cast<std::size_t>(count)});
    } else if (count == 0 || (errno != EAGAIN && errno != EINTR)) {
        Remove(client);
    }
}

void LocalServer::State::Take(Client client, std::string_view bytes) {
    // A line's command may wait, read on meanwhile, close the connection or end the server.
    const auto alive = lifetime.Watched();
    while (!bytes.empty() && alive) {
        Connection* const connection = Find(client);
        if (connection == nullptr || connection->closing) {
            return;
        }
        const std::size_t end = bytes.find('\n');
        const std::string_view piece = bytes.substr(0, end);
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
        if (connection->throwingAway) {
            connection->throwingAway = end == std::string_view::npos;
            continue;
        }
        if (connection->received.size() + piece.size() > longestLine) {
            connection->received.clear();
            connection->throwingAway = end == std::string_view::npos;
            if (server->onTooLong) {
                server->onTooLong(client);
            }
            continue;
        }
        connection->received += piece;
        if (end == std::string_view::npos) {
            continue;
        }
        std::string line = std::move(connection->received);
        connection->received.clear();
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        if (server->onLine) {
            server->onLine(client, line);
        }
    }
}

void LocalServer::Send(Client client, std::string_view line) {
    Connection* const connection = state->Find(client);
    if (connection == nullptr || connection->closing) {
        return;
    }
    connection->unsent += line;
    connection->unsent += '\n';
    state->Write(client);
}

bool LocalServer::Reaches(Client client) const {
    const Connection* const connection = state->Find(client);
    return connection != nullptr && !connection->closing;
}

void LocalServer::State::Write(Client client) {
    Connection* const connection = Find(client);
    if (connection == nullptr) {
        return;
    }
    while (!connection->unsent.empty()) {
        const ssize_t count =
            send(connection->descriptor, connection->unsent.data(), connection->unsent.size(), MSG_NOSIGNAL);
        if (count > 0) {
            connection->unsent.erase(0, static_cast<std::size_t>(count));
        } else if (errno == EINTR) {
            continue;
        } else if (errno == EAGAIN && connection->unsent.size() <= mostUnsentBytes) {
            break;
        } else {
            connection->unsent.clear();
            connection->closing = true;
        }
    }
    connection->writable->setEnabled(!connection->unsent.empty());
    if (connection->closing && connection->unsent.empty()) {
        connection->readable->setEnabled(false);
        // From the loop: the caller may be going through its clients right now.
        loop->Post(lifetime.Guard([this, client] { Remove(client); }));
    }
}

void LocalServer::Drop(Client client) {
    if (Connection* const connection = state->Find(client)) {
        connection->closing = true;
        state->Write(client);
    }
}

void LocalServer::State::Remove(Client client) {
    const auto found = connections.find(client);
    if (found == connections.end()) {
        return;
    }
    connections.erase(found);
    if (server->onGone) {
        server->onGone(client);
    }
}

std::string ControlSocketPath() {
    return ControlSocket();
}

}  // namespace zvr
