#pragma once

#include "apps/externalapps.h"
#include "apps/quickbars.h"
#include "core/askforshutdown.h"
#include "core/commanddispatcher.h"
#include "core/godfather.h"
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
#include "phone/phone.h"
#include "phone/smsbox.h"
#include "platform/platform.h"
#include "radiogps/gps.h"
#include "radiogps/radio.h"
#include "skin/skinner.h"
#include "system/clsvolume.h"
#include "system/setgamma.h"
#include "system/sysvolume.h"
#include "ui/stage.h"

#include <array>
#include <string>
#include <vector>

namespace zvr {

/// Where the program lies: everything it reads and writes is in this folder.
struct ProgramPlace {
    std::string folder;  ///< of the running program, without a trailing separator
    std::string name;    ///< of the program file; names the settings file too
};

/// Owns every form and service. Forms know each other through it; a test makes as many as it likes.
class Program {
public:
    Program(Platform& platform, ProgramPlace place);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    Platform& platform;
    const ProgramPlace place;
    Stage stage;
    LanguageTable language;
    std::string usedLanguage;

    GodFather godfather;
    CommandDispatcher commanddispatcher;
    Tick tick;
    Skinner skinner;

    MessageBox messagebox;
    QuickJump quickjump;
    AskForShutdown askforshutdown;
    MainMenu mainmenu;
    MediaPlayer mediaplayer;
    clsVolume mixerLines;
    SysVolume sysvolume;
    SetGamma gamma;
    Playlists playlists;
    MediaSearch mediasearch;
    DvdPlayer dvdplayer;
    Gallery gallery;
    ExternalApps externalapps;
    QuickBars quickbars;
    Phone phone;
    SmsBox smsbox;
    Radio radio;
    Gps gps;
    RemoteControl remoteControl;

    /// The 14 forms that take a skin. A form of a module that isn't in use is in the list, not loaded.
    [[nodiscard]] const std::array<Form*, 14>& ModuleForms() const { return moduleForms; }

    [[nodiscard]] bool isModuleActive(std::string_view name) const { return godfather.modules.isModuleActive(name); }
    [[nodiscard]] std::string languageText(std::string_view key) const {
        return std::string(language.languageText(key));
    }
    MessageAnswer showMessage(std::string_view text, MessageButtons buttons = MessageButtons::ok) {
        return messagebox.showMessage(text, buttons);
    }
    /// Runs a command as a touch would. For callers with a text of their own that may be rewritten, see the dispatcher.
    void dispatchCommand(std::string_view command);

    [[nodiscard]] std::string SettingsFile() const;  ///< program folder, program name, ".ini"

    /// The box at the start, shown for a second while the program loads.
    Splash splash;
    void CloseSplash() { splash.Close(); }

    /// Starts with the splash; the rest follows from the event loop.
    void Start(std::vector<std::string> arguments);
    /// What follows the splash, in order: from the check for a second instance to the first screen.
    void LoadRoot();
    /// The forms of the modules in use: a part of the above, and enough to try a skin on.
    void CreateForms();
    /// The orderly end: asks what the user has set to be asked, saves, tidies up and ends the process.
    void UnloadRoot(bool sessionEnds);

    /// Ends the process without any of the steps of an orderly end.
    void EndAtOnce(int exitCode) { platform.loop.Quit(exitCode); }

private:
    bool ParseCommandLine();
    void OpenRootForm();
    void ShowOptionsOnly();
    void ShowFirstScreen();
    bool QueryUnload(bool sessionEnds);

    std::array<Form*, 14> moduleForms;
    std::vector<std::string> commandLine;
    bool unloading = false;
};

}  // namespace zvr
