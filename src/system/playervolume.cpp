#include "system/playervolume.h"

#include "media/playqueue.h"
#include "system/clsvolume.h"
#include "system/sysvolume.h"

#include <algorithm>
#include <utility>

namespace zvr {
namespace {

// A tick's part of a fade.
constexpr int waveStep = 3;
constexpr int playerStep = 1;

}  // namespace

PlayerVolume::PlayerVolume(SysVolume& sysvolume, const clsVolume& lines, PlayQueue& player)
    : sysvolume(sysvolume), lines(lines), player(player) {}

bool PlayerVolume::IsWave() const {
    return sysvolume.useWaveVolumeOnly;
}

int PlayerVolume::Percent() const {
    return IsWave() ? sysvolume.waveVolume : player.Volume();
}

bool PlayerVolume::IsMuted() const {
    return IsWave() ? lines.WaveInMute() : player.Mute();
}

void PlayerVolume::Set(int percent) {
    if (IsWave()) {
        sysvolume.ChangeWaveVolume(percent - sysvolume.waveVolume);
    } else {
        player.SetVolume(percent);
    }
}

void PlayerVolume::ChangeMediaVolume(long delta) {
    fadeInVolume = 0;
    if (IsWave()) {
        sysvolume.ChangeWaveVolume(delta);
    } else {
        player.SetVolume(static_cast<int>(sysvolume.Stepped(player.Volume(), delta)));
    }
}

void PlayerVolume::ChangeWaveVolume(long delta) {
    if (IsWave()) {
        fadeInVolume = 0;
    }
    sysvolume.ChangeWaveVolume(delta);
}

void PlayerVolume::ArmFade() {
    fadeInVolume = std::max(fadeInVolume, Percent());
}

void PlayerVolume::Silence() {
    if (IsWave()) {
        sysvolume.ChangeWaveVolume(-100);
    } else {
        player.SetVolume(0);
    }
}

void PlayerVolume::FadeIn() {
    if (Percent() >= fadeInVolume) {
        return;
    }
    if (Percent() + (IsWave() ? waveStep : playerStep) < fadeInVolume) {
        Set(Percent() + (IsWave() ? waveStep : playerStep));
        return;
    }
    if (IsWave()) {
        sysvolume.ChangeWaveVolumeFromSilence(fadeInVolume);
    } else {
        player.SetVolume(fadeInVolume);
    }
    fadeInVolume = 0;
}

void PlayerVolume::EndFade() {
    const int target = std::exchange(fadeInVolume, 0);
    if (Percent() >= target) {
        return;
    }
    if (IsWave()) {
        sysvolume.SetWavePercent(target);
    } else {
        player.SetVolume(target);
    }
}

}  // namespace zvr
