#include "apps/externalapps.h"
#include "core/firstskin.h"
#include "core/godfather.h"
#include "core/mainmenu.h"
#include "core/numbers.h"
#include "core/program.h"
#include "core/settings.h"
#include "media/dvdplayer.h"
#include "media/gallery.h"
#include "media/mediaplayer.h"
#include "media/mediasearch.h"
#include "media/mediatypes.h"
#include "media/playlists.h"
#include "phone/phone.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "radiogps/gps.h"
#include "radiogps/radio.h"
#include "system/sysvolume.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace zvr {
namespace {

using P = Program;

constexpr std::string_view documents = "~documents";
constexpr std::string_view pictures = "~pictures";

constexpr int lowestFrequency = 8700;
constexpr int highestFrequency = 10800;

std::size_t At(int element) {
    return static_cast<std::size_t>(element) - 1;
}

void LoadOnAppEnd(P& p, const std::string& value, int) {
    const bool known = value == "hibernate" || value == "reboot" || value == "ask" || value == "donothing";
    p.godfather.onAppEnd = known ? value : "donothing";
}

void LoadQuickJumpList(P& p, const std::string& value, int) {
    auto& list = p.godfather.quickJumpList;
    list.clear();
    for (const std::string_view entry : text::Split(value, '|')) {
        const auto parts = text::Split(entry, ';');
        const auto sameTitle = [&parts](const QuickJumpEntry& taken) { return taken.first == parts[0]; };
        if (parts.size() == 2 && std::none_of(list.begin(), list.end(), sameTitle)) {
            list.emplace_back(parts[0], parts[1]);
        }
    }
}

std::string SaveQuickJumpList(P& p, int) {
    const auto clean = [](std::string text) {
        std::replace_if(
            text.begin(), text.end(), [](char c) { return c == ';' || c == '|'; }, ' ');
        return text;
    };
    std::string joined;
    for (const QuickJumpEntry& entry : p.godfather.quickJumpList) {
        joined += (joined.empty() ? "" : "|") + clean(entry.first) + ";" + clean(entry.second);
    }
    return joined;
}

void LoadStartupVolume(P& p, const std::string& value, int) {
    const double percent = LeadingNumber(value);
    const bool valid = !value.empty() && percent >= 0 && percent <= 100;
    p.mediaplayer.startupVolume = valid ? NumberText(percent) : "";
    p.mediaplayer.ApplyStartupVolume();
}

void LoadVolume(P& p, const std::string& value, int) {
    const long percent = p.sysvolume.useWaveVolumeOnly ? 100 : WithinRange(value, 0, 100, 100);
    p.mediaplayer.wmp.SetVolume(static_cast<int>(percent));
}

void LoadDriveLetter(P& p, const std::string& value, int) {
    const bool valid = value.size() == 2 && value[1] == ':' && std::isalpha(static_cast<unsigned char>(value[0])) != 0;
    p.dvdplayer.driveLetter = valid ? text::Lower(value) : "";
}

void LoadUpperBound(P& p, const std::string& value, int) {
    p.radio.freqUpperBound = static_cast<int>(WithinRange(value, 6000, 16000, highestFrequency));
    if (p.radio.freqLowerBound >= p.radio.freqUpperBound) {
        p.radio.freqLowerBound = lowestFrequency;
        p.radio.freqUpperBound = highestFrequency;
    }
}

int WithinBounds(const P& p, const std::string& value) {
    return static_cast<int>(WithinRange(value, p.radio.freqLowerBound, p.radio.freqUpperBound, lowestFrequency));
}

template <int Extent(Size), int& Variable(P&)>
void LoadBarPlace(P& p, const std::string& value, int) {
    Variable(p) = static_cast<int>(WithinRange(value, 0, Extent(p.platform.screen.PixelSize()), -1));
}

int Width(Size size) {
    return size.width;
}
int Height(Size size) {
    return size.height;
}

template <int& Variable(P&)>
std::string SaveNumber(P& p, int) {
    return std::to_string(Variable(p));
}

// A short name for what most rows do: say which variable they fill.
#define VARIABLE(type, path) [](P& p) -> type& { return p.path; }
#define BOOLEAN(path)        \
    BooleanRule {            \
        VARIABLE(bool, path) \
    }
#define NUMBER(lowest, highest, fallback, path)        \
    NumberRule {                                       \
        lowest, highest, fallback, VARIABLE(int, path) \
    }
#define TEXT(path)                  \
    TextRule {                      \
        VARIABLE(std::string, path) \
    }
#define TEXT_OR_DEFAULT(path)                                \
    TextRule {                                               \
        VARIABLE(std::string, path), EmptyText::givesDefault \
    }

int& FloatingX(P& p) {
    return p.externalapps.floatingWindowX;
}
int& FloatingY(P& p) {
    return p.externalapps.floatingWindowY;
}

constexpr auto settingRows = std::to_array<Setting>({
    {"general", "USEDLANGUAGE", "en", TEXT(usedLanguage), Direction::elsewhereReadOnly},
    {"general", "USEDMODULES", ModuleSet::optional, TEXT(godfather.modules.usedModules), Direction::elsewhere},
    {"general", "USEDSKIN", "Dark&Silver 800x600", TEXT_OR_DEFAULT(godfather.usedSkin), Direction::both, 0,
     [](const P& p, const Profile&) { return SkinForScreen(p); }},
    {"general", "USEDNIGHTSKIN", "Dark&Silver 800x600", TEXT_OR_DEFAULT(godfather.usedNightSkin), Direction::both, 0,
     [](const P& p, const Profile& profile) {
         return profile.Value("general", "USEDSKIN") ? "" : NightSkinForScreen(p);
     }},
    {"general", "USENIGHTSKIN", "0", BOOLEAN(godfather.useNightSkin)},
    {"general", "BRIGHTNESSDAY", "1", NUMBER(1, 4, 1, godfather.brightnessDay)},
    {"general", "BRIGHTNESSNIGHT", "4", NUMBER(1, 4, 4, godfather.brightnessNight)},
    {"general", "AUTOSWITCHDAYNIGHT", "0", BOOLEAN(godfather.AutoSwitchDayNight)},
    {"general", "SWITCHTONIGHT", "2000", TimeRule{VARIABLE(int, godfather.switchToNight)}},
    {"general", "SWITCHTODAY", "0700", TimeRule{VARIABLE(int, godfather.switchToDay)}},
    {"general", "ALWAYSCENTERWAVEBALANCE", "0", BOOLEAN(godfather.alwaysCenterWaveBalance)},
    {"general", "HIDEMOUSECURSOR", "0", BOOLEAN(godfather.hideMouseCursor)},
    {"general", "HIDEWINDOWSTASKBAR", "1", BOOLEAN(godfather.hideWindowsTaskbar)},
    {"general", "DISPLAYFILENAMES", "", BOOLEAN(mediaplayer.displayFilenames), Direction::writeOnly},
    {"general", "POSTSORTDIRECTORYLISTINGS", "0", BOOLEAN(godfather.postSortDirectoryListings)},
    {"general", "SHOWWARNING", "1", BOOLEAN(godfather.showWarning)},
    {"general", "USEWAVEVOLUMEONLY", "1", BOOLEAN(sysvolume.useWaveVolumeOnly)},
    {"general", "SAVEMEDIAPLAYERSTATE", "1", BOOLEAN(godfather.saveMediaplayerState)},
    {"general", "SINGLECLICKLISTSELECT", "0", BOOLEAN(godfather.singleClickListSelect)},
    {"general", "ONAPPEND", "donothing", OwnRule{LoadOnAppEnd, [](P& p, int) { return p.godfather.onAppEnd; }}},
    {"general", "EXPONENTIALVOLUMECHANGES", "0", BOOLEAN(sysvolume.exponentialVolumeChanges)},
    {"general", "ALSOCHANGECDVOLUME", "0", BOOLEAN(sysvolume.alsoChangeCDVolume)},
    {"general", "ALSOCHANGELINEINVOLUME", "0", BOOLEAN(sysvolume.alsoChangeLineInVolume)},
    {"general", "QUICKJUMPLIST",
     "Mobile Phone;phone.show|FM Radio;radio.show|GPS Info;gps.show|FolderCopy;app.startfoldercopy|Exit zVR;app.exit",
     OwnRule{LoadQuickJumpList, SaveQuickJumpList}},
    {"general", "REPETITIVEEXECTIME", "5",
     OwnRule{[](P& p, const std::string& value, int) {
                 p.godfather.tmrRepetitiveExecute.SetInterval(Milliseconds{WithinRange(value, 1, 9, 5) * 100});
             },
             [](P& p, int) { return std::to_string(p.godfather.tmrRepetitiveExecute.Interval().count() / 100); }}},
    {"general", "FOLDERCOPYSOURCE1", "", TEXT(godfather.folderCopy[0].folderCopySource)},
    {"general", "FOLDERCOPYTARGET1", "", TEXT(godfather.folderCopy[0].folderCopyTarget)},
    {"general", "FOLDERCOPYSOURCE2", "", TEXT(godfather.folderCopy[1].folderCopySource)},
    {"general", "FOLDERCOPYTARGET2", "", TEXT(godfather.folderCopy[1].folderCopyTarget)},
    {"general", "FOLDERCOPYSOURCE3", "", TEXT(godfather.folderCopy[2].folderCopySource)},
    {"general", "FOLDERCOPYTARGET3", "", TEXT(godfather.folderCopy[2].folderCopyTarget)},

    {"mainmenu", "SHOWUSERPIC", "0", BOOLEAN(mainmenu.showUserPic)},
    {"mainmenu", "USERPIC", "", TEXT(mainmenu.userPic)},
    {"mainmenu", "FLASHUSERPICWIDTH", "200", NUMBER(10, 2000, 200, mainmenu.flashUserPicWidth)},
    {"mainmenu", "FLASHUSERPICHEIGHT", "200", NUMBER(10, 2000, 200, mainmenu.flashUserPicHeight)},
    {"mainmenu", "FLASHUSERPICBGCOLOR", "0", NUMBER(0, 2147483647, 0, mainmenu.flashUserPicBackground)},

    {"mediaplayer", "SHUFFLE", "0",
     OwnRule{
         [](P& p, const std::string& value, int) { p.mediaplayer.wmp.SetMode("shuffle", LeadingNumber(value) == 1); },
         [](P& p, int) { return std::string(p.mediaplayer.wmp.GetMode("shuffle") ? "1" : "0"); }}},
    {"mediaplayer", "VOLUME", "100",
     OwnRule{LoadVolume, [](P& p, int) { return std::to_string(p.mediaplayer.wmp.Volume()); }}},
    {"mediaplayer", "STARTUPVOLUME", "",
     OwnRule{LoadStartupVolume, [](P& p, int) { return p.mediaplayer.startupVolume; }}},
    {"mediaplayer", "VOLSTEPPING", "10", NUMBER(0, 99, 10, sysvolume.volStepping)},
    {"mediaplayer", "SKIPSECONDS", "5", NUMBER(1, 60, 5, mediaplayer.skipSecs)},
    {"mediaplayer", "DISPLAYREMAIN", "0", BOOLEAN(mediaplayer.dispRemain)},
    {"mediaplayer", "AUDIOFOLDER", documents, TEXT_OR_DEFAULT(mediaplayer.audioFolder)},
    {"mediaplayer", "VIDEOFOLDER", documents, TEXT_OR_DEFAULT(mediaplayer.videoFolder)},
    {"mediaplayer", "PLAYLISTFOLDER", "$/playlists", TEXT_OR_DEFAULT(playlists.playlistFolder)},
    {"mediaplayer", "CURRENTFOLDER", "", TEXT(mediaplayer.currentFolder)},
    {"mediaplayer", "CURRENTPLAYLIST", "", TEXT(mediaplayer.currentPlaylistFile)},
    {"mediaplayer", "SHOWINGPLAYLIST", "0",
     OwnRule{
         [](P& p, const std::string& value, int) { p.mediaplayer.startShowingPlaylist = LeadingNumber(value) == 1; },
         [](P& p, int) { return std::string(p.mediaplayer.showingPlaylist ? "1" : "0"); }}},
    {"mediaplayer", "FADEINAFTERPAUSE", "1", BOOLEAN(mediaplayer.fadeInAfterPause)},
    {"mediaplayer", "FADEINONSTART", "1", BOOLEAN(mediaplayer.fadeInOnStart)},
    {"mediaplayer", "DISPLAYFILENAMES", "0", BOOLEAN(mediaplayer.displayFilenames)},
    {"mediaplayer", "SELECTONMEDIACHANGE", "0", BOOLEAN(mediaplayer.selectOnMediaChange)},
    {"mediaplayer", "FILEEXTENSIONSAUDIO", usualAudioExtensions,
     ExtensionsRule{VARIABLE(std::string, mediaplayer.fileExtensionsAudio)}},
    {"mediaplayer", "FILEEXTENSIONSVIDEO", usualVideoExtensions,
     ExtensionsRule{VARIABLE(std::string, mediaplayer.fileExtensionsVideo)}},
    {"mediaplayer", "COVERSTRINGS", "front;cover", TEXT(mediaplayer.coverStrings), Direction::readOnly},
    {"mediaplayer", "SHOWCOVERS", "0", BOOLEAN(mediaplayer.showCover)},
    {"mediaplayer", "USEFULLSCREENCTL", "0", BOOLEAN(mediaplayer.useFullscreenCtl)},

    {"hotkeys", "F", "",
     OwnRule{[](P& p, const std::string& value, int element) {
                 if (!value.empty()) {
                     p.godfather.hotkeyCommands[At(element)] = value;
                 }
             },
             [](P& p, int element) { return p.godfather.hotkeyCommands[At(element)]; }},
     Direction::both, 12},

    {"externalapps", "OSKEXE", "$/zvr_osk", TEXT(externalapps.oskExe)},
    {"externalapps", "NAVIEXE", "", TEXT(externalapps.naviExe)},
    {"externalapps", "NAVIQUICKBAR", "docked",
     OwnRule{[](P& p, const std::string& value, int) {
                 p.externalapps.naviQuickbar = value == "floating" ? "floating" : "docked";
             },
             [](P& p, int) { return p.externalapps.naviQuickbar; }}},
    {"externalapps", "FLOATINGWINDOWX", "-1", OwnRule{LoadBarPlace<Width, FloatingX>, SaveNumber<FloatingX>}},
    {"externalapps", "FLOATINGWINDOWY", "-1", OwnRule{LoadBarPlace<Height, FloatingY>, SaveNumber<FloatingY>}},
    {"externalapps", "FLOATINGWINDOWTRANSPARENCY", "0", NUMBER(0, 10, 0, externalapps.floatingWindowTransparency)},
    {"externalapps", "DOCKEDWINDOWTRANSPARENCY", "0", NUMBER(0, 10, 0, externalapps.dockedWindowTransparency)},
    {"externalapps", "MSECTOWAITONSWITCHBACK", "200", NUMBER(100, 10000, 200, externalapps.msecToWaitOnSwitchback),
     Direction::readOnly},
    {"externalapps", "APPLAUNCHERCOMMAND", "",
     OwnRule{
         [](P& p, const std::string& value, int element) { p.externalapps.appLauncherCommands[At(element)] = value; },
         [](P& p, int element) { return p.externalapps.appLauncherCommands[At(element)]; }},
     Direction::both, 5},

    {"gallery", "SLIDESHOWWAITSECS", "5",
     OwnRule{[](P& p, const std::string& value, int) {
                 p.gallery.tmrSlideshow.SetInterval(Milliseconds{WithinRange(value, 1, 60, 5) * 1000});
             },
             [](P& p, int) { return std::to_string(p.gallery.tmrSlideshow.Interval().count() / 1000); }}},
    {"gallery", "IMAGEFOLDER", pictures, TEXT_OR_DEFAULT(gallery.imageFolder)},
    {"gallery", "FILEEXTENSTIONS", "jpg;jpeg;gif;bmp",
     ExtensionsRule{VARIABLE(std::string, gallery.fileExtensionsPicture)}},
    {"gallery", "LOOPSLIDESHOW", "1", BOOLEAN(gallery.loopSlideshow)},
    {"gallery", "CURRENTFOLDER", "", TEXT(gallery.currentFolder)},

    {"dvdplayer", "DRIVELETTER", "", OwnRule{LoadDriveLetter, [](P& p, int) { return p.dvdplayer.driveLetter; }}},
    {"dvdplayer", "EJECTISALLOWED", "1", BOOLEAN(dvdplayer.ejectIsAllowed)},

    {"mediasearch", "INDEXBASEFOLDER", "*", TEXT_OR_DEFAULT(mediasearch.indexBaseFolder)},
    {"mediasearch", "REFRESHTIMESPAN", "0", NUMBER(0, 3, 0, mediasearch.refreshTimespan)},
    {"mediasearch", "ASKBEFOREINDEXBUILD", "0", BOOLEAN(mediasearch.askBeforeIndexBuild)},

    {"radio", "RADIATORFOLDER", "", TEXT(radio.radiatorFolder)},
    {"radio", "FREQLOWERBOUND", "8700", NUMBER(6000, 16000, lowestFrequency, radio.freqLowerBound)},
    {"radio", "FREQUPPERBOUND", "10800",
     OwnRule{LoadUpperBound, [](P& p, int) { return std::to_string(p.radio.freqUpperBound); }}},
    {"radio", "TUNINGSTEP", "100", NUMBER(10, 1000, 100, radio.radioTuningStep)},
    {"radio", "FINETUNINGSTEP", "10", NUMBER(1, 100, 10, radio.radioFineTuningStep)},
    {"radio", "LASTFREQUENCY", "8700",
     OwnRule{[](P& p, const std::string& value, int) { p.radio.currentFreq = WithinBounds(p, value); },
             [](P& p, int) { return std::to_string(p.radio.currentFreq); }}},
    {"radio", "STATION_", "8700",
     OwnRule{
         [](P& p, const std::string& value, int element) { p.radio.setRadioStation(element, WithinBounds(p, value)); },
         [](P& p, int element) { return std::to_string(p.radio.getRadioStation(element)); }},
     Direction::both, 9},

    {"phone", "ONCALLSHOWMESSAGE", "1", BOOLEAN(phone.onCallShowMessage)},
    {"phone", "ONCALLSHOWWINDOW", "1", BOOLEAN(phone.onCallShowWindow)},
    {"phone", "ONSMSSHOWMESSAGE", "1", BOOLEAN(phone.onSMSShowMessage)},
    {"phone", "ONSMSSHOWWINDOW", "1", BOOLEAN(phone.onSMSShowWindow)},
    {"phone", "ONCALLPAUSE", "1", BOOLEAN(phone.onCallPause)},
    {"phone", "ONHANGUPPLAY", "1", BOOLEAN(phone.onHangupPlay)},
    {"phone", "PHONEBOOKNAME", "", TEXT(phone.phonebookName)},

    {"gps", "COMPORT", "", TEXT(gps.GPScomPort)},
    {"gps", "COMSETTINGS", "4800,N,8,1", TEXT(gps.GPScomSettings)},
    {"gps", "USEMETRICVALUES", "1", BOOLEAN(gps.useMetricValues)},
    {"gps", "USESPEEDBASEDVOLUME", "0", BOOLEAN(gps.useSpeedBasedVolume)},
    {"gps", "SPEEDMIN", "30", NUMBER(1, 999, 10, gps.speedMin)},
    {"gps", "SPEEDMAX", "100", NUMBER(1, 999, 100, gps.speedMax)},
    {"gps", "VOLMIN", "30", NUMBER(1, 999, 10, gps.volMin)},
    {"gps", "VOLMAX", "100", NUMBER(1, 999, 100, gps.volMax)},
});

#undef TEXT_OR_DEFAULT
#undef TEXT
#undef NUMBER
#undef BOOLEAN
#undef VARIABLE

}  // namespace

std::span<const Setting> Settings() {
    return settingRows;
}

}  // namespace zvr
