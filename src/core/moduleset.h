#pragma once

#include <string>
#include <string_view>

namespace zvr {

/// Which modules the user has enabled, and which of them this run has. Both are strings of bracketed names,
/// and a name is looked up as a plain piece of text: a fragment of a name counts as contained.
class ModuleSet {
public:
    static constexpr std::string_view alwaysPresent = "[mainmenu][messagebox][mediaplayer][playlists][options]";
    static constexpr std::string_view optional = "[mediasearch][dvdplayer][gallery][externalapps][radio][phone][gps]";

    std::string usedModules;           ///< takes effect at the next start
    std::string currentlyUsedModules;  ///< of this run; built once by FixForThisRun

    [[nodiscard]] bool isModuleEnabled(std::string_view name) const;
    [[nodiscard]] bool isModuleActive(std::string_view name) const;
    void addModule(std::string_view name);
    void removeModule(std::string_view name);
    void FixForThisRun();
};

}  // namespace zvr
