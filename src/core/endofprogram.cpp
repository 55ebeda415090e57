#include "core/endofprogram.h"

#include "apps/externalapps.h"
#include "apps/quickbars.h"
#include "core/askforshutdown.h"
#include "core/godfather.h"
#include "core/journal.h"
#include "core/program.h"
#include "core/settings.h"
#include "media/mediaplayer.h"
#include "platform/platform.h"
#include "radiogps/gps.h"
#include "system/playervolume.h"
#include "system/setgamma.h"
#include "ui/stage.h"

namespace zvr {

void ExitByCommand(Program& program) {
    if (program.godfather.onAppEnd != "ask") {
        program.UnloadRoot(false);
        return;
    }
    switch (program.askforshutdown.Ask()) {
        case ShutdownChoice::quit:
            program.godfather.overrideRebootAndHibernate = true;
            program.UnloadRoot(false);
            break;
        case ShutdownChoice::hibernate:
            hibernate(program);
            break;
        case ShutdownChoice::reboot:
            reboot(program);
            break;
        case ShutdownChoice::none:
            break;
    }
}

bool isHibernateAllowed(const Program& program) {
    return program.platform.power.CanHibernate();
}

void hibernate(Program& program) {
    if (isHibernateAllowed(program)) {
        program.platform.power.Hibernate();
    } else {
        program.showMessage(program.languageText("GENERAL_HIBERNATEERROR"));
    }
}

void reboot(Program& program) {
    program.playervolume.EndFade();
    saveSettings(program);
    if (program.godfather.saveMediaplayerState) {
        program.mediaplayer.PerformMediaplayerStateSave();
    }
    exitWindows(program, exitReboot);
}

void exitWindows(Program& program, unsigned flags) {
    if ((flags & exitReboot) != 0) {
        program.platform.power.Reboot();
    }
}

void Program::UnloadRoot(bool sessionEnds) {
    if (!godfather.form.loaded) {
        EndAtOnce(0);  // still at the splash: nothing is there to save
        return;
    }
    if (platform.loop.IsQuitting() || (unloading && !sessionEnds)) {
        return;
    }
    unloading = true;
    if (!sessionEnds && SleepsOrRestartsInstead()) {
        unloading = false;
        return;
    }
    if (platform.loop.IsQuitting()) {
        return;  // the session ended while the question stood, and all of this is done
    }
    StopSound();
    TakeDownBars();
    SaveAll();
    StopHeartbeat();
    GiveBackDesktop();
    GiveBackDisplay();
    UnloadForms();
    EndAtOnce(0);
}

bool Program::SleepsOrRestartsInstead() {
    if (godfather.overrideRebootAndHibernate) {
        return false;
    }
    const auto yes = [this](const char* key) {
        return showMessage(languageText(key), MessageButtons::yesNo) == MessageAnswer::yes;
    };
    if (godfather.onAppEnd == "hibernate" && yes("GENERAL_ASKFORHIBERNATE")) {
        hibernate(*this);
        return true;
    }
    if (godfather.onAppEnd == "reboot" && yes("GENERAL_ASKFORREBOOT")) {
        reboot(*this);
        return true;
    }
    return false;
}

void Program::StopSound() {
    mediaplayer.StopForTheEnd();
    playervolume.EndFade();  // else the next start finds it half way up
}

void Program::TakeDownBars() {
    if (externalapps.form.loaded) {
        quickbars.Hide();  // where the driver has dragged one is among what is saved
    }
}

void Program::SaveAll() {
    saveSettings(*this);
    if (godfather.saveMediaplayerState) {
        mediaplayer.PerformMediaplayerStateSave();
    }
    journal.End();
}

void Program::StopHeartbeat() {
    godfather.tmrGlobal.Stop();
}

void Program::GiveBackDesktop() {
    godfather.ShowTaskbar();
}

void Program::GiveBackDisplay() {
    gamma.RestoreOriginalRamp();
    gamma.RemoveRampFile();
}

void Program::UnloadForms() {
    gps.PortClose();
    const std::vector<Form*> forms = stage.Forms();
    for (Form* form : forms) {
        if (form != &godfather.form && isModuleActive(form->name)) {
            stage.Remove(*form);
        }
    }
    stage.Remove(godfather.form);
}

}  // namespace zvr
