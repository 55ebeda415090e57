// The tabs Media and Volume.
#include "options/optionrows.h"

#include "core/godfather.h"
#include "core/program.h"
#include "media/mediaplayer.h"
#include "platform/discs.h"
#include "platform/platform.h"
#include "system/sysvolume.h"

#include <cstdlib>

namespace zvr {
namespace {

std::string LoadWave(Program& p, bool balanceWanted) {
    long volume = 0;
    long balance = 0;
    p.sysvolume.GetWaveVolume(volume, balance);
    return std::to_string(balanceWanted ? balance : (volume * 100 + 32767) / 65535);
}

void SaveWave(Program& p, const std::string& value, bool isBalance) {
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

std::string LoadWaveVolume(Program& p, const Option&) {
    return LoadWave(p, false);
}
std::string LoadWaveBalance(Program& p, const Option&) {
    return LoadWave(p, true);
}
void SaveWaveVolume(Program& p, const Option&, const std::string& value) {
    SaveWave(p, value, false);
}
void SaveWaveBalance(Program& p, const Option&, const std::string& value) {
    SaveWave(p, value, true);
}

void SaveCentring(Program& p, const Option&, const std::string& value) {
    p.godfather.alwaysCenterWaveBalance = value == "1";
    if (value == "1") {
        p.sysvolume.CenterWaveBalance();
    }
}

void SaveStartupVolume(Program& p, const Option&, const std::string& value) {
    p.mediaplayer.startupVolume = value;
}

rows::Choices OpticalDrives(Program& p) {
    rows::Choices drives;
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

rows::Choices TimesShown(Program&) {
    return {{"0", "OPT_MEDIAPLAYER_POSITION"}, {"1", "OPT_MEDIAPLAYER_REMAIN"}};
}

std::string Percent(const std::string& value) {
    return value + "%";
}

Option Seconds(std::string_view name, std::string_view caption, std::string_view section, std::string_view key) {
    Option row = rows::Number(name, caption, section, key, 1, 60);
    row.shown = rows::TwoDigits;
    return row;
}

Option StartupVolume() {
    Option row =
        rows::Number("txtStartupVolume", "OPT_MEDIAPLAYER_STARTUPVOLUME", "mediaplayer", "STARTUPVOLUME", 0, 100);
    row.mayBeEmpty = true;
    return rows::Own(row, nullptr, SaveStartupVolume);
}

Option VolumeInterval() {
    Option row = rows::Number("txtVolInterval", "OPT_VOLUME_INTERVAL", "general", "REPETITIVEEXECTIME", 1, 9);
    row.whenEmpty = 5;
    return row;
}

}  // namespace

std::vector<Option> MediaOptions() {
    using namespace rows;
    return InTab(
        OptionTab::media,
        {
            Heading("OPT_MEDIAPLAYER_FRAME"),
            Remarked(Seconds("txtSkipSecs", "OPT_MEDIAPLAYER_SKIP", "mediaplayer", "SKIPSECONDS"),
                     "OPT_MEDIAPLAYER_SKIPSECONDS"),
            Of(Row(OptionKind::segments, "optDispRemain", "OPT_MEDIAPLAYER_DURATIONDISPLAY", "mediaplayer",
                   "DISPLAYREMAIN"),
               TimesShown),
            Toggle("chkDisplayFilenames", "OPT_MEDIAPLAYER_DISPLAYFILENAMES", "mediaplayer", "DISPLAYFILENAMES"),
            Toggle("chkSelectOnMediaChange", "OPT_MEDIAPLAYER_SELECTIONFOLLOW", "mediaplayer", "SELECTONMEDIACHANGE"),
            Toggle("chkShowCovers", "OPT_MEDIAPLAYER_SHOWCOVERS", "mediaplayer", "SHOWCOVERS"),
            Toggle("chkUseWmpFullscreenCtl", "OPT_MEDIAPLAYER_USEFULLSCREENCTL", "mediaplayer", "USEFULLSCREENCTL"),
            Heading("OPT_MEDIAPLAYER_FADEINON"),
            Toggle("chkFadeInAfterPause", "OPT_MEDIAPLAYER_FADEINAFTERPAUSE", "mediaplayer", "FADEINAFTERPAUSE"),
            Toggle("chkFadeInOnStart", "OPT_MEDIAPLAYER_FADEINONAPPSTART", "mediaplayer", "FADEINONSTART"),
            Heading("OPT_GALLERY_SLIDESHOW"),
            Seconds("txtSlideshowWaitSecs", "OPT_GALLERY_SLIDESHOW_PAUSE", "gallery", "SLIDESHOWWAITSECS"),
            Toggle("chkLoopSlideshow", "OPT_GALLERY_SLIDESHOW_LOOP", "gallery", "LOOPSLIDESHOW"),
            Heading("OPT_CDDVD_FRAME"),
            Of(Row(OptionKind::choice, "cboCDDVDDrive", "OPT_CDDVD_DRIVE", "dvdplayer", "DRIVELETTER"), OpticalDrives),
            Toggle("chkEnableEject", "OPT_CDDVD_ALLOWEJECT", "dvdplayer", "EJECTISALLOWED"),
        });
}

std::vector<Option> VolumeOptions() {
    using namespace rows;
    return InTab(
        OptionTab::volume,
        {
            Heading("OPT_WAVEVOL_FRAME"),
            Own(AtOnce(Slider("sldVolLevel", "OPT_WAVEVOL_VOL", "", "", 0, 100, Percent)), LoadWaveVolume,
                SaveWaveVolume),
            Own(By(AtOnce(Slider("sldVolBalance", "OPT_WAVEVOL_BALANCE", "", "", -100, 100)),
                   "chkAlwaysCenterWaveBalance=0"),
                LoadWaveBalance, SaveWaveBalance),
            Own(AtOnce(Toggle("chkAlwaysCenterWaveBalance", "OPT_WAVEVOL_FORCECENTERBALANCE", "general",
                              "ALWAYSCENTERWAVEBALANCE")),
                nullptr, SaveCentring),
            Heading("OPT_VOLUME_GENERAL_FRAME"),
            StartupVolume(),
            Number("txtVolStepping", "OPT_VOLUME_VOLSTEPPING", "mediaplayer", "VOLSTEPPING", 0, 99),
            VolumeInterval(),
            Toggle("chkUseWaveVolumeOnly", "OPT_WAVEVOL_USEWAVEVOLUMEONLY", "general", "USEWAVEVOLUMEONLY"),
            Toggle("chkAlsoChangeCdVolume", "OPT_VOLUME_ALSOCHANGECDVOLUME", "general", "ALSOCHANGECDVOLUME"),
            Toggle("chkAlsoChangeLineInVolume", "OPT_VOLUME_ALSOCHANGELINEINVOLUME", "general",
                   "ALSOCHANGELINEINVOLUME"),
            Toggle("chkExponentialVolume", "OPT_VOLUME_EXPONENTIALVOLUME", "general", "EXPONENTIALVOLUMECHANGES"),
            Heading("OPT_GPSVOL_FRAME"),
            Toggle("chkUseSpeedBasedVolume", "OPT_GPSVOL_USE", "gps", "USESPEEDBASEDVOLUME"),
            Number("txtSpeedMin", "OPT_GPSVOL_SPEEDMIN", "gps", "SPEEDMIN", 1, 999),
            Number("txtSpeedMax", "OPT_GPSVOL_SPEEDMAX", "gps", "SPEEDMAX", 1, 999),
            Number("txtVolMin", "OPT_GPSVOL_VOLMIN", "gps", "VOLMIN", 1, 999),
            Number("txtVolMax", "OPT_GPSVOL_VOLMAX", "gps", "VOLMAX", 1, 999),
        });
}

}  // namespace zvr
