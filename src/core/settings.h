#pragma once

#include "platform/profile.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace zvr {

class Program;

/// Stored as "1" or "0"; true only for a number that is exactly 1.
struct BooleanRule {
    bool& (*variable)(Program&);
};

/// A whole number; one outside of the range becomes the fallback, which may differ from the default.
struct NumberRule {
    long lowest;
    long highest;
    long fallback;
    int& (*variable)(Program&);
};

enum class EmptyText { stays, givesDefault };

struct TextRule {
    std::string& (*variable)(Program&);
    EmptyText empty = EmptyText::stays;
};

/// Four digits HHMM; the variable holds minutes after midnight.
struct TimeRule {
    int& (*variable)(Program&);
};

/// File extensions without a dot, separated by ";"; kept in lower case.
struct ExtensionsRule {
    std::string& (*variable)(Program&);
};

/// Anything with an inner form. `element` is the number in a family of keys such as F1 to F12, from 1.
struct OwnRule {
    void (*load)(Program&, const std::string& value, int element);
    std::string (*save)(Program&, int element);
};

enum class Direction {
    both,
    readOnly,   ///< changed only by an edit of the file
    writeOnly,  ///< a copy that nobody reads
    elsewhere,  ///< read at another moment of the start; written here
    elsewhereReadOnly,
};

struct Setting {
    std::string_view section;
    std::string_view key;  ///< for a family the part before the number
    std::string_view
        standard;  ///< default; "$" stands for the program folder, "~documents" and "~pictures" for folders
    std::variant<BooleanRule, NumberRule, TextRule, TimeRule, ExtensionsRule, OwnRule> rule;
    Direction direction = Direction::both;
    int elements = 0;  ///< number of keys of a family, 0 for a single key
    /// In place of the default while the file has no line for it; empty for the default.
    std::string (*withoutLine)(const Program&, const Profile&) = nullptr;
};

/// One row a key, in the order of loading and saving.
[[nodiscard]] std::span<const Setting> Settings();
/// The row of that key; null if there is none.
[[nodiscard]] const Setting* FindSetting(std::string_view section, std::string_view key);
/// What the setting holds now, as the file has it. `element` counts in a family from 1, 0 for a single key.
[[nodiscard]] std::string SettingValue(Program& program, const Setting& setting, int element);
/// As if the file held `value`: its rule decides what becomes of it. The file is written by the next save.
void SetSettingValue(Program& program, const Setting& setting, int element, const std::string& value);

/// The value as the profile holds it, at most 10239 characters; the default if there is no such key.
[[nodiscard]] std::string readSetting(const Profile& profile, std::string_view section, std::string_view key,
                                      std::string_view standard);

/// The number that a value begins with, rounded; the fallback if it lies outside of the range as it stands.
[[nodiscard]] long WithinRange(std::string_view value, long lowest, long highest, long fallback);

/// All digits of the text as one number; 0 without any.
[[nodiscard]] long digitsOnly(std::string_view text);

/// Spreads every key into the forms' variables and the running controls. The module forms are loaded by then.
/// Why a file that is there couldn't be read: the defaults stand then, and the next save keeps it first.
files::ErrorText loadSettings(Program& program);
/// Reads the one language key and the module list, which are needed before the others.
[[nodiscard]] std::string ReadUsedLanguage(const Program& program);
void readUsedModules(Program& program);
/// The settings file as a save would leave it.
[[nodiscard]] std::string SettingsText(Program& program);
/// Gathers every key and writes the file in one atomic step. A failure isn't reported.
void saveSettings(Program& program);
/// Gives a file that can't be read a name with ".bad" behind, which no earlier one has.
[[nodiscard]] files::ErrorText KeepAsBad(const std::string& file);
/// Writes that text as the settings file. One that can't be read, or couldn't at the start, is never overwritten: it
/// is kept as bad first, and without that nothing is written.
[[nodiscard]] files::ErrorText WriteSettingsFile(Program& program, std::string_view text);

}  // namespace zvr
