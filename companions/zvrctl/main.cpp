// zvrctl: drives a running zvr from outside, for wheel buttons, scripts and tests. docs/control.md has the protocol.

#include "answers/answerreader.h"
#include "platform/linux/runtimefile.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int exitRefused = 1;
constexpr int exitUsage = 2;
constexpr int exitNotRunning = 3;
constexpr std::size_t longestRequest = 4096;
constexpr std::size_t longestAnswer = 64 * 1024 * 1024;
constexpr std::chrono::milliseconds timeLimit{5000};
constexpr std::chrono::milliseconds forEver{-1};

constexpr const char* usage =
    "Usage: zvrctl do COMMAND           runs a command as a touch would, such as: zvrctl do mediaplayer.next\n"
    "       zvrctl get TOKEN...         prints what a label with that token shows, one line each\n"
    "       zvrctl watch TOKEN...       the same, and again at each change until interrupted\n"
    "       zvrctl log                  prints what failed without a word to the driver\n"
    "       zvrctl log --follow         the same, and what comes until interrupted\n"
    "       zvrctl skin reload          applies the present skin anew; prints the faults of one that would not load\n"
    "       zvrctl state                prints forms, controls and dialogs as JSON\n"
    "Exit: 0 done, 1 refused, 2 wrong call, 3 zvr isn't running or doesn't answer\n";

/// One connection to the program: lines out, lines in.
class Connection {
public:
    ~Connection() {
        if (file >= 0) {
            close(file);
        }
    }

    bool Open(const std::string& path) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        if (path.size() >= sizeof address.sun_path) {
            errno = ENAMETOOLONG;
            return false;
        }
        std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
        file = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        // A program that hangs takes nobody in any more once a few wait at its door.
        const timeval limit{.tv_sec = std::chrono::duration_cast<std::chrono::seconds>(timeLimit).count(),
                            .tv_usec = 0};
        setsockopt(file, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
        return file >= 0 && connect(file, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    }

    bool Send(std::string line) {
        line += '\n';
        std::string_view rest = line;
        while (!rest.empty()) {
            const ssize_t sent = send(file, rest.data(), rest.size(), MSG_NOSIGNAL);
            if (sent < 0 && errno != EINTR) {
                return false;
            }
            rest.remove_prefix(static_cast<std::size_t>(sent > 0 ? sent : 0));
        }
        return true;
    }

    /// The next line without its end; none when the program has gone or the time limit has passed.
    std::optional<std::string> Receive(std::chrono::milliseconds limit) {
        using Clock = std::chrono::steady_clock;
        const auto end = Clock::now() + limit;
        std::size_t searched = 0;
        for (;;) {
            if (const auto found = received.find('\n', searched); found != std::string::npos) {
                std::string line = received.substr(0, found);
                received.erase(0, found + 1);
                return line;
            }
            searched = received.size();
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
            if ((limit != forEver && left.count() <= 0) || received.size() > longestAnswer) {
                return std::nullopt;
            }
            pollfd wait{file, POLLIN, 0};
            const int ready = poll(&wait, 1, limit == forEver ? -1 : static_cast<int>(left.count()));
            char buffer[65536];
            const ssize_t count = ready > 0 ? read(file, buffer, sizeof buffer) : 0;
            if (count > 0) {
                received.append(buffer, static_cast<std::size_t>(count));
            } else if ((ready > 0 && count == 0) || (errno != EINTR && (ready < 0 || count < 0))) {
                return std::nullopt;
            }
        }
    }

private:
    int file = -1;
    std::string received;
};

int Fail(int exitCode, const std::string& why) {
    std::fprintf(stderr, "zvrctl: %s\n", why.c_str());
    return exitCode;
}

/// Prints the texts of a list, behind its bracket.
void PrintList(zvr::AnswerReader& reader) {
    do {
        if (const auto text = reader.TakeString()) {
            std::printf("%s\n", text->c_str());
        }
    } while (reader.Take(","));
    std::fflush(stdout);
}

/// Exit code for an answer that is no success; prints the reason that it gives.
int ReportRefusal(const std::string& answer) {
    zvr::AnswerReader reader(answer);
    std::optional<std::string> why;
    if (reader.Take("{\"error\":")) {
        why = reader.TakeString();
        if (reader.Take(",\"faults\":[")) {
            PrintList(reader);
        }
    }
    return Fail(exitRefused, why.value_or("an answer that makes no sense: " + answer.substr(0, 200)));
}

/// Prints the values in the order asked for. Line breaks and tabs inside become blanks: one value is one line.
int PrintValues(const std::string& answer, const std::vector<std::string>& tokens) {
    zvr::AnswerReader reader(answer);
    if (!reader.Take("{\"ok\":true,\"values\":{")) {
        return ReportRefusal(answer);
    }
    std::string lines;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if ((i > 0 && !reader.Take(",")) || reader.TakeString() != tokens[i] || !reader.Take(":")) {
            return ReportRefusal(answer);
        }
        std::optional<std::string> value = reader.TakeString();
        if (!value) {
            return ReportRefusal(answer);
        }
        for (char& c : *value) {
            c = c == '\n' || c == '\r' || c == '\t' ? ' ' : c;
        }
        lines += *value + "\n";
    }
    std::fputs(lines.c_str(), stdout);
    std::fflush(stdout);
    return 0;
}

