#include "core/commanddispatcher.h"
#include "core/program.h"
#include "media/mediaplayer.h"
#include "platform/platform.h"
#include "skin/skinner.h"
#include "system/sysvolume.h"

#include <algorithm>

namespace zvr {

namespace {

constexpr int playing = 3;

}  // namespace

void MediaPlayer::PerformPlay() {
    playstate = playing;
    GiveVideoWindow();
    wmp.Play();
}

void MediaPlayer::GiveVideoWindow() {
    program.platform.media.SetVideoWindow(program.platform.screen.WindowOf(*video));
}

void MediaPlayer::Play() {
    playstate = playing;
    currentSkipMode = 0;
    if (fadeInVolume != 0) {
        Silence();
    }
    PerformPlay();
}

void MediaPlayer::Stop() {
    playstate = 0;
    currentSkipMode = 0;
    wmp.Stop();
    journal.WriteSoon();
}

void MediaPlayer::Pause() {
    playstate = 0;
    currentSkipMode = 0;
    wmp.Pause();
    ArmFade();
    journal.WriteSoon();
}

void MediaPlayer::PlayPauseToggle() {
    if (currentSkipMode == 0 && wmp.CurrentState() == PlayState::playing) {
        Pause();
    } else {
        Play();
    }
}

void MediaPlayer::SkipForward() {
    if (wmp.CurrentMedia() != nullptr) {
        currentSkipMode = 1;
    }
}

void MediaPlayer::SkipBackward() {
    if (wmp.CurrentMedia() != nullptr) {
        currentSkipMode = -1;
    }
}

void MediaPlayer::Next() {
    const bool wasMuted = !program.sysvolume.useWaveVolumeOnly && wmp.Mute();
    currentSkipMode = 0;
    wmp.Next();
    if (wasMuted) {
        wmp.SetMute(true);
    }
}

void MediaPlayer::Previous() {
    // Neither the skip nor the mute is touched, unlike in Next.
    wmp.Previous();
}

void MediaPlayer::SetShuffle(bool on) {
    wmp.SetMode("shuffle", on);
    program.skinner.pairs.Refresh(program);
}

void MediaPlayer::VolumeMute() {
    if (program.sysvolume.useWaveVolumeOnly) {
        program.dispatchCommand("app.volumemute");
    } else if (wmp.Mute()) {
        wmp.SetMute(false);
        if (fadeInVolume != 0) {
            wmp.SetVolume(0);
        }
    } else {
        ArmFade();
        wmp.SetMute(true);
    }
}

void MediaPlayer::VolumeUp() {
    fadeInVolume = 0;
    program.sysvolume.ChangeMediaVolume(program.sysvolume.volStepping);
}

void MediaPlayer::VolumeDown() {
    fadeInVolume = 0;
    program.sysvolume.ChangeMediaVolume(-program.sysvolume.volStepping);
}

void MediaPlayer::ListSelect() {
    playstate = playing;
    currentSkipMode = 0;
    PlaySelectedFile();
}

void MediaPlayer::PlayAfterSleep() {
    if (playstate != playing) {
        return;
    }
    if (fadeInOnStart) {
        // The volume stays up, so this fade has nothing to climb; a volume command clears it.
        fadeInVolume = PresentVolume();
    }
    wmp.Play();
}

int MediaPlayer::PresentVolume() const {
    return program.sysvolume.useWaveVolumeOnly ? program.sysvolume.waveVolume : wmp.Volume();
}

void MediaPlayer::SetPresentVolume(int percent) {
    if (program.sysvolume.useWaveVolumeOnly) {
        program.sysvolume.ChangeWaveVolume(percent - program.sysvolume.waveVolume);
    } else {
        wmp.SetVolume(percent);
    }
}

void MediaPlayer::EndBrokenFade() {
    if (journal.brokenFade > PresentVolume()) {
        SetPresentVolume(journal.brokenFade);
    }
}

void MediaPlayer::ArmFade() {
    if (fadeInAfterPause && wmp.CurrentMedia() != nullptr) {
        fadeInVolume = std::max(fadeInVolume, PresentVolume());
    }
}

void MediaPlayer::Silence() {
    if (program.sysvolume.useWaveVolumeOnly) {
        program.sysvolume.ChangeWaveVolume(-100);
    } else {
        wmp.SetVolume(0);
    }
}

}  // namespace zvr
