#pragma once

#include "platform/mixer.h"

namespace zvr {

/// The mixer's six lines. What was found and the bounds of each volume are those of the moment of construction.
/// Without the line or the mixer a read gives 0 or false and a write does nothing.
class clsVolume {
public:
    /// Opens the mixer, which outlives this object.
    explicit clsVolume(Mixer& mixer);
    clsVolume(const clsVolume&) = delete;
    clsVolume& operator=(const clsVolume&) = delete;

    bool mixerFound = false;    ///< false: whoever starts the program tells the user once
    unsigned foundVolumes = 0;  ///< bits 1, 2, 4, 8, 16, 32: Wave, Micro, WaveIn, LineIn, CD_, MIDI
    unsigned foundMutes = 0;    ///< the same bits

    [[nodiscard]] long MinWaveVolume() const { return Minimum(wave); }
    [[nodiscard]] long MaxWaveVolume() const { return Maximum(wave); }
    [[nodiscard]] long MinMicVolume() const { return Minimum(micro); }
    [[nodiscard]] long MaxMicVolume() const { return Maximum(micro); }
    [[nodiscard]] long MinWavInVolume() const { return Minimum(waveIn); }
    [[nodiscard]] long MaxWavInVolume() const { return Maximum(waveIn); }
    [[nodiscard]] long MinLineInVolume() const { return Minimum(lineIn); }
    [[nodiscard]] long MaxLineInVolume() const { return Maximum(lineIn); }
    [[nodiscard]] long MinCDVolume() const { return Minimum(cd); }
    [[nodiscard]] long MaxCDVolume() const { return Maximum(cd); }
    [[nodiscard]] long MinMidVolume() const { return Minimum(midi); }
    [[nodiscard]] long MaxMidVolume() const { return Maximum(midi); }

    [[nodiscard]] long WaveVolume() const { return Volume(wave); }  ///< the master, in spite of the name
    [[nodiscard]] long MicroVolume() const { return Volume(micro); }
    [[nodiscard]] long WaveInVolume() const { return Volume(waveIn); }  ///< the wave output
    [[nodiscard]] long LineInVolume() const { return Volume(lineIn); }
    [[nodiscard]] long CD_Volume() const { return Volume(cd); }
    [[nodiscard]] long MIDIVolume() const { return Volume(midi); }

    // Writes are clamped to the line's bounds.
    void SetWaveVolume(long level) { SetVolume(wave, level); }
    void SetMicroVolume(long level) { SetVolume(micro, level); }
    void SetWaveInVolume(long level) { SetVolume(waveIn, level); }
    void SetLineInVolume(long level) { SetVolume(lineIn, level); }
    void SetCD_Volume(long level) { SetVolume(cd, level); }
    void SetMIDIVolume(long level) { SetVolume(midi, level); }

    [[nodiscard]] bool WaveMute() const { return Mute(wave); }
    [[nodiscard]] bool MicroMute() const { return Mute(micro); }
    [[nodiscard]] bool WaveInMute() const { return Mute(waveIn); }  ///< the mute that the program uses everywhere
    [[nodiscard]] bool LineInMute() const { return Mute(lineIn); }
    [[nodiscard]] bool CD_Mute() const { return Mute(cd); }
    [[nodiscard]] bool MIDIMute() const { return Mute(midi); }

    void SetWaveMute(bool muted) { SetMute(wave, muted); }
    void SetMicroMute(bool muted) { SetMute(micro, muted); }
    void SetWaveInMute(bool muted) { SetMute(waveIn, muted); }
    void SetLineInMute(bool muted) { SetMute(lineIn, muted); }
    void SetCD_Mute(bool muted) { SetMute(cd, muted); }
    void SetMIDIMute(bool muted) { SetMute(midi, muted); }

private:
    struct Line {
        unsigned bit;
        MixerLine mixerLine;
        LevelRange bounds{};
    };

    void Find(Line& line);
    [[nodiscard]] long Minimum(const Line& line) const { return line.bounds.minimum; }
    [[nodiscard]] long Maximum(const Line& line) const { return line.bounds.maximum; }
    [[nodiscard]] long Volume(const Line& line) const;
    void SetVolume(const Line& line, long level);
    [[nodiscard]] bool Mute(const Line& line) const;
    void SetMute(const Line& line, bool muted);

    Mixer* mixer;
    Line wave{1, MixerLine::master};
    Line micro{2, MixerLine::microphone};
    Line waveIn{4, MixerLine::waveOutput};
    Line lineIn{8, MixerLine::lineIn};
    Line cd{16, MixerLine::cd};
    Line midi{32, MixerLine::synthesizer};
};

}  // namespace zvr
