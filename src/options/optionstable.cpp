#include "options/optionstable.h"

#include "apps/externalapps.h"
#include "apps/externalappsctl.h"
#include "core/autostart.h"
#include "core/godfather.h"
#include "core/mainmenu.h"
#include "core/program.h"
#include "core/settings.h"
#include "media/dvdplayer.h"
#include "media/mediaplayer.h"
#include "media/mediasearch.h"
#include "options/optionlists.h"
#include "phone/phone.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "radiogps/radio.h"
#include "system/sysvolume.h"

#include <algorithm>
#include <array>

namespace zvr {
namespace {

using P = Program;
using K = OptionKind;
using T = OptionTab;

std::string Flag(bool on) {
    return on ? "1" : "0";
}

// --- what has a road of its own ---

void SaveAutostart(P& p, const Option&, const std::string& value) {
    if (value == "1") {
        setAutostart(p);
    } else {
        clearAutostart(p);
    }
}

void SaveModule(P& p, const Option& option, const std::string& value) {
    if (value == "1") {
        p.godfather.modules.addModule(option.key);
    } else {
        p.godfather.modules.removeModule(option.key);
    }
}

std::string LoadUserPic(P& p, const Option&) {
    return p.mainmenu.userPic.empty() ? p.languageText("OPT_USERPIC_NOPIC") : p.mainmenu.userPic;
}

void SaveUserPic(P& p, const Option&, const std::string& value) {
    p.mainmenu.userPic = value == p.languageText("OPT_USERPIC_NOPIC") ? "" : value;
}

void SaveHotkey(P& p, const Option& option, const std::string& value) {
    p.godfather.hotkeyCommands[static_cast<std::size_t>(option.element) - 1] = value;
}

std::string LoadTuningRange(P& p, const Option&) {
    return std::to_string(p.radio.freqLowerBound) + "-" + std::to_string(p.radio.freqUpperBound);
}

void SaveTuningRange(P& p, const Option&, const std::string& value) {
    const auto bounds = text::Split(value, '-');
    if (bounds.size() == 2) {
        SetSettingValue(p, *FindSetting("radio", "FREQLOWERBOUND"), 0, std::string(bounds[0]));
        SetSettingValue(p, *FindSetting("radio", "FREQUPPERBOUND"), 0, std::string(bounds[1]));
    }
}

constexpr std::string_view ofOneFolder = "folder";

std::string LoadIndexChoice(P& p, const Option&) {
    return p.mediasearch.indexBaseFolder == "*" ? "*" : std::string(ofOneFolder);
}

std::string LoadIndexFolder(P& p, const Option&) {
    return p.mediasearch.indexBaseFolder == "*" ? "" : p.mediasearch.indexBaseFolder;
}

/// The folder's own row follows and may fill in what is meant.
void SaveIndexChoice(P& p, const Option&, const std::string& value) {
    if ((value == "*") != (p.mediasearch.indexBaseFolder == "*")) {
        p.mediasearch.indexBaseFolder = value == "*" ? "*" : "";
    }
}

void SaveIndexFolder(P& p, const Option&, const std::string& value) {
    if (p.mediasearch.indexBaseFolder != "*") {
        p.mediasearch.indexBaseFolder = value.empty() ? "*" : value;
    }
}

std::string LoadWave(P& p, bool balanceWanted) {
    long volume = 0;
    long balance = 0;
    p.sysvolume.GetWaveVolume(volume, balance);
    return std::to_string(balanceWanted ? balance : (volume * 100 + 32767) / 65535);
}

void SaveWave(P& p, const std::string& value, bool isBalance) {
    long volume = 0;
    long balance = 0;
    p.sysvolume.GetWaveVolume(volume, balance);
    const long number = std::strtol(value.c_str(), nullptr, 10);
    if (isBalance) {
        balance = number;
    } else {
        volume = (number * 65535 + 50) / 100;
    }
    p.sysvolume.SetWaveVolume(volume, p.godfather.alwaysCenterWaveBalance ? 0 : balance);
}

void SaveCentring(P& p, const Option&, const std::string& value) {
    p.godfather.alwaysCenterWaveBalance = value == "1";
    if (value == "1") {
        p.sysvolume.CenterWaveBalance();
    }
}

std::string LoadApps(P& p, const Option&) {
    if (!p.externalapps.form.loaded) {
        p.externalappsctl.LoadAppList();  // the module isn't in use, its list is
    }
    std::string joined;
    for (const ExternalApp& app : p.externalappsctl.externalApps) {
        joined += (joined.empty() ? "" : "\n") + EntryOf(app);
    }
    return joined;
}

void SaveApps(P& p, const Option&, const std::string& value) {
    auto& apps = p.externalappsctl.externalApps;
    apps.clear();
    for (const std::string_view entry : text::Split(value, '\n')) {
        if (ExternalApp app = AppOf(entry); !app.name.empty()) {
            apps.push_back(std::move(app));
        }
    }
    p.externalappsctl.SaveAppList();
    if (p.externalapps.form.loaded) {
        p.externalapps.RefreshAppList();
    }
}

// --- lists that are filled when the dialog opens ---

std::vector<OptionChoice> Drives(P& p) {
    std::vector<OptionChoice> drives;
    char letter = 'd';
    for (const std::string& device : p.platform.discs.DriveDevices()) {
        if (letter <= 'z') {
            drives.push_back({std::string(1, letter) + ":", std::string(1, letter) + ": " + device});
            ++letter;
        }
    }
    if (drives.empty()) {
        drives.push_back({"", "OPT_CDDVD_NODRIVE"});
    }
    return drives;
}

std::vector<OptionChoice> Steps(std::initializer_list<int> hundredths) {
    std::vector<OptionChoice> steps;
    for (const int step : hundredths) {
        const std::string cents = std::to_string(step % 100);
        steps.push_back(
            {std::to_string(step), std::to_string(step / 100) + "." + (cents.size() < 2 ? "0" : "") + cents + " MHz"});
    }
    return steps;
}

std::vector<OptionChoice> Phonebooks(P& p) {
    std::vector<OptionChoice> books{{"", ""}};
    for (const std::string_view name : text::Split(p.phone.phonebooksString, '\0')) {
        if (!name.empty()) {
            books.push_back({std::string(name), std::string(name)});
        }
    }
    return books;
}

std::vector<OptionChoice> Skins(P& p) {
    std::vector<OptionChoice> skins;
    const std::string folder = p.place.folder + "/skins";
    (void)files::Enumerate(folder, [&](const files::Found& found) {
        const std::string name(found.name);
        if (name != ".." && files::Exists(folder + "/" + name + "/skindata.xml")) {
            skins.push_back({name, name});
        }
        return true;
    });
    std::sort(skins.begin(), skins.end(), [](const auto& a, const auto& b) { return a.value < b.value; });
    return skins;
}

std::vector<OptionChoice> BarKinds(P&) {
    return {{"docked", "OPT_EXTAPP_QUICKBAR_DOCKED"}, {"floating", "OPT_EXTAPP_QUICKBAR_FLOATING"}};
}

std::string Percent(const std::string& value) {
    return value + "%";
}
std::string TenfoldPercent(const std::string& value) {
    return value == "0" ? "0%" : value + "0%";
}

// --- rows that come in families ---

constexpr std::array<std::string_view, 12> functionKeys{"F1", "F2", "F3", "F4",  "F5",  "F6",
                                                        "F7", "F8", "F9", "F10", "F11", "F12"};

std::vector<Option> MakeOptions() {
    const auto heading = [](T tab, std::string_view caption) { return Option{"", tab, K::heading, caption}; };
    const auto toggle = [](std::string_view name, T tab, std::string_view caption, std::string_view section,
                           std::string_view key) { return Option{name, tab, K::toggle, caption, section, key}; };
    const auto number = [](std::string_view name, T tab, std::string_view caption, std::string_view section,
                           std::string_view key, int lowest, int highest) {
        return Option{name, tab, K::number, caption, section, key, 0, lowest, highest};
    };
    const auto path = [](std::string_view name, T tab, std::string_view caption, std::string_view section,
                         std::string_view key, Picks picks) {
        Option row{name, tab, K::text, caption, section, key};
        row.picks = picks;
        return row;
    };
    const auto by = [](Option row, std::string_view enabledBy) {
        row.enabledBy = enabledBy;
        return row;
    };
    const auto of = [](Option row, std::vector<OptionChoice> (*choices)(P&)) {
        row.choices = choices;
        return row;
    };
    const auto action = [](std::string_view name, T tab, std::string_view caption, std::string_view keyCaption) {
        Option row{name, tab, K::action, caption};
        row.keyCaption = keyCaption;
        return row;
    };
    const auto own = [](Option row, std::string (*load)(P&, const Option&),
                        void (*save)(P&, const Option&, const std::string&)) {
        row.load = load;
        row.save = save;
        return row;
    };
    const auto entries = [](std::string_view name, T tab, std::string_view section, std::string_view key,
                            char separator) {
        Option row{name, tab, K::editList, "", section, key};
        row.separator = separator;
        return row;
    };
    const auto sliding = [](Option row, int lowest, int highest, std::string (*shown)(const std::string&)) {
        row.kind = K::slider;
        row.lowest = lowest;
        row.highest = highest;
        row.shown = shown;
        return row;
    };
    const auto atOnce = [](Option row) {
        row.actsAtOnce = true;
        return row;
    };

    std::vector<Option> rows;
    const auto add = [&rows](std::initializer_list<Option> more) { rows.insert(rows.end(), more); };

    add({
        heading(T::general, "OPT_APPBEHAVIOR_SETTINGS"),
        toggle("chkShowWarning", T::general, "OPT_APPBEHAVIOR_SHOWWARNING", "general", "SHOWWARNING"),
        toggle("chkSaveMediaplayerSate", T::general, "OPT_MEDIAPLAYER_STATESAVE", "general", "SAVEMEDIAPLAYERSTATE"),
        toggle("chkSingleClickListSelect", T::general, "OPT_APPBEHAVIOR_SINGLECLICKLISTSELECT", "general",
               "SINGLECLICKLISTSELECT"),
        toggle("chkPostSortDirectoryListings", T::general, "OPT_APPBEHAVIOR_POSTSORT", "general",
               "POSTSORTDIRECTORYLISTINGS"),
        toggle("chkHideMouseCursor", T::general, "OPT_APPBEHAVIOR_HIDECURSOR", "general", "HIDEMOUSECURSOR"),
        toggle("chkHideTaskBar", T::general, "OPT_APPBEHAVIOR_HIDETASKBAR", "general", "HIDEWINDOWSTASKBAR"),
        own(
            Option{"chkAutostart", T::general, K::toggle, "OPT_APPBEHAVIOR_AUTOSTART"},
            [](P& p, const Option&) { return Flag(isAutostartSet(p)); }, SaveAutostart),
        heading(T::general, "OPT_APPBEHAVIOR_ONEXIT"),
        of({"optShutdown", T::general, K::segments, "", "general", "ONAPPEND"},
           [](P&) {
               return std::vector<OptionChoice>{{"donothing", "OPT_APPBEHAVIOR_DONOTHING"},
                                                {"ask", "OPT_APPBEHAVIOR_ASK"},
                                                {"hibernate", "OPT_APPBEHAVIOR_HIBERNATE"},
                                                {"reboot", "OPT_APPBEHAVIOR_REBOOT"}};
           }),

        heading(T::appearance, "OPT_SKINS_USETHISSKIN"),
        of({"lstSkins", T::appearance, K::list, "", "general", "USEDSKIN"}, Skins),
        toggle("chkUseNightSkin", T::appearance, "OPT_SKINS_USENIGHTSKIN", "general", "USENIGHTSKIN"),
        of(by({"lstNightSkins", T::appearance, K::list, "", "general", "USEDNIGHTSKIN"}, "chkUseNightSkin=1"), Skins),
        heading(T::appearance, "OPT_BRIGHTNESS_FRAME"),
        sliding({"sldDay", T::appearance, K::slider, "OPT_BRIGHTNESS_DAY", "general", "BRIGHTNESSDAY"}, 1, 4, nullptr),
        action("cmdTestDay", T::appearance, "OPT_BRIGHTNESS_DAY", "OPT_BRIGHTNESS_TEST"),
        sliding({"sldNight", T::appearance, K::slider, "OPT_BRIGHTNESS_NIGHT", "general", "BRIGHTNESSNIGHT"}, 1, 4,
                nullptr),
        action("cmdTestNight", T::appearance, "OPT_BRIGHTNESS_NIGHT", "OPT_BRIGHTNESS_TEST"),
        toggle("sfrmchkSwitchDayNight", T::appearance, "OPT_BRIGHNTESS_AUTOSWITCH", "general", "AUTOSWITCHDAYNIGHT"),
        by({"txtDay", T::appearance, K::time, "OPT_BRIGHTNESS_DAY", "general", "SWITCHTODAY"},
           "sfrmchkSwitchDayNight=1"),
        by({"txtNight", T::appearance, K::time, "OPT_BRIGHTNESS_NIGHT", "general", "SWITCHTONIGHT"},
           "sfrmchkSwitchDayNight=1"),
        action("cmdDay", T::appearance, "OPT_BRIGHTNESS_FRAME", "OPT_BUTTON_DAY"),
        action("cmdNight", T::appearance, "OPT_BRIGHTNESS_FRAME", "OPT_BUTTON_NIGHT"),
        heading(T::appearance, "OPT_USERPIC_FRAME"),
        toggle("chkShowUserPic", T::appearance, "OPT_USERPIC_FRAME", "mainmenu", "SHOWUSERPIC"),
        own(by(path("txtUserPic", T::appearance, "OPT_FOLDERGALLERY_IMAGES", "mainmenu", "USERPIC", Picks::picture),
               "chkShowUserPic=1"),
            LoadUserPic, SaveUserPic),
        heading(T::appearance, "OPT_USERPIC_FLASH"),
        by(number("txtUserPicFlashWidth", T::appearance, "OPT_USERPIC_FLASH_WIDTH", "mainmenu", "FLASHUSERPICWIDTH", 10,
                  2000),
           "chkShowUserPic=1"),
        by(number("txtUserPicFlashHeight", T::appearance, "OPT_USERPIC_FLASH_HEIGHT", "mainmenu", "FLASHUSERPICHEIGHT",
                  10, 2000),
           "chkShowUserPic=1"),
        by({"cmdUserPicFlashBGcolor", T::appearance, K::action, "OPT_USERPIC_FLASH_BGCOL", "mainmenu",
            "FLASHUSERPICBGCOLOR"},
           "chkShowUserPic=1"),

        heading(T::media, "OPT_MEDIAPLAYER_FRAME"),
        number("txtSkipSecs", T::media, "OPT_MEDIAPLAYER_SKIP", "mediaplayer", "SKIPSECONDS", 1, 60),
        of({"optDispRemain", T::media, K::segments, "OPT_MEDIAPLAYER_DURATIONDISPLAY", "mediaplayer", "DISPLAYREMAIN"},
           [](P&) {
               return std::vector<OptionChoice>{{"0", "OPT_MEDIAPLAYER_POSITION"}, {"1", "OPT_MEDIAPLAYER_REMAIN"}};
           }),
        toggle("chkDisplayFilenames", T::media, "OPT_MEDIAPLAYER_DISPLAYFILENAMES", "mediaplayer", "DISPLAYFILENAMES"),
        toggle("chkSelectOnMediaChange", T::media, "OPT_MEDIAPLAYER_SELECTIONFOLLOW", "mediaplayer",
               "SELECTONMEDIACHANGE"),
        toggle("chkShowCovers", T::media, "OPT_MEDIAPLAYER_SHOWCOVERS", "mediaplayer", "SHOWCOVERS"),
        toggle("chkUseWmpFullscreenCtl", T::media, "OPT_MEDIAPLAYER_USEFULLSCREENCTL", "mediaplayer",
               "USEFULLSCREENCTL"),
        heading(T::media, "OPT_MEDIAPLAYER_FADEINON"),
        toggle("chkFadeInAfterPause", T::media, "OPT_MEDIAPLAYER_FADEINAFTERPAUSE", "mediaplayer", "FADEINAFTERPAUSE"),
        toggle("chkFadeInOnStart", T::media, "OPT_MEDIAPLAYER_FADEINONAPPSTART", "mediaplayer", "FADEINONSTART"),
        heading(T::media, "OPT_GALLERY_SLIDESHOW"),
        number("txtSlideshowWaitSecs", T::media, "OPT_GALLERY_SLIDESHOW_PAUSE", "gallery", "SLIDESHOWWAITSECS", 1, 60),
        toggle("chkLoopSlideshow", T::media, "OPT_GALLERY_SLIDESHOW_LOOP", "gallery", "LOOPSLIDESHOW"),
        heading(T::media, "OPT_CDDVD_FRAME"),
        of({"cboCDDVDDrive", T::media, K::choice, "OPT_CDDVD_DRIVE", "dvdplayer", "DRIVELETTER"}, Drives),
        toggle("chkEnableEject", T::media, "OPT_CDDVD_ALLOWEJECT", "dvdplayer", "EJECTISALLOWED"),

        heading(T::volume, "OPT_WAVEVOL_FRAME"),
        own(
            atOnce(sliding({"sldVolLevel", T::volume, K::slider, "OPT_WAVEVOL_VOL"}, 0, 100, Percent)),
            [](P& p, const Option&) { return LoadWave(p, false); },
            [](P& p, const Option&, const std::string& value) { SaveWave(p, value, false); }),
        own(
            by(atOnce(sliding({"sldVolBalance", T::volume, K::slider, "OPT_WAVEVOL_BALANCE"}, -100, 100, nullptr)),
               "chkAlwaysCenterWaveBalance=0"),
            [](P& p, const Option&) { return LoadWave(p, true); },
            [](P& p, const Option&, const std::string& value) { SaveWave(p, value, true); }),
        own(atOnce(toggle("chkAlwaysCenterWaveBalance", T::volume, "OPT_WAVEVOL_FORCECENTERBALANCE", "general",
                          "ALWAYSCENTERWAVEBALANCE")),
            nullptr, SaveCentring),
        heading(T::volume, "OPT_VOLUME_GENERAL_FRAME"),
        own(
            [&] {
                Option row = number("txtStartupVolume", T::volume, "OPT_MEDIAPLAYER_STARTUPVOLUME", "mediaplayer",
                                    "STARTUPVOLUME", 0, 100);
                row.mayBeEmpty = true;
                return row;
            }(),
            nullptr, [](P& p, const Option&, const std::string& value) { p.mediaplayer.startupVolume = value; }),
        number("txtVolStepping", T::volume, "OPT_VOLUME_VOLSTEPPING", "mediaplayer", "VOLSTEPPING", 0, 99),
        number("txtVolInterval", T::volume, "OPT_VOLUME_INTERVAL", "general", "REPETITIVEEXECTIME", 1, 9),
        toggle("chkUseWaveVolumeOnly", T::volume, "OPT_WAVEVOL_USEWAVEVOLUMEONLY", "general", "USEWAVEVOLUMEONLY"),
        toggle("chkAlsoChangeCdVolume", T::volume, "OPT_VOLUME_ALSOCHANGECDVOLUME", "general", "ALSOCHANGECDVOLUME"),
        toggle("chkAlsoChangeLineInVolume", T::volume, "OPT_VOLUME_ALSOCHANGELINEINVOLUME", "general",
               "ALSOCHANGELINEINVOLUME"),
        toggle("chkExponentialVolume", T::volume, "OPT_VOLUME_EXPONENTIALVOLUME", "general",
               "EXPONENTIALVOLUMECHANGES"),
        heading(T::volume, "OPT_GPSVOL_FRAME"),
        toggle("chkUseSpeedBasedVolume", T::volume, "OPT_GPSVOL_USE", "gps", "USESPEEDBASEDVOLUME"),
        number("txtSpeedMin", T::volume, "OPT_GPSVOL_SPEEDMIN", "gps", "SPEEDMIN", 1, 999),
        number("txtSpeedMax", T::volume, "OPT_GPSVOL_SPEEDMAX", "gps", "SPEEDMAX", 1, 999),
        number("txtVolMin", T::volume, "OPT_GPSVOL_VOLMIN", "gps", "VOLMIN", 1, 999),
        number("txtVolMax", T::volume, "OPT_GPSVOL_VOLMAX", "gps", "VOLMAX", 1, 999),

        heading(T::modules, "OPT_MODULE_FRAME"),
    });
    constexpr std::array<std::array<std::string_view, 3>, 7> modules{{
        {"chkModuleMediasearch", "OPT_MODULE_MEDIASEARCH", "mediasearch"},
        {"chkModuleDvdplayer", "OPT_MODULE_DVDPLAYER", "dvdplayer"},
        {"chkModuleGallery", "OPT_MODULE_GALLERY", "gallery"},
        {"chkModuleExternalapps", "OPT_MODULE_EXTAPP", "externalapps"},
        {"chkModuleRadio", "OPT_MODULE_RADIO", "radio"},
        {"chkModulePhone", "OPT_MODULE_PHONE", "phone"},
        {"chkModuleGPS", "OPT_MODULE_GPS", "gps"},
    }};
    for (const auto& [name, caption, module] : modules) {
        rows.push_back(own(
            {name, T::modules, K::toggle, caption, "", module},
            [](P& p, const Option& option) {
                return Flag(p.godfather.modules.isModuleEnabled("[" + std::string(option.key) + "]"));
            },
            SaveModule));
    }
    add({
        action("cmdSelectAllModules", T::modules, "OPT_MODULE_FRAME", "OPT_MODULE_ALL"),
        action("cmdDeselectAllModules", T::modules, "OPT_MODULE_FRAME", "OPT_MODULE_NONE"),
        heading(T::modules, "OPT_MEDIASEARCH_FRAME"),
        of(own({"optMediasearchIndex", T::modules, K::segments, "OPT_MEDIASEARCH_INDEXOF", "mediasearch",
                "INDEXBASEFOLDER"},
               LoadIndexChoice, SaveIndexChoice),
           [](P&) {
               return std::vector<OptionChoice>{{"*", "OPT_MEDIASEARCH_FIXEDDRIVES"},
                                                {std::string(ofOneFolder), "OPT_MEDIASEARCH_THISDIRECTORY"}};
           }),
        own(by(path("txtIndexDir", T::modules, "OPT_MEDIASEARCH_THISDIRECTORY", "", "", Picks::folder),
               "optMediasearchIndex=folder"),
            LoadIndexFolder, SaveIndexFolder),
        of({"cboIndexRefresh", T::modules, K::choice, "OPT_MEDIASEARCH_REFRESH", "mediasearch", "REFRESHTIMESPAN"},
           [](P&) {
               return std::vector<OptionChoice>{{"0", "OPT_MEDIASEARCH_REFRESH_NEVER"},
                                                {"1", "OPT_MEDIASEARCH_REFRESH_DAY"},
                                                {"2", "OPT_MEDIASEARCH_REFRESH_WEEK"},
                                                {"3", "OPT_MEDIASEARCH_REFRESH_MONTH"}};
           }),
        toggle("chkAskBeforeIndexBuild", T::modules, "OPT_MEDIASEARCH_ASKBEFORE", "mediasearch", "ASKBEFOREINDEXBUILD"),
        action("cmdRefreshIndex", T::modules, "OPT_MEDIASEARCH_MANUALREFRESH", "OPT_MEDIASEARCH_REFRESHNOW"),

        heading(T::modules2, "OPT_PHONE_ONCALL"),
        toggle("chkOnCallShowMessage", T::modules2, "OPT_PHONE_SHOWMESSAGE", "phone", "ONCALLSHOWMESSAGE"),
        toggle("chkOnCallShowWindow", T::modules2, "OPT_PHONE_SHOWWINDOW", "phone", "ONCALLSHOWWINDOW"),
        toggle("chkOnCallPause", T::modules2, "OPT_PHONE_PAUSE", "phone", "ONCALLPAUSE"),
        toggle("chkOnHangupPlay", T::modules2, "OPT_PHONE_PLAY", "phone", "ONHANGUPPLAY"),
        heading(T::modules2, "OPT_PHONE_ONSMS"),
        toggle("chkOnSMSShowMessage", T::modules2, "OPT_PHONE_SHOWMESSAGE", "phone", "ONSMSSHOWMESSAGE"),
        toggle("chkOnSMSShowWindow", T::modules2, "OPT_PHONE_SHOWWINDOW", "phone", "ONSMSSHOWWINDOW"),
        of({"cboPhonebookName", T::modules2, K::choice, "OPT_PHONE_PHONEBOOK", "phone", "PHONEBOOKNAME"}, Phonebooks),
        action("cmdGetPhonebooks", T::modules2, "OPT_PHONE_PHONEBOOKSFOUND", "OPT_PHONE_GETPHONEBOOKS"),
        heading(T::modules2, "OPT_RADIO_FRAME"),
        of(own({"cboTuningRange", T::modules2, K::choice, "OPT_RADIO_TUNINGRANGE", "radio", "FREQUPPERBOUND"},
               LoadTuningRange, SaveTuningRange),
           [](P&) {
               return std::vector<OptionChoice>{{"8700-10800", "87 - 108 MHz"}, {"6000-16000", "60 - 160 MHz"}};
           }),
        of({"cboTuningStep", T::modules2, K::choice, "OPT_RADIO_TUNINGSTEPS", "radio", "TUNINGSTEP"},
           [](P&) {
               return Steps({10, 25, 50, 100, 200, 500, 1000});
           }),
        of({"cboFineTuningStep", T::modules2, K::choice, "OPT_RADIO_FINETUNINGSTEPS", "radio", "FINETUNINGSTEP"},
           [](P&) {
               return Steps({1, 2, 5, 10, 25, 50, 100});
           }),
        path("txtRadiatorFolder", T::modules2, "OPT_RADIO_RADIATORFOLDER", "radio", "RADIATORFOLDER", Picks::folder),
        heading(T::modules2, "OPT_GPS_FRAME"),
        path("txtComPort", T::modules2, "OPT_GPS_COMPORT", "gps", "COMPORT", Picks::nothing),
        path("txtComSettings", T::modules2, "OPT_GPS_COMSETTINGS", "gps", "COMSETTINGS", Picks::nothing),
        toggle("chkGpsUseMetric", T::modules2, "OPT_GPS_USEMETRIC", "gps", "USEMETRICVALUES"),

        heading(T::hotkeys, "OPT_FKEYS_FRAME"),
    });
    for (int element = 1; element <= 12; ++element) {
        Option row = own(path("txtFKeyCommand", T::hotkeys, functionKeys[static_cast<std::size_t>(element) - 1],
                              "hotkeys", "F", Picks::command),
                         nullptr, SaveHotkey);
        row.element = element;
        rows.push_back(row);
    }
    add({
        heading(T::hotkeys, "OPT_QUICKJUMP_FRAME"),
        entries("lstQuickJump", T::hotkeys, "general", "QUICKJUMPLIST", '|'),

        heading(T::extapp, "OPT_USERDEFINEDAPPS_FRAME"),
        own(entries("lstApps", T::extapp, "", "", '\n'), LoadApps, SaveApps),
        heading(T::extapp, "OPT_NAVIAPP_FRAME"),
        path("txtNaviEXE", T::extapp, "OPT_EXTAPP_PATH", "externalapps", "NAVIEXE", Picks::program),
        of({"optNaviQuickbar", T::extapp, K::segments, "OPT_EXTAPP_QUICKBAR", "externalapps", "NAVIQUICKBAR"},
           BarKinds),
        heading(T::extapp, "OPT_OSK_FRAME"),
        path("txtOSKEXE", T::extapp, "OPT_EXTAPP_PATH", "externalapps", "OSKEXE", Picks::program),
        heading(T::extapp, "OPT_QUICKBARTRANSP_FRAME"),
        sliding({"sldFloatingTransp", T::extapp, K::slider, "OPT_QUICKBARTRANSP_FLOATING", "externalapps",
                 "FLOATINGWINDOWTRANSPARENCY"},
                0, 10, TenfoldPercent),
        sliding({"sldDockedTransp", T::extapp, K::slider, "OPT_QUICKBARTRANSP_DOCKED", "externalapps",
                 "DOCKEDWINDOWTRANSPARENCY"},
                0, 10, TenfoldPercent),
        heading(T::extapp, "OPT_APPLAUNCHER_HEAD"),
    });
    constexpr std::array<std::string_view, 5> launchers{"1", "2", "3", "4", "5"};
    for (int element = 1; element <= 5; ++element) {
        Option row = path("txtShellCmd", T::extapp, launchers[static_cast<std::size_t>(element) - 1], "externalapps",
                          "APPLAUNCHERCOMMAND", Picks::program);
        row.element = element;
        rows.push_back(row);
    }
    add({
        heading(T::folders, "OPT_FOLDERMEDIAPLAYER_FRAME"),
        path("txtAudiofolder", T::folders, "OPT_FOLDERMEDIAPLAYER_AUDIO", "mediaplayer", "AUDIOFOLDER", Picks::folder),
        path("txtVideofolder", T::folders, "OPT_FOLDERMEDIAPLAYER_VIDEO", "mediaplayer", "VIDEOFOLDER", Picks::folder),
        path("txtPlaylistfolder", T::folders, "OPT_FOLDERMEDIAPLAYER_PLAYLISTS", "mediaplayer", "PLAYLISTFOLDER",
             Picks::folder),
        path("txtGalleryfolder", T::folders, "OPT_FOLDERGALLERY_IMAGES", "gallery", "IMAGEFOLDER", Picks::folder),
        heading(T::folders, "OPT_FOLDERCOPY_FRAME"),
    });
    constexpr std::array<std::array<std::string_view, 3>, 3> copies{{
        {"1:", "FOLDERCOPYSOURCE1", "FOLDERCOPYTARGET1"},
        {"2:", "FOLDERCOPYSOURCE2", "FOLDERCOPYTARGET2"},
        {"3:", "FOLDERCOPYSOURCE3", "FOLDERCOPYTARGET3"},
    }};
    int pair = 1;
    for (const auto& [caption, source, target] : copies) {
        for (const bool isSource : {true, false}) {
            Option row =
                path(isSource ? "txtFolderCopySource" : "txtFolderCopyTarget", T::folders,
                     isSource ? caption : "OPT_FOLDERCOPY_TO", "general", isSource ? source : target, Picks::folder);
            row.element = -pair;  // of the array of controls; the settings have names of their own
            rows.push_back(row);
        }
        ++pair;
    }
    add({
        heading(T::folders, "OPT_FOLDERMEDIAPLAYER_AUDIO"),
        entries("lstExtMediaplayerAudio", T::folders, "mediaplayer", "FILEEXTENSIONSAUDIO", ';'),
        heading(T::folders, "OPT_FOLDERMEDIAPLAYER_VIDEO"),
        entries("lstExtMediaplayerVideo", T::folders, "mediaplayer", "FILEEXTENSIONSVIDEO", ';'),
        heading(T::folders, "OPT_FILETYPESGALLERY_FRAME"),
        entries("lstExtGallery", T::folders, "gallery", "FILEEXTENSTIONS", ';'),
    });
    return rows;
}

constexpr auto tabCaptions = std::to_array<std::string_view>(
    {"OPT_TAB_GENERAL", "OPT_TAB_APPEARANCE", "OPT_TAB_MEDIA", "OPT_TAB_VOLUME", "OPT_TAB_MODULES", "OPT_TAB_MODULES_2",
     "OPT_TAB_HOTKEYS", "OPT_TAB_EXTAPP", "OPT_TAB_FOLDERSFILES"});

constexpr auto withoutOption = std::to_array<SettingWithoutOption>({
    {"general", "USEDLANGUAGE", "chosen by hand in the file, since all texts hang on it"},
    {"general", "USEDMODULES", "has a switch for each module"},
    {"general", "DISPLAYFILENAMES", "a copy of the player's that nobody reads"},
    {"mediaplayer", "SHUFFLE", "a key of the player"},
    {"mediaplayer", "VOLUME", "the volume keys"},
    {"mediaplayer", "CURRENTFOLDER", "where the player was left"},
    {"mediaplayer", "CURRENTPLAYLIST", "the same"},
    {"mediaplayer", "SHOWINGPLAYLIST", "the same"},
    {"mediaplayer", "COVERSTRINGS", "edited in the file alone"},
    {"externalapps", "FLOATINGWINDOWX", "where the bar was dragged"},
    {"externalapps", "FLOATINGWINDOWY", "the same"},
    {"externalapps", "MSECTOWAITONSWITCHBACK", "edited in the file alone"},
    {"gallery", "CURRENTFOLDER", "where the gallery was left"},
    {"radio", "FREQLOWERBOUND", "goes with the upper bound"},
    {"radio", "LASTFREQUENCY", "where the radio was left"},
    {"radio", "STATION_", "a long press on the radio's keys"},
});

}  // namespace

std::span<const Option> OptionRows() {
    static const std::vector<Option> rows = MakeOptions();
    return rows;
}

std::span<const std::string_view> OptionTabCaptions() {
    return tabCaptions;
}

std::string LoadOption(Program& program, const Option& option) {
    if (option.load != nullptr) {
        return option.load(program, option);
    }
    const Setting* const setting = FindSetting(option.section, option.key);
    return setting == nullptr ? "" : SettingValue(program, *setting, std::max(0, option.element));
}

void SaveOption(Program& program, const Option& option, const std::string& value) {
    if (LoadOption(program, option) == value) {
        return;
    }
    if (option.save != nullptr) {
        option.save(program, option, value);
    } else if (const Setting* const setting = FindSetting(option.section, option.key); setting != nullptr) {
        SetSettingValue(program, *setting, std::max(0, option.element), value);
    }
}

std::span<const SettingWithoutOption> SettingsWithoutOption() {
    return withoutOption;
}

}  // namespace zvr