int PrintLog(const std::string& answer) {
    zvr::AnswerReader reader(answer);
    if (!reader.Take("{\"ok\":true,\"lines\":[")) {
        return ReportRefusal(answer);
    }
    PrintList(reader);
    return 0;
}

std::string Joined(const std::vector<std::string>& words, char separator) {
    std::string line;
    for (const std::string& word : words) {
        line += (line.empty() ? "" : std::string(1, separator)) + word;
    }
    return line;
}

int Print(const std::string& verb, const std::string& answer, const std::vector<std::string>& words) {
    return verb == "log" ? PrintLog(answer) : PrintValues(answer, words);
}

int Run(const std::string& verb, const std::vector<std::string>& words) {
    const bool prints = verb == "get" || verb == "watch" || verb == "log";
    const bool goesOn = verb == "watch" || (verb == "log" && !words.empty());
    const std::string joined = Joined(words, prints ? '\t' : ' ');
    const std::string request = verb == "log" && goesOn ? "log follow" : joined.empty() ? verb : verb + " " + joined;
    if (request.find('\n') != std::string::npos || request.size() > longestRequest) {
        return Fail(exitUsage, "the request has line breaks or is too long");
    }
    Connection connection;
    if (!connection.Open(zvr::ControlSocket())) {
        return Fail(exitNotRunning,
                    errno == EAGAIN ? "zvr doesn't answer"
                                    : "zvr isn't running (" + zvr::ControlSocket() + ": " + std::strerror(errno) + ")");
    }
    if (!connection.Send(request)) {
        return Fail(exitNotRunning, "zvr has gone");
    }
    auto answer = connection.Receive(timeLimit);
    if (!answer) {
        return Fail(exitNotRunning, "zvr doesn't answer");
    }
    if (prints) {
        int result = Print(verb, *answer, words);
        while (goesOn && result == 0 && (answer = connection.Receive(forEver))) {
            result = Print(verb, *answer, words);
        }
        return result;
    }
    if (!answer->starts_with("{\"ok\":true")) {
        return ReportRefusal(*answer);
    }
    if (verb == "state") {
        std::printf("%s\n", answer->c_str());
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    const std::string verb = words.empty() ? "" : words.front();
    if (verb == "--help" || verb == "-h") {
        std::fputs(usage, stdout);
        return 0;
    }
    const bool takesWords = verb == "do" || verb == "get" || verb == "watch";
    const std::string all = Joined(words, ' ');
    const bool whole = all == "state" || all == "log" || all == "log --follow" || all == "skin reload";
    if (takesWords ? words.size() < 2 : !whole) {
        std::fputs(usage, stderr);
        return exitUsage;
    }
    return Run(verb, {words.begin() + 1, words.end()});
}
