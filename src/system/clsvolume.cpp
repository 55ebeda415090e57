#include "system/clsvolume.h"

#include "core/numbers.h"

#include <algorithm>

namespace zvr {

clsVolume::clsVolume(Mixer& mixer) : mixer(&mixer) {}

bool clsVolume::Open() {
    mixerFound = mixer->Open();
    openings = mixer->Openings();
    if (mixerFound) {
        FindLines();
    }
    return mixerFound;
}

bool clsVolume::FindAgain() {
    const unsigned present = mixer->Openings();
    if (present == openings) {
        return false;
    }
    openings = present;
    mixerFound = true;
    FindLines();
    if (wasMuted) {
        SetMute(waveIn, *wasMuted);
    }
    return true;
}

void clsVolume::FindLines() {
    foundVolumes = 0;
    foundMutes = 0;
    for (Line* line : {&wave, &micro, &waveIn, &lineIn, &cd, &midi}) {
        Find(*line);
    }
}

void clsVolume::Find(Line& line) {
    line.bounds = {};
    if (const auto range = mixer->VolumeRange(line.mixerLine)) {
        line.bounds = *range;
        foundVolumes |= line.bit;
    }
    if (mixer->HasMute(line.mixerLine)) {
        foundMutes |= line.bit;
    }
}

void clsVolume::SetMasterLevel(long level) {
    constexpr double loudest = 65535;
    const double lowest = wave.bounds.minimum;
    SetVolume(wave, RoundHalfEven(lowest + static_cast<double>(level) / loudest * (wave.bounds.maximum - lowest)));
}

void clsVolume::SetVolume(const Line& line, long level) {
    if ((foundVolumes & line.bit) != 0) {
        const long clamped = std::clamp<long>(level, line.bounds.minimum, line.bounds.maximum);
        mixer->SetVolume(line.mixerLine, static_cast<std::uint32_t>(clamped));
    }
}

bool clsVolume::Mute(const Line& line) const {
    return (foundMutes & line.bit) != 0 && mixer->Mute(line.mixerLine).value_or(false);
}

void clsVolume::SetWaveInMute(bool muted) {
    wasMuted = muted;
    SetMute(waveIn, muted);
}

void clsVolume::SetMute(const Line& line, bool muted) {
    if ((foundMutes & line.bit) != 0) {
        mixer->SetMute(line.mixerLine, muted);
    }
}

}  // namespace zvr
