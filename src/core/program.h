#pragma once

#include "core/messageanswer.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

class AskForShutdown;
class clsVolume;
class CommandDispatcher;
class DialogQueue;
class DvdPlayer;
class ExternalApps;
class ExternalAppsCtl;
class Form;
class FsOperation;
class Gallery;
class GodFather;
class Gps;
class Journal;
class LanguageTable;
class MainMenu;
class MediaPlayer;
class MediaSearch;
class MessageBox;
class OptionsDialog;
class Phone;
struct Platform;
class PlayerVolume;
class Playlists;
class QuickBars;
class QuickJump;
class Radio;
class RemoteControl;
class SetGamma;
class Skinner;
class SmsBox;
class Splash;
class Stage;
class SysVolume;
class Tick;

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

private:
    struct Members;
    const std::unique_ptr<Members> members;  ///< before the names that lead into it

public:
    // What it owns, in the order of construction. Only names here: who uses one includes its header, and a change of a
    // form's header is no change of this one.
    Stage& stage;
    LanguageTable& language;
    DialogQueue& dialogs;
    GodFather& godfather;
    CommandDispatcher& commanddispatcher;
    Tick& tick;
    Skinner& skinner;
    MessageBox& messagebox;
    QuickJump& quickjump;
    AskForShutdown& askforshutdown;
    MainMenu& mainmenu;
    MediaPlayer& mediaplayer;
    clsVolume& mixerLines;
    SysVolume& sysvolume;
    PlayerVolume& playervolume;
    SetGamma& gamma;
    Playlists& playlists;
    MediaSearch& mediasearch;
    DvdPlayer& dvdplayer;
    Gallery& gallery;
    ExternalAppsCtl& externalappsctl;
    ExternalApps& externalapps;
    QuickBars& quickbars;
    Phone& phone;
    SmsBox& smsbox;
    Radio& radio;
    Gps& gps;
    Journal& journal;
    OptionsDialog& options;
    RemoteControl& remoteControl;
    Splash& splash;
    FsOperation& fsoperation;

    std::string usedLanguage;
    bool settingsWereUnread = false;  ///< the file was there at the start and could not be read

    /// The 14 forms that take a skin. A form of a module that isn't in use is in the list, not loaded.
    [[nodiscard]] const std::array<Form*, 14>& ModuleForms() const { return moduleForms; }

    [[nodiscard]] bool isModuleActive(std::string_view name) const;
    [[nodiscard]] std::string languageText(std::string_view key) const;
    /// Waits, with events running, until the driver has answered.
    MessageAnswer showMessage(std::string_view text, MessageButtons buttons = MessageButtons::ok);
    /// Runs a command as a touch would. For callers with a text of their own that may be rewritten, see the dispatcher.
    void dispatchCommand(std::string_view command);

    [[nodiscard]] std::string SettingsFile() const;  ///< program folder, program name, ".ini"

    void CloseSplash();

    /// Starts with the splash; the rest follows from the event loop.
    void Start(std::vector<std::string> arguments);
    /// What follows the splash, in order: from the check for a second instance to the first screen.
    void LoadRoot();
    /// The forms of the modules in use: a part of the above, and enough to try a skin on.
    void CreateForms();
    /// The orderly end: asks what the user has set to be asked, saves, tidies up and ends the process.
    void UnloadRoot(bool sessionEnds);

    /// Ends the process without any of the steps of an orderly end.
    void EndAtOnce(int exitCode);

private:
    // The start's steps.
    bool ParseCommandLine();
    void TellOfUnreadSettings(const std::string& fault);
    void OpenRootForm();
    void ShowOptionsOnly();
    void ShowFirstScreen();
    // The end's steps.
    [[nodiscard]] bool SleepsOrRestartsInstead();  ///< asks; true when the program lives on
    void StopSound();
    void TakeDownBars();
    void SaveAll();
    void StopHeartbeat();
    void GiveBackDesktop();
    void GiveBackDisplay();
    void UnloadForms();

    std::array<Form*, 14> moduleForms;
    std::vector<std::string> commandLine;
    bool unloading = false;
};

}  // namespace zvr
