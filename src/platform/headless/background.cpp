#include "platform/background.h"

#include "platform/lifetime.h"

namespace zvr {

/// No thread, so that a test meets the same order each time.
struct Background::State {
    EventLoop& loop;
    Lifetime lifetime{};
};

Background::Background(EventLoop& loop) : state(new State{loop}) {}
Background::~Background() = default;

void Background::Do(std::function<void()> task, std::function<void()> done) {
    state->loop.Post(state->lifetime.Guard([own = state.get(), task = std::move(task), done = std::move(done)] {
        task();
        own->loop.Post(own->lifetime.Guard(done));
    }));
}

}  // namespace zvr
