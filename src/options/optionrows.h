#pragma once

#include "options/optionstable.h"

#include <utility>

namespace zvr {

// The rows of each tab, in the order of the screen and of saving.
[[nodiscard]] std::vector<Option> GeneralOptions();
[[nodiscard]] std::vector<Option> AppearanceOptions();
[[nodiscard]] std::vector<Option> MediaOptions();
[[nodiscard]] std::vector<Option> VolumeOptions();
[[nodiscard]] std::vector<Option> ModuleOptions();
[[nodiscard]] std::vector<Option> Module2Options();
[[nodiscard]] std::vector<Option> HotkeyOptions();
[[nodiscard]] std::vector<Option> ProgramOptions();
[[nodiscard]] std::vector<Option> FolderOptions();

/// What the tabs' tables are written with: rows of a kind, and what some rows say beside it.
namespace rows {

using Text = std::string_view;
using Choices = std::vector<OptionChoice>;

[[nodiscard]] inline Option Row(OptionKind kind, Text name, Text caption, Text section = {}, Text key = {}) {
    Option row;
    row.name = name;
    row.kind = kind;
    row.caption = caption;
    row.section = section;
    row.key = key;
    return row;
}

[[nodiscard]] inline Option Heading(Text caption, Text more = {}) {
    Option row = Row(OptionKind::heading, "", caption);
    row.keyCaption = more;
    return row;
}

[[nodiscard]] inline Option Toggle(Text name, Text caption, Text section = {}, Text key = {}) {
    return Row(OptionKind::toggle, name, caption, section, key);
}

[[nodiscard]] inline Option Number(Text name, Text caption, Text section, Text key, int lowest, int highest) {
    Option row = Row(OptionKind::number, name, caption, section, key);
    row.lowest = lowest;
    row.highest = highest;
    return row;
}

[[nodiscard]] inline Option Slider(Text name, Text caption, Text section, Text key, int lowest, int highest,
                                   std::string (*shown)(const std::string&) = nullptr) {
    Option row = Number(name, caption, section, key, lowest, highest);
    row.kind = OptionKind::slider;
    row.shown = shown;
    return row;
}

[[nodiscard]] inline Option Path(Text name, Text caption, Text section, Text key, Picks picks) {
    Option row = Row(OptionKind::text, name, caption, section, key);
    row.picks = picks;
    return row;
}

[[nodiscard]] inline Option Action(Text name, Text caption, Text keyCaption) {
    Option row = Row(OptionKind::action, name, caption);
    row.keyCaption = keyCaption;
    return row;
}

/// What the ends of the sliders above mean.
[[nodiscard]] inline Option Legend(Text left, Text right) {
    Option row = Row(OptionKind::legend, "", left);
    row.keyCaption = right;
    return row;
}

/// A list of entries, `separator` between two of them in its setting.
[[nodiscard]] inline Option Entries(Text name, Text section, Text key, char separator) {
    Option row = Row(OptionKind::editList, name, "", section, key);
    row.separator = separator;
    return row;
}

[[nodiscard]] inline Option Of(Option row, Choices (*choices)(Program&)) {
    row.choices = choices;
    return row;
}

[[nodiscard]] inline Option By(Option row, Text enabledBy) {
    row.enabledBy = enabledBy;
    return row;
}

[[nodiscard]] inline Option Where(Option row, bool (*offered)(const Program&)) {
    row.offered = offered;
    return row;
}

[[nodiscard]] inline Option Own(Option row, std::string (*load)(Program&, const Option&),
                                void (*save)(Program&, const Option&, const std::string&)) {
    row.load = load;
    row.save = save;
    return row;
}

[[nodiscard]] inline Option Remarked(Option row, Text remark) {
    row.remark = remark;
    return row;
}

[[nodiscard]] inline Option WithIcon(Option row, Text icon) {
    row.icon = icon;
    return row;
}

[[nodiscard]] inline Option PartOf(Text host, Option row) {
    row.partOf = host;
    return row;
}

[[nodiscard]] inline Option WithNext(Option row) {
    row.withNext = true;
    return row;
}

[[nodiscard]] inline Option AtOnce(Option row) {
    row.actsAtOnce = true;
    return row;
}

[[nodiscard]] inline std::vector<Option> InTab(OptionTab tab, std::vector<Option> all) {
    for (Option& row : all) {
        row.tab = tab;
    }
    return all;
}

[[nodiscard]] inline std::string TwoDigits(const std::string& value) {
    return value.size() < 2 ? "0" + value : value;
}

[[nodiscard]] inline Choices BarKinds(Program&) {
    return {{"docked", "OPT_EXTAPP_QUICKBAR_DOCKED"}, {"floating", "OPT_EXTAPP_QUICKBAR_FLOATING"}};
}

}  // namespace rows
}  // namespace zvr
