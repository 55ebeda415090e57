// Buttons and labels, and what a finger and an eye need of them.

#include "core/commanddispatcher.h"
#include "core/language.h"
#include "core/languagekeys.h"
#include "platform/text.h"
#include "platform/textmeasure.h"
#include "skin/check/nearest.h"
#include "skin/check/skinchecker.h"
#include "skin/placeholders.h"

#include <algorithm>

namespace zvr {
namespace {

using State = SkinReading::State;

constexpr std::size_t longestText = 400;  ///< characters that are measured; no screen is wider
constexpr Size leastTarget{76, 76};       ///< pixels; a fingertip on a screen of 800 pixels
constexpr Size leastLetter{64, 51};       ///< of a board, where a wrong one is soon mended

/// Letters, and among them the way to those that the board lacks.
bool IsOfBoard(std::string_view form, std::string_view command) {
    return form == "mediasearch" &&
           (command.starts_with("mediasearch.text.") || command == "externalapps.onscreenkeyboard");
}

bool IsLanguageKey(std::string_view text) {
    return std::find(languageKeys.begin(), languageKeys.end(), text) != languageKeys.end();
}

std::set<std::string> NamesOf(const SkinPart& part) {
    std::set<std::string> names;
    for (const SkinElement& element : part.elements) {
        names.emplace(element.name);
    }
    return names;
}

/// What the label shows at its widest; empty if there is no telling.
std::string LongestText(const SkinReadings& readings) {
    const std::string text(readings["text"].text);
    if (!text.starts_with("**") || !text.ends_with("**")) {
        return text;
    }
    if (text == "**MEDIATITLE**") {
        const SkinReading& wanted = readings["charcount"];
        return std::string(sampleTitle.substr(0, wanted.counts ? static_cast<std::size_t>(wanted.number) : 10));
    }
    for (const Placeholder& row : Placeholders()) {
        if (row.token == text) {
            return std::string(row.longest);
        }
    }
    return {};
}

}  // namespace

Rect PlaceOf(const SkinReadings& readings, Size size) {
    return {static_cast<int>(readings["posx"].number), static_cast<int>(readings["posy"].number), size.width,
            size.height};
}

int Whole(const SkinReading& number) {
    return static_cast<int>(number.number);
}

std::string InPixels(Size size) {
    return std::to_string(size.width) + "x" + std::to_string(size.height);
}

void SkinChecker::CheckElementName(const SkinReadings& record) {
    const std::string_view name = record.at.Name();
    if (FindSkinForm(name) != nullptr || name == "general" || name == "about") {
        Warn(record.at, record.place, "bears the name of a section: its children may be taken for that section's");
    }
    CheckUnknown(record.at, record.place, NamesOf(record.part));
}

void SkinChecker::CheckButton(const XmlElement& record, const SkinFormRow& row) {
    const SkinReadings button(ButtonPart(), row.name, record, pictures);
    const std::string& place = button.place;
    const SkinReading& command = button["command"];
    CheckElementName(button);
    TellValues(button, "the button does not appear");
    if (command.counts && !row.Takes(command.text)) {
        Warn(command.element, place,
             "the " + std::string(row.name) + " does not take the command " + Quoted(command.text) +
                 ": the button does not appear");
        return;
    }
    if (command.counts && !IsKnownCommand(command.text)) {
        unknownCommands[std::string(command.text)].Add(command.element, place);
    }
    if (const State required = button.Required(); required != State::good) {
        if (required == State::noFile) {
            offered.insert(command.text);  // told once, as the file that is missing
        }
        return;
    }
    offered.insert(command.text);
    Refuse(button);
    const PicturePointer normal = button["normal-image"].picture;
    const PicturePointer active = button["active-image"].picture;
    if (normal == nullptr || active == nullptr) {
        return;
    }
    if (++count > mostElements) {
        Warn(record, place, "more than " + std::to_string(mostElements) + " buttons: it does not appear");
        return;
    }
    const Size size = normal->PixelSize();
    const Size least = IsOfBoard(row.name, command.text) ? leastLetter : leastTarget;
    if (size.width < least.width || size.height < least.height) {
        Warn(record, place, "the target is " + InPixels(size) + ", a finger needs " + InPixels(least));
    }
    if (active->PixelSize() != size) {
        Warn(button["active-image"].element, place,
             "another size than normal-image, whose " + InPixels(size) + " count");
    }
    const Rect at = PlaceOf(button, size);
    TellOutside(button, at, row.name);
    buttons.push_back({record, std::string(record.Name()), std::string(command.text), at});
}

void SkinChecker::CheckLabel(const XmlElement& record, std::string_view form) {
    const SkinReadings label(LabelPart(), form, record, pictures);
    CheckElementName(label);
    TellValues(label, "the label does not appear");
    const SkinReading& distance = label["shadow-distance"];
    const State required = label.Required();
    if (required == State::malformed) {
        Refuse(distance.element, label.place,
               "shadow-distance \"" + std::string(distance.text) + "\" is no number, which ends the program");
    }
    if (required != State::good) {
        return;
    }
    const bool hasShadow = distance.number > 0 && label["shadow-color"].element;
    count += hasShadow ? 2 : 1;
    if (count > mostElements) {
        Warn(record, label.place, "more than " + std::to_string(mostElements) + " labels: it may not appear");
    }
    if (!label["font-color"].element) {
        Warn(record, label.place, "font-color is missing: the label has any colour that a former skin gave it");
    }
    if (distance.number > 0 && !hasShadow) {
        Warn(record, label.place, "shadow-color is missing: there is no shadow");
    }
    showsMessage = showsMessage || label["text"].text == "**MESSAGEBOXTEXT**";
    CheckToken(label, form);
    CheckLanguageKey(label);
    CheckFit(label, form);
    CheckInk(label, form);
}

void SkinChecker::CheckFit(const SkinReadings& label, std::string_view form) {
    const Size size{Whole(label["width"]), Whole(label["height"])};
    TellOutside(label, PlaceOf(label, size), form);
    const std::string text(label["text"].text);
    const Size line = TextSize(label.FontOver({}), "Ag");
    labels.push_back(
        {label.at, std::string(label.at.Name()), "", PlaceOf(label, {size.width, std::min(size.height, line.height)})});
    if (line.height > size.height) {
        Warn(
            label.at, label.place,
            "its text is " + std::to_string(line.height) + " pixels high, the label is " + std::to_string(size.height));
    }
    if (!IsLanguageKey(text)) {
        CheckWidth(label, LongestText(label), "");
        return;
    }
    for (const SkinLanguage& language : languages) {
        CheckWidth(label, language.texts.languageText(text), language.name);
    }
}

void SkinChecker::CheckWidth(const SkinReadings& label, std::string_view text, const std::string& language) {
    const std::string longest(text::Mid(text, 0, longestText));
    const int needed = TextSize(label.FontOver({}), WithoutBreaks(longest)).width;
    if (const int room = Whole(label["width"]); needed > room) {
        Warn(label.at, label.place,
             "\"" + longest + "\" " + (language.empty() ? "" : "(" + language + ") ") + "is " + std::to_string(needed) +
                 " pixels wide, the label is " + std::to_string(room));
    }
}

void SkinChecker::CheckLanguageKey(const SkinReadings& label) {
    const SkinReading& text = label["text"];
    const bool looksLikeOne =
        text.text.find('_') != std::string_view::npos &&
        text.text.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_") == std::string_view::npos;
    if (looksLikeOne && !IsLanguageKey(text.text)) {
        Warn(text.element, label.place,
             std::string(text.text) + " is no language key: it shows as it stands" +
                 Hint(text.text, [](NearestName& nearest) {
                     std::for_each(languageKeys.begin(), languageKeys.end(),
                                   [&](std::string_view key) { nearest.Consider(key); });
                 }));
    }
}

}  // namespace zvr
