#pragma once

#include "platform/eventloop.h"

#include <deque>
#include <list>
#include <mutex>
#include <string>
#include <vector>

namespace zvr {

/// Virtual time: it stands still while code runs and jumps to the next due event when a wait asks for it.
struct EventLoop::State {
    struct Entry {
        Milliseconds due{0};
        Milliseconds interval{0};  ///< 0: once
        std::function<void()> run;
        bool enabled = true;
        bool running = false;
    };

    Milliseconds now{1000};
    LocalTime wallAtStart{1'750'000'000'000 - 1'750'000'000'000 % 86'400'000 + 12 * 3'600'000};  ///< noon
    std::mutex postedMutex;
    std::deque<std::function<void()>> posted;
    std::list<std::shared_ptr<Entry>> entries;
    std::vector<std::string> openWaits;
    bool quitting = false;
    int exitCode = 0;
    int turns = 0;  ///< of LetPendingEventsRun

    /// Runs what is due until `duration` has passed.
    void Advance(Milliseconds duration);
    /// Does `task` once, that long from now: a touch that a later wait needs.
    void At(Milliseconds delay, std::function<void()> task);
    void SetWallClock(LocalTime time);
    /// Runs one thing that is due by `limit`. False if there is none; time then stands at `limit`.
    bool RunOne(Milliseconds limit);
};

}  // namespace zvr
