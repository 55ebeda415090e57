// The tabs General and Appearance.
#include "options/optionrows.h"

#include "core/autostart.h"
#include "core/mainmenu.h"
#include "core/program.h"
#include "platform/files.h"

#include <algorithm>

namespace zvr {
namespace {

void SaveAutostart(Program& p, const Option&, const std::string& value) {
    if (value == "1") {
        setAutostart(p);
    } else {
        clearAutostart(p);
    }
}

std::string LoadUserPic(Program& p, const Option&) {
    return p.mainmenu.userPic.empty() ? p.languageText("OPT_USERPIC_NOPIC") : p.mainmenu.userPic;
}

void SaveUserPic(Program& p, const Option&, const std::string& value) {
    p.mainmenu.userPic = value == p.languageText("OPT_USERPIC_NOPIC") ? "" : value;
}

rows::Choices Skins(Program& p) {
    rows::Choices skins;
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

rows::Choices WaysToEnd(Program&) {
    return {{"donothing", "OPT_APPBEHAVIOR_DONOTHING"},
            {"ask", "OPT_APPBEHAVIOR_ASK"},
            {"hibernate", "OPT_APPBEHAVIOR_HIBERNATE"},
            {"reboot", "OPT_APPBEHAVIOR_REBOOT"}};
}

/// Level 1 is the brightest, and brighter is to the right.
Option Brightness(std::string_view name, std::string_view key) {
    Option row = rows::Slider(name, "", "general", key, 1, 4);
    row.reversed = true;
    return row;
}

}  // namespace

std::vector<Option> GeneralOptions() {
    using namespace rows;
    return InTab(
        OptionTab::general,
        {
            Heading("OPT_APPBEHAVIOR_SETTINGS"),
            Toggle("chkShowWarning", "OPT_APPBEHAVIOR_SHOWWARNING", "general", "SHOWWARNING"),
            Toggle("chkSaveMediaplayerSate", "OPT_MEDIAPLAYER_STATESAVE", "general", "SAVEMEDIAPLAYERSTATE"),
            Toggle("chkSingleClickListSelect", "OPT_APPBEHAVIOR_SINGLECLICKLISTSELECT", "general",
                   "SINGLECLICKLISTSELECT"),
            Toggle("chkPostSortDirectoryListings", "OPT_APPBEHAVIOR_POSTSORT", "general", "POSTSORTDIRECTORYLISTINGS"),
            Toggle("chkHideMouseCursor", "OPT_APPBEHAVIOR_HIDECURSOR", "general", "HIDEMOUSECURSOR"),
            Toggle("chkHideTaskBar", "OPT_APPBEHAVIOR_HIDETASKBAR", "general", "HIDEWINDOWSTASKBAR"),
            Own(
                Toggle("chkAutostart", "OPT_APPBEHAVIOR_AUTOSTART"),
                [](Program& p, const Option&) { return std::string(isAutostartSet(p) ? "1" : "0"); }, SaveAutostart),
            Heading("OPT_APPBEHAVIOR_ONEXIT"),
            Of(Row(OptionKind::segments, "optShutdown", "", "general", "ONAPPEND"), WaysToEnd),
        });
}

std::vector<Option> AppearanceOptions() {
    using namespace rows;
    return InTab(
        OptionTab::appearance,
        {
            Heading("OPT_SKINS_FRAME"),
            WithIcon(Of(Row(OptionKind::list, "lstSkins", "OPT_SKINS_USETHISSKIN", "general", "USEDSKIN"), Skins),
                     "day"),
            PartOf("lstSkins",
                   WithIcon(Toggle("chkUseNightSkin", "OPT_SKINS_USENIGHTSKIN", "general", "USENIGHTSKIN"), "night")),
            PartOf("lstSkins",
                   Of(By(Row(OptionKind::list, "lstNightSkins", "", "general", "USEDNIGHTSKIN"), "chkUseNightSkin=1"),
                      Skins)),
            Heading("OPT_BRIGHTNESS_FRAME"),
            WithNext(Brightness("sldDay", "BRIGHTNESSDAY")),
            PartOf("sldDay", WithIcon(Action("cmdDay", "", ""), "day")),
            PartOf("sldDay", Action("cmdTestDay", "", "OPT_BRIGHTNESS_TEST")),
            WithNext(Brightness("sldNight", "BRIGHTNESSNIGHT")),
            PartOf("sldNight", WithIcon(Action("cmdNight", "", ""), "night")),
            PartOf("sldNight", Action("cmdTestNight", "", "OPT_BRIGHTNESS_TEST")),
            Legend("OPT_BRIGHTNESS_DARKER", "OPT_BRIGHTNESS_LIGHTER"),
            WithNext(
                Remarked(Toggle("sfrmchkSwitchDayNight", "OPT_BRIGHNTESS_AUTOSWITCH", "general", "AUTOSWITCHDAYNIGHT"),
                         "OPT_BRIGHTNESS_CLOCKHINT")),
            WithNext(WithIcon(By(Row(OptionKind::time, "txtDay", "OPT_BRIGHTNESS_DAY", "general", "SWITCHTODAY"),
                                 "sfrmchkSwitchDayNight=1"),
                              "day")),
            WithIcon(By(Row(OptionKind::time, "txtNight", "OPT_BRIGHTNESS_NIGHT", "general", "SWITCHTONIGHT"),
                        "sfrmchkSwitchDayNight=1"),
                     "night"),
            Heading("OPT_USERPIC_FRAME"),
            Toggle("chkShowUserPic", "OPT_USERPIC_FRAME", "mainmenu", "SHOWUSERPIC"),
            Own(By(Path("txtUserPic", "", "mainmenu", "USERPIC", Picks::picture), "chkShowUserPic=1"), LoadUserPic,
                SaveUserPic),
            Heading("OPT_USERPIC_FLASH"),
            By(Number("txtUserPicFlashWidth", "OPT_USERPIC_FLASH_WIDTH", "mainmenu", "FLASHUSERPICWIDTH", 10, 2000),
               "txtUserPic=*.swf"),
            By(Number("txtUserPicFlashHeight", "OPT_USERPIC_FLASH_HEIGHT", "mainmenu", "FLASHUSERPICHEIGHT", 10, 2000),
               "txtUserPic=*.swf"),
            By(Row(OptionKind::action, "cmdUserPicFlashBGcolor", "OPT_USERPIC_FLASH_BGCOL", "mainmenu",
                   "FLASHUSERPICBGCOLOR"),
               "txtUserPic=*.swf"),
        });
}

}  // namespace zvr
