#include "skin/skinreadings.h"

#include "core/numbers.h"
#include "platform/log.h"
#include "platform/text.h"
#include "skin/skinpictures.h"

#include <algorithm>

namespace zvr {
namespace {

using State = SkinReading::State;

constexpr double mostPoints = 2000;

State ReadNumber(const SkinValue& value, SkinReading& reading) {
    const double number = SkinNumber(reading.text);
    reading.number = value.kind == SkinKind::wholeNumber ? static_cast<double>(RoundHalfEven(number)) : number;
    reading.counts = value.range.Holds(reading.number);
    const bool strict = value.kind == SkinKind::strictNumber;
    return strict && !IsStrictNumber(reading.text) ? State::malformed
           : reading.counts                        ? State::good
                                                   : State::outOfRange;
}

State ReadImage(SkinReading& reading, SkinPictures& pictures) {
    const SkinPictures::Found& found = pictures.Find(reading.text);
    reading.picture = found.picture;
    reading.counts = found.picture != nullptr;
    return reading.text.empty()       ? State::empty
           : found.file.empty()       ? State::noFile
           : found.picture == nullptr ? State::noPicture
                                      : State::good;
}

State ReadWord(const SkinValue& value, const SkinReading& reading) {
    const std::string word = value.anyCase ? text::Lower(reading.text) : std::string(reading.text);
    const std::string words = " " + std::string(value.words) + " ";
    return !word.empty() && words.find(" " + word + " ") != words.npos ? State::good : State::malformed;
}

/// The text into what it means.
State ReadValue(const SkinValue& value, SkinReading& reading, SkinPictures& pictures) {
    switch (value.kind) {
        case SkinKind::number:
        case SkinKind::wholeNumber:
        case SkinKind::strictNumber:
            return ReadNumber(value, reading);
        case SkinKind::image:
            return ReadImage(reading, pictures);
        case SkinKind::color:
            reading.color = ParseSkinColor(reading.text);
            reading.counts = true;
            return IsSkinColor(reading.text) ? State::good : State::malformed;
        case SkinKind::word:
            reading.counts = true;
            return ReadWord(value, reading);
        default:
            reading.counts = !reading.text.empty();
            return reading.counts ? State::good : State::empty;
    }
}

/// A blank behind the last dot is what the command types.
std::string_view SkinCommand(const XmlElement& element) {
    const std::string_view whole = element.Text();
    const std::string_view text = SkinText(element);
    const auto end = static_cast<std::size_t>(text.data() - whole.data()) + text.size();
    const bool typesBlank = text.ends_with('.') && whole.substr(end).starts_with(' ');
    return typesBlank ? std::string_view(text.data(), text.size() + 1) : text;
}

std::string PathOf(std::string_view form, const SkinPart& part) {
    return std::string(form) + (part.path.empty() ? "" : "/") + std::string(part.path);
}

bool IsRequired(const SkinElement& element) {
    return element.without.rule == SkinFallback::Rule::required;
}

}  // namespace

SkinReadings::SkinReadings(const SkinPart& part, std::string_view form, const XmlDocument& document,
                           SkinPictures& pictures)
    : part(part),
      place(PathOf(form, part)),
      at(document.First(place) ? document.First(place) : document.First(form)),
      codeName(part.codeName.empty() ? form : part.codeName) {
    for (std::size_t i = 0; i < part.elements.size(); ++i) {
        Read(i, document.First(place + "/" + std::string(part.elements[i].name)), pictures);
    }
}

SkinReadings::SkinReadings(const SkinPart& part, std::string_view form, const XmlElement& record,
                           SkinPictures& pictures)
    : part(part), place(std::string(form) + "/" + std::string(record.Name())), at(record), codeName(form) {
    std::array<XmlElement, std::tuple_size_v<decltype(readings)>> found;
    for (const XmlElement& child : record.Children()) {
        const auto row = std::find_if(part.elements.begin(), part.elements.end(),
                                      [&child](const SkinElement& element) { return element.name == child.Name(); });
        if (row != part.elements.end() && !found[static_cast<std::size_t>(row - part.elements.begin())]) {
            found[static_cast<std::size_t>(row - part.elements.begin())] = child;
        }
    }
    for (std::size_t i = 0; i < part.elements.size(); ++i) {
        Read(i, found[i], pictures);
    }
}

void SkinReadings::Read(std::size_t i, const XmlElement& element, SkinPictures& pictures) {
    const SkinElement& row = part.elements[i];
    SkinReading& reading = readings[i];
    reading.element = element;
    reading.text = row.value.kind == SkinKind::command ? SkinCommand(element) : SkinText(element);
    if (!row.needs.empty() && (*this)[row.needs].state != State::good) {
        reading.state = State::notRead;
    } else if (element || row.without.rule == SkinFallback::Rule::counts) {
        const State state = ReadValue(row.value, reading, pictures);
        reading.state = element ? state : State::missing;
    }
}

const SkinReading& SkinReadings::operator[](std::string_view name) const {
    const auto row = std::find_if(part.elements.begin(), part.elements.end(),
                                  [name](const SkinElement& element) { return element.name == name; });
    return readings[static_cast<std::size_t>(row - part.elements.begin())];
}

State SkinReadings::Required() const {
    State worst = State::good;
    for (std::size_t i = 0; i < part.elements.size(); ++i) {
        const SkinElement& element = part.elements[i];
        if (IsRequired(element) && (element.fault.empty() || !element.value.IsNumber()) &&
            readings[i].state != State::noPicture) {
            worst = std::max(worst, readings[i].state);
        }
    }
    return worst;
}

bool SkinReadings::IsAtFault(std::size_t i) const {
    const SkinElement& element = part.elements[i];
    return !element.fault.empty() &&
           (element.value.IsNumber() ? !readings[i].counts : readings[i].state == State::noPicture);
}

std::vector<SkinProblem> SkinReadings::Problems() const {
    const State required = Required();
    std::vector<std::size_t> culprits;
    std::vector<SkinProblem> problems;
    for (std::size_t i = 0; i < part.elements.size(); ++i) {
        const State state = readings[i].state;
        if (required == State::good && IsAtFault(i)) {
            problems.push_back(ProblemOf(part.elements[i].fault, {i}));
        } else if (required != State::good && IsRequired(part.elements[i]) && state != State::good &&
                   (required != State::missing || state == State::missing)) {
            culprits.push_back(i);
        }
    }
    if (!culprits.empty() && !part.missing.empty()) {
        problems.push_back(ProblemOf(required == State::missing ? part.missing : part.invalid, culprits));
    }
    return problems;
}

SkinProblem SkinReadings::ProblemOf(std::string_view code, const std::vector<std::size_t>& rows) const {
    const XmlElement& first = readings[rows.front()].element;
    SkinProblem problem{first ? first : at, "", std::string(code)};
    for (const std::size_t row : rows) {
        problem.reason += (problem.reason.empty() ? "" : ", ") + Complaint(part.elements[row], readings[row]);
    }
    if (const auto star = problem.code.find('*'); star != std::string::npos) {
        std::string capitals = codeName;
        std::transform(capitals.begin(), capitals.end(), capitals.begin(),
                       [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
        problem.code.replace(star, 1, capitals);
    }
    return problem;
}

bool SkinReadings::Put(SkinTarget& target) const {
    if (Required() != State::good) {
        return false;
    }
    for (std::size_t i = 0; i < part.elements.size(); ++i) {
        const SkinElement& element = part.elements[i];
        if (element.value.kind == SkinKind::image && IsAtFault(i)) {
            return false;
        }
        if (readings[i].counts && element.put != nullptr) {
            element.put(target, readings[i]);
        }
    }
    return true;
}

Font SkinReadings::FontOver(Font base) const {
    for (std::size_t i = 0; i < part.elements.size(); ++i) {
        const SkinReading& reading = readings[i];
        const SkinValue& value = part.elements[i].value;
        if (value.kind == SkinKind::typeface && reading.counts) {
            base.face = reading.text;
        } else if (value.kind == SkinKind::letters) {
            const std::string style = text::Lower(reading.text);
            const auto has = [&](char letter) {
                return style.find(letter) != style.npos && value.words.find(letter) != std::string_view::npos;
            };
            base.bold = base.bold || has('b');
            base.italic = base.italic || has('i');
            base.underline = has('u');
            base.strikethrough = has('s');
        } else if (part.elements[i].name == "font-size" && reading.counts) {
            base.points = std::min(reading.number, mostPoints);
        }
    }
    return base;
}

std::optional<SkinFileFault> FileFaultOf(const XmlDocument& document) {
    if (document.IsEmpty()) {
        return SkinFileFault{document.Fault().line, "skin", "can't be read: " + document.Fault().reason};
    }
    const std::string_view path = "about/for-app-version";
    const XmlElement version = document.First(path);
    const std::string text(SkinText(version));
    if (text == SkinVersionTaken()) {
        return std::nullopt;
    }
    return SkinFileFault{(version ? version : document.First("about")).Line(), std::string(path),
                         (text.empty() ? "missing" : "\"" + std::string(text::Mid(text, 0, 60)) + "\"") +
                             ": this program takes \"" + SkinVersionTaken() + "\" only"};
}

void LogSkinFault(const std::string& folder, int line, const std::string& place, const std::string& reason) {
    Log::Warning("{}{}:{}: {}: {}", folder, skinDataFile, std::max(1, line), place, reason);
}

std::string Complaint(const SkinElement& element, const SkinReading& reading) {
    const std::string name(element.name);
    const std::string value = "\"" + std::string(text::Mid(reading.text, 0, 60)) + "\"";
    switch (reading.state) {
        case State::missing:
            return name + " is missing";
        case State::empty:
            return name + " is empty";
        case State::outOfRange:
        case State::malformed: {
            std::string wanted = InWords(element.value);
            std::erase(wanted, '`');  // the reference's
            return name + " " + value + " must be " + wanted;
        }
        case State::noFile:
            return "there is no file " + value;
        case State::noPicture:
            return name + " " + value + " is no picture";
        case State::good:
        case State::notRead:
            break;
    }
    return {};
}

}  // namespace zvr
