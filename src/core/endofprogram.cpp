#include "core/endofprogram.h"

#include "core/askforshutdown.h"
#include "core/godfather.h"
#include "core/program.h"
#include "core/settings.h"
#include "media/mediaplayer.h"
#include "platform/platform.h"
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

void hibernate(Program& program) {
    if (program.platform.power.CanHibernate()) {
        program.platform.power.Hibernate();
    } else {
        program.showMessage(program.languageText("GENERAL_HIBERNATEERROR"));
    }
}

void reboot(Program& program) {
    saveSettings(program);
    if (program.godfather.saveMediaplayerState) {
        program.mediaplayer.PerformMediaplayerStateSave();
    }
    program.platform.power.Reboot();
}

bool Program::QueryUnload(bool sessionEnds) {
    const bool ask = godfather.onAppEnd != "donothing" && !godfather.overrideRebootAndHibernate && !sessionEnds;
    const auto yes = [this](const char* key) {
        return showMessage(languageText(key), MessageButtons::yesNo) == MessageAnswer::yes;
    };
    if (ask && godfather.onAppEnd == "hibernate" && yes("GENERAL_ASKFORHIBERNATE")) {
        hibernate(*this);
        return false;
    }
    if (ask && godfather.onAppEnd == "reboot" && yes("GENERAL_ASKFORREBOOT")) {
        reboot(*this);
        return false;
    }
    saveSettings(*this);
    if (godfather.saveMediaplayerState) {
        mediaplayer.PerformMediaplayerStateSave();
    }
    mediaplayer.journal.End();
    godfather.tmrGlobal.Stop();
    return true;
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
    if (!QueryUnload(sessionEnds)) {
        unloading = false;
        return;
    }
    if (godfather.hideWindowsTaskbar) {
        godfather.ShowTaskbar();
    }
    gamma.RestoreOriginalRamp();
    gamma.RemoveRampFile();
    godfather.ShowTaskbar();
    mediaplayer.wmp.Stop();
    const std::vector<Form*> forms = stage.Forms();
    for (Form* form : forms) {
        if (form != &godfather.form && isModuleActive(form->name)) {
            stage.Remove(*form);
        }
    }
    stage.Remove(godfather.form);
    EndAtOnce(0);
}

}  // namespace zvr
