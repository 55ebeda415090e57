#include "apps/externalapps.h"
#include "apps/quickbars.h"
#include "core/askforshutdown.h"
#include "core/commanddispatcher.h"
#include "core/godfather.h"
#include "core/journal.h"
#include "core/mainmenu.h"
#include "core/messagebox.h"
#include "core/program.h"
#include "core/quickjump.h"
#include "core/remotecontrol.h"
#include "core/settings.h"
#include "core/splash.h"
#include "media/dvdplayer.h"
#include "media/gallery.h"
#include "media/mediaplayer.h"
#include "media/mediasearch.h"
#include "media/playlists.h"
#include "options/options.h"
#include "phone/phone.h"
#include "phone/smsbox.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "radiogps/gps.h"
#include "radiogps/radio.h"
#include "skin/clsstyle.h"
#include "system/clsvolume.h"
#include "system/fsoperation.h"
#include "system/playervolume.h"
#include "system/setgamma.h"
#include "system/sysvolume.h"
#include "ui/stage.h"

namespace zvr {
namespace {

/// The arguments as one line, split at single blanks: a doubled blank gives an empty word.
std::vector<std::string> WordsOf(const std::vector<std::string>& arguments) {
    std::vector<std::string> words;
    for (const std::string& argument : arguments) {
        for (const std::string_view word : text::Split(argument, ' ')) {
            words.emplace_back(word);
        }
    }
    return words;
}

}  // namespace

void Program::Start(std::vector<std::string> arguments) {
    commandLine = WordsOf(arguments);
    platform.screen.onCloseRequest = [this](bool sessionEnds) { UnloadRoot(sessionEnds); };
    platform.screen.onSaveRequest = [this] { journal.WriteNow(); };
    platform.power.onSleep = [this] { godfather.FallsAsleep(); };
    platform.power.onWake = [this] { godfather.WokeUp(); };
    platform.power.onShutdown = [this] { UnloadRoot(true); };
    splash.Load();
}

void Program::LoadRoot() {
    if (!platform.instance.Claim()) {
        CloseSplash();
        platform.dialogs.ShowCritical("An instance of this application is already running.");
        EndAtOnce(1);
        return;
    }
    godfather.ShowTaskbar();  // a run that was killed may have left it hidden
    if (!mixerLines.Open()) {
        platform.dialogs.ShowPlain("No mixer found!", [this] { return mixerLines.FindAgain(); });
        if (platform.loop.IsQuitting()) {
            return;
        }
    }
    if (!ParseCommandLine()) {
        CloseSplash();
        platform.dialogs.ShowCritical("Illegal program call. Please check your commandline options.");
        EndAtOnce(1);
        return;
    }
    OpenRootForm();
    journal.Recover();
    readUsedModules(*this);
    godfather.modules.FixForThisRun();
    CreateForms();
    sysvolume.ReadWaveVolume();
    if (const std::string fault = loadSettings(*this); !fault.empty()) {
        TellOfUnreadSettings(fault);
        if (platform.loop.IsQuitting()) {
            return;
        }
    }
    gamma.RestoreFromRampFile();
    gamma.InitRamps();
    gamma.SaveRampFile();
    if (godfather.justShowConfig) {
        ShowOptionsOnly();
    } else {
        ShowFirstScreen();
    }
    if (!platform.loop.IsQuitting()) {
        remoteControl.Listen();
    }
}

void Program::TellOfUnreadSettings(const std::string& fault) {
    platform.dialogs.ShowPlain("The settings can't be read:\n" + SettingsFile() + "\n" + fault +
                               "\n\nThis run begins with the standard ones. The file is kept: it gets \".bad\" behind "
                               "its name before another takes its place.");
}

bool Program::ParseCommandLine() {
    for (const std::string& word : commandLine) {
        const std::string option = text::Lower(word);
        if (option == "-window") {
            godfather.windowMode = true;
        } else if (option == "-config") {
            godfather.justShowConfig = true;
        } else {
            return false;
        }
    }
    return true;
}

void Program::OpenRootForm() {
    platform.screen.SetTitle("zVR");
    clsStyle style(platform.screen);
    style.Client = &godfather.form;
    style.SetTitlebar(godfather.windowMode);
    style.SetSizable(godfather.windowMode);
    platform.screen.SetFrame(style.Titlebar());
    if (!godfather.windowMode) {
        godfather.form.left = 0;
        godfather.form.top = 0;
        godfather.form.Resize(platform.screen.PixelSize());
    }
    godfather.form.onResize = [this] { godfather.Resized(); };
    stage.Add(godfather.form);
    stage.Show(godfather.form);
    godfather.tmrGlobal.Start();
}

void Program::CreateForms() {
    const auto load = [this](auto& module, std::string_view name) {
        if (isModuleActive(name)) {
            module.Load();
        }
    };
    load(phone, "phone");
    load(smsbox, "smsbox");
    load(radio, "radio");
    load(gps, "gps");
    load(mediasearch, "mediasearch");
    load(externalapps, "externalapps");
    load(quickbars, "externalapps");
    load(gallery, "gallery");
    load(dvdplayer, "dvdplayer");
    messagebox.Load();
    quickjump.Load();
    askforshutdown.Load();
    fsoperation.Load();
    mediaplayer.Load();
    playlists.Load();
    mainmenu.Load();
}

void Program::ShowOptionsOnly() {
    for (Form* form : stage.Forms()) {
        if (form != &godfather.form && isModuleActive(form->name)) {
            stage.Hide(*form);
        }
    }
    options.Show();
}

void Program::ShowFirstScreen() {
    godfather.applyDayNight(true, false, true);
    godfather.ApplyByClock();
    if (platform.loop.IsQuitting()) {
        return;
    }
    stage.Hide(messagebox.form);
    if (mediaplayer.wmp.GetMode("shuffle")) {
        dispatchCommand("mediaplayer.mode.shuffle");
    }
    platform.screen.HidePointer(godfather.hideMouseCursor);
    if (godfather.hideWindowsTaskbar) {
        godfather.HideTaskbar();
    }
    if (isModuleActive("gps")) {
        gps.PortOpen(true);
    }
    playervolume.EndFade();  // that a power cut broke off
    if (godfather.saveMediaplayerState) {
        mediaplayer.PerformMediaplayerStateRestore();
    }
    if (platform.loop.IsQuitting()) {
        return;
    }
    journal.Start();
    dispatchCommand("mainmenu.show");
}

}  // namespace zvr
