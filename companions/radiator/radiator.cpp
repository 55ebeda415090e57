// radiator: stands where a radio program would, which owns a tuner and is told by its tool `rc` what to do.
// Ends by SIGTERM or by `rc quit`.

#include "radiator/meeting.h"
#include "radiator/radio.h"

#include <sys/stat.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

/// A second of patience with whoever calls and says nothing.
constexpr timeval patience{1, 0};

std::string ReadWord(int caller) {
    setsockopt(caller, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    setsockopt(caller, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    std::string word;
    char byte = 0;
    while (word.size() < longestWord && read(caller, &byte, 1) == 1 && byte != '\n') {
        word += byte >= ' ' && byte <= '~' ? byte : '?';
    }
    return word;
}

std::string meetingPlace;

void Leave(int) {
    unlink(meetingPlace.c_str());
    _exit(0);
}

int Listen() {
    return RadioSocket([](int line, const std::string& path, const sockaddr_un& address) {
        meetingPlace = path;
        unlink(path.c_str());  // nobody answered there, so whoever made it has gone
        umask(0077);
        return bind(line, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 ? listen(line, 8) : -1;
    });
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 2 || (argc == 2 && std::string_view(argv[1]) != "-tray")) {
        std::fputs("Usage: radiator [-tray]    a radio without a screen; `rc` tells it what to do\n", stderr);
        return 2;
    }
    if (const int other = CallRadio(); other >= 0) {
        close(other);
        return 0;  // one radio is enough
    }
    const int line = Listen();
    if (line < 0) {
        std::perror("radiator");
        return 1;
    }
    std::signal(SIGTERM, Leave);
    std::signal(SIGINT, Leave);
    Radio radio;
    for (;;) {
        const int caller = accept(line, nullptr, nullptr);
        if (caller < 0) {
            continue;
        }
        const std::string word = ReadWord(caller);
        if (word == "quit") {
            Leave(0);
        }
        const std::string answer = radio.Do(word);
        SendText(caller, answer.empty() && word != "log" ? "unknown: " + word + "\n" : answer);
        close(caller);
    }
}
