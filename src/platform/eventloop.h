#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string_view>

namespace zvr {

using Milliseconds = std::chrono::milliseconds;

/// The wall clock, in the machine's time zone.
struct LocalTime {
    std::int64_t milliseconds = 0;  ///< since 1970-01-01 of local time, leap seconds left out
    [[nodiscard]] double SecondsOfDay() const { return static_cast<double>(milliseconds % 86'400'000) / 1000.0; }
    friend bool operator==(const LocalTime&, const LocalTime&) = default;
};

/// The one thread's source of events, and the clock.
class EventLoop {
public:
    EventLoop();
    ~EventLoop();
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    int Run();                ///< until Quit; returns its code
    void Quit(int exitCode);  ///< ends Run and every wait; later waits return at once
    [[nodiscard]] bool IsQuitting() const;

    void Post(std::function<void()> task);  ///< runs it at the next turn. Any thread may call

    void Wait(Milliseconds duration);  ///< runs events meanwhile
    /// Runs events until `done` holds; looked at after each turn. `what` names the wait in diagnostics.
    /// False when the loop is ending instead.
    bool WaitUntil(std::string_view what, const std::function<bool()>& done);
    /// Gives touches, timers and paints a turn from inside long work. Cheap: really turns every 5 ms at most.
    void LetPendingEventsRun();

    [[nodiscard]] Milliseconds Monotonic() const;  ///< since some moment before the start
    [[nodiscard]] LocalTime Now() const;

    struct State;
    std::unique_ptr<State> state;
};

/// Calls its handler every `interval` until stopped. A handler that waits delays its own timer, no other.
class Timer {
public:
    Timer(EventLoop& loop, std::function<void()> onTimer);
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    [[nodiscard]] Milliseconds Interval() const;
    void SetInterval(Milliseconds value);  ///< at least 1 ms; restarts a running timer
    void Start();                          ///< does nothing when it runs
    void Stop();
    [[nodiscard]] bool Enabled() const;

private:
    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
