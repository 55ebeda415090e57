#include "core/tick.h"

#include "core/godfather.h"
#include "core/journal.h"
#include "core/program.h"
#include "core/remotecontrol.h"
#include "media/mediaplayer.h"
#include "platform/platform.h"
#include "skin/placeholders.h"
#include "skin/skinner.h"
#include "system/playervolume.h"
#include "system/sysvolume.h"

namespace zvr {
namespace {

/// 0.0001 of a day: no tick is that late unless the machine was asleep.
constexpr std::int64_t sleepGap = 8640;
constexpr double switchWindow = 5;  ///< seconds after a set time in which day and night switch

}  // namespace

Tick::Tick(Program& program) : program(program) {}

void Tick::Run() {
    DetectSleep();
    tickCount = tickCount >= 11 ? 0 : tickCount + 1;
    MediaPlayer& mediaplayer = program.mediaplayer;
    if (mediaplayer.form.loaded) {
        if (mediaplayer.wmp.CurrentMedia() != nullptr) {
            Skip();
            MovePositionSlider();
            program.playervolume.FadeIn();
        } else {
            mediaplayer.picPosSlider->left = 0;
        }
        if (program.sysvolume.FollowMixer()) {
            mediaplayer.ApplyStartupVolume();
        }
        MoveVolumeSlider();
    }
    RefreshPlaceholders(program);
    program.skinner.pairs.Refresh(program);
    if (program.godfather.AutoSwitchDayNight) {
        SwitchDayNight();
    }
    if (program.godfather.alwaysCenterWaveBalance) {
        program.sysvolume.CenterWaveBalance();
    }
    program.remoteControl.NotifyWatchers();
    lastTick = program.platform.loop.Now().milliseconds;
}

void Tick::DetectSleep() {
    if (lastTick > 0 && program.platform.loop.Now().milliseconds - lastTick > sleepGap) {
        program.godfather.sleepIsNews = false;
        program.godfather.tmrHibernateResume.Start();
    }
}

void Tick::Skip() {
    MediaPlayer& mediaplayer = program.mediaplayer;
    PlayQueue& wmp = mediaplayer.wmp;
    const double position = wmp.CurrentPosition();
    const double step = mediaplayer.skipSecs - 1;
    switch (mediaplayer.currentSkipMode) {
        case -1:
            if (position <= mediaplayer.skipSecs) {
                EndSkip(0);
            } else if (IsEven()) {
                wmp.SetCurrentPosition(position - step);
            }
            break;
        case 1: {
            const double duration = wmp.CurrentMedia()->duration;
            if (duration <= position + mediaplayer.skipSecs) {
                EndSkip(duration - 1);
            } else if (IsEven()) {
                wmp.SetCurrentPosition(position + step);
            }
            break;
        }
        default:
            break;
    }
}

void Tick::EndSkip(double position) {
    program.mediaplayer.wmp.SetCurrentPosition(position);
    program.mediaplayer.currentSkipMode = 0;
    program.journal.WriteSoon();
}

void Tick::MovePositionSlider() {
    MediaPlayer& mediaplayer = program.mediaplayer;
    mediaplayer.picPosSlider->visible = true;
    const MediaItem* const media = mediaplayer.wmp.CurrentMedia();
    if (media != nullptr && media->duration > 1 && !mediaplayer.IsHeld(*mediaplayer.picPosSlider)) {
        const double way = mediaplayer.picPosition->width - mediaplayer.picPosSlider->width;
        mediaplayer.picPosSlider->left = way / 100 * (mediaplayer.wmp.CurrentPosition() * 100 / media->duration);
    }
}

void Tick::MoveVolumeSlider() {
    MediaPlayer& mediaplayer = program.mediaplayer;
    if (program.playervolume.fadeInVolume != 0 || mediaplayer.IsHeld(*mediaplayer.picVolSlider)) {
        return;
    }
    const double way = mediaplayer.picVolume->width - mediaplayer.picVolSlider->width;
    mediaplayer.picVolSlider->left = way / 100 * program.playervolume.Percent();
}

void Tick::SwitchDayNight() {
    GodFather& godfather = program.godfather;
    const double now = program.platform.loop.Now().SecondsOfDay();
    const auto justPassed = [now](int minutes) {
        const double since = now - minutes * 60.0;
        return since >= 0 && since < switchWindow;
    };
    if (justPassed(godfather.switchToNight)) {
        if (godfather.currentBrightness != godfather.brightnessNight) {
            godfather.applyDayNight(false, false, false);
        }
    } else if (justPassed(godfather.switchToDay) && godfather.currentBrightness != godfather.brightnessDay) {
        godfather.applyDayNight(true, false, false);
    }
}

}  // namespace zvr
