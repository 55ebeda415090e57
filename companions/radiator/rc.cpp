// rc: tells the running radio program one thing and prints its answer.

#include "radiator/meeting.h"

#include <cstdio>
#include <string_view>

int main(int argc, char** argv) {
    if (argc != 2 || std::string_view(argv[1]).size() >= longestWord || *argv[1] == '-') {
        std::fputs(
            "Usage: rc fr10450     tunes to 104.50 MHz\n"
            "       rc mute        also: unmute\n"
            "       rc status      prints frequency and mute\n"
            "       rc log         prints what it was told, with the time since its start\n"
            "       rc quit        ends the radio program\n"
            "Exit: 0 done, 1 not understood, 2 wrong call, 3 no radio program runs\n",
            stderr);
        return 2;
    }
    const int radio = CallRadio();
    if (radio < 0) {
        std::fputs("rc: no radio program runs\n", stderr);
        return 3;
    }
    SendText(radio, std::string(argv[1]) + "\n");
    std::string answer;
    char buffer[4096];
    for (ssize_t got = 0; (got = read(radio, buffer, sizeof buffer)) > 0;) {
        answer.append(buffer, static_cast<std::size_t>(got));
    }
    std::fputs(answer.c_str(), stdout);
    return answer.starts_with("unknown: ") ? 1 : 0;
}
