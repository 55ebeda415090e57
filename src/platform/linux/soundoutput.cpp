#include "platform/linux/soundoutput.h"

#include "platform/linux/sounddevice.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>

namespace zvr {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;

/// The next medium takes 5 to 50 ms to open, a busy machine more.
constexpr microseconds nearTheEnd = 150ms;
/// With less the device would run dry before the engine's first rush is through.
constexpr microseconds rush = 20ms;
constexpr auto keepsDevice = 3s;

}  // namespace

struct SoundOutput::Voice {
    std::optional<SoundStream> stream;  ///< none before its rate is known
    std::function<void()> nearEnd;
    Clock::time_point firstWritten;
    bool keepsTime = false;
    bool paused = false;
    bool told = false;  ///< that it is near its end
    bool left = false;

    [[nodiscard]] bool Done() const {
        const bool silent = !stream || (stream->Waiting() == 0 && !stream->Gives());
        return silent && (left || told);
    }
};

struct SoundOutput::State {
    std::mutex mutex;
    std::condition_variable changed;  ///< for the thread
    std::condition_variable ended;    ///< for who waits for the end of a voice, or of the thread
    std::deque<std::shared_ptr<Voice>> voices;
    float gain = 1;
    float gainNow = 1;
    bool cut = false;          ///< what is under way is not to be heard any more
    Voice* telling = nullptr;  ///< whose end is being told
    bool started = false;
    bool ending = false;
    bool gone = false;

    // The thread's own.
    std::unique_ptr<SoundDevice> device = std::make_unique<SoundDevice>();
    /// Of another rate; what it was given is still being heard.
    std::unique_ptr<SoundDevice> former = std::make_unique<SoundDevice>();
    std::vector<SoundFrame> block;

    void Run();
    std::shared_ptr<Voice> Front();
    void Cut(std::unique_lock<std::mutex>& lock);
    void Rest(std::unique_lock<std::mutex>& lock);
    void Feed(std::unique_lock<std::mutex>& lock, Voice& voice);
    void ChangeRate(std::unique_lock<std::mutex>& lock, int rate);
    void TellNearEnd(std::unique_lock<std::mutex>& lock);
};

void SoundOutput::State::Run() {
    std::unique_lock lock(mutex);
    while (!ending) {
        if (cut) {
            Cut(lock);
        }
        TellNearEnd(lock);
        const std::shared_ptr<Voice> voice = Front();
        if (voice && voice->stream && !voice->paused && voice->stream->Gives()) {
            Feed(lock, *voice);
        } else {
            Rest(lock);
        }
    }
    gone = true;
    ended.notify_all();
}

std::shared_ptr<SoundOutput::Voice> SoundOutput::State::Front() {
    while (!voices.empty() && voices.front()->Done()) {
        voices.pop_front();
    }
    return voices.empty() ? nullptr : voices.front();
}

void SoundOutput::State::Cut(std::unique_lock<std::mutex>& lock) {
    cut = false;
    const microseconds unheard = device->Left();
    lock.unlock();
    device->Stop();
    former->Close();
    lock.lock();
    if (const auto voice = Front(); voice && voice->stream) {
        voice->stream->TakeBack(static_cast<std::size_t>(unheard.count() * voice->stream->Rate() / 1'000'000));
    }
}

/// Nothing is to be written now.
void SoundOutput::State::Rest(std::unique_lock<std::mutex>& lock) {
    if (device->Running()) {
        if (const microseconds left = device->Left(); left > 0ms) {
            changed.wait_for(lock, std::min<microseconds>(left, 20ms));
            return;
        }
        lock.unlock();
        device->Stop();
        lock.lock();
        return;
    }
    if (device->Rate() == 0) {
        changed.wait(lock);
    } else if (changed.wait_for(lock, keepsDevice) == std::cv_status::timeout) {
        lock.unlock();
        device->Close();
        former->Close();
        lock.lock();
    }
}

void SoundOutput::State::Feed(std::unique_lock<std::mutex>& lock, Voice& voice) {
    SoundStream& stream = *voice.stream;
    if (device->Rate() != stream.Rate()) {
        return ChangeRate(lock, stream.Rate());
    }
    if (const microseconds left = former->Left(); left > 0ms) {
        changed.wait_for(lock, left);
        return;
    }
    const bool starts = !device->Running();
    if (starts && !stream.Finished() && stream.Waiting() < device->Capacity() &&
        Clock::now() - voice.firstWritten < rush) {
        changed.wait_for(lock, rush / 4);
        return;
    }
    lock.unlock();
    const std::size_t room = device->Room();
    if (room < device->Block()) {
        device->WaitForRoom();
        lock.lock();
        return;
    }
    const microseconds delay = device->Delay();
    lock.lock();
    if (cut || voice.paused || !voice.stream || !stream.Gives() || stream.Rate() != device->Rate()) {
        return;  // the world has changed
    }
    block.clear();
    if (starts && voice.keepsTime) {
        block.resize(room / 2);  // silence, until the device tells how late it is
    } else {
        const auto heard = std::chrono::duration_cast<microseconds>(Clock::now().time_since_epoch()) + delay;
        stream.Take(room, heard.count(), block);
    }
    const float before = starts ? gain : gainNow;
    gainNow = gain;
    const float after = gainNow;
    lock.unlock();
    device->Write(block, before, after);
    former->Close();
    lock.lock();
}

