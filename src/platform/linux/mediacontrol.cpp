#include "platform/mediacontrol.h"

#include "platform/common/utf8.h"
#include "platform/discs.h"
#include "platform/lifetime.h"
#include "platform/linux/engine.h"
#include "platform/linux/worker.h"
#include "platform/log.h"

#include <algorithm>
#include <cmath>

namespace zvr {
namespace {

using Clock = std::chrono::steady_clock;
using Kind = EngineReport::Kind;

/// An item without a length that ends sooner had nothing in it: the engine calls garbage played.
constexpr std::chrono::milliseconds shortestItem{500};
/// The engine's steps of the time before a seek still come this long after it.
constexpr std::chrono::milliseconds seekSettles{400};
/// The second picture, which is the first one of the right size, comes within this time.
constexpr Milliseconds pictureSettles{100};

/// The file's name, with "?" in place of each byte that is no UTF-8.
std::string TitleOfUntagged(const std::string& address) {
    std::string name = address.substr(address.rfind('/') + 1);
    for (std::size_t at = 0; at < name.size();) {
        const utf8::Character character = utf8::At(name, at);
        if (character.code < 0) {
            name[at] = '?';
        }
        at += character.length;
    }
    return name;
}

double SecondsSince(Clock::time_point moment) {
    return std::chrono::duration<double>(Clock::now() - moment).count();
}

}  // namespace

struct MediaControl::State {
    using Medium = std::shared_ptr<EngineMedium>;

    State(EventLoop& loop, MediaControl& owner)
        : loop(&loop), owner(&owner), pictureWait(loop, [this] { ShowVideo(); }) {}

    EventLoop* loop;
    MediaControl* owner;
    std::shared_ptr<Engine> engine = std::make_shared<Engine>();
    Lifetime lifetime;

    std::string address;  ///< empty: nothing is open
    PlayState current = PlayState::undefined;
    std::uint64_t generation = 0;  ///< of the medium that may report; drops late reports of others
    double start = 0;              ///< where the next play begins, and the position until then
    Clock::time_point begun;
    double shown = 0;  ///< the last position given out, which doesn't go back by itself
    double seekTarget = 0;
    Clock::time_point seekAt;
    double duration = 0;
    std::string title;
    bool video = false;
    Timer pictureWait;

    int volume = 100;
    bool muted = false;
    std::uintptr_t window = 0;
    std::uintptr_t windowNow = 0;  ///< of the open item
    double dim = 0;

    Medium playing;
    Medium parsing;
    // The engine's calls go through one thread; what may take long, the end of a medium, through another.
    // They are declared last: they end first, with all that they use still there.
    std::shared_ptr<Worker> releases = std::make_shared<Worker>();
    Worker calls;

