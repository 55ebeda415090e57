#pragma once

#include "media/playqueue.h"
#include "system/clsvolume.h"

namespace zvr {

/// Steps, level and balance of the wave output, and which of the two volumes the media commands drive.
class SysVolume {
public:
    /// All three outlive this object.
    SysVolume(Mixer& mixer, clsVolume& lines, PlayQueue& player);

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
    void CenterWaveBalance();    ///< both channels to the quieter one's level
    void ReadWaveVolume();       ///< fills `waveVolume` from the mixer
    void FollowOutsideChange();  ///< the same, if another program or a key of the keyboard set the level since
    void ChangeWaveVolume(long delta, bool keepPercent = false);  ///< percent; 0 does nothing at all
    void ChangeMediaVolume(long delta);                           ///< percent

private:
    [[nodiscard]] long Stepped(long percent, long delta) const;

    void SetLevel(std::uint32_t level);

    std::optional<std::uint32_t> knownLevel;  ///< that was read or set here last
    Mixer* mixer;
    clsVolume* lines;
    PlayQueue* player;
};

}  // namespace zvr
