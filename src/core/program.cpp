#include "core/program.h"

#include "apps/externalapps.h"
#include "apps/quickbars.h"
#include "core/askforshutdown.h"
#include "core/commanddispatcher.h"
#include "core/dialogqueue.h"
#include "core/godfather.h"
#include "core/journal.h"
#include "core/language.h"
#include "core/mainmenu.h"
#include "core/messagebox.h"
#include "core/quickjump.h"
#include "core/remotecontrol.h"
#include "core/splash.h"
#include "core/tick.h"
#include "media/dvdplayer.h"
#include "media/gallery.h"
#include "media/mediaplayer.h"
#include "media/mediasearch.h"
#include "media/playlists.h"
#include "options/options.h"
#include "phone/phone.h"
#include "phone/smsbox.h"
#include "platform/platform.h"
#include "radiogps/gps.h"
#include "radiogps/radio.h"
#include "skin/skinner.h"
#include "system/clsvolume.h"
#include "system/fsoperation.h"
#include "system/playervolume.h"
#include "system/setgamma.h"
#include "system/sysvolume.h"
#include "ui/stage.h"

namespace zvr {
namespace {

/// For a display that can't be dimmed. Players draw into windows that no layer of ours lies over.
void DimAll(Platform& platform, double share) {
    platform.screen.SetDim(share);
    platform.media.SetDim(share);
    platform.dvd.SetDim(share);
}

}  // namespace

/// Made in this order, each with the program around it: until all of them stand, a constructor may reach the platform
/// and the members before its own, nothing else.
struct Program::Members {
    explicit Members(Program& program) : program(program) {}

    Program& program;
    Stage stage{program.platform.loop};
    LanguageTable language;
    DialogQueue dialogs{program.platform.loop, stage};
    GodFather godfather{program};
    CommandDispatcher commanddispatcher{program};
    Tick tick{program};
    Skinner skinner{program};
    MessageBox messagebox{program};
    QuickJump quickjump{program};
    AskForShutdown askforshutdown{program};
    MainMenu mainmenu{program};
    MediaPlayer mediaplayer{program};
    clsVolume mixerLines{program.platform.mixer};
    SysVolume sysvolume{program.platform.mixer, mixerLines};
    PlayerVolume playervolume{sysvolume, mixerLines, mediaplayer.wmp};
    SetGamma gamma{program.platform.display, program.place.folder,
                   [this](double share) { DimAll(program.platform, share); }};
    Playlists playlists{program};
    MediaSearch mediasearch{program};
    DvdPlayer dvdplayer{program};
    Gallery gallery{program};
    ExternalAppsCtl externalappsctl{program};
    ExternalApps externalapps{program};
    QuickBars quickbars{program};
    Phone phone{program};
    SmsBox smsbox{program};
    Radio radio{program};
    Gps gps{program};
    Journal journal{program};
    OptionsDialog options{program};
    RemoteControl remoteControl{program};
    Splash splash{program};
    FsOperation fsoperation{program};
};

Program::Program(Platform& platform, ProgramPlace place)
    : platform(platform),
      place(std::move(place)),
      members(std::make_unique<Members>(*this)),
      stage(members->stage),
      language(members->language),
      dialogs(members->dialogs),
      godfather(members->godfather),
      commanddispatcher(members->commanddispatcher),
      tick(members->tick),
      skinner(members->skinner),
      messagebox(members->messagebox),
      quickjump(members->quickjump),
      askforshutdown(members->askforshutdown),
      mainmenu(members->mainmenu),
      mediaplayer(members->mediaplayer),
      mixerLines(members->mixerLines),
      sysvolume(members->sysvolume),
      playervolume(members->playervolume),
      gamma(members->gamma),
      playlists(members->playlists),
      mediasearch(members->mediasearch),
      dvdplayer(members->dvdplayer),
      gallery(members->gallery),
      externalappsctl(members->externalappsctl),
      externalapps(members->externalapps),
      quickbars(members->quickbars),
      phone(members->phone),
      smsbox(members->smsbox),
      radio(members->radio),
      gps(members->gps),
      journal(members->journal),
      options(members->options),
      remoteControl(members->remoteControl),
      splash(members->splash),
      fsoperation(members->fsoperation),
      moduleForms{&quickbars.docked, &quickbars.floating, &messagebox.form, &radio.form,        &smsbox.form,
                  &dvdplayer.form,   &mainmenu.form,      &gps.form,        &externalapps.form, &playlists.form,
                  &mediasearch.form, &phone.form,         &gallery.form,    &mediaplayer.form} {}

Program::~Program() {
    platform.screen.Close();
    platform.screen.onCloseRequest = nullptr;
    platform.screen.onSaveRequest = nullptr;
    platform.power.onSleep = platform.power.onWake = platform.power.onShutdown = nullptr;
}

bool Program::isModuleActive(std::string_view name) const {
    return godfather.modules.isModuleActive(name);
}

std::string Program::languageText(std::string_view key) const {
    return std::string(language.languageText(key));
}

MessageAnswer Program::showMessage(std::string_view text, MessageButtons buttons) {
    return messagebox.showMessage(text, buttons);
}

void Program::dispatchCommand(std::string_view command) {
    std::string copy(command);
    commanddispatcher.dispatchCommand(copy);
}

void Program::CloseSplash() {
    splash.Close();
}

void Program::EndAtOnce(int exitCode) {
    platform.loop.Quit(exitCode);
}

std::string Program::SettingsFile() const {
    return place.folder + files::separator + place.name + ".ini";
}

}  // namespace zvr
