#include "core/commanddispatcher.h"
#include "skin/check/skincheck.h"
#include "skin/check/skintree.h"
#include "skin/placeholders.h"
#include "skin/skinfaults.h"

#include <algorithm>
#include <vector>

namespace zvr {
namespace {

std::string Text(std::string_view text) {
    return std::string(text);
}

std::string Code(std::string_view text) {
    return "`" + std::string(text) + "`";
}

std::string Row(std::initializer_list<std::string> cells) {
    std::string row = "|";
    for (const std::string& cell : cells) {
        row += " " + cell + " |";
    }
    return row + "\n";
}

std::string ElementTable(std::span<const SkinElementRow> rows) {
    std::string table = "| Element | Required | Value | Without it | Meaning |\n|---|---|---|---|---|\n";
    for (const SkinElementRow& row : rows) {
        table +=
            Row({Code(row.name), row.required ? "yes" : "no", Text(row.range), Text(row.fallback), Text(row.meaning)});
    }
    return table;
}

/// The parts that share one table of elements, and the table.
std::string PartTable(std::span<const SkinElementRow> rows, const std::string& title) {
    std::string names;
    for (const SkinPart& part : SkinParts()) {
        if (part.rows.data() == rows.data()) {
            const std::string path = Text(part.form) + (part.path.empty() ? "" : "/") + Text(part.path);
            names += (names.empty() ? "" : ", ") + Code(path) + " (" + Text(part.meaning) + ")";
        }
    }
    return "\n### " + title + "\n\n" + names + "\n\n" + ElementTable(rows);
}

std::string TitleOf(const SkinPart& part) {
    const std::string path(part.path);
    if (path.ends_with("list")) {
        return "Lists";
    }
    if (path.ends_with("box")) {
        return "Text boxes";
    }
    if (path.ends_with("slider")) {
        return "Sliders";
    }
    if (part.rule == SkinPlaceRule::sizeAlone) {
        return "Sizes of the boxes";
    }
    return Code(Text(part.form) + (path.empty() ? "" : "/") + path);
}

std::string Tree() {
    std::string text = "### Screens\n\n| Section | What it is |\n|---|---|\n";
    for (const SkinFormRow& form : SkinForms()) {
        text += Row({Code(form.name), Text(form.meaning)});
    }
    text += "\n### `general`\n\n" + ElementTable(GeneralRows());
    text += "\n### Every screen's section\n\n" + ElementTable(FormRows());
    text += "\n### Buttons: `SCREEN/buttons/ANY-NAME`\n\n" + ElementTable(ButtonRows());
    text += "\n### Labels: `SCREEN/labels/ANY-NAME`\n\n" + ElementTable(LabelRows());
    std::vector<const SkinElementRow*> told;
    for (const SkinPart& part : SkinParts()) {
        if (std::find(told.begin(), told.end(), part.rows.data()) == told.end()) {
            told.push_back(part.rows.data());
            text += PartTable(part.rows, TitleOf(part));
        }
    }
    return text;
}

}  // namespace

std::string SkinReference() {
    std::string text = Tree();
    text += "\n### Tokens\n\nA label whose text is one of these shows a live value.\n\n| Token | Shows |\n|---|---|\n";
    for (const Placeholder& row : Placeholders()) {
        text += Row({Code(row.token), Text(row.description)});
    }
    text += Row({"`**MESSAGEBOXTEXT**`", "The message; on the `messagebox` only."});
    text += "\n### Commands\n\n| Command | Does |\n|---|---|\n";
    for (const Command& row : Commands()) {
        text += Row({Code(row.name), Text(row.description)});
    }
    for (const ParameterCommand& row : ParameterCommands()) {
        text += Row({Code(Text(row.name) + ".PARAMETER"), Text(row.description)});
    }
    for (const ScrollWord& word : ScrollWords()) {
        text += Row({Code("LIST." + Text(word.word)), "Moves the selection of a list " + Text(word.description) + "."});
    }
    text += "\nLIST is one of:";
    const char* comma = " ";
    for (const ScrollFamily& family : ScrollFamilies()) {
        text += comma + Code(family.module) + " (" + Text(family.description) + ")";
        comma = ", ";
    }
    text += ".\n";
    text +=
        "\n### Error codes\n\n`*` stands for the name of a screen, a module or a text box, in capitals.\n\n"
        "| Code | Means |\n|---|---|\n";
    for (const SkinFaultRow& row : skinFaults) {
        text += Row({Code(row.code), Text(row.meaning)});
    }
    return text;
}

}  // namespace zvr
