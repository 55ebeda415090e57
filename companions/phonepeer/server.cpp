#include "server.h"

#include "orders.h"
#include "platform/text.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <vector>

namespace phonepeer {
namespace {

constexpr std::size_t mostClients = 32;
constexpr std::size_t mostUnsent = 64U << 20U;  ///< bytes; who is further behind is dropped
constexpr int pace = 100;                       ///< milliseconds

volatile std::sig_atomic_t signalled = 0;

int Listen(int family, const void* address, socklen_t size) {
    const int file = socket(family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const int on = 1;
    setsockopt(file, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    if (file >= 0 && bind(file, static_cast<const sockaddr*>(address), size) == 0 && listen(file, 8) == 0) {
        return file;
    }
    const int error = errno;
    if (file >= 0) {
        close(file);
    }
    errno = error;
    return -1;
}

}  // namespace

Server::Server()
    : front(
          phone, [this](const std::string& frame) { TellAll(frame); }, [this] { ends = true; }) {}

Server::~Server() {
    for (const Client& client : clients) {
        close(client.file);
    }
    if (orderListener >= 0) {
        close(orderListener);
        unlink(orderPath.c_str());
    }
    if (phoneListener >= 0) {
        close(phoneListener);
    }
}

std::optional<std::string> Server::Open(int port, const std::string& orderSocket) {
    sockaddr_in here{};
    here.sin_family = AF_INET;
    here.sin_port = htons(static_cast<std::uint16_t>(port));
    here.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    phoneListener = Listen(AF_INET, &here, sizeof here);
    if (phoneListener < 0) {
        return "port " + std::to_string(port) + ": " + std::strerror(errno);
    }
    sockaddr_un local{};
    local.sun_family = AF_UNIX;
    if (orderSocket.size() >= sizeof local.sun_path) {
        return orderSocket + ": " + std::strerror(ENAMETOOLONG);
    }
    std::memcpy(local.sun_path, orderSocket.c_str(), orderSocket.size() + 1);
    // Whoever left it there has gone: the port was free.
    unlink(orderSocket.c_str());
    const mode_t before = umask(0177);
    orderListener = Listen(AF_UNIX, &local, sizeof local);
    umask(before);
    orderPath = orderSocket;
    return orderListener < 0 ? std::optional(orderSocket + ": " + std::strerror(errno)) : std::nullopt;
}

void Server::Run(int with) {
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        std::signal(number, [](int) { signalled = 1; });
    }
    using Clock = std::chrono::steady_clock;
    const auto alone = [with] { return with != 0 && kill(with, 0) != 0; };
    for (auto last = Clock::now(); !ends && signalled == 0 && !alone();) {
        Turn(pace);
        const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - last);
        last += passed;
        phone.Advance(passed);
        for (Client& client : clients) {
            Write(client);
        }
        clients.remove_if([](const Client& client) {
            const bool gone = client.file < 0 || (client.leaves && client.unsent.empty());
            if (gone && client.file >= 0) {
                close(client.file);
            }
            return gone;
        });
    }
}

void Server::Turn(int milliseconds) {
    std::vector<pollfd> files{{phoneListener, POLLIN, 0}, {orderListener, POLLIN, 0}};
    for (const Client& client : clients) {
        files.push_back({client.file, static_cast<short>(POLLIN | (client.unsent.empty() ? 0 : POLLOUT)), 0});
    }
    if (poll(files.data(), files.size(), milliseconds) <= 0) {
        return;
    }
    std::size_t at = 2;
    for (Client& client : clients) {
        if ((files[at++].revents & (POLLIN | POLLHUP | POLLERR)) != 0) {
            Read(client);
        }
    }
    if (files[0].revents != 0) {
        Accept(phoneListener, false);
    }
    if (files[1].revents != 0) {
        Accept(orderListener, true);
    }
}

void Server::Accept(int listener, bool givesOrders) {
    const int file = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (file < 0) {
        return;
    }
    if (clients.size() == mostClients) {
        close(file);
        return;
    }
    clients.push_back({file, givesOrders, false, {}, givesOrders ? std::string() : front.Greeting()});
}

void Server::Read(Client& client) {
    std::array<char, 65536> buffer;
    const ssize_t count = recv(client.file, buffer.data(), buffer.size(), 0);
    if (count > 0) {
        client.received.append(buffer.data(), static_cast<std::size_t>(count));
    }
    const bool gone = count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR);
    if (gone || client.received.size() > Front::longestRequest) {
        close(client.file);
        client.file = -1;
    } else if (client.givesOrders) {
        TakeOrder(client);
    } else {
        const std::string answers = front.Answer(client.received);
        client.unsent += answers;
    }
}

void Server::TakeOrder(Client& client) {
    if (client.leaves || !client.received.ends_with(orderEnd)) {
        return;
    }
    client.received.pop_back();
    std::vector<std::string> words;
    for (const std::string_view word : zvr::text::Split(client.received, orderSeparator)) {
        words.emplace_back(word);
    }
    const OrderResult result = Carry(words, front, [this](const std::string& bytes) { TellAll(bytes); });
    client.unsent = (result.done ? "+" : "-") + result.said;
    client.leaves = true;
}

void Server::Write(Client& client) {
    while (client.file >= 0 && !client.unsent.empty()) {
        const ssize_t count = send(client.file, client.unsent.data(), client.unsent.size(), MSG_NOSIGNAL);
        if (count > 0) {
            client.unsent.erase(0, static_cast<std::size_t>(count));
        } else if (errno == EAGAIN && client.unsent.size() <= mostUnsent) {
            return;
        } else if (errno != EINTR) {
            close(client.file);
            client.file = -1;
        }
    }
}

void Server::TellAll(const std::string& bytes) {
    for (Client& client : clients) {
        if (!client.givesOrders) {
            client.unsent += bytes;
        }
    }
}

}  // namespace phonepeer
