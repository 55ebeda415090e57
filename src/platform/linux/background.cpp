#include "platform/background.h"

#include "platform/lifetime.h"
#include "platform/linux/worker.h"

#include <mutex>

namespace zvr {
namespace {

/// Shared with the thread, which may outlive the rest in a task that hangs.
struct Mailbox {
    std::mutex mutex;
    EventLoop* loop = nullptr;  ///< null: nobody waits any more
};

}  // namespace

struct Background::State {
    std::shared_ptr<Mailbox> mailbox = std::make_shared<Mailbox>();
    Lifetime lifetime;
    std::unique_ptr<Worker> worker;  ///< made when it is first needed
};

Background::Background(EventLoop& loop) : state(std::make_unique<State>()) {
    state->mailbox->loop = &loop;
}

Background::~Background() {
    const std::lock_guard lock(state->mailbox->mutex);
    state->mailbox->loop = nullptr;
}

void Background::Do(std::function<void()> task, std::function<void()> done) {
    if (!state->worker) {
        state->worker = std::make_unique<Worker>();
    }
    auto tell = state->lifetime.Guard(std::move(done));
    state->worker->Do([mailbox = state->mailbox, task = std::move(task), tell = std::move(tell)] {
        const auto isWanted = [&mailbox] {
            const std::lock_guard lock(mailbox->mutex);
            return mailbox->loop != nullptr;
        };
        if (!isWanted()) {
            return;
        }
        task();
        const std::lock_guard lock(mailbox->mutex);
        if (mailbox->loop != nullptr) {
            mailbox->loop->Post(tell);
        }
    });
}

}  // namespace zvr
