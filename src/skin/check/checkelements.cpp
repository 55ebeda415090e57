// Buttons and labels, and what a finger and an eye need of them.

#include "platform/text.h"
#include "platform/textmeasure.h"
#include "skin/check/skinchecker.h"
#include "skin/elements.h"
#include "skin/placeholders.h"
#include "skin/skinner.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zvr {
namespace {

constexpr std::size_t longestText = 400;  ///< characters that are measured; no screen is wider
constexpr int mostOverlaps = 3;           ///< that are told of one button
constexpr Size leastTarget{76, 76};       ///< pixels; a fingertip on a screen of 800 pixels
constexpr Size leastLetter{64, 51};       ///< of a board, where a wrong one is soon mended

/// Two buttons that may lie on one spot, since the program brings the one to the front that counts.
constexpr std::array<std::pair<std::string_view, std::string_view>, 5> toggles{{
    {"mediaplayer.mode.shuffle", "mediaplayer.mode.repeat"},
    {"mediaplayer.volumemute", "mediaplayer.volumemute"},
    {"mediaplayer.add2playlist", "mediaplayer.removefromplaylist"},
    {"gallery.slideshowon", "gallery.slideshowoff"},
    {"app.volumemute", "app.volumemute"},
}};

bool IsToggle(std::string_view a, std::string_view b) {
    return std::any_of(toggles.begin(), toggles.end(), [&](const auto& pair) {
        return (pair.first == a && pair.second == b) || (pair.first == b && pair.second == a);
    });
}

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

bool IsTakenBy(std::string_view form, std::string_view command) {
    if (form == "messagebox") {
        return command == "messagebox.ok" || command == "messagebox.yes" || command == "messagebox.no";
    }
    if (form == "smsbox") {
        return command == "smsbox.send" || command == "smsbox.close" || command == "externalapps.onscreenkeyboard";
    }
    return true;
}

std::vector<std::string_view> NamesOf(std::span<const SkinElementRow> rows) {
    std::vector<std::string_view> names;
    std::transform(rows.begin(), rows.end(), std::back_inserter(names), [](const auto& row) { return row.name; });
    return names;
}

double NumberOf(const XmlElement& element, std::string_view name) {
    return SkinNumber(element.Child(name).Text());
}

/// What the label shows at its widest; empty if there is no telling.
std::string LongestText(const XmlElement& label) {
    const std::string text = label.Child("text").Text();
    if (!text.starts_with("**") || !text.ends_with("**")) {
        return text;
    }
    if (text == "**MEDIATITLE**") {
        const double wanted = NumberOf(label, "charcount");
        const std::string title = "Evening Drive and the Long Way Home through the Hills in Summer Rain";
        return title.substr(0, wanted > 4 && wanted <= 50 ? static_cast<std::size_t>(wanted) : 10);
    }
    for (const Placeholder& row : Placeholders()) {
        if (row.token == text) {
            return std::string(row.longest);
        }
    }
    return {};
}

bool IsFormName(std::string_view name) {
    const auto forms = SkinForms();
    return name == "general" || name == "about" ||
           std::any_of(forms.begin(), forms.end(), [name](const SkinFormRow& form) { return form.name == name; });
}

}  // namespace

bool SkinChecker::HasAll(const XmlElement& element, std::span<const SkinElementRow> rows, const std::string& place,
                         const std::string& consequence) {
    bool all = true;
    for (const SkinElementRow& row : rows) {
        const XmlElement child = element.Child(row.name);
        if (child) {
            CheckValue(child, row, place);
        }
        const bool negative = child && row.required && row.value == SkinValue::number && SkinNumber(child.Text()) < 0;
        const bool empty =
            child && row.value != SkinValue::number && row.value != SkinValue::strictNumber && child.Text().empty();
        if (row.required && (!child || negative || empty)) {
            const char* const what = !child ? " is missing: " : negative ? " is negative: " : " is empty: ";
            Warn(child ? child : element, place, std::string(row.name) + what + consequence);
            all = false;
        }
    }
    CheckUnknown(element, place, NamesOf(rows));
    return all;
}

