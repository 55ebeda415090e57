#include "platform/processes.h"

#include "platform/linux/otherwindows.h"
#include "platform/linux/proctable.h"
#include "platform/log.h"
#include "platform/text.h"

#include <QSocketNotifier>
#include <QTimer>

#include <fcntl.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <map>
#include <utility>

namespace zvr {
namespace {

using std::chrono_literals::operator""ms;

constexpr std::string_view markName = "ZVR_STARTED=";
/// A process that is just being replaced by another program has no environment for a moment, and so no mark. Only what
/// isn't found after all of these pauses either counts as ended; they differ so as not to keep step with anybody.
constexpr std::array<std::chrono::milliseconds, 3> untilNextLook{20ms, 50ms, 110ms};
constexpr std::string_view purpose = "windows of other programs are not found";

/// Tells the children of one start from all others, whatever group they make for themselves.
std::string MarkOf(int number) {
    return std::string(markName) + std::to_string(getpid()) + "." + std::to_string(number);
}

std::string BareName(std::string_view fileName) {
    std::string name = text::Lower(fileName.substr(fileName.rfind('/') + 1));
    constexpr std::string_view suffix = ".exe";
    if (name.ends_with(suffix)) {
        name.resize(name.size() - suffix.size());
    }
    return name;
}

/// The error's number; 0 and the process's id on success.
int Spawn(const ProgramCall& call, const std::string& folder, const std::string& mark, pid_t& id) {
    std::vector<char*> words{const_cast<char*>(call.file.c_str())};
    for (const std::string& argument : call.arguments) {
        words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);
    std::vector<char*> environment{const_cast<char*>(mark.c_str())};
    for (char** entry = environ; *entry != nullptr; ++entry) {
        if (!std::string_view(*entry).starts_with(markName)) {
            environment.push_back(*entry);
        }
    }
    environment.push_back(nullptr);

    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t set;
    sigfillset(&set);
    posix_spawnattr_setsigdefault(&attributes, &set);
    sigemptyset(&set);
    posix_spawnattr_setsigmask(&attributes, &set);
    posix_spawnattr_setpgroup(&attributes, 0);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    std::error_code none;
    if (!folder.empty() && std::filesystem::is_directory(folder, none)) {
        posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    }
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
    const int error = posix_spawn(&id, call.file.c_str(), &actions, &attributes, words.data(), environment.data());
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
    return error;
}

}  // namespace

struct Processes::State {
    struct Started {
        std::string mark;
        std::function<void()> ended;
        std::unique_ptr<QSocketNotifier> watch;  ///< of one of its processes
        int descriptor = -1;
        QObject posted;       ///< takes what waits for a later turn of the loop along when it goes
        bool placed = false;  ///< its first window has come and is as was asked for
        StartState state = StartState::normal;
        xcb_window_t formerFocus = XCB_WINDOW_NONE;

        ~Started() {
            watch.reset();
            if (descriptor >= 0) {
                close(descriptor);
            }
        }
    };

    std::map<ProcessId, Started> started;
    OtherWindows windows;
    int starts = 0;

