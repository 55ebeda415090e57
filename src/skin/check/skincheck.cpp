#include "skin/check/skincheck.h"

#include "platform/files.h"
#include "platform/text.h"
#include "skin/check/nearest.h"
#include "skin/check/skinchecker.h"
#include "skin/keyboardpictures.h"

#include <algorithm>
#include <array>

namespace zvr {
namespace {

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

/// "images/a.png" of "images/de/a.png": what a picture stands in for where the program speaks a language. Empty for a
/// file that lies in no folder.
std::string OriginalOf(const std::string& image) {
    const auto name = image.rfind(files::separator);
    if (name == std::string::npos) {
        return {};
    }
    const auto above = name == 0 ? std::string::npos : image.rfind(files::separator, name - 1);
    return image.substr(0, above == std::string::npos ? 0 : above + 1) + image.substr(name + 1);
}

/// All that may stand below a screen's section, but for what is in its buttons and labels.
std::set<std::string> KnownBelow(std::string_view form) {
    std::set<std::string> known{"buttons", "labels"};
    const auto add = [&known](const SkinPart& part) {
        for (const SkinElement& element : part.elements) {
            known.insert(std::string(part.path) + (part.path.empty() ? "" : "/") + std::string(element.name));
        }
    };
    add(SectionPart());
    for (const SkinPart& part : SkinParts()) {
        if (part.form == form) {
            add(part);
        }
    }
    return known;
}

}  // namespace

bool SkinReport::WouldLoad() const {
    return std::none_of(findings.begin(), findings.end(),
                        [](const SkinFinding& finding) { return finding.keepsFromLoading; });
}

int SkinReport::ExitCode() const {
    return !WouldLoad() ? 2 : findings.empty() ? 0 : 1;
}

SkinReport CheckSkin(const std::string& folder, const std::vector<SkinLanguage>& languages) {
    SkinChecker checker(folder, languages);
    checker.Check();
    std::stable_sort(checker.report.findings.begin(), checker.report.findings.end(),
                     [](const SkinFinding& a, const SkinFinding& b) {
                         const bool aData = a.file == skinDataFile;
                         const bool bData = b.file == skinDataFile;
                         return aData != bData ? aData : std::pair(a.file, a.line) < std::pair(b.file, b.line);
                     });
    return checker.report;
}

std::string LineOf(const SkinFinding& finding, const std::string& folder) {
    return folder + files::separator + finding.file + ":" + std::to_string(finding.line) + ": " + finding.place + ": " +
           finding.reason;
}

SkinChecker::SkinChecker(std::string folder, const std::vector<SkinLanguage>& languages)
    : folder(std::move(folder)), languages(languages), pictures(this->folder + files::separator, "") {}

void SkinChecker::Check() {
    FindImages(folder, "", 0, images);
    std::sort(images.begin(), images.end());
    if (!CheckDocument()) {
        return;
    }
    CheckSections();
    CheckPart(GeneralPart(), "general");
    for (const SkinFormRow& form : SkinForms()) {
        CheckForm(form);
    }
    TellUnknownCommands();
    TellMissingFiles();
    CheckUnnamedImages();
}

void SkinChecker::Warn(const XmlElement& at, const std::string& place, const std::string& reason) {
    report.findings.push_back({skinDataFile, std::max(1, at.Line()), place, reason, false});
}

void SkinChecker::Refuse(const XmlElement& at, const std::string& place, const std::string& reason) {
    report.findings.push_back({skinDataFile, std::max(1, at.Line()), place, reason + " (would not load)", true});
}

void SkinChecker::Refuse(const SkinReadings& readings) {
    for (const SkinProblem& problem : readings.Problems()) {
        Refuse(problem.at, readings.place, problem.reason + ", " + problem.code);
    }
}

bool SkinChecker::CheckDocument() {
    document = XmlDocument::Load(folder + files::separator + skinDataFile);
    if (const auto fault = FileFaultOf(document)) {
        report.findings.push_back(
            {skinDataFile, std::max(1, fault->line), fault->place, fault->reason + " (would not load)", true});
    }
    return !document.IsEmpty();
}

void SkinChecker::CheckSections() {
    std::set<std::string_view> seen;
    for (const XmlElement& section : document.Root().Children()) {
        const std::string name(section.Name());
        if (FindSkinForm(name) == nullptr && name != "about" && name != "general") {
            Warn(section, name,
                 "no screen has this name: the section is not read" + Hint(name, [](NearestName& nearest) {
                     nearest.Consider("general");
                     for (const SkinFormRow& row : SkinForms()) {
                         nearest.Consider(row.name);
                     }
                 }));
        } else if (!seen.insert(section.Name()).second) {
            Warn(section, name, "a second section of this name: what the first one has counts");
        }
    }
}

void SkinChecker::CheckForm(const SkinFormRow& row) {
    const std::string form(row.name);
    buttons.clear();
    offered.clear();
    labels.clear();
    covers.clear();
    showsMessage = false;
    const XmlElement section = document.First(form);
    if (section) {
        CheckPart(SectionPart(), form);
        CheckUnknown(section, form, KnownBelow(form));
    } else {
        Warn(document.Root(), form, "no section: the screen stays black and has no buttons");
    }
    for (const SkinPart& part : SkinParts()) {
        if (part.form == form) {
            CheckPart(part, form);
        }
    }
    count = 0;
    for (const XmlElement& button : document.First(form + "/buttons").Children()) {
        CheckButton(button, row);
    }
    count = 0;
    for (const XmlElement& label : document.First(form + "/labels").Children()) {
        CheckLabel(label, form);
    }
    CheckOverlaps(form);
    CheckCovered(form);
    if (section) {
        CheckWaysOut(row);
    }
}

void SkinChecker::CheckPart(const SkinPart& part, std::string_view form) {
    const SkinReadings readings(part, form, document, pictures);
    Refuse(readings);
    TellValues(readings, "");
    if (readings.Required() != SkinReading::State::good) {
        return;
    }
    if (part.area == SkinArea::box) {
        CheckBoxSize(readings);
    }
    if (part.area == SkinArea::touched || part.area == SkinArea::covers) {
        const Rect place = PlaceOf(readings, {Whole(readings["width"]), Whole(readings["height"])});
        TellOutside(readings, place, form);
        covers.push_back({std::string(part.path), place});
        CheckRoomForText(readings);
    }
    if (part.path.ends_with("slider")) {
        CheckKnob(readings);
    }
}

void SkinChecker::CheckKnob(const SkinReadings& slider) {
    const SkinReading& width = slider["slider-width"];
    if (!width.counts || slider["slider-image"].text.empty()) {
        Warn(slider.at, slider.place, "lacks slider-width or slider-image: the slider has no knob");
    } else if (width.number >= slider["width"].number) {
        Warn(width.element, slider.place, "the knob is as wide as its track: the slider can't be used");
    }
}

std::optional<Size> SkinChecker::SizeOf(std::string_view form) const {
    bool refused = false;
    const auto extent = [&](const char* name) {
        const auto parts = SkinParts();
        const bool own = std::any_of(parts.begin(), parts.end(), [&](const SkinPart& part) {
            return part.form == form && part.area == SkinArea::box &&
                   std::any_of(part.elements.begin(), part.elements.end(),
                               [&](const SkinElement& element) { return element.name == name; });
        });
        const std::string path = (own ? std::string(form) : "general") + "/" + name;
        const double pixels = SkinNumber(SkinText(document.First(path)));
        refused = refused || pixels < (own ? 1 : 101);
        return static_cast<int>(pixels);
    };
    const Size size{extent("width"), extent("height")};
    return refused ? std::nullopt : std::optional(size);
}

void SkinChecker::TellOutside(const SkinReadings& readings, const Rect& place, std::string_view form) {
    const auto room = SizeOf(form);
    if (room && (place.x + place.width > room->width || place.y + place.height > room->height)) {
        Warn(readings.at, readings.place, "reaches out of the screen of " + InPixels(*room));
    }
}

void SkinChecker::CheckUnnamedImages() {
    std::map<std::string, std::vector<std::string>> unnamed;  // by folder
    std::set<std::string> namedFolders;
    for (const std::string& image : images) {
        const std::string original = OriginalOf(image);
        if (IsKeyboardPicture(image)) {
            continue;
        }
        if (used.contains(image)) {
            namedFolders.insert(files::FolderOf(image));
        } else if (original.empty() || !used.contains(original)) {
            unnamed[files::FolderOf(image)].push_back(image);
        } else {
            CheckSpokenImage(image, original);
        }
    }
    for (const auto& [below, files] : unnamed) {
        const bool whole = !below.empty() && files.size() > 1 && !namedFolders.contains(below);
        for (const std::string& image : files) {
            report.findings.push_back({image, 1, "image",
                                       whole ? "nothing in skindata.xml names any of the " +
                                                   std::to_string(files.size()) + " pictures of this folder"
                                             : "nothing in skindata.xml names it",
                                       false});
            if (whole) {
                break;
            }
        }
    }
}

void SkinChecker::CheckSpokenImage(const std::string& image, const std::string& original) {
    const SkinPictures::Found& named = pictures.Find(original);
    const SkinPictures::Found& spoken = pictures.Find(image);
    if (spoken.picture == nullptr) {
        report.findings.push_back({image, 1, "image", "is no picture (would not load in this language)", true});
    } else if (named.picture != nullptr && named.picture->PixelSize() != spoken.picture->PixelSize()) {
        report.findings.push_back(
            {image, 1, "image", "another size than " + original + ", which it stands in for", false});
    }
}

}  // namespace zvr
