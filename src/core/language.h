#pragma once

#include "platform/profile.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zvr {

class Form;

/// All texts that the user sees, in the language of his choice, from the files in the folder "lang".
class LanguageTable {
public:
    /// Reads every key's text; English stands in for each that the language lacks. Empty on success. Else the
    /// whole text that tells the user why the program can't run; the table then ends before the missing key.
    [[nodiscard]] std::string loadLanguage(const std::string& programFolder, const std::string& usedLanguage);

    /// The text of a key; a key that isn't in the table is returned itself. Good while the table and `key` live.
    [[nodiscard]] std::string_view languageText(std::string_view key) const;

private:
    struct Sources {
        const std::string folder;          ///< with a trailing separator
        Profile selected;                  ///< the language of the user's choice
        std::optional<Profile> english{};  ///< read when the first text is missing
        int missing = 0;                   ///< texts of the language of the user's choice
    };

    /// False if neither language has a text for the key.
    bool addLanguageKey(Sources& sources, std::string_view key);
    static std::string readLanguageText(Sources& sources, std::string_view key);

    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    std::unordered_map<std::string, std::string, Hash, std::equal_to<>> languageTable;
};

/// Puts the text of the user's language in place of each caption that is a key; the others stay.
void translateControls(const LanguageTable& language, Form& form);

}  // namespace zvr
