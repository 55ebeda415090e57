#pragma once

#include "platform/mixer.h"
#include "system/clsvolume.h"

namespace zvr {

/// Steps, level and balance of the wave output.
class SysVolume {
public:
    /// Both outlive this object.
    SysVolume(Mixer& mixer, clsVolume& lines);

    int waveVolume = 0;                     ///< percent, as last known
    int volStepping = 0;                    ///< percent a step; hundredths of an exponent with exponential changes
    bool exponentialVolumeChanges = false;  ///< the step grows with the level
    bool useWaveVolumeOnly = false;         ///< media volume commands drive the wave output, not the player
    bool alsoChangeCDVolume = false;
    bool alsoChangeLineInVolume = false;

    /// The louder channel's level, 0..65535, and the balance -100..100, negative when the right one is the louder.
    /// Leaves both as they are when the level can't be read.
    void GetWaveVolume(long& volume, long& balance) const;
    /// A negative balance lowers the right channel. `waveVolume` follows unless `keepPercent`.
    void SetWaveVolume(long volume, long balance, bool keepPercent = false);
    void CenterWaveBalance();  ///< both channels to the louder one's level
    void ReadWaveVolume();     ///< fills `waveVolume` from the mixer
    /// The same, if another program or a key of the keyboard set the level since. A sound server that is back gets the
    /// level that it had. True when the first one of this run has come, whose level is anybody's.
    [[nodiscard]] bool FollowMixer();
    void ChangeWaveVolume(long delta, bool keepPercent = false);  ///< percent; 0 does nothing at all
    /// As a change by -100 and then one by `percent`, but heard as one.
    void ChangeWaveVolumeFromSilence(long percent);
    void SetWavePercent(long percent);  ///< both channels, whatever a step is

    /// The percent a step away; only the sign of `delta` counts with exponential changes. Not clamped.
    [[nodiscard]] long Stepped(long percent, long delta) const;

private:
    /// What a level tells: the louder channel, 0..65535, and the balance as above.
    struct Reading {
        long volume = 0;
        long balance = 0;
    };

    [[nodiscard]] static Reading Read(std::uint32_t level);
    [[nodiscard]] static Reading AtPercent(long percent, long balance);
    [[nodiscard]] Reading Stepped(const Reading& from, long delta) const;
    void Apply(const Reading& reading, bool keepPercent);
    void SetLevel(std::uint32_t level);

    std::optional<std::uint32_t> knownLevel;  ///< that was read or set here last
    Mixer* mixer;
    clsVolume* lines;
};

}  // namespace zvr
