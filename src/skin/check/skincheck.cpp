#include "skin/check/skincheck.h"

#include "core/numbers.h"
#include "platform/files.h"
#include "platform/text.h"
#include "skin/check/skinchecker.h"
#include "skin/skinner.h"

#include <algorithm>
#include <array>

namespace zvr {
namespace {

constexpr const char* dataFile = "skindata.xml";
constexpr int deepestFolder = 16;

bool IsImageName(const std::string& name) {
    const std::string lower = text::Lower(name);
    constexpr std::array<std::string_view, 5> endings{".png", ".jpg", ".jpeg", ".bmp", ".gif"};
    return std::any_of(endings.begin(), endings.end(),
                       [&lower](std::string_view ending) { return lower.ends_with(ending); });
}

/// Adds the image files of a folder and those below it, their paths counted from `folder`.
void FindImages(const std::string& folder, const std::string& below, int depth, std::vector<std::string>& images) {
    std::vector<std::string> folders;
    files::Enumerate(folder + files::separator + below, [&](const files::Found& found) {
        const std::string name(found.name);
        if ((found.attributes & files::attributeDirectory) != 0) {
            if (name != "..") {
                folders.push_back(below + name + files::separator);
            }
        } else if (IsImageName(name)) {
            images.push_back(below + name);
        }
        return true;
    });
    for (const std::string& next : folders) {
        if (depth < deepestFolder) {
            FindImages(folder, next, depth + 1, images);
        }
    }
}

}  // namespace

bool SkinReport::WouldLoad() const {
    return std::none_of(findings.begin(), findings.end(),
                        [](const SkinFinding& finding) { return finding.keepsFromLoading; });
}

int SkinReport::ExitCode() const {
    return !WouldLoad() ? 2 : findings.empty() ? 0 : 1;
}

SkinReport CheckSkin(const std::string& folder) {
    SkinChecker checker(folder);
    checker.Check();
    std::stable_sort(checker.report.findings.begin(), checker.report.findings.end(),
                     [](const SkinFinding& a, const SkinFinding& b) {
                         const bool aData = a.file == dataFile;
                         const bool bData = b.file == dataFile;
                         return aData != bData ? aData : std::pair(a.file, a.line) < std::pair(b.file, b.line);
                     });
    return checker.report;
}

std::string LineOf(const SkinFinding& finding, const std::string& folder) {
    return folder + files::separator + finding.file + ":" + std::to_string(finding.line) + ": " + finding.place + ": " +
           finding.reason;
}

SkinChecker::SkinChecker(std::string folder) : folder(std::move(folder)) {}

void SkinChecker::Check() {
    FindImages(folder, "", 0, images);
    if (!CheckDocument()) {
        return;
    }
    CheckVersion();
    CheckGeneral();
    CheckSections();
    for (const SkinFormRow& form : SkinForms()) {
        CheckForm(form);
    }
    CheckUnusedImages();
}

void SkinChecker::Warn(const XmlElement& at, const std::string& place, const std::string& reason) {
    report.findings.push_back({dataFile, at ? LineAt(at.Offset()) : 1, place, reason, false});
}

void SkinChecker::Refuse(const XmlElement& at, const std::string& place, const std::string& reason) {
    report.findings.push_back({dataFile, at ? LineAt(at.Offset()) : 1, place, reason + " (would not load)", true});
}

void SkinChecker::Refuse(const XmlElement& at, const std::string& place, const std::string& reason, SkinFault fault,
                         std::string_view name) {
    Refuse(at, place, reason + ", " + SkinFaultCode(fault, name));
}

int SkinChecker::LineAt(std::ptrdiff_t offset) const {
    if (offset < 0) {
        return 1;
    }
    const auto next = std::upper_bound(lineStarts.begin(), lineStarts.end(), static_cast<std::size_t>(offset));
    return static_cast<int>(next - lineStarts.begin());
}

bool SkinChecker::CheckDocument() {
    const auto source = files::Read(folder + files::separator + dataFile);
    if (!source) {
        Refuse({}, "skin", "there is no skindata.xml that can be read");
        return false;
    }
    lineStarts.push_back(0);
    for (std::size_t at = source->find('\n'); at != std::string::npos; at = source->find('\n', at + 1)) {
        lineStarts.push_back(at + 1);
    }
    document = XmlDocument::Parse(*source);
    if (document.IsEmpty()) {
        report.findings.push_back({dataFile, LineAt(document.FaultOffset()), "skin",
                                   "not well-formed XML: nothing of it can be used (would not load)", true});
        return false;
    }
    return true;
}

void SkinChecker::CheckVersion() {
    const XmlElement version = First("about/for-app-version");
    const std::string ours = std::to_string(ZVR_VERSION_MAJOR) + "." + std::to_string(ZVR_VERSION_MINOR);
    if (!version || version.Text().empty()) {
        Refuse(version ? version : First("about"), "about/for-app-version", "missing: it must be " + ours);
    } else if (version.Text() != ours) {
        Refuse(version, "about/for-app-version",
               "\"" + version.Text() + "\": this program takes \"" + ours + "\" only");
    }
}

void SkinChecker::CheckGeneral() {
    for (const SkinElementRow& row : GeneralRows()) {
        if (const XmlElement element = First("general/" + std::string(row.name))) {
            CheckValue(element, row, "general/" + std::string(row.name));
        }
    }
    CheckExtent("general/width", Number("general/width") <= 100, "must be above 100 pixels", SkinFault::generalWidth);
    CheckExtent("general/height", Number("general/height") <= 100, "must be above 100 pixels",
                SkinFault::generalHeight);
    const XmlElement background = First("general/background-image");
    if (const FoundImage image = Image(background, "general/background-image");
        !image.path.empty() && image.picture == nullptr) {
        Refuse(background, "general/background-image", background.Text() + " is no picture",
               SkinFault::generalBackground, {});
    }
}

void SkinChecker::CheckSections() {
    std::set<std::string> seen;
    for (const XmlElement& section : document.Root().Children()) {
        const std::string name = section.Name();
        const auto forms = SkinForms();
        const bool isForm =
            std::any_of(forms.begin(), forms.end(), [&](const auto& form) { return form.name == name; });
        if (!isForm && name != "about" && name != "general") {
            Warn(section, name, "no screen has this name: the section is not read");
        } else if (!seen.insert(name).second) {
            Warn(section, name, "a second section of this name: what the first one has counts");
        }
    }
}

void SkinChecker::CheckForm(const SkinFormRow& row) {
    const std::string form(row.name);
    const XmlElement section = First(form);
    if (!section) {
        Warn(document.Root(), form, "no section: the screen stays black and has no buttons");
    }
    targets.clear();
    std::vector<std::string_view> known{"buttons", "labels"};
    for (const SkinElementRow& element : FormRows()) {
        known.push_back(element.name);
        if (const XmlElement found = First(form + "/" + std::string(element.name))) {
            CheckValue(found, element, form + "/" + std::string(element.name));
        } else if (section && element.value == SkinValue::color) {
            Warn(section, form, std::string(element.name) + " is missing: it becomes black, whatever general says");
        }
    }
    const XmlElement background = First(form + "/background-image");
    if (const FoundImage image = Image(background, form + "/background-image");
        !image.path.empty() && image.picture == nullptr) {
        Refuse(background, form + "/background-image", background.Text() + " is no picture", SkinFault::formBackground,
               form);
    }
    for (const SkinPart& part : SkinParts()) {
        if (part.form == form) {
            CheckPart(part);
            known.push_back(part.path.substr(0, part.path.find('/')));
            for (const SkinElementRow& element : part.rows) {
                if (part.path.empty()) {
                    known.push_back(element.name);
                }
            }
        }
    }
    CheckUnknown(section, form, known);
    count = 0;
    for (const XmlElement& button : First(form + "/buttons").Children()) {
        CheckButton(button, form);
    }
    count = 0;
    for (const XmlElement& label : First(form + "/labels").Children()) {
        CheckLabel(label, form);
    }
    CheckOverlaps(form);
}

Size SkinChecker::SizeOf(std::string_view form) const {
    const std::string name(form);
    Size size{static_cast<int>(Number("general/width")), static_cast<int>(Number("general/height"))};
    const bool box = form == "messagebox" || form == "smsbox" || form == "quickbarfloating";
    if (box) {
        size.width = static_cast<int>(Number(name + "/width"));
    }
    if (box || form == "quickbardocked") {
        size.height = static_cast<int>(Number(name + "/height"));
    }
    return size;
}

void SkinChecker::CheckUnusedImages() {
    for (const std::string& image : images) {
        if (!used.contains(image)) {
            report.findings.push_back({image, 1, "image", "nothing in skindata.xml names it", false});
        }
    }
}

}  // namespace zvr
