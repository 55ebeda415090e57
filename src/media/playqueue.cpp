#include "media/playqueue.h"

#include "media/filesearch.h"
#include "media/playlistreader.h"
#include "media/shuffle.h"
#include "platform/files.h"
#include "platform/lifetime.h"
#include "platform/log.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace zvr {
namespace {

/// So many in a row without a folder, and the others lie there too: nobody waits until thousands have failed.
constexpr int fewestGone = 5;

std::string Clock(double seconds) {
    const long whole = seconds > 0 ? static_cast<long>(std::min(seconds, 1e9)) : 0;
    char text[40];
    if (whole >= 3600) {
        std::snprintf(text, sizeof text, "%ld:%02ld:%02ld", whole / 3600, whole / 60 % 60, whole % 60);
    } else {
        std::snprintf(text, sizeof text, "%02ld:%02ld", whole / 60, whole % 60);
    }
    return text;
}

bool FolderIsGone(const std::string& address) {
    return address.find("://") == std::string::npos && !files::Attributes(files::FolderOf(FoundPath(address)));
}

}  // namespace

std::string MediaItem::DurationString() const {
    return Clock(duration);
}

struct PlayQueue::State {
    EventLoop* loop;
    MediaControl* media;
    std::vector<MediaItem> items;
    int current = -1;
    PlayState wish = PlayState::stopped;
    bool opened = false;   ///< the media hold the current item
    double waitsAt = 0;    ///< seconds: where the current item begins once it is opened, after its folder went
    bool forward = true;   ///< where a broken item is left to
    int failedInARow = 0;  ///< items, since one played or the user chose
    int goneInARow = 0;    ///< those of them whose folder has gone
    /// Where the first of them failed.
    int firstFailed = 0;
    double firstFailedAt = 0;
    bool shuffle = false;
    bool loopMode = false;
    Shuffle order;
    bool noticePending = false;
    Lifetime lifetime;

    State(EventLoop& loop, MediaControl& media, std::uint64_t seed) : loop(&loop), media(&media), order(seed) {}

    [[nodiscard]] int Count() const { return static_cast<int>(items.size()); }
    void Notify(PlayQueue& queue);
    void Open();
    void Select(PlayQueue& queue, int index);
    [[nodiscard]] int Beside();
    void Step(PlayQueue& queue, bool goForward);
    void TakeOver();
    void AfterEnd(PlayQueue& queue);
    void AfterFailure(PlayQueue& queue);
    void CountFailure();
    void WaitForTheFolder(PlayQueue& queue);
};

void PlayQueue::State::Notify(PlayQueue& queue) {
    if (std::exchange(noticePending, true)) {
        return;
    }
    loop->Post(lifetime.Guard([this, &queue] {
        noticePending = false;
        if (queue.onMediaChange) {
            queue.onMediaChange();
        }
    }));
}

void PlayQueue::State::Open() {
    const MediaItem& item = items[static_cast<std::size_t>(current)];
    media->Open(FoundPath(item.sourceURL));
    opened = true;
    if (const double place = std::exchange(waitsAt, 0); place > 0) {
        media->SetPosition(place);
    }
}

void PlayQueue::State::Select(PlayQueue& queue, int index) {
    if (index != current) {
        Notify(queue);
    }
    current = index;
    waitsAt = 0;
    Open();
    if (wish == PlayState::playing) {
        media->Play();
    }
}

/// The item to go to from the current one, or from none.
int PlayQueue::State::Beside() {
    if (shuffle) {
        return forward ? order.Next(Count()) : order.Previous(Count());
    }
    if (current < 0) {
        return forward ? 0 : Count() - 1;
    }
    return (current + (forward ? 1 : Count() - 1)) % Count();
}

void PlayQueue::State::Step(PlayQueue& queue, bool goForward) {
    if (items.empty()) {
        return;
    }
    failedInARow = 0;
    forward = goForward;
    if (wish == PlayState::paused) {
        wish = PlayState::playing;
    }
    Select(queue, Beside());
}

void PlayQueue::State::TakeOver() {
    if (current < 0 || !opened) {
        return;
    }
    MediaItem& item = items[static_cast<std::size_t>(current)];
    if (media->Duration() > 0) {
        item.duration = media->Duration();
    }
    if (std::string title = media->Title(); !title.empty()) {
        item.name = std::move(title);
    }
}

void PlayQueue::State::AfterEnd(PlayQueue& queue) {
    if (current < 0) {
        return;
    }
    failedInARow = 0;
    forward = true;
    if (queue.staysOnItem) {
        wish = PlayState::stopped;
        return;
    }
    Select(queue, Beside());
}

void PlayQueue::State::AfterFailure(PlayQueue& queue) {
    if (current < 0) {
        return;
    }
    CountFailure();
    opened = false;
    const bool allGone = goneInARow == failedInARow;
    if (allGone && failedInARow >= std::min(fewestGone, Count())) {
        return WaitForTheFolder(queue);
    }
    if (queue.staysOnItem || wish != PlayState::playing || failedInARow >= Count()) {
        wish = PlayState::stopped;
        return;
    }
    Select(queue, Beside());
}

