// Single values: numbers, colours, pictures, commands, tokens.

#include "core/commanddispatcher.h"
#include "platform/files.h"
#include "platform/text.h"
#include "platform/textmeasure.h"
#include "skin/check/nearest.h"
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

constexpr int mostHints = 200;  ///< that are looked for: a file with more is not worth the time

std::string Times(int times) {
    return times < 2 ? "" : " (" + std::to_string(times) + " times)";
}

}  // namespace

std::string Quoted(std::string_view text) {
    std::string line(text::Mid(text, 0, 60));
    std::replace(line.begin(), line.end(), '\n', ' ');
    return "\"" + line + "\"";
}

std::string SkinChecker::Hint(std::string_view wanted, const std::function<void(NearestName&)>& offer) {
    if (++hints > mostHints) {
        return {};
    }
    NearestName nearest(wanted);
    offer(nearest);
    return nearest.Found().empty() ? "" : "; is it " + nearest.Found() + "?";
}

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
    if (reading.text.find('\n') != std::string_view::npos) {
        Warn(at, readings.place, std::string(element.name) + " " + Quoted(reading.text) + " goes over two lines");
    }
    if (reading.state == State::good) {
        CheckGoodValue(element, reading, readings.place);
        return;
    }
    if (reading.state == State::noFile) {
        missingFiles[std::string(reading.text)].Add(at, readings.place);
        return;
    }
    const bool required = element.without.rule == SkinFallback::Rule::required;
    // What `general` lacks, the sections have.
    const bool isGeneral = &readings.part == &GeneralPart() && reading.state == State::missing;
    const std::string outcome = required ? withoutRequired : isGeneral ? "" : Outcome(element, reading);
    // A strict number that is none ends the program, and a picture that is none stops the skin.
    if (!outcome.empty() && (!required || (reading.state != State::malformed && reading.state != State::noPicture))) {
        Warn(at, readings.place, Complaint(element, reading) + ": " + outcome);
    }
}

void SkinChecker::CheckGoodValue(const SkinElement& element, const SkinReading& reading, const std::string& place) {
    const std::string value = std::string(element.name) + " " + Quoted(reading.text);
    if (element.value.IsNumber() && !IsStrictNumber(reading.text)) {
        Warn(reading.element, place, value + " is no plain number, it is read as " + Written(reading.number));
    }
    if (element.value.kind == SkinKind::typeface) {
        if (const std::string shown = TypefaceShown(reading.text); !text::EqualAscii(shown, reading.text)) {
            Warn(reading.element, place, value + " is no typeface of this machine: " + shown + " shows");
        }
    }
    if (element.value.kind == SkinKind::letters) {
        for (const char letter : text::Lower(reading.text)) {
            if (element.value.words.find(letter) == std::string_view::npos) {
                Warn(reading.element, place, value + ": the letter " + letter + " means nothing here");
            }
        }
    }
    if (element.value.kind == SkinKind::image && decoded.insert(reading.picture).second &&
        !CanBeDecoded(*reading.picture)) {
        Warn(reading.element, place, value + " can't be decoded: nothing of it shows");
    }
}

void SkinChecker::TellMissingFiles() {
    std::map<std::string, Missing> folders;  // that are not there with any picture
    for (const auto& [file, missing] : missingFiles) {
        std::string path = file;
        std::replace(path.begin(), path.end(), '\\', files::separator);
        const std::string below = files::FolderOf(path);
        if (!below.empty() && std::none_of(images.begin(), images.end(),
                                           [&below](const std::string& image) { return image.starts_with(below); })) {
            folders[below].Add(missing.first, missing.place, missing.times);
            continue;
        }
        const auto alike = std::find_if(images.begin(), images.end(), [&path](const std::string& image) {
            return text::CompareWithoutCase(image, path) == 0;
        });
        const std::string hint = alike != images.end()
                                     ? "; there is " + Quoted(*alike) + ", and letters count"
                                     : Hint(path, [this](NearestName& nearest) {
                                           std::for_each(images.begin(), images.end(),
                                                         [&](const std::string& image) { nearest.Consider(image); });
                                       });
        Warn(missing.first, missing.place,
             "there is no file " + Quoted(file) + Times(missing.times) + ": what names it shows nothing" + hint);
    }
    for (const auto& [below, missing] : folders) {
        Warn(missing.first, missing.place,
             "there is no picture in the folder " + Quoted(below) + Times(missing.times) +
                 ": what names one shows nothing" + Hint(below, [this](NearestName& nearest) {
                     for (const std::string& image : images) {
                         nearest.Consider(files::FolderOf(image));
                     }
                 }));
    }
}

void SkinChecker::TellUnknownCommands() {
    std::string rest;
    const Missing* first = nullptr;
    for (const auto& [command, missing] : unknownCommands) {
        const std::string hint = Hint(command, [](NearestName& nearest) {
            ForEachCommand([&nearest](std::string_view known) { nearest.Consider(known); });
        });
        if (!hint.empty()) {
            Warn(missing.first, missing.place,
                 "the command " + Quoted(command) + Times(missing.times) + " is not known to this version" + hint);
            continue;
        }
        rest += (rest.empty() ? "" : ", ") + command + Times(missing.times);
        first = first == nullptr || missing.first.Line() < first->first.Line() ? &missing : first;
    }
    if (first != nullptr) {
        Warn(first->first, first->place, "commands not known to this version: " + rest);
    }
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
    if (std::any_of(known.begin(), known.end(), [&token](const Placeholder& row) { return row.token == token; })) {
        return;
    }
    std::string capitals = token;
    std::transform(capitals.begin(), capitals.end(), capitals.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    Warn(text.element, label.place,
         "the placeholder " + Quoted(token) + " is unknown: the label stays empty" +
             Hint(capitals, [known](NearestName& nearest) {
                 for (const Placeholder& row : known) {
                     nearest.Consider(row.token);
                 }
             }));
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
            Warn(child, place, "nothing reads the element " + name + Hint(path, [&](NearestName& nearest) {
                                   for (const std::string& one : known) {
                                       nearest.Consider(std::string_view(one).substr(0, one.find('/', below.size())));
                                   }
                               }));
        } else if (!seen.insert(child.Name()).second) {
            Warn(child, place, "a second " + name + ": what the first one has counts");
        } else if (leads) {
            CheckUnknown(child, place + "/" + name, known, path + "/");
        }
    }
}

}  // namespace zvr
