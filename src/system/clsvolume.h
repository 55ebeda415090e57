#pragma once

#include "platform/mixer.h"

namespace zvr {

/// The mixer's six lines. What was found and the bounds of each volume are those of the last time they were looked for.
/// Without the line or the mixer a read gives 0 or false and a write does nothing.
class clsVolume {
public:
    /// The mixer outlives this object.
    explicit clsVolume(Mixer& mixer);
    clsVolume(const clsVolume&) = delete;
    clsVolume& operator=(const clsVolume&) = delete;

    /// Not made at once with the object: asking a sound server takes as long as half of the way to the first picture.
    bool Open();              ///< false: there is no mixer
    bool mixerFound = false;  ///< false: whoever starts the program tells the user once
    /// Looks for the lines again if a card or a sound server came since, and gives the wave output the mute that it
    /// had.
    bool FindAgain();           ///< true if one came
    unsigned foundVolumes = 0;  ///< bits 1, 2, 4, 8, 16, 32: Wave, Micro, WaveIn, LineIn, CD_, MIDI
    unsigned foundMutes = 0;    ///< the same bits

    [[nodiscard]] long MaxLineInVolume() const { return Maximum(lineIn); }
    [[nodiscard]] long MaxCDVolume() const { return Maximum(cd); }

    // Writes are clamped to the line's bounds.
    void SetLineInVolume(long level) { SetVolume(lineIn, level); }
    void SetCD_Volume(long level) { SetVolume(cd, level); }
    void SetMasterLevel(long level);  ///< the line Wave: at 0..65535, whatever its own bounds are

    [[nodiscard]] bool WaveInMute() const { return Mute(waveIn); }  ///< the mute that the program uses everywhere
    void SetWaveInMute(bool muted);

private:
    struct Line {
        unsigned bit;
        MixerLine mixerLine;
        LevelRange bounds{};
    };

    void FindLines();
    void Find(Line& line);
    [[nodiscard]] static long Maximum(const Line& line) { return line.bounds.maximum; }
    void SetVolume(const Line& line, long level);
    [[nodiscard]] bool Mute(const Line& line) const;
    void SetMute(const Line& line, bool muted);

    Mixer* mixer;
    unsigned openings = 0;         ///< of the mixer, when the lines were looked for
    std::optional<bool> wasMuted;  ///< as set here last
    Line wave{1, MixerLine::master};
    Line micro{2, MixerLine::microphone};
    Line waveIn{4, MixerLine::waveOutput};
    Line lineIn{8, MixerLine::lineIn};
    Line cd{16, MixerLine::cd};
    Line midi{32, MixerLine::synthesizer};
};

}  // namespace zvr
