// phonepeer: stands in for the phone control program and its phone. Without an order it is that program; with one it
// tells the running one what happens. docs/phonepeer.md has more.

#include "orders.h"
#include "platform/linux/runtimefile.h"
#include "server.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int exitRefused = 1;
constexpr int exitUsage = 2;
constexpr int exitNotRunning = 3;
constexpr int usualPort = 17015;

int Fail(int exitCode, const std::string& why) {
    std::fprintf(stderr, "phonepeer: %s\n", why.c_str());
    return exitCode;
}

std::string Usage() {
    return "Usage: phonepeer                            is a phone and its control program, until it is ended\n" +
           phonepeer::OrdersHelp() +
           "       phonepeer --port NUMBER ...          the same at another port than 17015\n"
           "       phonepeer --with PROCESS             ends when that process does\n"
           "Exit: 0 done, 1 refused, 2 wrong call, 3 no phonepeer is running\n";
}

std::string OrderSocket(int port) {
    const std::string ending = port == usualPort ? "phonepeer" : "phonepeer-" + std::to_string(port);
    const std::string path = zvr::SessionFile(ending);
    return path.empty() ? zvr::TemporaryFile(ending) : path;
}

int Serve(int port, int with) {
    phonepeer::Server server;
    if (const auto fault = server.Open(port, OrderSocket(port))) {
        return Fail(exitRefused, *fault);
    }
    server.Run(with);
    return 0;
}

/// What the running one says to an order; none if there is none, and errno tells why.
std::optional<std::string> Exchange(const std::string& path, std::string_view order) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    const int file = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (file < 0 || connect(file, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        return std::nullopt;
    }
    while (!order.empty()) {
        const ssize_t count = send(file, order.data(), order.size(), MSG_NOSIGNAL);
        if (count < 0) {
            return std::nullopt;
        }
        order.remove_prefix(static_cast<std::size_t>(count));
    }
    std::string answer;
    char buffer[65536];
    for (ssize_t count = 0; (count = recv(file, buffer, sizeof buffer, 0)) > 0;) {
        answer.append(buffer, static_cast<std::size_t>(count));
    }
    close(file);
    return answer;
}

int GiveOrder(int port, const std::vector<std::string>& words) {
    std::string order;
    for (const std::string& word : words) {
        order += (order.empty() ? std::string() : std::string(1, phonepeer::orderSeparator)) + word;
    }
    order += phonepeer::orderEnd;
    const std::string path = OrderSocket(port);
    const auto answer = Exchange(path, order);
    if (!answer) {
        return Fail(exitNotRunning, path + ": " + std::strerror(errno));
    }
    if (!answer->starts_with('+')) {
        return Fail(exitRefused, answer->empty() ? "no answer" : answer->substr(1));
    }
    if (answer->size() > 1) {
        std::printf("%s\n", answer->c_str() + 1);
    }
    return 0;
}

/// The number behind the option at the front, and both are taken off; `otherwise` where that option is not there, none
/// where no number from 1 to `most` follows it.
std::optional<int> TakeOption(std::vector<std::string>& words, std::string_view option, int otherwise, int most) {
    if (words.empty() || words[0] != option) {
        return otherwise;
    }
    const std::string text = words.size() > 1 ? words[1] : "";
    int number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc{} || read.ptr != text.data() + text.size() || number < 1 || number > most) {
        return std::nullopt;
    }
    words.erase(words.begin(), words.begin() + 2);
    return number;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 1 && (words[0] == "--help" || words[0] == "-h")) {
        std::fputs(Usage().c_str(), stdout);
        return 0;
    }
    const auto port = TakeOption(words, "--port", usualPort, 65535);
    const auto with = TakeOption(words, "--with", 0, std::numeric_limits<int>::max());
    if (!port || !with || (!words.empty() && (words[0].starts_with('-') || *with != 0))) {
        std::fputs(Usage().c_str(), stderr);
        return exitUsage;
    }
    return words.empty() ? Serve(*port, *with) : GiveOrder(*port, words);
}
