#include "platform/linux/worker.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace zvr {

struct Worker::State {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::function<void()>> tasks;
    bool ending = false;
    bool ended = false;

    void Run() {
        std::unique_lock lock(mutex);
        while (true) {
            changed.wait(lock, [this] { return ending || !tasks.empty(); });
            if (tasks.empty()) {
                break;
            }
            auto task = std::move(tasks.front());
            tasks.pop_front();
            lock.unlock();
            task();
            task = nullptr;  // what it holds goes outside the lock
            lock.lock();
        }
        ended = true;
        changed.notify_all();
    }
};

Worker::Worker() : state(std::make_shared<State>()) {
    std::thread([own = state] { own->Run(); }).detach();
}

Worker::~Worker() {
    std::unique_lock lock(state->mutex);
    state->ending = true;
    state->changed.notify_all();
    state->changed.wait_for(lock, std::chrono::seconds(2), [this] { return state->ended; });
}

void Worker::Do(std::function<void()> task) {
    const std::lock_guard lock(state->mutex);
    state->tasks.push_back(std::move(task));
    state->changed.notify_all();
}

}  // namespace zvr
