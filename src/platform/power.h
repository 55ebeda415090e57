#pragma once

#include <functional>
#include <memory>

namespace zvr {

/// The machine's sleep and restart.
class Power {
public:
    Power();
    ~Power();
    Power(const Power&) = delete;
    Power& operator=(const Power&) = delete;

    /// As the machine said last, so this never waits: asked for soon after the start, after each sleep and whenever its
    /// login service comes up. False while unknown, and where somebody would have to type a password.
    [[nodiscard]] bool CanHibernate() const;
    void Hibernate();  ///< failures are silent; the log tells
    void Reboot();

    // From the event loop, also inside waits, whoever wants the machine to sleep or to go down.

    /// The machine is about to sleep and waits for this to return, for a few seconds at most.
    std::function<void()> onSleep;
    /// It is awake again, or did not fall asleep after all.
    std::function<void()> onWake;
    /// It is about to switch off or restart, and waits likewise.
    std::function<void()> onShutdown;

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