void SkinChecker::CheckButton(const XmlElement& button, const std::string& form) {
    const std::string place = form + "/" + button.Name();
    if (IsFormName(button.Name())) {
        Warn(button, place, "bears the name of a section: its children may be taken for that section's");
    }
    bool shown = HasAll(button, ButtonRows(), place, "the button does not appear");
    const XmlElement command = button.Child("command");
    if (command && !command.Text().empty()) {
        if (!IsTakenBy(form, command.Text())) {
            Warn(command, place,
                 "the " + form + " does not take the command \"" + command.Text() + "\": the button does not appear");
            shown = false;
        } else {
            CheckCommand(command, place);
        }
    }
    FoundImage normal;
    for (const char* name : {"active-image", "normal-image"}) {
        const XmlElement element = button.Child(name);
        normal = Image(element, place);
        if (!normal.path.empty() && normal.picture == nullptr && shown) {
            Refuse(element, place, element.Text() + " is no picture", SkinFault::buttonPicture, form);
        }
        shown = shown && normal.picture != nullptr;
    }
    if (!shown) {
        return;
    }
    if (++count > mostElements) {
        Warn(button, place, "more than " + std::to_string(mostElements) + " buttons: it does not appear");
        return;
    }
    const Size size = normal.picture->PixelSize();
    const Rect at{static_cast<int>(NumberOf(button, "posx")), static_cast<int>(NumberOf(button, "posy")), size.width,
                  size.height};
    const std::string sizeText = std::to_string(size.width) + "x" + std::to_string(size.height);
    const Size least = IsOfBoard(form, command.Text()) ? leastLetter : leastTarget;
    if (size.width < least.width || size.height < least.height) {
        Warn(button, place,
             "the target is " + sizeText + ", a finger needs " + std::to_string(least.width) + "x" +
                 std::to_string(least.height));
    }
    const Size active = Image(button.Child("active-image"), place).picture->PixelSize();
    if (active != size) {
        Warn(button.Child("active-image"), place, "another size than normal-image, whose " + sizeText + " count");
    }
    if (const Size room = SizeOf(form); at.x + at.width > room.width || at.y + at.height > room.height) {
        Warn(button, place,
             "reaches out of the screen of " + std::to_string(room.width) + "x" + std::to_string(room.height));
    }
    targets.push_back({button, button.Name(), command.Text(), at});
}

void SkinChecker::CheckLabel(const XmlElement& label, const std::string& form) {
    const std::string place = form + "/" + label.Name();
    if (IsFormName(label.Name())) {
        Warn(label, place, "bears the name of a section: its children may be taken for that section's");
    }
    const bool shown = HasAll(label, LabelRows(), place, "the label does not appear");
    const XmlElement distance = label.Child("shadow-distance");
    // Only a label with all its children gets as far as the number.
    const auto rows = LabelRows();
    const bool whole = std::all_of(rows.begin(), rows.end(),
                                   [&](const SkinElementRow& row) { return !row.required || label.Child(row.name); });
    if (whole && !IsStrictNumber(distance.Text())) {
        Refuse(distance, place, "shadow-distance \"" + distance.Text() + "\" is no number, which ends the program");
        return;
    }
    if (!shown) {
        return;
    }
    if (SkinNumber(distance.Text()) < 0) {
        Warn(distance, place, "shadow-distance is negative: the label does not appear");
        return;
    }
    count += SkinNumber(distance.Text()) > 0 && label.Child("shadow-color") ? 2 : 1;
    if (count > mostElements) {
        Warn(label, place, "more than " + std::to_string(mostElements) + " labels: it may not appear");
    }
    if (const XmlElement number = label.Child("charcount")) {
        const double characters = SkinNumber(number.Text());
        if (characters <= 4 || characters > 50) {
            Warn(number, place, "charcount is not above 4 and at most 50: 10 counts");
        }
    }
    CheckColors(label, place);
    CheckToken(label, form, place);
    CheckFit(label, form, place);
}

void SkinChecker::CheckColors(const XmlElement& label, const std::string& place) {
    if (!label.Child("font-color")) {
        Warn(label, place, "font-color is missing: the label has any colour that a former skin gave it");
    }
    if (NumberOf(label, "shadow-distance") > 0 && !label.Child("shadow-color")) {
        Warn(label, place, "shadow-color is missing: there is no shadow");
    }
}

void SkinChecker::CheckFit(const XmlElement& label, const std::string& form, const std::string& place) {
    const Size size{static_cast<int>(NumberOf(label, "width")), static_cast<int>(NumberOf(label, "height"))};
    const Size room = SizeOf(form);
    if (NumberOf(label, "posx") + size.width > room.width || NumberOf(label, "posy") + size.height > room.height) {
        Warn(label, place, "reaches out of the screen");
    }
    const std::string whole = LongestText(label);
    const std::string longest(text::Mid(whole, 0, longestText));
    if (longest.empty()) {
        return;
    }
    const Size needed = TextSize(LabelFont(label), WithoutBreaks(longest));
    const auto tell = [&](const char* what, int needs, int has) {
        if (needs > has) {
            Warn(label, place,
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
                (upper.place == lower.place && IsToggle(upper.command, lower.command))) {
                continue;
            }
            ++overlaps;
            Warn(upper.element, form + "/" + upper.name, "overlaps " + lower.name + ", and they are no toggle pair");
        }
    }
}

}  // namespace zvr
