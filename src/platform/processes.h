#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// A program and what it is told, as they stand in a command line.
struct ProgramCall {
    std::string file;                    ///< an executable file
    std::vector<std::string> arguments;  ///< without the program's own name
    friend bool operator==(const ProgramCall&, const ProgramCall&) = default;
};

/// Reads a command line without a shell. The program is the first word in quotes; or else the shortest run of words
/// from the left that is the path of an executable file, so that a path with blanks needs no quotes; or else the first
/// word, looked up in PATH. A name that ends in ".exe" and leads nowhere is tried without that. Behind it blanks part
/// the arguments; a pair of " or of ' keeps blanks together. None when no program is found.
[[nodiscard]] std::optional<ProgramCall> ReadCommandLine(std::string_view commandLine);

using ProcessId = std::int32_t;  ///< above 0; 0 for none

/// How the first window of a started program comes up.
enum class StartState {
    normal = 1,  ///< and takes the keys
    maximized = 3,
    withoutFocus = 4,  ///< whoever has the keys keeps them
};

/// Programs beside this one. They outlive it. Nothing here waits.
class Processes {
public:
    Processes();
    ~Processes();
    Processes(const Processes&) = delete;
    Processes& operator=(const Processes&) = delete;

    struct How {
        StartState state = StartState::normal;
        std::string folder{};  ///< that it finds itself in; empty, or no folder: the one that this program is in
        std::function<void()> ended{};  ///< comes from the event loop, once, when it lives no longer
    };
    /// Starts a command line. None when that can't be: the reason is in the log.
    [[nodiscard]] std::optional<ProcessId> Start(const std::string& commandLine, How how);
    [[nodiscard]] std::optional<ProcessId> Start(const std::string& commandLine) { return Start(commandLine, How()); }
    /// Of a started program: as long as any process of it lives. Wrappers and browsers leave the work to others and
    /// end.
    [[nodiscard]] bool Lives(ProcessId id) const;

    /// The first process whose file has this name, without regard to case and to ".exe"; a script counts by its own
    /// file's name. 0 for none.
    [[nodiscard]] ProcessId Find(std::string_view fileName) const;
    /// Whether the process, or one that it started, has a window of its own on the screen or minimized.
    [[nodiscard]] bool HasWindow(ProcessId id) const;
    /// Asks for its latest window to come before all others and to have the keys. False when it has none.
    bool Activate(ProcessId id);

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
