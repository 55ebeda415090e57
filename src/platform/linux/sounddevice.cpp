#include "platform/linux/sounddevice.h"

#include "platform/log.h"

#include <algorithm>
#include <array>
#include <thread>

#include <alsa/asoundlib.h>

namespace zvr {
namespace {

using std::chrono::microseconds;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;

/// So much sound is on its way. With less the program wakes up more often and a busy machine leaves holes; with more a
/// change of the volume is heard later.
constexpr unsigned bufferTime = 200'000;  // microseconds
constexpr unsigned periods = 2;
constexpr auto betweenTries = 2s;
constexpr auto hangs = 5s;

/// Where no sound server has made itself the default one, it may still answer under its own name.
constexpr std::array deviceNames{"default", "pulse"};

/// None or a negative number of the library.
int Configure(snd_pcm_t* pcm, unsigned rate) {
    snd_pcm_hw_params_t* hardware = nullptr;
    snd_pcm_hw_params_alloca(&hardware);
    snd_pcm_sw_params_t* software = nullptr;
    snd_pcm_sw_params_alloca(&software);
    unsigned time = bufferTime;
    unsigned parts = periods;
    snd_pcm_uframes_t buffer = 0;
    snd_pcm_uframes_t period = 0;
    int direction = 0;
    int result = snd_pcm_hw_params_any(pcm, hardware);
    const auto next = [&result](int step) { result = result < 0 ? result : step; };
    next(snd_pcm_hw_params_set_access(pcm, hardware, SND_PCM_ACCESS_RW_INTERLEAVED));
    next(snd_pcm_hw_params_set_format(pcm, hardware, SND_PCM_FORMAT_S32));
    next(snd_pcm_hw_params_set_channels(pcm, hardware, 2));
    next(snd_pcm_hw_params_set_rate(pcm, hardware, rate, 0));
    next(snd_pcm_hw_params_set_buffer_time_near(pcm, hardware, &time, &direction));
    next(snd_pcm_hw_params_set_periods_near(pcm, hardware, &parts, &direction));
    next(snd_pcm_hw_params(pcm, hardware));
    next(snd_pcm_hw_params_get_period_size(hardware, &period, &direction));
    next(snd_pcm_hw_params_get_buffer_size(hardware, &buffer));
    next(snd_pcm_sw_params_current(pcm, software));
    next(snd_pcm_sw_params_set_start_threshold(pcm, software, 1));
    // Mixers in software have many short periods. Never less than a block, or the wait for one would not wait.
    next(snd_pcm_sw_params_set_avail_min(pcm, software, std::max(period, buffer / periods / 2)));
    next(snd_pcm_sw_params(pcm, software));
    return result;
}

}  // namespace

SoundDevice::~SoundDevice() {
    Close();
}

bool SoundDevice::OpenReal() {
    lastTry = Clock::now();
    int error = 0;
    for (const char* name : deviceNames) {
        error = snd_pcm_open(&pcm, name, SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK);
        if (error < 0) {
            pcm = nullptr;
            continue;
        }
        error = Configure(pcm, static_cast<unsigned>(rate));
        snd_pcm_uframes_t buffer = 0;
        snd_pcm_uframes_t period = 0;
        if (error >= 0 && snd_pcm_get_params(pcm, &buffer, &period) == 0) {
            capacity = buffer;
            prepared = true;
            return true;
        }
        snd_pcm_close(pcm);
        pcm = nullptr;
    }
    Log::Warning("no sound device: {}", std::string_view(snd_strerror(error)));
    return false;
}

void SoundDevice::Open(int newRate) {
    Close();
    rate = newRate;
    if (!OpenReal()) {
        capacity = static_cast<std::size_t>(rate) * bufferTime / 1'000'000;
    }
    lastProgress = Clock::now();
}

void SoundDevice::Close() {
    if (pcm != nullptr) {
        snd_pcm_close(pcm);
        pcm = nullptr;
    }
    rate = 0;
    running = false;
}

void SoundDevice::Lose(int error) {
    Log::Warning("the sound device went away: {}", std::string_view(snd_strerror(error)));
    snd_pcm_close(pcm);
    pcm = nullptr;
    lastTry = lastProgress = heardUntil = Clock::now();
}

std::size_t SoundDevice::Block() const {
    return capacity / periods / 4;  // it may say that it has as much room as it was asked for when it has not quite
}

std::size_t SoundDevice::Capacity() const {
    return capacity;
}

std::size_t SoundDevice::Room() {
    if (pcm == nullptr) {
        if (Clock::now() - lastTry > betweenTries && OpenReal()) {
            running = false;
            return capacity;
        }
        return capacity - std::min(capacity, static_cast<std::size_t>(Left().count() * rate / 1'000'000));
    }
    snd_pcm_sframes_t room = prepared ? snd_pcm_avail_update(pcm) : -EPIPE;
    if (room == -EPIPE || room == -ESTRPIPE) {  // it was stopped, it has run dry, or the machine slept
        room = snd_pcm_prepare(pcm);
        prepared = true;
        running = false;
        room = room < 0 ? room : snd_pcm_avail_update(pcm);
    }
    if (room != lastRoom || !running) {
        lastProgress = Clock::now();
        lastRoom = room;
    }
    if (room < 0 || Clock::now() - lastProgress > hangs) {
        Lose(room < 0 ? static_cast<int>(room) : -EIO);
        return 0;
    }
    return static_cast<std::size_t>(room);
}

microseconds SoundDevice::Left() const {
    const auto left = std::chrono::duration_cast<microseconds>(heardUntil - Clock::now());
    return running ? std::max(left, microseconds{0}) : microseconds{0};
}

microseconds SoundDevice::Delay() {
    snd_pcm_sframes_t delay = 0;
    if (!running || pcm == nullptr || snd_pcm_delay(pcm, &delay) < 0 || delay < 0) {
        return Left();
    }
    return microseconds{static_cast<std::int64_t>(delay) * 1'000'000 / rate};
}

void SoundDevice::WaitForRoom() {
    if (pcm != nullptr) {
        if (snd_pcm_wait(pcm, 100) >= 0) {
            return;
        }
    }
    std::this_thread::sleep_for(10ms);
}

void SoundDevice::Write(std::span<const SoundFrame> frames, float gainBefore, float gainAfter) {
    constexpr float louder = 65536;  // 32 bits keep of a low volume what 16 would lose
    const auto count = static_cast<float>(std::max<std::size_t>(frames.size(), 1));
    samples.resize(frames.size() * 2);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const float gain = louder * (gainBefore + (gainAfter - gainBefore) * static_cast<float>(i) / count);
        samples[2 * i] = static_cast<std::int32_t>(static_cast<float>(frames[i].left) * gain);
        samples[2 * i + 1] = static_cast<std::int32_t>(static_cast<float>(frames[i].right) * gain);
    }
    const std::int32_t* from = samples.data();
    std::size_t left = frames.size();
    while (pcm != nullptr && left > 0) {
        const snd_pcm_sframes_t written = snd_pcm_writei(pcm, from, left);
        if (written <= 0) {  // there was room: what it does not take now is not worth a wait
            break;
        }
        from += written * 2;
        left -= static_cast<std::size_t>(written);
    }
    heardUntil = Clock::now() + Left() + microseconds{static_cast<std::int64_t>(frames.size()) * 1'000'000 / rate};
    running = true;
    if (pcm != nullptr) {
        heardUntil = Clock::now() + Delay();
    }
}

void SoundDevice::Stop() {
    if (pcm != nullptr && running) {
        snd_pcm_drop(pcm);
        prepared = false;
    }
    running = false;
}

}  // namespace zvr
