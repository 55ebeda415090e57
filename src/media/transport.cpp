#include "core/commanddispatcher.h"
#include "core/journal.h"
#include "core/program.h"
#include "media/mediaplayer.h"
#include "platform/platform.h"
#include "skin/skinner.h"
#include "system/playervolume.h"

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

void MediaPlayer::DriverActed() {
    discWanted.Renew();
    heldLines.clear();
}

void MediaPlayer::DriverWantsSound() {
    DriverActed();
    program.platform.dvd.Pause();  // the two don't sound at once
}

void MediaPlayer::Play() {
    DriverWantsSound();
    currentSkipMode = 0;
    if (program.playervolume.fadeInVolume != 0) {
        program.playervolume.Silence();
    }
    PerformPlay();
    program.journal.WriteSoon();
}

void MediaPlayer::Stop() {
    DriverActed();
    playstate = 0;
    currentSkipMode = 0;
    wmp.Stop();
    program.journal.WriteSoon();
}

void MediaPlayer::Pause() {
    DriverActed();
    playstate = 0;
    currentSkipMode = 0;
    wmp.Pause();
    ArmFade();
    program.journal.WriteSoon();
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
    DriverActed();
    const bool wasMuted = !program.playervolume.IsWave() && wmp.Mute();
    currentSkipMode = 0;
    wmp.Next();
    if (wasMuted) {
        wmp.SetMute(true);
    }
}

void MediaPlayer::Previous() {
    DriverActed();
    // Neither the skip nor the mute is touched, unlike in Next.
    wmp.Previous();
}

void MediaPlayer::SetShuffle(bool on) {
    wmp.SetMode("shuffle", on);
    program.skinner.pairs.Refresh(program);
}

void MediaPlayer::VolumeMute() {
    if (program.playervolume.IsWave()) {
        program.dispatchCommand("app.volumemute");
    } else if (wmp.Mute()) {
        wmp.SetMute(false);
        if (program.playervolume.fadeInVolume != 0) {
            program.playervolume.Silence();
        }
    } else {
        ArmFade();
        wmp.SetMute(true);
    }
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
        // The volume stays up, so this fade has nothing to climb; a volume command clears it. One that the sleep broke
        // into goes on to where it was going.
        program.playervolume.ArmFade();
    }
    wmp.Play();
}

void MediaPlayer::ArmFade() {
    if (fadeInAfterPause && wmp.CurrentMedia() != nullptr) {
        program.playervolume.ArmFade();
    }
}

}  // namespace zvr
