#pragma once

#include "platform/xml.h"
#include "skin/check/skincheck.h"
#include "skin/skinpictures.h"
#include "skin/skinreadings.h"
#include "ui/geometry.h"

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// Pixels of something that stands where the readings say.
[[nodiscard]] Rect PlaceOf(const SkinReadings& readings, Size size);
[[nodiscard]] bool ReachesOut(const Rect& place, Size room);

/// One look at one skin: the walk of a load, with an eye for what passes in silence there.
class SkinChecker {
public:
    explicit SkinChecker(std::string folder);

    void Check();

    SkinReport report;

private:
    /// A button, list or box that a finger aims at.
    struct Target {
        XmlElement element;
        std::string name;
        std::string command;  ///< empty for what is no button
        Rect place;
    };

    // What is found.
    void Warn(const XmlElement& at, const std::string& place, const std::string& reason);
    void Refuse(const XmlElement& at, const std::string& place, const std::string& reason);
    void Refuse(const SkinReadings& readings);

    // The document as a whole.
    [[nodiscard]] bool CheckDocument();
    void CheckVersion();
    void CheckSections();
    void CheckForm(const SkinFormRow& row);
    /// Those of a language, and those that nobody shows.
    void CheckUnnamedImages();
    [[nodiscard]] Size SizeOf(std::string_view form) const;

    // Values.
    /// Tells what a load passes over, and what comes of it. `withoutRequired` comes of a required one that doesn't
    /// count; empty: that is refused.
    void TellValues(const SkinReadings& readings, const std::string& withoutRequired);
    void TellValue(const SkinElement& element, const SkinReading& reading, const SkinReadings& readings,
                   const std::string& withoutRequired);
    void CheckToken(const SkinReadings& label, std::string_view form);
    /// Children that nothing reads, and second ones of a name. `known` are paths below `parent`.
    void CheckUnknown(const XmlElement& parent, const std::string& place, const std::set<std::string>& known,
                      const std::string& below = {});

    // Parts, buttons and labels.
    void CheckPart(const SkinPart& part, std::string_view form);
    void CheckKnob(const SkinReadings& slider);
    void CheckElementName(const SkinReadings& record);
    void CheckButton(const XmlElement& record, const SkinFormRow& row);
    void CheckLabel(const XmlElement& record, std::string_view form);
    void CheckFit(const SkinReadings& label, std::string_view form);
    void CheckOverlaps(const std::string& form);

    const std::string folder;
    XmlDocument document;
    SkinPictures pictures;
    std::vector<std::string> images;  ///< below the folder
    std::set<std::string> used;       ///< of those
    std::vector<Target> targets;      ///< of the screen being looked at
    int count = 0;                    ///< of its buttons or labels
};

}  // namespace zvr
