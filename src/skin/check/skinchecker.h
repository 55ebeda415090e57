#pragma once

#include "platform/xml.h"
#include "skin/check/skincheck.h"
#include "skin/skinpictures.h"
#include "skin/skinreadings.h"
#include "ui/geometry.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

class NearestName;

/// Pixels of something that stands where the readings say.
[[nodiscard]] Rect PlaceOf(const SkinReadings& readings, Size size);
[[nodiscard]] int Whole(const SkinReading& number);
[[nodiscard]] std::string InPixels(Size size);            ///< "800x480"
[[nodiscard]] std::string Quoted(std::string_view text);  ///< its beginning, on one line

/// One look at one skin: the walk of a load, with an eye for what passes in silence there.
class SkinChecker {
public:
    SkinChecker(std::string folder, const std::vector<SkinLanguage>& languages);

    void Check();

    SkinReport report;

private:
    /// A button, or the text of a label.
    struct Item {
        XmlElement element;
        std::string name;
        std::string command;  ///< empty for a label
        Rect place;
    };
    /// A part of the screen that lies over buttons and labels.
    struct Cover {
        std::string name;
        Rect place;
    };
    /// Something that many elements name and that isn't there: one fault, one line.
    struct Missing {
        XmlElement first;  ///< in the file
        std::string place;
        int times = 0;

        void Add(const XmlElement& at, const std::string& where, int more = 1) {
            if (times == 0 || at.Line() < first.Line()) {
                first = at;
                place = where;
            }
            times += more;
        }
    };

    // What is found.
    void Warn(const XmlElement& at, const std::string& place, const std::string& reason);
    /// "; is it ...?" with the nearest of the names that are offered; empty without a near one.
    [[nodiscard]] std::string Hint(std::string_view wanted, const std::function<void(NearestName&)>& offer);
    void Refuse(const XmlElement& at, const std::string& place, const std::string& reason);
    void Refuse(const SkinReadings& readings);

    // The document as a whole.
    [[nodiscard]] bool CheckDocument();
    void CheckSections();
    void CheckForm(const SkinFormRow& row);
    /// Those of a language, and those that nobody shows.
    void CheckUnnamedImages();
    void CheckSpokenImage(const std::string& image, const std::string& original);
    /// None if it is refused: then nobody says what reaches out of it.
    [[nodiscard]] std::optional<Size> SizeOf(std::string_view form) const;
    void TellOutside(const SkinReadings& readings, const Rect& place, std::string_view form);

    // Values.
    /// Tells what a load passes over, and what comes of it. `withoutRequired` comes of a required one that doesn't
    /// count; empty: that is refused.
    void TellValues(const SkinReadings& readings, const std::string& withoutRequired);
    void TellValue(const SkinElement& element, const SkinReading& reading, const SkinReadings& readings,
                   const std::string& withoutRequired);
    void CheckGoodValue(const SkinElement& element, const SkinReading& reading, const std::string& place);
    void CheckToken(const SkinReadings& label, std::string_view form);
    void TellMissingFiles();
    void TellUnknownCommands();
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
    void CheckWidth(const SkinReadings& label, std::string_view text, const std::string& language);
    void CheckLanguageKey(const SkinReadings& label);

    // What a driver needs.
    void CheckOverlaps(const std::string& form);
    void CheckCovered(const std::string& form);
    void CheckWaysOut(const SkinFormRow& row);
    void CheckRoomForText(const SkinReadings& readings);
    void CheckColors(const SkinReadings& readings, std::string_view ink, std::string_view ground);
    void CheckInk(const SkinReadings& label, std::string_view form);
    void CheckBoxSize(const SkinReadings& box);

    const std::string folder;
    const std::vector<SkinLanguage>& languages;
    XmlDocument document;
    SkinPictures pictures;
    std::vector<std::string> images;  ///< below the folder
    std::set<std::string> used;       ///< of those
    std::set<PicturePointer> decoded;
    std::map<std::string, Missing> missingFiles;
    std::map<std::string, Missing> unknownCommands;
    int hints = 0;  ///< looked for

    // Of the screen being looked at.
    std::vector<Item> buttons;
    std::set<std::string_view> offered;  ///< commands, also of buttons whose picture is missing
    std::vector<Item> labels;
    std::vector<Cover> covers;
    bool showsMessage = false;  ///< a label is there for it
    int count = 0;              ///< of its buttons or labels
};

}  // namespace zvr
