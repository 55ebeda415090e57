#include "platform/headless/mediacontrol.h"

#include "platform/lifetime.h"

#include <algorithm>

namespace zvr {

/// What is open, and how far it has played.
struct MediaControl::State::Run {
    Run(EventLoop& loop, State& state) : loop(&loop), state(&state), due(loop, [this] { OnDue(); }) {}

    EventLoop* loop;
    State* state;
    MediaControl* owner = nullptr;
    PlayState playing = PlayState::undefined;
    bool parsed = false;
    double position = 0;  ///< where it rests, or where it was at `since`
    Milliseconds since{0};
    std::uint64_t generation = 0;  ///< of Open; drops what was posted for an earlier one
    Lifetime lifetime;
    Timer due;  ///< the end of opening, or of the item

    [[nodiscard]] double Duration() const {
        const auto found = state->durations.find(state->address);
        return found == state->durations.end() ? state->defaultDuration : found->second;
    }
    [[nodiscard]] bool Broken() const { return state->everythingBroken || state->broken.contains(state->address); }

    [[nodiscard]] double Position() const {
        if (playing != PlayState::playing) {
            return position;
        }
        return std::min(Duration(), position + std::chrono::duration<double>(loop->Monotonic() - since).count());
    }

    void Arm(Milliseconds delay) {
        due.Stop();
        due.SetInterval(delay);
        due.Start();
    }

    void Go() {
        playing = PlayState::playing;
        since = loop->Monotonic();
        Arm(Milliseconds{static_cast<Milliseconds::rep>((Duration() - position) * 1000)});
    }

    void Rest(PlayState rest, double at) {
        due.Stop();
        playing = rest;
        position = at;
    }

    void OnDue() {
        const bool wasOpening = playing == PlayState::opening;
        if (wasOpening && !Broken()) {
            Go();
            return Tell(owner->onChanged);
        }
        Rest(PlayState::stopped, wasOpening ? position : 0);
        Tell(wasOpening ? owner->onFailed : owner->onEnded);
    }

    static void Tell(const std::function<void()>& handler) {
        if (handler) {
            // A copy: the handler may put another one in its place.
            const auto running = handler;
            running();
        }
    }

    /// The tags are read a turn after the opening, as by an engine.
    void Parse() {
        loop->Post(lifetime.Guard([this, mine = ++generation] {
            if (mine == generation && !Broken()) {
                parsed = true;
                Tell(owner->onChanged);
            }
        }));
    }
};

MediaControl::State::State(EventLoop& loop) : run(std::make_unique<Run>(loop, *this)) {}
MediaControl::State::~State() = default;

void MediaControl::State::Pull() {
    everythingBroken = true;
    if (run->playing == PlayState::playing) {
        run->Rest(PlayState::stopped, run->Position());
        Run::Tell(run->owner->onFailed);
    }
}

MediaControl::MediaControl(EventLoop& loop) : state(std::make_unique<State>(loop)) {
    state->run->owner = this;
}
MediaControl::~MediaControl() = default;

bool MediaControl::IsAvailable() {
    return true;
}

void MediaControl::Open(const std::string& address) {
    state->address = address;
    state->opened.push_back(address);
    state->run->Rest(PlayState::stopped, 0);
    state->run->parsed = false;
    state->run->Parse();
}

void MediaControl::Close() {
    state->address.clear();
    state->run->Rest(PlayState::undefined, 0);
    state->run->parsed = false;
    ++state->run->generation;
}

void MediaControl::Play() {
    State::Run& run = *state->run;
    if (run.playing == PlayState::paused && !run.Broken()) {
        run.Go();
    } else if (run.playing == PlayState::stopped || run.playing == PlayState::paused) {
        run.playing = PlayState::opening;
        run.Arm(state->openingTime);
    }
}

void MediaControl::Pause() {
    State::Run& run = *state->run;
    if (run.playing == PlayState::playing || run.playing == PlayState::opening) {
        run.Rest(PlayState::paused, run.Position());
    }
}

void MediaControl::Stop() {
    if (state->run->playing != PlayState::undefined) {
        state->run->Rest(PlayState::stopped, 0);
    }
}

PlayState MediaControl::CurrentState() const {
    return state->run->playing;
}

double MediaControl::Position() const {
    return state->run->Position();
}

void MediaControl::SetPosition(double seconds) {
    State::Run& run = *state->run;
    if (run.playing == PlayState::undefined) {
        return;
    }
    run.position = std::clamp(seconds, 0.0, run.Duration());
    if (run.playing == PlayState::playing) {
        run.Go();
    }
}

double MediaControl::Duration() const {
    return state->run->parsed ? state->run->Duration() : 0;
}

std::string MediaControl::Title() const {
    const auto found = state->titles.find(state->address);
    return state->run->parsed && found != state->titles.end() ? found->second : UntitledName(state->address);
}

bool MediaControl::HasVideo() const {
    return state->run->parsed && state->videos.contains(state->address);
}

void MediaControl::SetVolume(int percent) {
    state->volume = std::clamp(percent, 0, 100);
}

int MediaControl::Volume() const {
    return state->volume;
}

void MediaControl::SetMute(bool muted) {
    state->muted = muted;
}

bool MediaControl::Mute() const {
    return state->muted;
}

void MediaControl::SetVideoWindow(std::uintptr_t window) {
    state->window = window;
}

void MediaControl::SetDim(double) {}

}  // namespace zvr
