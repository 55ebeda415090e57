#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

class Program;

enum class OptionKind {
    heading,
    toggle,    ///< "1" or "0"
    segments,  ///< one of few, all of them to be seen
    choice,    ///< one of many, stepped through
    number,    ///< whole, in steps, with keys that repeat
    time,      ///< "HHMM"
    slider,    ///< whole
    text,
    list,      ///< one of many, as rows; takes what is left of its screen
    editList,  ///< entries that the user adds, changes, moves and removes; the same
    action,    ///< a key, no value
    legend,    ///< what the two ends of the sliders above mean: caption and keyCaption
    swatches,  ///< a colour of several, red in the lowest byte
};

enum class OptionTab { general, appearance, media, volume, modules, modules2, hotkeys, extapp, folders };
inline constexpr int optionTabs = 9;

/// What the key beside a text box opens.
enum class Picks { nothing, folder, file, picture, program, command };

struct OptionChoice {
    std::string value;
    std::string caption;  ///< a language key, or a text of its own
    std::string remark{};
};

/// One control of the dialog: where it stands, what it changes, and what it takes.
struct Option {
    std::string_view name;
    OptionTab tab = OptionTab::general;
    OptionKind kind = OptionKind::heading;
    std::string_view caption{};  ///< a language key
    std::string_view remark{};   ///< below the caption, a language key
    std::string_view icon{};     ///< before the caption, or on the key
    std::string_view section{};  ///< of the setting that it changes; empty for none of its own
    std::string_view key{};
    int element = 0;  ///< number in a family of settings and in an array of controls, 0 for a single one
    int lowest = 0;   ///< numbers and sliders
    int highest = 0;
    int step = 1;
    bool mayBeEmpty = false;  ///< numbers: one below the lowest is no number at all
    int whenEmpty = 0;        ///< numbers: what no number at all counts as, 0 for the lowest
    /// "NAME=VALUE" of the control that must hold that value and be enabled itself; "NAME=*END" for how it ends.
    std::string_view enabledBy{};
    bool (*offered)(const Program&) = nullptr;  ///< whether this machine can do it; null: any can
    /// Name of the control before it in whose row it stands: keys beside a slider or a key, a list beside a list with
    /// its switch. Has no row of its own then.
    std::string_view partOf{};
    bool withNext = false;  ///< on one page with the row behind it
    bool reversed = false;  ///< sliders: the highest is at the left
    Picks picks = Picks::nothing;
    bool actsAtOnce = false;  ///< each change is saved into the program as it is made, Cancel or not
    char separator = 0;       ///< lists of entries: stands between two
    std::vector<OptionChoice> (*choices)(Program&) = nullptr;
    std::string (*shown)(const std::string& value) = nullptr;  ///< what a slider or number shows in place of its value
    // In place of the setting's own road.
    std::string (*load)(Program&, const Option&) = nullptr;
    void (*save)(Program&, const Option&, const std::string& value) = nullptr;
    std::string_view keyCaption{};  ///< actions: on the key, headings: behind the caption; a language key
};

/// One row a control, in the order of the screens and of saving.
[[nodiscard]] std::span<const Option> OptionRows();
[[nodiscard]] std::span<const std::string_view> OptionTabCaptions();

/// The value that the program holds now; empty for what has none.
[[nodiscard]] std::string LoadOption(Program& program, const Option& option);
void SaveOption(Program& program, const Option& option, const std::string& value);

/// A setting that the user never edits here, and why.
struct SettingWithoutOption {
    std::string_view section;
    std::string_view key;
    std::string_view why;
};
[[nodiscard]] std::span<const SettingWithoutOption> SettingsWithoutOption();

}  // namespace zvr
