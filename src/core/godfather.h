#pragma once

#include "core/moduleset.h"
#include "platform/eventloop.h"
#include "ui/form.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace zvr {

class Program;

/// A title and the command that it stands for.
using QuickJumpEntry = std::pair<std::string, std::string>;

/// What folder copy reads and writes.
struct FolderCopyPair {
    std::string folderCopySource;
    std::string folderCopyTarget;
};

/// The root form: the window that all screens lie in, the program-wide settings and the program-wide timers.
class GodFather {
public:
    explicit GodFather(Program& program);

    Form form{"godfather", FormRole::root};
    ModuleSet modules;
    bool justShowConfig = false;  ///< started with -config: only the options dialog
    bool windowMode = false;      ///< started with -window: title bar and border

    std::string msgBoxCommVar;  ///< of the message box: the question that shows, then the word that answered it

    std::string usedSkin;
    std::string usedNightSkin;
    bool useNightSkin = false;
    int brightnessDay = 1;  ///< 1 bright to 4 dark
    int brightnessNight = 4;
    int currentBrightness = 0;  ///< last set, 0 before the first
    bool brightnessIsDay = true;
    bool AutoSwitchDayNight = false;
    int switchToNight = 20 * 60;  ///< minutes after midnight
    int switchToDay = 7 * 60;
    bool alwaysCenterWaveBalance = false;
    bool hideMouseCursor = false;
    bool hideWindowsTaskbar = true;
    bool postSortDirectoryListings = false;
    bool showWarning = true;
    bool saveMediaplayerState = true;
    bool singleClickListSelect = false;
    std::string onAppEnd = "donothing";  ///< "hibernate", "reboot", "ask" or "donothing"
    bool overrideRebootAndHibernate = false;
    std::array<std::string, 12> hotkeyCommands;  ///< F1 first; empty for none
    std::vector<QuickJumpEntry> quickJumpList;
    std::array<FolderCopyPair, 3> folderCopy;

    Timer tmrGlobal;                ///< 100 ms, from the root's load to its query-unload
    Timer tmrRepetitiveExecute;     ///< while a volume button is held
    std::string repetitiveCommand;  ///< what it dispatches
    Timer tmrHibernateResume;       ///< once, 2 s after the machine woke up
    Timer tmrPostLoad;              ///< once, 200 ms after the splash went

    void tmrRepetitiveExecute_Timer();

    void HideTaskbar();
    void ShowTaskbar();

    /// Brightness of the day or the night, and its skin when `forceSkin` or `useNightSkin`, unless `noSkin`.
    void applyDayNight(bool isDay, bool forceSkin, bool noSkin);
    void ApplyByClock();  ///< skin and brightness that fit the time of day

    /// The driver's warning, once the splash has gone.
    void ShowWarning();
    void Resized();
    void FallsAsleep();             ///< the machine is about to
    void WokeUp();                  ///< from that sleep
    void Resumed();                 ///< 2 s after the machine woke up
    void SetBrightness(int level);  ///< 1 bright to 4 dark; any other level changes nothing

    bool sleepIsNews = false;  ///< it has been told to fall asleep, and nobody has noticed yet that it woke up

private:
    Program& program;
};

}  // namespace zvr
