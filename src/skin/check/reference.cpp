#include "core/commanddispatcher.h"
#include "platform/text.h"
#include "skin/check/skincheck.h"
#include "skin/pairs.h"
#include "skin/placeholders.h"
#include "skin/skintable.h"

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

std::string PathOf(const SkinPart& part) {
    return Text(part.form.empty() ? "SCREEN" : part.form) + (part.path.empty() ? "" : "/") + Text(part.path);
}

/// All parts, in the order in which an author thinks of them.
std::vector<const SkinPart*> AllParts() {
    std::vector<const SkinPart*> all{&GeneralPart(), &SectionPart(), &ButtonPart(), &LabelPart()};
    for (const SkinPart& part : SkinParts()) {
        all.push_back(&part);
    }
    return all;
}

/// Two parts that the reference tells together: of one kind, or of one path.
bool AreTold(const SkinPart& a, const SkinPart& b) {
    return a.title.empty() ? PathOf(a) == PathOf(b) : a.title == b.title;
}

/// The parts that are told with the first of them, and their elements, each once.
std::string PartTable(const SkinPart& first) {
    std::string names;
    std::string rows = "| Element | Required | Value | Without it | Meaning |\n|---|---|---|---|---|\n";
    std::vector<std::string_view> told;
    for (const SkinPart* part : AllParts()) {
        if (!AreTold(first, *part)) {
            continue;
        }
        names += (names.empty() ? "" : ", ") + Code(PathOf(*part)) + " (" + Text(part->meaning) + ")";
        for (const SkinElement& element : part->elements) {
            if (std::find(told.begin(), told.end(), element.name) == told.end()) {
                told.push_back(element.name);
                rows += Row({Code(element.name), element.without.rule == SkinFallback::Rule::required ? "yes" : "no",
                             InWords(element.value), Text(element.without.text), Text(element.meaning)});
            }
        }
    }
    return "\n### " + (first.title.empty() ? Code(PathOf(first)) : Text(first.title)) + "\n\n" + names + "\n\n" + rows;
}

std::string Tree() {
    std::string text = "### Screens\n\n| Section | What it is |\n|---|---|\n";
    const auto forms = SkinForms();  // the first that a driver sees is the last one of a load
    std::for_each(forms.rbegin(), forms.rend(), [&text](const SkinFormRow& form) {
        text += Row({Code(form.name), Text(form.meaning)});
    });
    const auto parts = AllParts();
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        if (std::none_of(parts.begin(), part, [&part](const SkinPart* before) { return AreTold(*before, **part); })) {
            text += PartTable(**part);
        }
    }
    return text;
}

}  // namespace

std::vector<SkinCode> SkinCodes() {
    std::vector<SkinCode> codes;
    const auto add = [&codes](std::string_view code, const std::string& meaning) {
        const auto isIt = [code](const SkinCode& known) { return known.code == code; };
        if (!code.empty() && std::none_of(codes.begin(), codes.end(), isIt)) {
            codes.push_back({Text(code), meaning});
        }
    };
    for (const SkinPart* part : AllParts()) {
        const std::string where = part->codeName.empty() ? PathOf(*part) : "one of the " + text::Lower(part->title);
        add(part->missing, where + " lacks a required element");
        add(part->invalid, where + " has a required element that is out of range");
        for (const SkinElement& element : part->elements) {
            const std::string path = PathOf(*part) + "/" + Text(element.name);
            add(element.fault,
                path + (element.value.kind == SkinKind::image ? " is no picture"
                                                              : " is missing, or not " + InWords(element.value)));
        }
    }
    return codes;
}

std::string SkinReference() {
    std::string text = Tree();
    text +=
        "\n### Pairs\n\nTwo buttons of one size on one spot. Of two with the same command the one that stands first in "
        "the file is `Lit`.\n\n| Command | Lit | Shows |\n|---|---|---|\n";
    for (const ButtonPair& pair : ButtonPairs()) {
        text += Row({Code(pair.off), Code(pair.on), Text(pair.meaning)});
    }
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
    for (const SkinCode& code : SkinCodes()) {
        text += Row({Code(code.code), code.meaning});
    }
    return text;
}

}  // namespace zvr