void PlayQueue::State::CountFailure() {
    if (failedInARow++ == 0) {
        goneInARow = 0;
        firstFailed = current;
        firstFailedAt = media->Position();
    }
    goneInARow += FolderIsGone(items[static_cast<std::size_t>(current)].sourceURL) ? 1 : 0;
}

void PlayQueue::State::WaitForTheFolder(PlayQueue& queue) {
    Log::Warning("{} items in a row lie in folders that have gone: the player waits", failedInARow);
    wish = PlayState::stopped;
    if (current != firstFailed) {
        Notify(queue);
    }
    current = firstFailed;
    waitsAt = firstFailedAt;
    if (shuffle) {
        order.Choose(current, Count());
    }
    media->Close();
}

PlayQueue::PlayQueue(EventLoop& loop, MediaControl& media, std::uint64_t seed)
    : state(std::make_unique<State>(loop, media, seed)) {
    media.onEnded = [this] { state->AfterEnd(*this); };
    media.onFailed = [this] { state->AfterFailure(*this); };
    media.onChanged = [this] {
        state->TakeOver();
        if (onMediaInfo) {
            onMediaInfo();
        }
    };
}

PlayQueue::~PlayQueue() {
    state->media->onEnded = nullptr;
    state->media->onFailed = nullptr;
    state->media->onChanged = nullptr;
}

void PlayQueue::NewPlaylist() {
    if (state->current >= 0) {
        state->Notify(*this);
        state->media->Close();
    }
    state->items.clear();
    state->order.Clear();
    state->current = -1;
    state->opened = false;
    state->waitsAt = 0;
    state->wish = PlayState::stopped;
    state->failedInARow = 0;
}

void PlayQueue::AppendItem(const std::string& sourceURL, double duration) {
    state->items.push_back({sourceURL, UntitledName(sourceURL), duration});
}

int PlayQueue::Count() const {
    return state->Count();
}

const MediaItem& PlayQueue::Item(int index) const {
    return state->items.at(static_cast<std::size_t>(index));
}

void PlayQueue::SetURL(const std::string& path) {
    NewPlaylist();
    if (!IsPlaylistName(path)) {
        AppendItem(path);
    } else if (const auto content = files::Read(path)) {
        for (const std::string& entry : ReadPlaylist(*content, path)) {
            AppendItem(FoundPath(entry));
        }
    }
}

int PlayQueue::CurrentItem() const {
    return state->current;
}

void PlayQueue::SetCurrentItem(int index) {
    if (index < 0 || index >= Count()) {
        return;
    }
    state->failedInARow = 0;
    state->forward = true;
    state->order.Choose(index, Count());
    state->Select(*this, index);
}

const MediaItem* PlayQueue::CurrentMedia() const {
    return state->current < 0 ? nullptr : &Item(state->current);
}

void PlayQueue::Play() {
    if (state->items.empty()) {
        return;
    }
    state->wish = PlayState::playing;
    state->failedInARow = 0;
    if (state->current < 0) {
        state->forward = true;
        state->Select(*this, state->Beside());
        return;
    }
    if (!state->opened) {
        state->Open();
    }
    state->media->Play();
}

void PlayQueue::Pause() {
    if (CurrentState() == PlayState::playing) {
        state->wish = PlayState::paused;
        state->media->Pause();
    }
}

void PlayQueue::Stop() {
    state->wish = PlayState::stopped;
    state->waitsAt = 0;
    state->media->Stop();
}

void PlayQueue::Next() {
    state->Step(*this, true);
}

void PlayQueue::Previous() {
    state->Step(*this, false);
}

PlayState PlayQueue::CurrentState() const {
    return state->current < 0 ? PlayState::undefined : state->wish;
}

double PlayQueue::CurrentPosition() const {
    return state->opened ? state->media->Position() : state->waitsAt;
}

void PlayQueue::SetCurrentPosition(double seconds) {
    const MediaItem* item = CurrentMedia();
    if (item == nullptr) {
        return;
    }
    if (!state->opened) {
        state->Open();
    }
    state->media->SetPosition(std::clamp(seconds, 0.0, item->duration > 0 ? item->duration : 1e9));
}

std::string PlayQueue::CurrentPositionString() const {
    const double position = CurrentPosition();
    const bool atRest = CurrentState() == PlayState::undefined || CurrentState() == PlayState::stopped;
    return atRest && position <= 0 ? std::string{} : Clock(position);
}

int PlayQueue::Volume() const {
    return state->media->Volume();
}

void PlayQueue::SetVolume(int percent) {
    state->media->SetVolume(percent);
}

bool PlayQueue::Mute() const {
    return state->media->Mute();
}

void PlayQueue::SetMute(bool muted) {
    state->media->SetMute(muted);
}

void PlayQueue::SetMode(std::string_view mode, bool on) {
    if (mode == "loop") {
        state->loopMode = on;
    } else if (mode == "shuffle" && on != state->shuffle) {
        state->shuffle = on;
        state->order.Clear();
        if (on && state->current >= 0) {
            state->order.Choose(state->current, Count());
        }
    }
}

bool PlayQueue::GetMode(std::string_view mode) const {
    return (mode == "loop" && state->loopMode) || (mode == "shuffle" && state->shuffle);
}

}  // namespace zvr
