#include "platform/headless/mixer.h"

#include <algorithm>

namespace zvr {
Mixer::State::State() {
    for (const MixerLine line : {MixerLine::master, MixerLine::microphone, MixerLine::waveOutput, MixerLine::lineIn,
                                 MixerLine::cd, MixerLine::synthesizer}) {
        lines[line] = Line{};
    }
}

Mixer::Mixer() : state(std::make_unique<State>()) {}
Mixer::~Mixer() = default;

void Mixer::State::Reconnect() {
    card = true;
    failing = false;
    ++openings;
}

bool Mixer::Open() {
    state->openings += state->card ? 1 : 0;
    return state->card;
}

unsigned Mixer::Openings() const {
    return state->openings;
}

std::optional<LevelRange> Mixer::VolumeRange(MixerLine line) const {
    const auto found = state->lines.find(line);
    if (!state->card || found == state->lines.end() || !found->second.hasVolume) {
        return std::nullopt;
    }
    return found->second.range;
}

bool Mixer::HasMute(MixerLine line) const {
    const auto found = state->lines.find(line);
    return state->card && found != state->lines.end() && found->second.hasMute;
}

std::optional<std::uint32_t> Mixer::Volume(MixerLine line) const {
    return VolumeRange(line) && !state->failing ? std::optional(state->lines[line].volume) : std::nullopt;
}

void Mixer::SetVolume(MixerLine line, std::uint32_t level) {
    if (const auto range = VolumeRange(line); range && !state->failing) {
        state->lines[line].volume = std::clamp(level, range->minimum, range->maximum);
    }
}

std::optional<bool> Mixer::Mute(MixerLine line) const {
    return HasMute(line) && !state->failing ? std::optional(state->lines[line].muted) : std::nullopt;
}

void Mixer::SetMute(MixerLine line, bool muted) {
    if (HasMute(line) && !state->failing) {
        state->lines[line].muted = muted;
    }
}

std::optional<std::uint32_t> Mixer::WaveLevel() const {
    if (!VolumeRange(MixerLine::waveOutput) || state->failing) {
        return std::nullopt;
    }
    return state->waveLevel;
}

void Mixer::SetWaveLevel(std::uint32_t level) {
    if (VolumeRange(MixerLine::waveOutput) && !state->failing) {
        ++state->waveWrites;
        state->waveLevel = level;
    }
}

}  // namespace zvr
