// Single values: numbers, colours, pictures, commands, tokens.

#include "core/commanddispatcher.h"
#include "platform/files.h"
#include "platform/text.h"
#include "skin/check/skinchecker.h"
#include "skin/elements.h"
#include "skin/placeholders.h"
#include "skin/skinner.h"

#include <algorithm>

namespace zvr {
namespace {

std::string Quoted(const std::string& text) {
    return "\"" + std::string(text::Mid(text, 0, 60)) + "\"";
}

std::string Written(double number) {
    std::string text = std::to_string(number);
    text.erase(text.find_last_not_of('0') + 1);
    return text.ends_with('.') ? text.substr(0, text.size() - 1) : text;
}

bool IsColor(const std::string& text) {
    return text.size() == 7 && text[0] == '#' &&
           text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos;
}

}  // namespace

double SkinChecker::Number(const std::string& path) const {
    return SkinNumber(First(path).Text());
}

void SkinChecker::CheckValue(const XmlElement& element, const SkinElementRow& row, const std::string& place) {
    const std::string value = element.Text();
    switch (row.value) {
        case SkinValue::number:
            if (!IsStrictNumber(value)) {
                Warn(element, place,
                     std::string(row.name) + " " + Quoted(value) + " is no plain number, it is read as " +
                         Written(SkinNumber(value)));
            } else if ((row.name == "font-size" || row.name == "row-height") && SkinNumber(value) <= 0) {
                Warn(element, place, std::string(row.name) + " is not above 0: it is passed over");
            }
            break;
        case SkinValue::color:
            if (!IsColor(value)) {
                Warn(element, place, std::string(row.name) + " " + Quoted(value) + " is not #RRGGBB: it becomes black");
            }
            break;
        case SkinValue::strictNumber:
        case SkinValue::image:
        case SkinValue::command:
        case SkinValue::text:
            break;
    }
}

void SkinChecker::CheckCommand(const XmlElement& element, const std::string& place) {
    const std::string command = element.Text();
    if (!IsKnownCommand(command)) {
        Warn(element, place, "the command " + Quoted(command) + " is not known to this version");
    }
}

void SkinChecker::CheckToken(const XmlElement& label, const std::string& form, const std::string& place) {
    const XmlElement element = label.Child("text");
    const std::string token = element.Text();
    if (!token.starts_with("**") || !token.ends_with("**")) {
        return;
    }
    if (token == "**MESSAGEBOXTEXT**") {
        if (form != "messagebox") {
            Warn(element, place, "only the messagebox fills **MESSAGEBOXTEXT**: the label stays empty");
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
    Warn(element, place,
         "the placeholder " + Quoted(token) + " is unknown: the label stays empty" +
             (nearly ? "; it is written " + capitals : ""));
}

void SkinChecker::CheckUnknown(const XmlElement& parent, const std::string& place,
                               const std::vector<std::string_view>& known) {
    std::set<std::string> seen;
    for (const XmlElement& child : parent.Children()) {
        const std::string name = child.Name();
        if (std::find(known.begin(), known.end(), name) == known.end()) {
            Warn(child, place, "nothing reads the element " + name);
        } else if (!seen.insert(name).second) {
            Warn(child, place, "a second " + name + ": the first one counts");
        }
    }
}

SkinChecker::FoundImage SkinChecker::Image(const XmlElement& element, const std::string& place) {
    if (!element || element.Text().empty()) {
        return {};
    }
    const std::string named = element.Text();
    const auto [entry, fresh] = decoded.try_emplace(named);
    FoundImage& found = entry->second;
    if (fresh) {
        std::string relative = named;
        const auto path = [&] { return folder + files::separator + relative; };
        if (!files::Exists(path())) {
            std::replace(relative.begin(), relative.end(), '\\', files::separator);
        }
        if (files::Exists(path())) {
            found = {path(), LoadPicture(path())};
            // By its real place: "images/./a.png" names the file too.
            const std::string real = files::RealPath(path());
            const std::string base = files::RealPath(folder) + files::separator;
            used.insert(real.starts_with(base) ? real.substr(base.size()) : relative);
        }
    }
    if (found.path.empty()) {
        const auto alike = std::find_if(images.begin(), images.end(), [&named](const std::string& image) {
            return text::CompareWithoutCase(image, named) == 0;
        });
        Warn(element, place,
             "there is no file " + Quoted(named) +
                 (alike == images.end() ? "" : "; there is " + Quoted(*alike) + ", and letters count"));
    }
    return found;
}

}  // namespace zvr
