#pragma once

#include "platform/common/soundstream.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace zvr {

/// What is heard: the sound of one medium after the other, in the order in which they joined and without a gap where
/// the next one is there in time. Any thread may call its operations.
///
/// The media engine could do this by itself. But its output starts by a guess of how late the device is, and works a
/// wrong guess off by detuning the music by up to a percent, or by silences; it loses the end of some formats, and a
/// new item comes with a connection of its own.
class SoundOutput {
public:
    SoundOutput();
    ~SoundOutput();  ///< a device that hangs is left behind
    SoundOutput(const SoundOutput&) = delete;
    SoundOutput& operator=(const SoundOutput&) = delete;

    void SetGain(float gain);  ///< 0..1, for all media

    /// The sound of one medium. It comes after those that began before it.
    struct Voice;
    /// `nearEnd` is called once, on the output's thread, when all of the sound was written and a moment only of it is
    /// left to be heard: time to open the next medium.
    [[nodiscard]] static std::shared_ptr<Voice> MakeVoice(std::function<void()> nearEnd);
    void Begin(const std::shared_ptr<Voice>& voice, int rate);
    /// Cuts it off, unless it is near its end: then it is heard out. `nearEnd` isn't called from here on.
    void Leave(Voice& voice);

    void Write(Voice& voice, std::span<const SoundFrame> frames, std::int64_t due);  ///< microseconds, monotonic
    void Drop(Voice& voice);           ///< what was written and not heard yet; the sound goes on elsewhere
    void Finish(Voice& voice);         ///< all was written
    void WaitForTheEnd(Voice& voice);  ///< until it is near, or what was finished goes on elsewhere or leaves
    void GoElsewhere(Voice& voice);    ///< ends such a wait: a drop will follow
    void SetPaused(Voice& voice, bool paused);
    void SetKeepsTime(Voice& voice);                  ///< it has a picture
    [[nodiscard]] bool HasSound(Voice& voice) const;  ///< some of it is still to be heard

private:
    struct State;
    std::shared_ptr<State> state;  ///< shared with the thread, which may outlive this object
};

}  // namespace zvr
