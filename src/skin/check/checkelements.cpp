// Buttons and labels, and what a finger and an eye need of them.

#include "core/commanddispatcher.h"
#include "platform/text.h"
#include "platform/textmeasure.h"
#include "skin/check/skinchecker.h"
#include "skin/pairs.h"
#include "skin/placeholders.h"

#include <algorithm>

namespace zvr {
namespace {

using State = SkinReading::State;

constexpr std::size_t longestText = 400;  ///< characters that are measured; no screen is wider
constexpr int mostOverlaps = 3;           ///< that are told of one button
constexpr Size leastTarget{76, 76};       ///< pixels; a fingertip on a screen of 800 pixels
constexpr Size leastLetter{64, 51};       ///< of a board, where a wrong one is soon mended

/// Letters, and among them the way to those that the board lacks.
bool IsOfBoard(std::string_view form, std::string_view command) {
    return form == "mediasearch" &&
           (command.starts_with("mediasearch.text.") || command == "externalapps.onscreenkeyboard");
}

/// A message shows the one or the others of its answers, never both.
bool AreAnswers(std::string_view a, std::string_view b) {
    const auto answers = [](std::string_view ok, std::string_view other) {
        return ok == "messagebox.ok" && (other == "messagebox.yes" || other == "messagebox.no");
    };
    return answers(a, b) || answers(b, a);
}

bool Overlap(const Rect& a, const Rect& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
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

std::string InPixels(Size size) {
    return std::to_string(size.width) + "x" + std::to_string(size.height);
}

}  // namespace

Rect PlaceOf(const SkinReadings& readings, Size size) {
    return {static_cast<int>(readings["posx"].number), static_cast<int>(readings["posy"].number), size.width,
            size.height};
}

bool ReachesOut(const Rect& place, Size room) {
    return place.x + place.width > room.width || place.y + place.height > room.height;
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
    const std::string quoted = "\"" + std::string(command.text) + "\"";
    if (command.counts && !row.Takes(command.text)) {
        Warn(command.element, place,
             "the " + std::string(row.name) + " does not take the command " + quoted + ": the button does not appear");
        return;
    }
    if (command.counts && !IsKnownCommand(command.text)) {
        Warn(command.element, place, "the command " + quoted + " is not known to this version");
    }
    if (button.Required() != State::good) {
        return;
    }
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
    if (const Size room = SizeOf(row.name); ReachesOut(at, room)) {
        Warn(record, place, "reaches out of the screen of " + InPixels(room));
    }
    targets.push_back({record, std::string(record.Name()), std::string(command.text), at});
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
    CheckToken(label, form);
    CheckFit(label, form);
}

void SkinChecker::CheckFit(const SkinReadings& label, std::string_view form) {
    const Size size{static_cast<int>(label["width"].number), static_cast<int>(label["height"].number)};
    if (ReachesOut(PlaceOf(label, size), SizeOf(form))) {
        Warn(label.at, label.place, "reaches out of the screen");
    }
    const std::string whole = LongestText(label);
    const std::string longest(text::Mid(whole, 0, longestText));
    if (longest.empty()) {
        return;
    }
    const Size needed = TextSize(label.FontOver({}), WithoutBreaks(longest));
    const auto tell = [&](const char* what, int needs, int has) {
        if (needs > has) {
            Warn(label.at, label.place,
                 "\"" + longest + "\" is " + std::to_string(needs) + " pixels " + what + ", the label is " +
                     std::to_string(has));
        }
    };
    tell("wide", needed.width, size.width);
    tell("high", needed.height, size.height);
}

void SkinChecker::CheckOverlaps(const std::string& form) {
    for (std::size_t i = 0; i < targets.size(); ++i) {
        int overlaps = 0;
        for (std::size_t j = 0; j < i && overlaps < mostOverlaps; ++j) {
            const Target& upper = targets[i];
            const Target& lower = targets[j];
            if (!Overlap(upper.place, lower.place) || AreAnswers(upper.command, lower.command) ||
                (upper.place == lower.place && IsTogglePair(upper.command, lower.command))) {
                continue;
            }
            ++overlaps;
            Warn(upper.element, form + "/" + upper.name, "overlaps " + lower.name + ", and they are no toggle pair");
        }
    }
}

}  // namespace zvr
