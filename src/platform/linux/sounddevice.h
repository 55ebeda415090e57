#pragma once

#include "platform/common/soundstream.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

struct _snd_pcm;

namespace zvr {

/// The machine's default sound device. Where there is none, or it went away, the sound runs into nothing at the same
/// pace, and the device is asked for again now and then. For one thread.
class SoundDevice {
public:
    SoundDevice() = default;
    ~SoundDevice();
    SoundDevice(const SoundDevice&) = delete;
    SoundDevice& operator=(const SoundDevice&) = delete;

    void Open(int rate);  ///< frames a second. May wait for a sound server
    void Close();
    [[nodiscard]] int Rate() const { return rate; }  ///< 0: closed
    [[nodiscard]] bool IsReal() const { return pcm != nullptr; }
    [[nodiscard]] bool Running() const { return running; }

    [[nodiscard]] std::size_t Block() const;          ///< frames: fewer are not worth a write
    [[nodiscard]] std::size_t Capacity() const;       ///< frames that it holds
    [[nodiscard]] std::size_t Room();                 ///< frames that it takes now
    [[nodiscard]] std::chrono::microseconds Delay();  ///< until a frame written now is heard, as the device tells
    /// Until all that was written has been heard. A sound server that has run dry tells a delay for ever.
    [[nodiscard]] std::chrono::microseconds Left() const;
    void WaitForRoom();  ///< for more than a block; a tenth of a second at most
    /// Begins to sound by itself. `gainBefore` and `gainAfter`, 0..1: of the first frame and behind the last.
    void Write(std::span<const SoundFrame> frames, float gainBefore, float gainAfter);
    void Stop();  ///< what was written and not heard yet is lost

private:
    using Clock = std::chrono::steady_clock;

    [[nodiscard]] bool OpenReal();
    void Lose(int error);

    _snd_pcm* pcm = nullptr;  ///< null while it runs into nothing
    int rate = 0;
    bool prepared = false;
    bool running = false;
    std::size_t capacity = 0;
    std::vector<std::int32_t> samples;  ///< what Write makes
    Clock::time_point lastTry;
    long lastRoom = 0;
    Clock::time_point lastProgress;  ///< of the room
    Clock::time_point heardUntil;
};

}  // namespace zvr
