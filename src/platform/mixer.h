#pragma once

#include <cstdint>
#include <memory>
#include <optional>

namespace zvr {

/// The lines that the program knows. Each may be absent.
enum class MixerLine { master, microphone, waveOutput, lineIn, cd, synthesizer };

struct LevelRange {
    std::uint32_t minimum = 0;
    std::uint32_t maximum = 0;
};

/// The sound card's mixer. Reads see what other programs changed since.
class Mixer {
public:
    Mixer();
    ~Mixer();

    [[nodiscard]] bool Open();  ///< false without a card; one that comes later is found by itself
    /// Grows with each card, or sound server, that was found: what is known of its lines is out of date then.
    [[nodiscard]] unsigned Openings() const;
    [[nodiscard]] std::optional<LevelRange> VolumeRange(MixerLine line) const;  ///< none: the line has no volume
    [[nodiscard]] bool HasMute(MixerLine line) const;
    [[nodiscard]] std::optional<std::uint32_t> Volume(MixerLine line) const;  ///< first channel, none on failure
    void SetVolume(MixerLine line, std::uint32_t level);  ///< all channels; within the range, failures ignored
    [[nodiscard]] std::optional<bool> Mute(MixerLine line) const;
    void SetMute(MixerLine line, bool muted);

    /// Level of the wave output, 0 to 65535 each: left in the low word, right in the high word. None on failure.
    /// What was set reads back equal, though a coarse card rounds it, until somebody else changes it.
    [[nodiscard]] std::optional<std::uint32_t> WaveLevel() const;
    void SetWaveLevel(std::uint32_t level);

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
