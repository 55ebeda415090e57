#include "core/journal.h"
#include "core/numbers.h"
#include "core/program.h"
#include "media/mediaplayer.h"
#include "system/playervolume.h"

#include <algorithm>
#include <utility>

namespace zvr {

namespace {

/// Mark of a knob that the skin left out.
constexpr std::string_view noKnob = "error";
/// Of the position. Never quite the end: that would be the next item.
constexpr long mostPercent = 99;

/// Percent of the way that the knob's middle can go, for a press `x` pixels from the track's left edge.
long PercentAt(const Control& track, const Control& knob, int x, long most) {
    const double press = Twips(x);
    const double half = knob.width / 2;
    return std::clamp(RoundHalfEven(100 / (track.width - half - half) * (press - half)), 0L, most);
}

/// Its middle comes under the finger, as far as the track goes.
void PutUnderFinger(const Control& track, Control& knob, int x) {
    knob.left = std::clamp(Twips(x) - knob.width / 2, 0.0, std::max(0.0, track.width - knob.width));
}

}  // namespace

bool MediaPlayer::IsHeld(const Control& knob) const {
    return heldKnob == &knob;
}

void MediaPlayer::PressVolume(Point p) {
    program.playervolume.fadeInVolume = 0;
    if (picVolSlider->Tag() != noKnob) {
        heldKnob = picVolSlider;
        DragVolume(p);
    }
}

void MediaPlayer::DragVolume(Point p) {
    if (heldKnob == picVolSlider) {
        program.playervolume.fadeInVolume = 0;
        PutUnderFinger(*picVolume, *picVolSlider, p.x);
        program.playervolume.Set(static_cast<int>(PercentAt(*picVolume, *picVolSlider, p.x, 100)));
    }
}

void MediaPlayer::ApplyStartupVolume() {
    if (!startupVolume.empty()) {
        program.playervolume.fadeInVolume = 0;  // that a power cut broke off
        program.playervolume.Set(static_cast<int>(RoundHalfEven(LeadingNumber(startupVolume))));
    }
}

void MediaPlayer::PressPosition(Point p) {
    if (picPosSlider->Tag() == noKnob || wmp.CurrentMedia() == nullptr) {
        return;
    }
    heldKnob = picPosSlider;
    draggedPercent = -1;
    PutUnderFinger(*picPosition, *picPosSlider, p.x);
    SeekToPercent(PercentAt(*picPosition, *picPosSlider, p.x, mostPercent));
}

// A seek for each pixel would be heard as a stutter: the knob goes along, the sound when it is let go.
void MediaPlayer::DragPosition(Point p) {
    if (heldKnob == picPosSlider) {
        PutUnderFinger(*picPosition, *picPosSlider, p.x);
        draggedPercent = PercentAt(*picPosition, *picPosSlider, p.x, mostPercent);
    }
}

void MediaPlayer::LetGo() {
    heldKnob = nullptr;
    if (const long percent = std::exchange(draggedPercent, -1); percent >= 0) {
        SeekToPercent(percent);
    }
}

void MediaPlayer::SeekToPercent(long percent) {
    if (const MediaItem* const media = wmp.CurrentMedia(); media != nullptr) {
        wmp.SetCurrentPosition(media->duration / 100 * static_cast<double>(percent));
        program.journal.WriteSoon();
    }
}

}  // namespace zvr
