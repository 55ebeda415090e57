#include "core/godfather.h"

#include "core/dialogqueue.h"
#include "core/journal.h"
#include "core/program.h"
#include "core/tick.h"
#include "media/mediaplayer.h"
#include "platform/platform.h"
#include "skin/skinner.h"
#include "system/setgamma.h"

namespace zvr {

GodFather::GodFather(Program& program)
    : tmrGlobal(program.platform.loop, [&program] { program.tick.Run(); }),
      tmrRepetitiveExecute(program.platform.loop, [this] { tmrRepetitiveExecute_Timer(); }),
      tmrHibernateResume(program.platform.loop, [this] { Resumed(); }),
      tmrPostLoad(program.platform.loop, [this] { ShowWarning(); }),
      program(program) {
    tmrGlobal.SetInterval(Milliseconds{100});
    tmrRepetitiveExecute.SetInterval(Milliseconds{500});
    tmrHibernateResume.SetInterval(Milliseconds{2000});
    tmrPostLoad.SetInterval(Milliseconds{200});
}

void GodFather::tmrRepetitiveExecute_Timer() {
    program.dispatchCommand(repetitiveCommand);
}

void GodFather::HideTaskbar() {
    program.platform.desktop.HideTaskbar();
}

void GodFather::ShowTaskbar() {
    program.platform.desktop.ShowTaskbar();
}

void GodFather::SetBrightness(int level) {
    if (program.gamma.SetBrightness(level)) {
        currentBrightness = level;
    }
}

void GodFather::applyDayNight(bool isDay, bool forceSkin, bool noSkin) {
    SetBrightness(isDay ? brightnessDay : brightnessNight);
    if (!noSkin && (forceSkin || useNightSkin)) {
        // A copy: a skin that fails puts the former name back into the variable.
        const std::string skin = isDay ? usedSkin : usedNightSkin;
        program.skinner.LoadSkin(skin);
    }
    brightnessIsDay = isDay;
}

void GodFather::ApplyByClock() {
    const auto loadUsedSkin = [this] {
        const std::string skin = usedSkin;
        program.skinner.LoadSkin(skin);
    };
    if (!AutoSwitchDayNight) {
        loadUsedSkin();
        return;
    }
    const double minutes = program.platform.loop.Now().SecondsOfDay() / 60;
    if (minutes < switchToDay || minutes >= switchToNight) {
        applyDayNight(false, useNightSkin, false);
        if (!useNightSkin) {
            loadUsedSkin();
        }
    } else {
        applyDayNight(true, true, false);
    }
}

void GodFather::ShowWarning() {
    tmrPostLoad.Stop();
    if (!justShowConfig && showWarning) {
        program.showMessage(program.languageText("GENERAL_WARNING"));
    }
}

void GodFather::FallsAsleep() {
    sleepIsNews = true;
    // It may never wake up: the battery of a parked car goes flat.
    program.journal.WriteNow();
}

void GodFather::WokeUp() {
    // The tick sees a long sleep by itself, sooner or later than this comes.
    if (sleepIsNews) {
        sleepIsNews = false;
        tmrHibernateResume.Start();
    }
}

void GodFather::Resumed() {
    tmrHibernateResume.Stop();
    if (AutoSwitchDayNight) {
        ApplyByClock();
    } else {
        SetBrightness(brightnessIsDay ? brightnessDay : brightnessNight);
    }
    program.platform.screen.HidePointer(hideMouseCursor);
    if (hideWindowsTaskbar) {
        HideTaskbar();
    }
    program.mediaplayer.PlayAfterSleep();
}

void GodFather::Resized() {
    program.skinner.CenterForms();
    program.dialogs.Refill();
    if (!hideWindowsTaskbar) {
        return;
    }
    switch (program.platform.screen.RootState()) {
        case WindowState::minimized:
            ShowTaskbar();
            break;
        case WindowState::maximized:
            HideTaskbar();
            break;
        case WindowState::normal:
            break;
    }
}

}  // namespace zvr
