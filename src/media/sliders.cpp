#include "core/journal.h"
#include "core/numbers.h"
#include "core/program.h"
#include "media/mediaplayer.h"
#include "system/playervolume.h"

#include <algorithm>

namespace zvr {

namespace {

/// Mark of a knob that the skin left out.
constexpr std::string_view noKnob = "error";

/// Percent of the way that the knob's middle can go, for a press `x` pixels from the track's left edge.
long PercentAt(const Control& track, const Control& knob, int x, long most) {
    const double press = Twips(x);
    const double half = knob.width / 2;
    return std::clamp(RoundHalfEven(100 / (track.width - half - half) * (press - half)), 0L, most);
}

}  // namespace

void MediaPlayer::PressVolume(Point p) {
    program.playervolume.fadeInVolume = 0;
    if (picVolSlider->Tag() == noKnob) {
        return;
    }
    program.playervolume.Set(static_cast<int>(PercentAt(*picVolume, *picVolSlider, p.x, 100)));
}

void MediaPlayer::ApplyStartupVolume() {
    if (!startupVolume.empty()) {
        program.playervolume.fadeInVolume = 0;  // that a power cut broke off
        program.playervolume.Set(static_cast<int>(RoundHalfEven(LeadingNumber(startupVolume))));
    }
}

void MediaPlayer::PressPosition(Point p) {
    const MediaItem* const media = wmp.CurrentMedia();
    if (picPosSlider->Tag() == noKnob || media == nullptr) {
        return;
    }
    // Never quite the end: that would be the next item.
    const long percent = PercentAt(*picPosition, *picPosSlider, p.x, 99);
    wmp.SetCurrentPosition(media->duration / 100 * static_cast<double>(percent));
    program.journal.WriteSoon();
}

}  // namespace zvr
