#pragma once

#include "skin/skintable.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

class SkinPictures;

/// Something that is reported, and keeps the skin from counting as loaded.
struct SkinProblem {
    XmlElement at;
    std::string reason;
    std::string code;
};

/// What the skin's file has of all elements of a part, a button or a label.
class SkinReadings {
public:
    /// Of a part of a screen: each from the first element at its path, such as "gps/dash/posx".
    SkinReadings(const SkinPart& part, std::string_view form, const XmlDocument& document, SkinPictures& pictures);
    /// Of a button or a label, from its children.
    SkinReadings(const SkinPart& part, std::string_view form, const XmlElement& record, SkinPictures& pictures);

    const SkinPart& part;
    const std::string place;  ///< such as "gps/dash", for authors
    const XmlElement at;      ///< the element of the part, else the screen's section, else none

    [[nodiscard]] const SkinReading& operator[](std::size_t i) const { return readings[i]; }
    [[nodiscard]] const SkinReading& operator[](std::string_view name) const;  ///< an element of the part

    /// The worst state of the required elements. Those with a code of their own, and pictures that can't be decoded,
    /// keep nothing else from counting.
    [[nodiscard]] SkinReading::State Required() const;
    /// All that is reported, in order: either of the required elements, or of single ones.
    [[nodiscard]] std::vector<SkinProblem> Problems() const;
    /// Puts each value where it goes, up to a picture that is at fault: false there, and if the required ones do not
    /// count.
    bool Put(SkinTarget& target) const;

    /// Typeface, size and style over those of `base`. What is bold or italic there stays so.
    [[nodiscard]] Font FontOver(Font base) const;

private:
    void Read(std::size_t i, const XmlElement& element, SkinPictures& pictures);
    [[nodiscard]] SkinProblem ProblemOf(std::string_view code, const std::vector<std::size_t>& rows) const;
    [[nodiscard]] bool IsAtFault(std::size_t i) const;

    const std::string codeName;
    std::array<SkinReading, 16> readings;
};

/// What is wrong with a skin's file as a whole.
struct SkinFileFault {
    int line = 1;
    std::string place;
    std::string reason;
};
/// None for a file that can be read and is of this version.
[[nodiscard]] std::optional<SkinFileFault> FileFaultOf(const XmlDocument& document);

/// What a load reports by a code, with the place in the file, for the skin's author.
void LogSkinFault(const std::string& folder, int line, const std::string& place, const std::string& reason);

/// What is wrong with the text of an element; empty for nothing.
[[nodiscard]] std::string Complaint(const SkinElement& element, const SkinReading& reading);

}  // namespace zvr
