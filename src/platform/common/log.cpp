#include "platform/log.h"

#include "platform/common/utf8.h"

#include <sys/select.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <ctime>
#include <list>
#include <mutex>

namespace zvr {
namespace {

constexpr std::time_t tellAgainAfter = 3600;  ///< seconds

struct Line {
    LogLevel level = LogLevel::note;
    std::string text;
    std::uint64_t times = 1;
    std::uint64_t number = 0;      ///< of its latest repetition
    std::uint64_t toldNumber = 0;  ///< of the latest one that was told
    std::time_t first = 0;
    std::time_t last = 0;
    std::time_t told = 0;
};

struct Ring {
    std::mutex mutex;
    std::list<Line> lines;  ///< the latest last
    std::atomic<std::uint64_t> number = 0;
    std::atomic<bool> standardError = false;
};

/// Never destroyed: threads of libraries may write until the process has gone.
Ring& TheRing() {
    static Ring* const ring = new Ring;
    return *ring;
}

const char* NameOf(LogLevel level) {
    switch (level) {
        case LogLevel::note:
            return "note";
        case LogLevel::warning:
            return "warning";
        case LogLevel::error:
            break;
    }
    return "error";
}

/// A name of a file may hold anything; a line of the log is one line of plain UTF-8. No more than just too much.
void AppendPlain(std::string& line, std::string_view text) {
    for (std::size_t at = 0; at < text.size() && line.size() <= Log::longestText;) {
        const utf8::Character character = utf8::At(text, at);
        const bool plain = character.code >= ' ' && character.code != 0x7F;
        line += plain ? text.substr(at, character.length) : std::string_view("?");
        at += character.length;
    }
}

void Cut(std::string& line) {
    constexpr std::string_view mark = "...";
    if (line.size() <= Log::longestText) {
        return;
    }
    line.resize(Log::longestText - mark.size());
    while (!utf8::IsValid(line)) {
        line.pop_back();  // up to the beginning of the character that was cut
    }
    line += mark;
}

std::string Moment(std::time_t time) {
    std::tm local{};
    localtime_r(&time, &local);
    char text[40];
    return {text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local)};
}

std::string Shown(const Line& line) {
    std::string shown = Moment(line.last) + " " + NameOf(line.level) + ": " + line.text;
    if (line.times > 1) {
        shown += " (" + std::to_string(line.times) + " times since " + Moment(line.first) + ")";
    }
    return shown;
}

bool IsPowerOfTen(std::uint64_t count) {
    while (count >= 10 && count % 10 == 0) {
        count /= 10;
    }
    return count == 1;
}

/// Without waiting, and without the signal that kills those who write to a pipe that nobody reads any more.
void ToStandardError(std::string text) {
    text += '\n';
    fd_set descriptors;
    FD_ZERO(&descriptors);
    FD_SET(STDERR_FILENO, &descriptors);
    timeval noTime{};
    if (::select(STDERR_FILENO + 1, nullptr, &descriptors, nullptr, &noTime) != 1) {
        return;
    }
    sigset_t pipe;
    sigset_t before;
    sigemptyset(&pipe);
    sigaddset(&pipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipe, &before);
    if (::write(STDERR_FILENO, text.data(), text.size()) < 0 && sigismember(&before, SIGPIPE) == 0) {
        const timespec now{};
        sigtimedwait(&pipe, nullptr, &now);
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

}  // namespace

void Log::Write(LogLevel level, std::string_view text, std::initializer_list<Value> values) noexcept try {
    std::string message;
    const Value* value = values.begin();
    for (std::size_t mark = text.find("{}"); mark != text.npos && value != values.end(); mark = text.find("{}")) {
        AppendPlain(message, text.substr(0, mark));
        AppendPlain(message, (value++)->shown);
        text.remove_prefix(mark + 2);
    }
    AppendPlain(message, text);
    Cut(message);

    Ring& ring = TheRing();
    const std::lock_guard lock(ring.mutex);
    const std::time_t now = std::time(nullptr);
    const auto same = std::find_if(ring.lines.begin(), ring.lines.end(),
                                   [&](const Line& line) { return line.level == level && line.text == message; });
    if (same == ring.lines.end()) {
        if (ring.lines.size() >= mostLines) {
            ring.lines.pop_front();
        }
        ring.lines.push_back({level, std::move(message), 0, 0, 0, now, now, 0});
    } else {
        ring.lines.splice(ring.lines.end(), ring.lines, same);
    }
    Line& line = ring.lines.back();
    ++line.times;
    line.last = now;
    line.number = ring.number + 1;
    if (IsPowerOfTen(line.times) || now - line.told >= tellAgainAfter) {
        line.told = now;
        line.toldNumber = line.number;
        if (ring.standardError) {
            ToStandardError("zvr: " + std::string(NameOf(level)) + ": " + line.text +
                            (line.times > 1 ? " (" + std::to_string(line.times) + " times)" : ""));
        }
    }
    ring.number = line.number;
} catch (...) {  // no memory for a line: there is nobody left to tell
}

void Log::UseStandardError(bool wanted) {
    TheRing().standardError = wanted;
}

std::uint64_t Log::LastNumber() {
    return TheRing().number;
}

std::vector<std::string> Log::Lines() {
    Ring& ring = TheRing();
    const std::lock_guard lock(ring.mutex);
    std::vector<std::string> lines;
    for (const Line& line : ring.lines) {
        lines.push_back(Shown(line));
    }
    return lines;
}

std::vector<std::string> Log::News(std::uint64_t number) {
    Ring& ring = TheRing();
    const std::lock_guard lock(ring.mutex);
    std::vector<std::string> lines;
    for (const Line& line : ring.lines) {
        if (line.toldNumber > number) {
            lines.push_back(Shown(line));
        }
    }
    return lines;
}

}  // namespace zvr
