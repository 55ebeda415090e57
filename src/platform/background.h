#pragma once

#include "platform/eventloop.h"

#include <functional>
#include <memory>

namespace zvr {

/// A thread beside the one of the user interface, for what would hold up touches. One task after the other.
class Background {
public:
    explicit Background(EventLoop& loop);
    ~Background();  ///< a task that runs is given two seconds; what is still to come is dropped
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;

    /// Runs `task` over there, then `done` from the event loop. Whatever the task works on belongs to it until then.
    void Do(std::function<void()> task, std::function<void()> done);

    struct State;

private:
    std::unique_ptr<State> state;
};

}  // namespace zvr
