// Lists, boxes, sliders and areas.

#include "core/numbers.h"
#include "skin/check/skinchecker.h"
#include "skin/skinner.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zvr {
namespace {

bool ReachesOut(Rect place, Size form) {
    return place.x + place.width > form.width || place.y + place.height > form.height;
}

std::string Pixels(double value) {
    return std::to_string(static_cast<long>(std::lround(value)));
}

}  // namespace

void SkinChecker::CheckExtent(const std::string& path, bool tooSmall, const std::string& reason, SkinFault fault) {
    if (tooSmall) {
        const XmlElement element = First(path);
        const XmlElement section = First(path.substr(0, path.find('/')));
        Refuse(element ? element : section, path, (element ? "\"" + element.Text() + "\" " : "missing, ") + reason,
               fault, {});
    }
}

void SkinChecker::CheckPart(const SkinPart& part) {
    const std::string form(part.form);
    const std::string path = form + (part.path.empty() ? "" : "/") + std::string(part.path);
    XmlElement at = First(path);
    if (!at) {
        at = First(form);
    }
    std::vector<std::string_view> known;
    for (const SkinElementRow& row : part.rows) {
        known.push_back(row.name);
        const XmlElement element = First(path + "/" + std::string(row.name));
        if (element) {
            CheckValue(element, row, path);
        } else if (row.value == SkinValue::color) {
            Warn(at, path, std::string(row.name) + " is missing: it becomes black");
        }
    }
    if (form == "quickbardocked" || form == "quickbarfloating") {
        const auto below = [this](const std::string& extent) { return RoundHalfEven(Number(extent)) < 1; };
        const bool floating = form == "quickbarfloating";
        if (floating) {
            CheckExtent(form + "/width", below(form + "/width"), "must be at least 1 pixel", SkinFault::floatingWidth);
        }
        CheckExtent(form + "/height", below(form + "/height"), "must be at least 1 pixel",
                    floating ? SkinFault::floatingHeight : SkinFault::dockedHeight);
        return;
    }
    if (part.path == "dash") {
        known.push_back("needle");
    }
    if (!part.path.empty()) {
        CheckUnknown(First(path), path, known);
    }
    const bool placed = CheckPlace(part, path, at);
    CheckPartPictures(part, path);
    if (placed && path.ends_with("slider")) {
        CheckKnob(path);
    }
    if (part.path == "dash/needle") {
        CheckNeedle(path);
    }
    const XmlElement allow = First("mainmenu/user-pic/allow");
    if (part.path == "user-pic" && allow && allow.Text() != "yes" && allow.Text() != "no") {
        Warn(allow, path, "allow \"" + allow.Text() + "\" is not exactly \"yes\": no picture shows");
    }
}

bool SkinChecker::CheckPlace(const SkinPart& part, const std::string& path, const XmlElement& at) {
    constexpr std::array<std::string_view, 4> names{"posx", "posy", "width", "height"};
    if (part.rule == SkinPlaceRule::none) {
        return false;
    }
    std::array<double, 4> pixels{};
    std::string missing;
    for (std::size_t i = part.rule == SkinPlaceRule::sizeAlone ? 2 : 0; i < names.size(); ++i) {
        const XmlElement element = First(path + "/" + std::string(names[i]));
        pixels[i] = SkinNumber(element.Text());
        if (!element) {
            missing += (missing.empty() ? "" : ", ") + std::string(names[i]);
        }
    }
    if (!missing.empty()) {
        Refuse(at, path, "lacks " + missing, part.placeMissing, part.faultName);
        return false;
    }
    const auto [x, y, width, height] = pixels;
    const bool heightFits = part.rule == SkinPlaceRule::bothAboveZero ? height > 0 : height >= 0;
    if (x < 0 || y < 0 || width <= 0 || !heightFits) {
        Refuse(
            at, path,
            "no position and size can be " + Pixels(x) + "," + Pixels(y) + " " + Pixels(width) + "x" + Pixels(height),
            part.placeInvalid, part.faultName);
        return false;
    }
    const Rect place{static_cast<int>(x), static_cast<int>(y), static_cast<int>(width), static_cast<int>(height)};
    if (part.rule != SkinPlaceRule::sizeAlone && ReachesOut(place, SizeOf(part.form))) {
        Warn(at, path, "reaches out of the screen");
    }
    if (part.takesTouches) {
        targets.push_back({at, path.substr(path.find('/') + 1), "", place});
    }
    return true;
}

void SkinChecker::CheckPartPictures(const SkinPart& part, const std::string& path) {
    for (const SkinElementRow& row : part.rows) {
        if (row.value != SkinValue::image) {
            continue;
        }
        const XmlElement element = First(path + "/" + std::string(row.name));
        const FoundImage image = Image(element, path);
        if (image.path.empty() || image.picture != nullptr) {
            continue;
        }
        const std::string reason = std::string(row.name) + " " + element.Text() + " is no picture";
        const auto fault = std::find_if(part.pictures.begin(), part.pictures.end(),
                                        [&row](const SkinPictureFault& known) { return known.element == row.name; });
        if (fault == part.pictures.end()) {
            Warn(element, path, reason);
        } else {
            Refuse(element, path, reason, fault->fault, {});
        }
    }
}

void SkinChecker::CheckNeedle(const std::string& path) {
    for (const char* name : {"length", "center-size", "offset", "stepping"}) {
        const XmlElement element = First(path + "/" + name);
        const double value = SkinNumber(element.Text());
        const bool isOffset = std::string_view(name) == "offset";
        const bool fits = isOffset ? value >= 0 && value < 360 : value > 0 && value < 9999;
        if (element && !fits) {
            Warn(element, path, std::string(name) + " \"" + element.Text() + "\" is out of range: it is passed over");
        }
    }
}

void SkinChecker::CheckKnob(const std::string& path) {
    const XmlElement image = First(path + "/slider-image");
    const XmlElement width = First(path + "/slider-width");
    const XmlElement at = width ? width : image ? image : First(path);
    const auto pixels = static_cast<double>(RoundHalfEven(SkinNumber(width.Text())));
    if (!image || image.Text().empty()) {
        Warn(at, path, "has no slider-image: the slider has no knob");
    } else if (pixels < 1) {
        Warn(at, path, "slider-width is missing or below 1: the slider has no knob");
    } else if (pixels >= Number(path + "/width")) {
        Warn(at, path, "the knob is as wide as its track: the slider can't be used");
    }
}

}  // namespace zvr
