#pragma once

namespace zvr {

class clsVolume;
class PlayQueue;
class SysVolume;

/// The volume that the player is heard at: the wave output's or its own, as the settings say. And the fade, which
/// brings it up again after a silence. All volumes are percent.
class PlayerVolume {
public:
    /// All three outlive this object.
    PlayerVolume(SysVolume& sysvolume, const clsVolume& lines, PlayQueue& player);

    int fadeInVolume = 0;  ///< to fade up to, 0 = no fade is due

    [[nodiscard]] bool IsWave() const;  ///< false: the player's own counts
    [[nodiscard]] int Percent() const;
    [[nodiscard]] bool IsMuted() const;
    void Set(int percent);               ///< one step towards it with exponential changes of the wave output
    void ChangeMediaVolume(long delta);  ///< ends a fade
    void ChangeWaveVolume(long delta);   ///< of the wave output in any case; ends a fade that moves it

    void ArmFade();  ///< so that it comes back to what it is now, or to where it was going
    void Silence();  ///< what a fade that is due begins with
    void FadeIn();   ///< a tick's part of the way
    void EndFade();  ///< at once where it was going

private:
    SysVolume& sysvolume;
    const clsVolume& lines;
    PlayQueue& player;
};

}  // namespace zvr
