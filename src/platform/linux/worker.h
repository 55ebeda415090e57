#pragma once

#include <functional>
#include <memory>

namespace zvr {

/// A thread that does one task after the other.
class Worker {
public:
    Worker();
    /// Lets it finish what it has, for two seconds; a thread that hangs longer, in a driver say, is left behind.
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void Do(std::function<void()> task);  ///< any thread may call

private:
    struct State;
    std::shared_ptr<State> state;  ///< shared with the thread, which may outlive this object
};

}  // namespace zvr
