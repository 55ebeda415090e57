// The tabs Hot keys, External programs, and Folders and files.
#include "options/optionrows.h"

#include "apps/externalapps.h"
#include "apps/externalappsctl.h"
#include "core/godfather.h"
#include "core/program.h"
#include "options/optionlists.h"
#include "platform/platform.h"
#include "platform/text.h"

#include <array>

namespace zvr {
namespace {

constexpr std::array<std::string_view, 12> functionKeys{"F1", "F2", "F3", "F4",  "F5",  "F6",
                                                        "F7", "F8", "F9", "F10", "F11", "F12"};
constexpr std::array<std::string_view, 5> launchers{"1", "2", "3", "4", "5"};
constexpr std::array<std::array<std::string_view, 3>, 3> copies{{
    {"1:", "FOLDERCOPYSOURCE1", "FOLDERCOPYTARGET1"},
    {"2:", "FOLDERCOPYSOURCE2", "FOLDERCOPYTARGET2"},
    {"3:", "FOLDERCOPYSOURCE3", "FOLDERCOPYTARGET3"},
}};

void SaveHotkey(Program& p, const Option& option, const std::string& value) {
    p.godfather.hotkeyCommands[static_cast<std::size_t>(option.element) - 1] = value;
}

std::string LoadApps(Program& p, const Option&) {
    if (!p.externalapps.form.loaded) {
        p.externalappsctl.LoadAppList();  // the module isn't in use, its list is
    }
    std::string joined;
    for (const ExternalApp& app : p.externalappsctl.externalApps) {
        joined += (joined.empty() ? "" : "\n") + EntryOf(app);
    }
    return joined;
}

void SaveApps(Program& p, const Option&, const std::string& value) {
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

std::string TenfoldPercent(const std::string& value) {
    return value == "0" ? "0%" : value + "0%";
}

bool BarsCanBeTranslucent(const Program& program) {
    return program.platform.screen.CanBeTranslucent();
}

}  // namespace

std::vector<Option> HotkeyOptions() {
    using namespace rows;
    std::vector<Option> all{Heading("OPT_FKEYS_FRAME")};
    for (int element = 1; element <= static_cast<int>(functionKeys.size()); ++element) {
        const std::string_view caption = functionKeys[static_cast<std::size_t>(element) - 1];
        Option row = Own(Path("txtFKeyCommand", caption, "hotkeys", "F", Picks::command), nullptr, SaveHotkey);
        row.element = element;
        all.push_back(row);
    }
    all.push_back(Heading("OPT_QUICKJUMP_FRAME"));
    all.push_back(Entries("lstQuickJump", "general", "QUICKJUMPLIST", '|'));
    return InTab(OptionTab::hotkeys, std::move(all));
}

std::vector<Option> ProgramOptions() {
    using namespace rows;
    std::vector<Option> all{
        Heading("OPT_USERDEFINEDAPPS_FRAME"),
        Own(Entries("lstApps", "", "", '\n'), LoadApps, SaveApps),
        Heading("OPT_NAVIAPP_FRAME"),
        Path("txtNaviEXE", "OPT_EXTAPP_PATH", "externalapps", "NAVIEXE", Picks::program),
        Of(Row(OptionKind::segments, "optNaviQuickbar", "OPT_EXTAPP_QUICKBAR", "externalapps", "NAVIQUICKBAR"),
           BarKinds),
        Heading("OPT_OSK_FRAME"),
        Path("txtOSKEXE", "OPT_EXTAPP_PATH", "externalapps", "OSKEXE", Picks::program),
        Heading("OPT_QUICKBARTRANSP_FRAME"),
        Where(Slider("sldFloatingTransp", "OPT_QUICKBARTRANSP_FLOATING", "externalapps", "FLOATINGWINDOWTRANSPARENCY",
                     0, 10, TenfoldPercent),
              BarsCanBeTranslucent),
        WithNext(Where(Slider("sldDockedTransp", "OPT_QUICKBARTRANSP_DOCKED", "externalapps",
                              "DOCKEDWINDOWTRANSPARENCY", 0, 10, TenfoldPercent),
                       BarsCanBeTranslucent)),
        Legend("OPT_QUICKBARTRANSP_QPAQUE", "OPT_QUICKBARTRANSP_TRANSP"),
        Heading("OPT_APPLAUNCHER_HEAD"),
    };
    for (int element = 1; element <= static_cast<int>(launchers.size()); ++element) {
        Option row = Path("txtShellCmd", launchers[static_cast<std::size_t>(element) - 1], "externalapps",
                          "APPLAUNCHERCOMMAND", Picks::program);
        row.element = element;
        all.push_back(row);
    }
    return InTab(OptionTab::extapp, std::move(all));
}

std::vector<Option> FolderOptions() {
    using namespace rows;
    std::vector<Option> all{
        Heading("OPT_FOLDERMEDIAPLAYER_FRAME"),
        Path("txtAudiofolder", "OPT_FOLDERMEDIAPLAYER_AUDIO", "mediaplayer", "AUDIOFOLDER", Picks::folder),
        Path("txtVideofolder", "OPT_FOLDERMEDIAPLAYER_VIDEO", "mediaplayer", "VIDEOFOLDER", Picks::folder),
        Path("txtPlaylistfolder", "OPT_FOLDERMEDIAPLAYER_PLAYLISTS", "mediaplayer", "PLAYLISTFOLDER", Picks::folder),
        Path("txtGalleryfolder", "OPT_FOLDERGALLERY_IMAGES", "gallery", "IMAGEFOLDER", Picks::folder),
        Heading("OPT_FOLDERCOPY_FRAME"),
    };
    int pair = 1;
    for (const auto& [caption, source, target] : copies) {
        Option from = WithNext(Path("txtFolderCopySource", caption, "general", source, Picks::folder));
        Option to = Path("txtFolderCopyTarget", "OPT_FOLDERCOPY_TO", "general", target, Picks::folder);
        from.element = to.element = -pair;  // of the array of controls; the settings have names of their own
        all.push_back(from);
        all.push_back(to);
        ++pair;
    }
    for (const Option& row : {
             Heading("OPT_FILETYPESMEDIAPLAYER_FRAME", "OPT_FOLDERMEDIAPLAYER_AUDIO"),
             Entries("lstExtMediaplayerAudio", "mediaplayer", "FILEEXTENSIONSAUDIO", ';'),
             Heading("OPT_FILETYPESMEDIAPLAYER_FRAME", "OPT_FOLDERMEDIAPLAYER_VIDEO"),
             Entries("lstExtMediaplayerVideo", "mediaplayer", "FILEEXTENSIONSVIDEO", ';'),
             Heading("OPT_FILETYPESGALLERY_FRAME"),
             Entries("lstExtGallery", "gallery", "FILEEXTENSTIONS", ';'),
         }) {
        all.push_back(row);
    }
    return InTab(OptionTab::folders, std::move(all));
}

}  // namespace zvr
