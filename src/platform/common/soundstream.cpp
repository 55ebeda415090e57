#include "platform/common/soundstream.h"

#include <algorithm>
#include <cstdlib>

namespace zvr {
namespace {

constexpr std::int64_t second = 1'000'000;
constexpr std::int64_t fade = 8'000;  ///< a cut within less is heard as a click
/// More than the engine ever hands over ahead of time: the device does not take it, and memory is not to grow.
constexpr std::int64_t most = 20 * second;
constexpr std::int64_t history = second / 2;  ///< more than a device holds

constexpr std::int64_t farOff = 80'000;        ///< sound beside its picture jumps
constexpr std::int64_t startOff = 10'000;      ///< the same where it starts, when nobody hears it
constexpr std::int64_t slightlyOff = 15'000;   ///< it is stretched by one frame a block, which nobody hears
constexpr std::size_t shortestStretched = 64;  ///< frames
constexpr std::int64_t settling = 2 * second;

SoundFrame Scaled(SoundFrame frame, std::size_t numerator, std::size_t denominator) {
    const auto scaled = [=](std::int16_t value) {
        return static_cast<std::int16_t>(value * static_cast<std::int64_t>(numerator) /
                                         static_cast<std::int64_t>(denominator));
    };
    return {scaled(frame.left), scaled(frame.right)};
}

/// Between two frames, at `part` of `whole`.
SoundFrame Between(SoundFrame before, SoundFrame after, std::size_t part, std::size_t whole) {
    const auto between = [=](std::int16_t a, std::int16_t b) {
        return static_cast<std::int16_t>(a +
                                         (b - a) * static_cast<std::int64_t>(part) / static_cast<std::int64_t>(whole));
    };
    return {between(before.left, after.left), between(before.right, after.right)};
}

}  // namespace

SoundStream::SoundStream(int rate) : rate(rate) {}

std::int64_t SoundStream::Microseconds(std::size_t count) const {
    return static_cast<std::int64_t>(count) * second / rate;
}

std::size_t SoundStream::FramesIn(std::int64_t microseconds) const {
    return static_cast<std::size_t>(std::max<std::int64_t>(microseconds, 0) * rate / second);
}

void SoundStream::Write(std::span<const SoundFrame> more, std::int64_t due) {
    if (Microseconds(Waiting()) > most) {
        return;
    }
    if (const std::size_t kept = FramesIn(history); head >= frames.size() / 2 && head > kept) {
        frames.erase(frames.begin(), frames.begin() + static_cast<std::ptrdiff_t>(head - kept));
        head = kept;
    }
    frames.insert(frames.end(), more.begin(), more.end());
    dueAtEnd = due + Microseconds(more.size());
    dueKnown = true;
}

void SoundStream::Finish() {
    finished = true;
}

/// What comes next does not belong to what came before.
void SoundStream::Interrupt() {
    sounding = false;
    starting = true;
    dueKnown = false;
    fadingIn = FramesIn(fade);
}

void SoundStream::Drop() {
    if (sounding) {
        const std::size_t length = std::min(FramesIn(fade), Waiting());
        for (std::size_t i = 0; i < length; ++i) {
            tail.push_back(Scaled(frames[head + i], length - i, length));
        }
        Interrupt();
    }
    frames.clear();
    head = 0;
    takenSinceStart = 0;
    finished = false;
}

void SoundStream::TakeBack(std::size_t unheard) {
    head -= std::min(unheard, head);
    tail.clear();
    Interrupt();
}

void SoundStream::SetKeepsTime() {
    keepsTime = true;
}

std::int64_t SoundStream::Lateness(std::int64_t heard) const {
    return heard - (dueAtEnd - Microseconds(Waiting()));
}

std::size_t SoundStream::Align(std::size_t count, std::int64_t heard, std::vector<SoundFrame>& taken) {
    const std::int64_t late = Lateness(heard);
    if (std::abs(late) < (starting ? startOff : farOff)) {
        return 0;
    }
    fadingIn = FramesIn(fade);
    if (late > 0) {
        head += std::min(FramesIn(late), Waiting());
        return 0;
    }
    const std::size_t silence = std::min(FramesIn(-late), count);
    taken.resize(taken.size() + silence);
    return silence;
}

/// How many frames more than it gives a block is to take, so that in hours the sound keeps the pace of the picture,
/// and neither runs out of frames nor heaps them up: a device's clock differs from the system's by a few seconds a day.
int SoundStream::Correction(std::int64_t heard) {
    if (finished) {
        return 0;
    }
    if (keepsTime) {
        const std::int64_t late = dueKnown ? Lateness(heard) : 0;
        return late > slightlyOff ? 1 : late < -slightlyOff ? -1 : 0;
    }
    if (takenSinceStart < FramesIn(settling)) {
        settled = Waiting();
        return 0;
    }
    return Waiting() < settled / 2 ? -1 : Waiting() > settled * 2 + FramesIn(second) ? 1 : 0;
}

/// Gives `count` frames for `count` + `correction` of those that wait.
void SoundStream::Copy(std::size_t count, int correction, std::vector<SoundFrame>& taken) {
    const std::size_t from = taken.size();
    const auto first = frames.begin() + static_cast<std::ptrdiff_t>(head);
    if (correction == 0) {
        taken.insert(taken.end(), first, first + static_cast<std::ptrdiff_t>(count));
        head += count;
    } else {
        const std::size_t eaten = correction > 0 ? count + 1 : count - 1;
        for (std::size_t i = 0; i + 1 < count; ++i) {
            const std::size_t place = i * (eaten - 1);
            const auto at = first + static_cast<std::ptrdiff_t>(place / (count - 1));
            taken.push_back(Between(at[0], at[1], place % (count - 1), count - 1));
        }
        taken.push_back(first[static_cast<std::ptrdiff_t>(eaten) - 1]);
        head += eaten;
    }
    const std::size_t length = FramesIn(fade);
    for (std::size_t i = from; fadingIn > 0 && i < taken.size(); ++i) {
        taken[i] = Scaled(taken[i], length - fadingIn--, length);
    }
    takenSinceStart += count;
    sounding = true;
    starting = false;
}

void SoundStream::Take(std::size_t count, std::int64_t heard, std::vector<SoundFrame>& taken) {
    const std::size_t last = std::min(count, tail.size());
    taken.insert(taken.end(), tail.begin(), tail.begin() + static_cast<std::ptrdiff_t>(last));
    tail.erase(tail.begin(), tail.begin() + static_cast<std::ptrdiff_t>(last));
    count -= last;
    heard += Microseconds(last);
    if (count == 0 || Waiting() == 0) {
        return;
    }
    if (keepsTime && dueKnown) {
        count -= Align(count, heard, taken);
    }
    if (count == 0 || Waiting() == 0) {
        return;
    }
    count = std::min(count, Waiting());
    const int correction = count >= shortestStretched && Waiting() > count ? Correction(heard) : 0;
    Copy(count, correction, taken);
}

}  // namespace zvr
