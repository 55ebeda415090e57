#include "options/optionstable.h"

#include "core/program.h"
#include "core/settings.h"
#include "options/optionrows.h"

#include <algorithm>
#include <array>

namespace zvr {
namespace {

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
    static const std::vector<Option> all = [] {
        std::vector<Option> ofTabs;
        for (const auto tab : {GeneralOptions, AppearanceOptions, MediaOptions, VolumeOptions, ModuleOptions,
                               Module2Options, HotkeyOptions, ProgramOptions, FolderOptions}) {
            const std::vector<Option> more = tab();
            ofTabs.insert(ofTabs.end(), more.begin(), more.end());
        }
        return ofTabs;
    }();
    return all;
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
