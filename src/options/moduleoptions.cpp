// The two tabs of the modules.
#include "options/optionrows.h"

#include "core/godfather.h"
#include "core/program.h"
#include "core/settings.h"
#include "media/mediasearch.h"
#include "phone/phone.h"
#include "platform/text.h"
#include "radiogps/radio.h"

#include <initializer_list>

namespace zvr {
namespace {

constexpr std::string_view ofOneFolder = "folder";

std::string LoadModule(Program& p, const Option& option) {
    return p.godfather.modules.isModuleEnabled("[" + std::string(option.key) + "]") ? "1" : "0";
}

void SaveModule(Program& p, const Option& option, const std::string& value) {
    if (value == "1") {
        p.godfather.modules.addModule(option.key);
    } else {
        p.godfather.modules.removeModule(option.key);
    }
}

Option Module(std::string_view name, std::string_view caption, std::string_view module) {
    return rows::Own(rows::Toggle(name, caption, "", module), LoadModule, SaveModule);
}

std::string LoadTuningRange(Program& p, const Option&) {
    return std::to_string(p.radio.freqLowerBound) + "-" + std::to_string(p.radio.freqUpperBound);
}

void SaveTuningRange(Program& p, const Option&, const std::string& value) {
    const auto bounds = text::Split(value, '-');
    if (bounds.size() == 2) {
        SetSettingValue(p, *FindSetting("radio", "FREQLOWERBOUND"), 0, std::string(bounds[0]));
        SetSettingValue(p, *FindSetting("radio", "FREQUPPERBOUND"), 0, std::string(bounds[1]));
    }
}

std::string LoadIndexChoice(Program& p, const Option&) {
    return p.mediasearch.indexBaseFolder == "*" ? "*" : std::string(ofOneFolder);
}

std::string LoadIndexFolder(Program& p, const Option&) {
    return p.mediasearch.indexBaseFolder == "*" ? "" : p.mediasearch.indexBaseFolder;
}

/// The folder's own row follows and may fill in what is meant.
void SaveIndexChoice(Program& p, const Option&, const std::string& value) {
    if ((value == "*") != (p.mediasearch.indexBaseFolder == "*")) {
        p.mediasearch.indexBaseFolder = value == "*" ? "*" : "";
    }
}

void SaveIndexFolder(Program& p, const Option&, const std::string& value) {
    if (p.mediasearch.indexBaseFolder != "*") {
        p.mediasearch.indexBaseFolder = value.empty() ? "*" : value;
    }
}

rows::Choices Steps(std::initializer_list<int> hundredths) {
    rows::Choices steps;
    for (const int step : hundredths) {
        steps.push_back({std::to_string(step),
                         std::to_string(step / 100) + "." + rows::TwoDigits(std::to_string(step % 100)) + " MHz"});
    }
    return steps;
}

rows::Choices TuningSteps(Program&) {
    return Steps({10, 25, 50, 100, 200, 500, 1000});
}

rows::Choices FineTuningSteps(Program&) {
    return Steps({1, 2, 5, 10, 25, 50, 100});
}

rows::Choices TuningRanges(Program&) {
    return {{"8700-10800", "87 - 108 MHz"}, {"6000-16000", "60 - 160 MHz"}};
}

rows::Choices Phonebooks(Program& p) {
    rows::Choices books{{"", ""}};
    for (const std::string_view name : text::Split(p.phone.phonebooksString, '\0')) {
        if (!name.empty()) {
            books.push_back({std::string(name), std::string(name)});
        }
    }
    return books;
}

rows::Choices IndexedPlaces(Program&) {
    return {{"*", "OPT_MEDIASEARCH_FIXEDDRIVES"}, {std::string(ofOneFolder), "OPT_MEDIASEARCH_THISDIRECTORY"}};
}

rows::Choices RefreshTimes(Program&) {
    return {{"0", "OPT_MEDIASEARCH_REFRESH_NEVER"},
            {"1", "OPT_MEDIASEARCH_REFRESH_DAY"},
            {"2", "OPT_MEDIASEARCH_REFRESH_WEEK"},
            {"3", "OPT_MEDIASEARCH_REFRESH_MONTH"}};
}

}  // namespace

std::vector<Option> ModuleOptions() {
    using namespace rows;
    return InTab(
        OptionTab::modules,
        {
            Heading("OPT_MODULE_FRAME"),
            Module("chkModuleMediasearch", "OPT_MODULE_MEDIASEARCH", "mediasearch"),
            Module("chkModuleDvdplayer", "OPT_MODULE_DVDPLAYER", "dvdplayer"),
            Module("chkModuleGallery", "OPT_MODULE_GALLERY", "gallery"),
            Module("chkModuleExternalapps", "OPT_MODULE_EXTAPP", "externalapps"),
            Module("chkModuleRadio", "OPT_MODULE_RADIO", "radio"),
            Module("chkModulePhone", "OPT_MODULE_PHONE", "phone"),
            Module("chkModuleGPS", "OPT_MODULE_GPS", "gps"),
            Action("cmdSelectAllModules", "", "OPT_MODULE_ALL"),
            PartOf("cmdSelectAllModules", Action("cmdDeselectAllModules", "", "OPT_MODULE_NONE")),
            Heading("OPT_MEDIASEARCH_FRAME"),
            Of(Own(Row(OptionKind::segments, "optMediasearchIndex", "OPT_MEDIASEARCH_INDEXOF", "mediasearch",
                       "INDEXBASEFOLDER"),
                   LoadIndexChoice, SaveIndexChoice),
               IndexedPlaces),
            Own(By(Path("txtIndexDir", "OPT_MEDIASEARCH_THISDIRECTORY", "", "", Picks::folder),
                   "optMediasearchIndex=folder"),
                LoadIndexFolder, SaveIndexFolder),
            Of(Row(OptionKind::choice, "cboIndexRefresh", "OPT_MEDIASEARCH_REFRESH", "mediasearch", "REFRESHTIMESPAN"),
               RefreshTimes),
            Toggle("chkAskBeforeIndexBuild", "OPT_MEDIASEARCH_ASKBEFORE", "mediasearch", "ASKBEFOREINDEXBUILD"),
            Action("cmdRefreshIndex", "OPT_MEDIASEARCH_MANUALREFRESH", "OPT_MEDIASEARCH_REFRESHNOW"),
        });
}

std::vector<Option> Module2Options() {
    using namespace rows;
    return InTab(
        OptionTab::modules2,
        {
            Heading("OPT_PHONE_ONCALL"),
            Toggle("chkOnCallShowMessage", "OPT_PHONE_SHOWMESSAGE", "phone", "ONCALLSHOWMESSAGE"),
            Toggle("chkOnCallShowWindow", "OPT_PHONE_SHOWWINDOW", "phone", "ONCALLSHOWWINDOW"),
            Toggle("chkOnCallPause", "OPT_PHONE_PAUSE", "phone", "ONCALLPAUSE"),
            Toggle("chkOnHangupPlay", "OPT_PHONE_PLAY", "phone", "ONHANGUPPLAY"),
            Heading("OPT_PHONE_ONSMS"),
            Toggle("chkOnSMSShowMessage", "OPT_PHONE_SHOWMESSAGE", "phone", "ONSMSSHOWMESSAGE"),
            Toggle("chkOnSMSShowWindow", "OPT_PHONE_SHOWWINDOW", "phone", "ONSMSSHOWWINDOW"),
            Heading("OPT_PHONE_FRAME"),
            Of(Row(OptionKind::choice, "cboPhonebookName", "OPT_PHONE_PHONEBOOK", "phone", "PHONEBOOKNAME"),
               Phonebooks),
            Action("cmdGetPhonebooks", "OPT_PHONE_PHONEBOOKSFOUND", "OPT_PHONE_GETPHONEBOOKS"),
            Heading("OPT_RADIO_FRAME"),
            Of(Own(Row(OptionKind::choice, "cboTuningRange", "OPT_RADIO_TUNINGRANGE", "radio", "FREQUPPERBOUND"),
                   LoadTuningRange, SaveTuningRange),
               TuningRanges),
            Of(Row(OptionKind::choice, "cboTuningStep", "OPT_RADIO_TUNINGSTEPS", "radio", "TUNINGSTEP"), TuningSteps),
            Of(Row(OptionKind::choice, "cboFineTuningStep", "OPT_RADIO_FINETUNINGSTEPS", "radio", "FINETUNINGSTEP"),
               FineTuningSteps),
            Path("txtRadiatorFolder", "OPT_RADIO_RADIATORFOLDER", "radio", "RADIATORFOLDER", Picks::folder),
            Heading("OPT_GPS_FRAME"),
            Path("txtComPort", "OPT_GPS_COMPORT", "gps", "COMPORT", Picks::nothing),
            Path("txtComSettings", "OPT_GPS_COMSETTINGS", "gps", "COMSETTINGS", Picks::nothing),
            Toggle("chkGpsUseMetric", "OPT_GPS_USEMETRIC", "gps", "USEMETRICVALUES"),
        });
}

}  // namespace zvr
