// Single values: numbers, colours, pictures, commands, tokens.

#include "platform/text.h"
#include "skin/check/skinchecker.h"
#include "skin/placeholders.h"

#include <algorithm>

namespace zvr {
namespace {

using State = SkinReading::State;

std::string WithoutTicks(std::string_view text) {
    std::string plain(text);
    std::erase(plain, '`');
    return plain;
}

/// What a load makes of an element that is not as it must be; empty where nobody needs to know.
std::string Outcome(const SkinElement& element, const SkinReading& reading) {
    switch (reading.state) {
        case State::missing:
            return reading.counts && element.value.kind == SkinKind::color
                       ? "it becomes " + WithoutTicks(element.without.text)
                       : "";
        case State::malformed:
            return element.value.kind == SkinKind::color ? "it becomes black"
                   : reading.text == "no"                ? ""
                                                         : "it counts as " + std::string(element.value.otherwise);
        case State::outOfRange:
        case State::noFile:
            return "it is passed over";
        case State::noPicture:
            return element.fault.empty() ? "it is passed over" : "";
        default:
            return "";
    }
}

}  // namespace

void SkinChecker::TellValues(const SkinReadings& readings, const std::string& withoutRequired) {
    for (std::size_t i = 0; i < readings.part.elements.size(); ++i) {
        TellValue(readings.part.elements[i], readings[i], readings, withoutRequired);
    }
}

void SkinChecker::TellValue(const SkinElement& element, const SkinReading& reading, const SkinReadings& readings,
                            const std::string& withoutRequired) {
    const XmlElement at = reading.element ? reading.element : readings.at;
    if (element.value.kind == SkinKind::image) {
        used.insert(pictures.Find(reading.text).file);
    }
    if (reading.state == State::good) {
        if (element.value.IsNumber() && !IsStrictNumber(reading.text)) {
            Warn(at, readings.place,
                 std::string(element.name) + " \"" + std::string(reading.text) +
                     "\" is no plain number, it is read as " + Written(reading.number));
        }
        return;
    }
    const bool required = element.without.rule == SkinFallback::Rule::required;
    const std::string outcome = required ? withoutRequired : Outcome(element, reading);
    // A strict number that is none ends the program, and a picture that is none stops the skin.
    if (outcome.empty() || (required && (reading.state == State::malformed || reading.state == State::noPicture))) {
        return;
    }
    const auto alike = std::find_if(images.begin(), images.end(), [&reading](const std::string& image) {
        return text::CompareWithoutCase(image, reading.text) == 0;
    });
    const bool nearly = reading.state == State::noFile && alike != images.end();
    Warn(
        at, readings.place,
        Complaint(element, reading) + (nearly ? "; there is \"" + *alike + "\", and letters count: " : ": ") + outcome);
}

void SkinChecker::CheckToken(const SkinReadings& label, std::string_view form) {
    const SkinReading& text = label["text"];
    const std::string token(text.text);
    if (!token.starts_with("**") || !token.ends_with("**")) {
        return;
    }
    if (token == "**MESSAGEBOXTEXT**") {
        if (form != "messagebox") {
            Warn(text.element, label.place, "only the messagebox fills **MESSAGEBOXTEXT**: the label stays empty");
        }
        return;
    }
    const auto known = Placeholders();
    const auto isToken = [](const std::string& wanted) {
        return [&wanted](const Placeholder& row) { return row.token == wanted; };
    };
    if (std::any_of(known.begin(), known.end(), isToken(token))) {
        return;
    }
    std::string capitals = token;
    std::transform(capitals.begin(), capitals.end(), capitals.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    const bool nearly = std::any_of(known.begin(), known.end(), isToken(capitals));
    Warn(text.element, label.place,
         "the placeholder \"" + token + "\" is unknown: the label stays empty" +
             (nearly ? "; it is written " + capitals : ""));
}

void SkinChecker::CheckUnknown(const XmlElement& parent, const std::string& place, const std::set<std::string>& known,
                               const std::string& below) {
    std::set<std::string_view> seen;
    for (const XmlElement& child : parent.Children()) {
        const std::string name(child.Name());
        const std::string path = below + name;
        const auto next = known.lower_bound(path + "/");
        const bool leads = next != known.end() && next->starts_with(path + "/");
        if (!leads && !known.contains(path)) {
            Warn(child, place, "nothing reads the element " + name);
        } else if (!seen.insert(child.Name()).second) {
            Warn(child, place, "a second " + name + ": what the first one has counts");
        } else if (leads) {
            CheckUnknown(child, place + "/" + name, known, path + "/");
        }
    }
}

}  // namespace zvr
