#include "platform/headless/discs.h"

#include "platform/common/discimage.h"

#include <utility>

namespace zvr {

Discs::State::State(EventLoop& loop) : spinning(loop, [this] { Tell(); }) {}

void Discs::State::Tell() {
    spinning.Stop();
    const auto found = inDevice.find(path);
    const auto done = std::exchange(waits, nullptr);
    done(found != inDevice.end() ? found->second : DiscOfPath(path));
}

Discs::Discs(EventLoop& loop) : state(std::make_unique<State>(loop)) {}
Discs::~Discs() = default;

std::vector<std::string> Discs::DriveDevices() const {
    return state->devices;
}

void Discs::Look(const std::string& path, std::function<void(const Disc&)> done) {
    const bool spins = state->waits && path == state->path;
    state->path = path;
    state->waits = std::move(done);
    if (spins) {
        return;
    }
    state->spinning.Stop();
    state->spinning.SetInterval(state->spinUp);
    state->spinning.Start();
}

void Discs::Eject(const std::string& device) {
    state->ejected.push_back(device);
}

}  // namespace zvr