void SoundOutput::State::ChangeRate(std::unique_lock<std::mutex>& lock, int rate) {
    lock.unlock();
    std::swap(former, device);
    device->Open(rate);                           // and closes what it was before
    if (!device->IsReal() && former->IsReal()) {  // some devices are for one at a time
        std::this_thread::sleep_for(former->Left());
        former->Close();
        device->Open(rate);
    }
    lock.lock();
}

void SoundOutput::State::TellNearEnd(std::unique_lock<std::mutex>& lock) {
    const std::shared_ptr<Voice> voice = Front();
    if (!voice || voice->told || voice->left || voice->paused || !voice->stream || !voice->stream->Finished()) {
        return;
    }
    const auto waiting = static_cast<std::int64_t>(voice->stream->Waiting()) * 1'000'000 / voice->stream->Rate();
    if (microseconds{waiting} + std::max(device->Left(), former->Left()) > nearTheEnd) {
        return;
    }
    voice->told = true;
    telling = voice.get();
    lock.unlock();
    voice->nearEnd();
    lock.lock();
    telling = nullptr;
    ended.notify_all();
}

SoundOutput::SoundOutput() : state(std::make_shared<State>()) {}

SoundOutput::~SoundOutput() {
    std::unique_lock lock(state->mutex);
    state->ending = true;
    state->changed.notify_all();
    state->ended.wait_for(lock, 2s, [this] { return !state->started || state->gone; });
}

void SoundOutput::SetGain(float gain) {
    const std::lock_guard lock(state->mutex);
    if ((gain == 0) != (state->gain == 0)) {
        state->cut = true;  // it begins and ends at once
        state->changed.notify_all();
    }
    state->gain = gain;
}

std::shared_ptr<SoundOutput::Voice> SoundOutput::MakeVoice(std::function<void()> nearEnd) {
    auto voice = std::make_shared<Voice>();
    voice->nearEnd = std::move(nearEnd);
    return voice;
}

void SoundOutput::Leave(Voice& voice) {
    std::unique_lock lock(state->mutex);
    if (voice.stream && !voice.told && !voice.left) {
        voice.stream.reset();
        state->cut = true;
    }
    voice.left = true;
    state->changed.notify_all();
    state->ended.notify_all();
    state->ended.wait(lock, [&] { return state->telling != &voice; });
}

void SoundOutput::Begin(const std::shared_ptr<Voice>& voice, int rate) {
    const std::lock_guard lock(state->mutex);
    if (voice->left || (voice->stream && voice->stream->Rate() == rate)) {
        return;
    }
    if (!voice->stream) {
        state->voices.push_back(voice);
    }
    voice->stream.emplace(rate);
    if (voice->keepsTime) {
        voice->stream->SetKeepsTime();
    }
    if (!state->started) {
        state->started = true;
        std::thread([own = state] { own->Run(); }).detach();
    }
    state->changed.notify_all();
}

void SoundOutput::Write(Voice& voice, std::span<const SoundFrame> frames, std::int64_t due) {
    const std::lock_guard lock(state->mutex);
    if (voice.left || !voice.stream) {
        return;
    }
    if (voice.stream->Waiting() == 0) {
        voice.firstWritten = Clock::now();
    }
    voice.stream->Write(frames, due);
    state->changed.notify_all();
}

void SoundOutput::Drop(Voice& voice) {
    const std::lock_guard lock(state->mutex);
    if (voice.left || voice.told || !voice.stream) {
        return;
    }
    voice.stream->Drop();
    state->ended.notify_all();
}

void SoundOutput::GoElsewhere(Voice& voice) {
    const std::lock_guard lock(state->mutex);
    if (!voice.left && !voice.told && voice.stream && voice.stream->Finished()) {
        voice.stream->Drop();
        state->ended.notify_all();
    }
}

void SoundOutput::Finish(Voice& voice) {
    const std::lock_guard lock(state->mutex);
    if (voice.stream) {
        voice.stream->Finish();
        state->changed.notify_all();
    }
}

void SoundOutput::WaitForTheEnd(Voice& voice) {
    std::unique_lock lock(state->mutex);
    state->ended.wait(
        lock, [&] { return state->ending || voice.left || voice.told || !voice.stream || !voice.stream->Finished(); });
}

void SoundOutput::SetPaused(Voice& voice, bool paused) {
    const std::lock_guard lock(state->mutex);
    voice.paused = paused;
    if (paused && !state->voices.empty() && state->voices.front().get() == &voice) {
        state->cut = true;
    }
    state->changed.notify_all();
}

void SoundOutput::SetKeepsTime(Voice& voice) {
    const std::lock_guard lock(state->mutex);
    voice.keepsTime = true;
    if (voice.stream) {
        voice.stream->SetKeepsTime();
    }
}

bool SoundOutput::HasSound(Voice& voice) const {
    const std::lock_guard lock(state->mutex);
    return voice.stream && !voice.told && !voice.left && voice.stream->Waiting() > 0;
}

}  // namespace zvr
