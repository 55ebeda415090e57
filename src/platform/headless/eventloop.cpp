#include "platform/headless/eventloop.h"

#include <algorithm>
#include <stdexcept>

namespace zvr {
namespace {

/// Longer than any wait of the program that something can end.
constexpr Milliseconds patience{180'000};

}  // namespace

bool EventLoop::State::RunOne(Milliseconds limit) {
    std::function<void()> task;
    {
        const std::lock_guard lock(postedMutex);
        if (!posted.empty()) {
            task = std::move(posted.front());
            posted.pop_front();
        }
    }
    if (task) {
        task();
        return true;
    }
    std::shared_ptr<Entry> next;
    for (const auto& entry : entries) {
        if (entry->enabled && !entry->running && entry->due <= limit && (!next || entry->due < next->due)) {
            next = entry;
        }
    }
    if (!next) {
        now = std::max(now, limit);
        return false;
    }
    now = std::max(now, next->due);
    if (next->interval == Milliseconds{0}) {
        next->enabled = false;
        entries.remove(next);
    }
    next->running = true;
    next->run();
    next->running = false;
    if (next->interval > Milliseconds{0} && next->due <= now) {
        // A handler that waited has missed its turns; they are not made up for.
        next->due = std::max(next->due + next->interval, now);
    }
    return true;
}

void EventLoop::State::Advance(Milliseconds duration) {
    const Milliseconds limit = now + duration;
    while (!quitting && RunOne(limit)) {
    }
}

void EventLoop::State::At(Milliseconds delay, std::function<void()> task) {
    entries.push_back(std::make_shared<Entry>(Entry{now + delay, Milliseconds{0}, std::move(task)}));
}

void EventLoop::State::SetWallClock(LocalTime time) {
    wallAtStart.milliseconds = time.milliseconds - now.count();
}

EventLoop::EventLoop() : state(std::make_unique<State>()) {}
EventLoop::~EventLoop() = default;

int EventLoop::Run() {
    WaitUntil("run", [this] { return state->quitting; });
    return state->exitCode;
}

void EventLoop::Quit(int exitCode) {
    if (!state->quitting) {
        state->quitting = true;
        state->exitCode = exitCode;
    }
}

bool EventLoop::IsQuitting() const {
    return state->quitting;
}

void EventLoop::Post(std::function<void()> task) {
    const std::lock_guard lock(state->postedMutex);
    state->posted.push_back(std::move(task));
}

void EventLoop::Wait(Milliseconds duration) {
    state->Advance(duration);
}

bool EventLoop::WaitUntil(std::string_view what, const std::function<bool()>& done) {
    state->openWaits.emplace_back(what);
    const Milliseconds limit = state->now + patience;
    while (!state->quitting && !done()) {
        if (!state->RunOne(limit)) {
            std::string waits;
            for (const std::string& wait : state->openWaits) {
                waits += " " + wait;
            }
            state->openWaits.clear();
            state->quitting = true;
            throw std::runtime_error("nothing ends these waits:" + waits);
        }
    }
    if (!state->openWaits.empty()) {
        state->openWaits.pop_back();
    }
    return !state->quitting;
}

void EventLoop::LetPendingEventsRun() {
    ++state->turns;
    while (!state->quitting && state->RunOne(state->now)) {
    }
}

Milliseconds EventLoop::Monotonic() const {
    return state->now;
}

LocalTime EventLoop::Now() const {
    return {state->wallAtStart.milliseconds + state->now.count()};
}

struct Timer::State {
    EventLoop::State* loop = nullptr;
    std::shared_ptr<EventLoop::State::Entry> entry;
};

Timer::Timer(EventLoop& loop, std::function<void()> onTimer) : state(std::make_unique<State>()) {
    state->loop = loop.state.get();
    state->entry = std::make_shared<EventLoop::State::Entry>();
    state->entry->interval = Milliseconds{1};
    state->entry->run = std::move(onTimer);
    state->entry->enabled = false;
    state->loop->entries.push_back(state->entry);
}

Timer::~Timer() {
    state->entry->enabled = false;
    state->loop->entries.remove(state->entry);
}

Milliseconds Timer::Interval() const {
    return state->entry->interval;
}

void Timer::SetInterval(Milliseconds value) {
    state->entry->interval = std::max(value, Milliseconds{1});
    state->entry->due = state->loop->now + state->entry->interval;
}

void Timer::Start() {
    if (!state->entry->enabled) {
        state->entry->enabled = true;
        state->entry->due = state->loop->now + state->entry->interval;
    }
}

void Timer::Stop() {
    state->entry->enabled = false;
}

bool Timer::Enabled() const {
    return state->entry->enabled;
}

}  // namespace zvr
