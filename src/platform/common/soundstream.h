#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace zvr {

/// Both channels of one moment.
struct SoundFrame {
    std::int16_t left = 0;
    std::int16_t right = 0;
};

/// The sound of one medium between the engine, which hands it over up to a second ahead, and the device. Moments are
/// microseconds of the monotonic clock.
class SoundStream {
public:
    explicit SoundStream(int rate);  ///< frames a second

    void Write(std::span<const SoundFrame> frames, std::int64_t due);  ///< `due`: when the first is to be heard
    void Finish();                       ///< nothing more comes, unless the sound goes on elsewhere
    void Drop();                         ///< what waits is forgotten: the sound goes on elsewhere, or not at all
    void TakeBack(std::size_t unheard);  ///< the frames taken last, which nobody heard: they are given again
    void SetKeepsTime();  ///< with a picture beside it each frame is heard at its moment; sound alone just goes on

    [[nodiscard]] int Rate() const { return rate; }
    [[nodiscard]] bool Finished() const { return finished; }
    [[nodiscard]] std::size_t Waiting() const { return frames.size() - head; }   ///< frames
    [[nodiscard]] bool Gives() const { return !tail.empty() || Waiting() > 0; }  ///< Take would give something

    /// Adds up to `count` frames to `taken`; the first of them will be heard at the moment `heard`.
    void Take(std::size_t count, std::int64_t heard, std::vector<SoundFrame>& taken);

private:
    [[nodiscard]] std::int64_t Microseconds(std::size_t count) const;
    [[nodiscard]] std::size_t FramesIn(std::int64_t microseconds) const;
    void Interrupt();
    /// Skips or adds silence where the sound is far from its moment. Returns how many frames of silence were added.
    std::size_t Align(std::size_t count, std::int64_t heard, std::vector<SoundFrame>& taken);
    [[nodiscard]] int Correction(std::int64_t heard);
    void Copy(std::size_t count, int correction, std::vector<SoundFrame>& taken);
    [[nodiscard]] std::int64_t Lateness(std::int64_t heard) const;

    int rate;
    std::vector<SoundFrame> frames;  ///< those before `head` were taken; the last of them are kept
    std::size_t head = 0;
    std::vector<SoundFrame> tail;  ///< what the sound fades out with after a cut
    std::size_t fadingIn = 0;      ///< frames for which the sound still fades in after a cut
    std::int64_t dueAtEnd = 0;     ///< when a frame behind the last would be heard
    std::uint64_t takenSinceStart = 0;
    std::size_t settled = 0;  ///< frames that waited once the first rush was over
    bool finished = false;
    bool keepsTime = false;
    bool sounding = false;  ///< the last frame taken was sound: to stop now would be a click
    bool starting = true;   ///< nothing was taken since the start or an interruption
    bool dueKnown = false;
};

}  // namespace zvr
