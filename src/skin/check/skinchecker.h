#pragma once

#include "platform/picture.h"
#include "platform/xml.h"
#include "skin/check/skincheck.h"
#include "skin/check/skintree.h"
#include "ui/geometry.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// One look at one skin.
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
    struct FoundImage {
        std::string path;  ///< empty: there is no such file
        PicturePointer picture;
    };

    // What is found.
    void Warn(const XmlElement& at, const std::string& place, const std::string& reason);
    void Refuse(const XmlElement& at, const std::string& place, const std::string& reason);
    void Refuse(const XmlElement& at, const std::string& place, const std::string& reason, SkinFault fault,
                std::string_view name);
    [[nodiscard]] int LineAt(std::ptrdiff_t offset) const;

    // The document as a whole.
    [[nodiscard]] bool CheckDocument();
    void CheckVersion();
    void CheckGeneral();
    void CheckSections();
    void CheckForm(const SkinFormRow& row);
    [[nodiscard]] Size SizeOf(std::string_view form) const;
    void CheckUnusedImages();

    // Values.
    [[nodiscard]] XmlElement First(const std::string& path) const { return document.First("//" + path); }
    [[nodiscard]] double Number(const std::string& path) const;
    void CheckValue(const XmlElement& element, const SkinElementRow& row, const std::string& place);
    void CheckCommand(const XmlElement& element, const std::string& place);
    void CheckToken(const XmlElement& label, const std::string& form, const std::string& place);
    void CheckUnknown(const XmlElement& parent, const std::string& place, const std::vector<std::string_view>& known);
    /// Says that it is missing, if it is.
    FoundImage Image(const XmlElement& element, const std::string& place);

    // Parts, buttons and labels.
    void CheckExtent(const std::string& path, bool tooSmall, const std::string& reason, SkinFault fault);
    void CheckPart(const SkinPart& part);
    [[nodiscard]] bool CheckPlace(const SkinPart& part, const std::string& path, const XmlElement& at);
    void CheckPartPictures(const SkinPart& part, const std::string& path);
    void CheckNeedle(const std::string& path);
    void CheckKnob(const std::string& path);
    void CheckButton(const XmlElement& button, const std::string& form);
    void CheckLabel(const XmlElement& label, const std::string& form);
    void CheckColors(const XmlElement& label, const std::string& place);
    void CheckFit(const XmlElement& label, const std::string& form, const std::string& place);
    [[nodiscard]] bool HasAll(const XmlElement& element, std::span<const SkinElementRow> rows, const std::string& place,
                              const std::string& consequence);
    void CheckOverlaps(const std::string& form);

    const std::string folder;
    XmlDocument document;
    std::vector<std::size_t> lineStarts;
    std::vector<std::string> images;            ///< below the folder
    std::set<std::string> used;                 ///< of those
    std::map<std::string, FoundImage> decoded;  ///< by the text that names them
    std::vector<Target> targets;                ///< of the screen being looked at
    int count = 0;                              ///< of its buttons or labels
};

}  // namespace zvr