    [[nodiscard]] Medium MakeMedium();
    void Drop(Medium& medium);
    void Begin();
    void Parse();
    void Rest(PlayState state, double position);
    [[nodiscard]] double Position();
    void SetGain();
    void Handle(const EngineReport& report);
    void HandleTags(const EngineReport& report);
    void HandleEnd();
    void ShowVideo();
    static void Tell(const std::function<void()>& handler);
};

void MediaControl::State::Tell(const std::function<void()>& handler) {
    if (const auto running = handler) {  // a copy: the handler may put another one in its place
        running();
    }
}

MediaControl::State::Medium MediaControl::State::MakeMedium() {
    const auto handle = lifetime.Guard([this, mine = generation](const EngineReport& report) {
        if (mine == generation) {
            Handle(report);
        }
    });
    auto sink = [loop = loop, handle](const EngineReport& report) { loop->Post([handle, report] { handle(report); }); };
    return std::make_shared<EngineMedium>(engine, std::move(sink));
}

void MediaControl::State::Drop(Medium& medium) {
    if (!medium) {
        return;
    }
    medium->Abandon();
    calls.Do([medium = std::move(medium), releases = releases] { releases->Do([medium] { medium->Release(); }); });
    medium.reset();
}

void MediaControl::State::Begin() {
    Drop(parsing);
    Drop(playing);
    ++generation;
    playing = MakeMedium();
    current = PlayState::opening;
    begun = Clock::now();
    shown = start;
    const EngineMedium::Wish wish{address, start, windowNow, dim};
    calls.Do([medium = playing, wish] { medium->Play(wish); });
}

/// Looks for the title and the length of an item that waits.
void MediaControl::State::Parse() {
    if (current == PlayState::stopped && !parsing && address.find("://") == std::string::npos) {
        parsing = MakeMedium();
        calls.Do([medium = parsing, path = address] { medium->Parse(path); });
    }
}

void MediaControl::State::ShowVideo() {
    pictureWait.Stop();
    video = true;
    Tell(owner->onChanged);
}

void MediaControl::State::Rest(PlayState state, double position) {
    pictureWait.Stop();
    Drop(playing);
    Drop(parsing);
    ++generation;
    current = state;
    start = position;
    shown = position;
}

double MediaControl::State::Position() {
    if (current != PlayState::playing || !playing) {
        return shown;
    }
    auto [seconds, at] = playing->LastMoment();
    const bool settling = Clock::now() - seekAt < seekSettles;
    if (at < seekAt || (settling && std::abs(seconds - seekTarget) > 0.5)) {
        seconds = seekTarget;
        at = seekAt;
    }
    double now = seconds + SecondsSince(at);
    if (now < shown && shown - now < 0.5) {
        now = shown;
    }
    shown = duration > 0 ? std::min(now, duration) : now;
    return shown;
}

void MediaControl::State::SetGain() {
    const float part = static_cast<float>(muted ? 0 : volume) / 100;
    engine->Sound().SetGain(part * part * part);  // so that equal steps sound equal
}

void MediaControl::State::HandleTags(const EngineReport& report) {
    if (report.seconds > 0) {
        duration = report.seconds;
    }
    if (!report.title.empty() && !TrackOf(address) && report.title != TitleOfUntagged(address)) {
        title = report.title;
    }
    Tell(owner->onChanged);
}

void MediaControl::State::HandleEnd() {
    const bool nothingInIt = duration <= 0 && Clock::now() - begun < shortestItem;
    if (nothingInIt) {
        Log::Warning("{} has nothing in it that can be played", address);
    }
    Rest(PlayState::stopped, 0);
    Tell(nothingInIt ? owner->onFailed : owner->onEnded);
}

void MediaControl::State::Handle(const EngineReport& report) {
    switch (report.kind) {
        case Kind::playing:
            if (current == PlayState::opening) {
                current = PlayState::playing;
                begun = seekAt = Clock::now();
                seekTarget = shown;
                calls.Do([medium = playing] { medium->ReportTags(); });
                Tell(owner->onChanged);
            }
            return;
        case Kind::ended:
            return HandleEnd();
        case Kind::failed:
            Log::Warning("{} can't be played", address);
            Rest(PlayState::stopped, Position());
            return Tell(owner->onFailed);
        case Kind::length:
            duration = report.seconds;
            return Tell(owner->onChanged);
        case Kind::video:
            return pictureWait.Start();
        case Kind::parsed:
            if (parsing) {
                calls.Do([medium = parsing] { medium->ReportTags(); });
            }
            return;
        case Kind::tags:
            return HandleTags(report);
    }
}

MediaControl::MediaControl(EventLoop& loop) : state(std::make_unique<State>(loop, *this)) {
    state->pictureWait.SetInterval(pictureSettles);
}

MediaControl::~MediaControl() {
    state->Rest(PlayState::undefined, 0);
}

bool MediaControl::IsAvailable() {
    return Engine::IsInstalled() || Engine().Instance() != nullptr;
}

void MediaControl::Open(const std::string& address) {
    state->Rest(PlayState::stopped, 0);
    state->address = address;
    state->duration = 0;
    state->video = false;
    state->windowNow = state->window;
    state->title = UntitledName(address);
    // Not now: an item that is played at once gets its tags from playing.
    state->loop->Post(state->lifetime.Guard([own = state.get(), mine = state->generation] {
        if (mine == own->generation) {
            own->Parse();
        }
    }));
}

void MediaControl::Close() {
    state->Rest(PlayState::undefined, 0);
    state->address.clear();
    state->title.clear();
    state->duration = 0;
    state->video = false;
}

void MediaControl::Play() {
    if (state->current == PlayState::paused && state->playing) {
        state->current = PlayState::playing;
        state->seekAt = Clock::now();
        state->seekTarget = state->shown;
        state->playing->SetSilent(false);
        state->calls.Do([medium = state->playing] { medium->SetPaused(false); });
    } else if (state->current == PlayState::stopped || state->current == PlayState::paused) {
        state->Begin();
    }
}

void MediaControl::Pause() {
    if (state->current == PlayState::opening) {
        // Nothing sounds yet, and the engine takes a pause now for a stop.
        state->Rest(PlayState::paused, state->start);
    } else if (state->current == PlayState::playing) {
        state->shown = state->Position();
        state->current = PlayState::paused;
        state->playing->SetSilent(true);
        state->calls.Do([medium = state->playing] { medium->SetPaused(true); });
    }
}

void MediaControl::Stop() {
    if (state->current != PlayState::undefined) {
        state->Rest(PlayState::stopped, 0);
    }
}

PlayState MediaControl::CurrentState() const {
    return state->current;
}

double MediaControl::Position() const {
    return state->Position();
}

void MediaControl::SetPosition(double seconds) {
    if (state->current == PlayState::undefined) {
        return;
    }
    const double target = std::clamp(seconds, 0.0, state->duration > 0 ? state->duration : 1e9);
    state->shown = target;
    if (!state->playing) {
        state->start = target;
    } else if (state->current == PlayState::opening) {
        state->start = target;
        state->Begin();
    } else {
        state->seekTarget = target;
        state->seekAt = Clock::now();
        state->calls.Do([medium = state->playing, target] { medium->SetPosition(target); });
    }
}

double MediaControl::Duration() const {
    return state->duration;
}

std::string MediaControl::Title() const {
    return state->title;
}

bool MediaControl::HasVideo() const {
    return state->video;
}

void MediaControl::SetVolume(int percent) {
    state->volume = std::clamp(percent, 0, 100);
    state->SetGain();
}

int MediaControl::Volume() const {
    return state->volume;
}

void MediaControl::SetMute(bool muted) {
    state->muted = muted;
    state->SetGain();
}

bool MediaControl::Mute() const {
    return state->muted;
}

void MediaControl::SetVideoWindow(std::uintptr_t window) {
    state->window = window;
}

void MediaControl::SetDim(double share) {
    state->dim = share;
    if (state->playing) {
        state->calls.Do([medium = state->playing, share] { medium->SetDim(share); });
    }
}

}  // namespace zvr
