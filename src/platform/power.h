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

    /// As the machine said last; asked for once at the start, so this never waits. False while unknown.
    [[nodiscard]] bool CanHibernate() const;
    void Hibernate();  ///< failures are silent
    void Reboot();

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