    bool WatchOne(ProcessId id, pid_t process);
    void OneHasEnded(ProcessId id);
    void LookForNext(ProcessId id, std::size_t looks);
    [[nodiscard]] pid_t FirstOf(ProcessId id) const;
    [[nodiscard]] bool Belongs(pid_t process, ProcessId id) const;
    [[nodiscard]] xcb_window_t WindowOf(ProcessId id) const;
    [[nodiscard]] xcb_window_t ActiveWindow() const;
    void ActivateWindow(xcb_window_t window) const;
    void AwaitWindow(ProcessId id, StartState how);
    void PlaceNewWindows();
};

/// Has the kernel say when `process`, one of the start's, ends. False when it has ended already, or can't be watched.
bool Processes::State::WatchOne(ProcessId id, pid_t process) {
    Started& program = started[id];
    program.watch.reset();
    if (program.descriptor >= 0) {
        close(program.descriptor);
    }
    program.descriptor = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
    if (program.descriptor < 0) {
        return false;
    }
    program.watch = std::make_unique<QSocketNotifier>(program.descriptor, QSocketNotifier::Read);
    QObject::connect(
        program.watch.get(), &QSocketNotifier::activated, program.watch.get(), [this, id] { OneHasEnded(id); },
        Qt::QueuedConnection);  // it replaces the notifier that calls
    return true;
}

void Processes::State::OneHasEnded(ProcessId id) {
    if (!started.contains(id)) {
        return;
    }
    waitpid(id, nullptr, WNOHANG);
    started[id].watch.reset();  // it would not cease to tell
    LookForNext(id, 0);
}

/// For a process of the start to be watched in place of the one that has ended, which `looks` looks have not found.
void Processes::State::LookForNext(ProcessId id, std::size_t looks) {
    const pid_t next = FirstOf(id);
    if (next != 0 && WatchOne(id, next)) {
        return;
    }
    if (next != 0) {  // it has just ended too, or there is no descriptor to watch it with
        QTimer::singleShot(untilNextLook.back(), &started[id].posted, [this, id] { LookForNext(id, 0); });
        return;
    }
    if (looks < untilNextLook.size()) {
        QTimer::singleShot(untilNextLook.at(looks), &started[id].posted,
                           [this, id, looks] { LookForNext(id, looks + 1); });
        return;
    }
    const auto ended = std::move(started[id].ended);
    started.erase(id);
    if (ended) {
        ended();
    }
}

pid_t Processes::State::FirstOf(ProcessId id) const {
    const std::string& mark = started.at(id).mark;
    for (const proctable::Process& process : proctable::All()) {
        if (process.group == id || proctable::HasInEnvironment(process.id, mark)) {
            return process.id;
        }
    }
    return 0;
}

bool Processes::State::Belongs(pid_t process, ProcessId id) const {
    const auto program = started.find(id);
    if (program != started.end() && proctable::HasInEnvironment(process, program->second.mark)) {
        return true;
    }
    // The parents end at the first process, which is its own parent's child: 0.
    while (process > 1) {
        const auto found = proctable::Look(process);
        if (process == id || (found && program != started.end() && found->group == id)) {
            return true;
        }
        process = found ? found->parent : 0;
    }
    return false;
}

xcb_window_t Processes::State::WindowOf(ProcessId id) const {
    // A window that isn't managed yet takes no orders; without a manager none ever is.
    const std::vector<xcb_window_t> managed = x11::WindowManagerRuns() ? windows.Managed() : windows.All();
    for (auto window = managed.rbegin(); window != managed.rend(); ++window) {
        const auto process = static_cast<pid_t>(windows.ProcessOf(*window));
        if (process > 0 && !windows.IsDock(*window) && Belongs(process, id)) {
            return *window;
        }
    }
    return XCB_WINDOW_NONE;
}

void Processes::State::AwaitWindow(ProcessId id, StartState how) {
    Started& program = started[id];
    program.state = how;
    program.placed = !windows.Connect(purpose);
    if (program.placed) {
        return;
    }
    program.formerFocus = ActiveWindow();
    windows.Watch([this] { PlaceNewWindows(); });
}

xcb_window_t Processes::State::ActiveWindow() const {
    const auto active = windows.Numbers(windows.Root(), windows.Atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW);
    return active.empty() ? static_cast<xcb_window_t>(XCB_WINDOW_NONE) : active.front();
}

void Processes::State::ActivateWindow(xcb_window_t window) const {
    constexpr std::uint32_t fromPager = 2;  // whose wish is not refused
    x11::AskWindowManager(windows.Connection(), window, "_NET_ACTIVE_WINDOW", {fromPager, XCB_CURRENT_TIME, 0});
}

void Processes::State::PlaceNewWindows() {
    bool waits = false;
    for (auto& [id, program] : started) {
        if (program.placed) {
            continue;
        }
        const xcb_window_t window = WindowOf(id);
        if (window == XCB_WINDOW_NONE) {
            waits = true;
            continue;
        }
        program.placed = true;
        const xcb_window_t active = ActiveWindow();
        if (program.state == StartState::maximized) {
            constexpr std::uint32_t add = 1;
            x11::AskWindowManager(
                windows.Connection(), window, "_NET_WM_STATE",
                {add, windows.Atom("_NET_WM_STATE_MAXIMIZED_VERT"), windows.Atom("_NET_WM_STATE_MAXIMIZED_HORZ")});
        }
        if (program.state == StartState::withoutFocus) {
            if (program.formerFocus != XCB_WINDOW_NONE) {
                ActivateWindow(program.formerFocus);
            }
        } else if (active == XCB_WINDOW_NONE || windows.ProcessOf(active) != static_cast<std::uint32_t>(getpid())) {
            // Some window managers leave a full-screen program in front of it. Not when the driver has come back to us.
            ActivateWindow(window);
        }
    }
    if (!waits) {
        windows.StopWatching();
    }
}

Processes::Processes() : state(std::make_unique<State>()) {}
Processes::~Processes() = default;

std::optional<ProcessId> Processes::Start(const std::string& commandLine, How how) {
    const auto call = ReadCommandLine(commandLine);
    if (!call) {
        Log::Warning("\"{}\" is not started: no word of it leads to a program", commandLine);
        return std::nullopt;
    }
    const std::string mark = MarkOf(++state->starts);
    pid_t id = 0;
    if (const int error = Spawn(*call, how.folder, mark, id); error != 0) {
        Log::Warning("{} is not started: {}", call->file, std::strerror(error));
        return std::nullopt;
    }
    State::Started& program = state->started[id];
    program.mark = mark;
    program.ended = std::move(how.ended);
    if (!state->WatchOne(id, id)) {
        state->LookForNext(id, 0);
    }
    state->AwaitWindow(id, how.state);
    return id;
}

bool Processes::Lives(ProcessId id) const {
    return state->started.contains(id);
}

ProcessId Processes::Find(std::string_view fileName) const {
    const std::string wanted = BareName(fileName);
    for (const proctable::Process& process : proctable::All()) {
        if (process.id == getpid()) {
            continue;
        }
        for (const std::string& name : proctable::NamesOf(process.id)) {
            if (!wanted.empty() && BareName(name) == wanted) {
                return process.id;
            }
        }
    }
    return 0;
}

bool Processes::HasWindow(ProcessId id) const {
    return id > 0 && state->windows.Connect(purpose) && state->WindowOf(id) != XCB_WINDOW_NONE;
}

bool Processes::Activate(ProcessId id) {
    if (id <= 0 || !state->windows.Connect(purpose)) {
        return false;
    }
    const xcb_window_t window = state->WindowOf(id);
    if (window == XCB_WINDOW_NONE) {
        return false;
    }
    state->ActivateWindow(window);
    return true;
}

}  // namespace zvr
