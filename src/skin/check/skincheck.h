#pragma once

#include <string>
#include <vector>

namespace zvr {

class LanguageTable;

/// Something that a skin's author would want to know.
struct SkinFinding {
    std::string file;   ///< below the skin's folder
    int line = 1;       ///< from 1 on; 1 where it can't be told
    std::string place;  ///< screen/element
    std::string reason;
    bool keepsFromLoading = false;  ///< the program would report it and not take the skin; else it passes in silence
};

struct SkinReport {
    std::vector<SkinFinding> findings;  ///< by file and line

    [[nodiscard]] bool WouldLoad() const;
    [[nodiscard]] int ExitCode() const;  ///< 0 nothing found, 1 warnings, 2 would not load
};

/// A language that the skin's labels may speak.
struct SkinLanguage {
    std::string name;  ///< "de"
    const LanguageTable& texts;
};

/// Looks at a skin as a program would that has all its modules in use. `folder` has no trailing separator.
[[nodiscard]] SkinReport CheckSkin(const std::string& folder, const std::vector<SkinLanguage>& languages);

/// "folder/skindata.xml:12: mainmenu/home: reason"
[[nodiscard]] std::string LineOf(const SkinFinding& finding, const std::string& folder);

/// What the program says of a skin at fault, and what it means.
struct SkinCode {
    std::string code;  ///< '*' stands for a name in capitals
    std::string meaning;
};
[[nodiscard]] std::vector<SkinCode> SkinCodes();

/// What a skin can hold, which commands and tokens there are: as markdown, from the program's own tables.
[[nodiscard]] std::string SkinReference();

}  // namespace zvr
