#pragma once

#include "platform/picture.h"
#include "platform/xml.h"

#include <limits>
#include <string>
#include <string_view>

namespace zvr {

/// How the text of an element is read.
enum class SkinKind {
    number,        ///< as far as the text goes: "12px" is 12, "x" is 0
    wholeNumber,   ///< the same, rounded
    strictNumber,  ///< the whole text, or the program ends
    color,         ///< #RRGGBB; anything else is black
    image,         ///< a file below the skin's folder
    command,
    text,
    typeface,
    letters,  ///< those of `words`, in either case; others mean nothing
    word,     ///< one of `words`
};

/// What a number must be.
struct SkinRange {
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();
    bool aboveLeast = false;  ///< the least itself is out
    bool belowMost = false;   ///< the most itself is out

    [[nodiscard]] constexpr bool Holds(double number) const {
        return (aboveLeast ? number > least : number >= least) && (belowMost ? number < most : number <= most);
    }
};

/// What the text of an element must be.
struct SkinValue {
    SkinKind kind = SkinKind::text;
    std::string_view unit{};  ///< of numbers; of texts what is wanted
    SkinRange range{};
    std::string_view words{};      ///< parted by blanks; of letters one after the other
    std::string_view otherwise{};  ///< the word that any other text counts as
    bool anyCase = false;          ///< of the words

    [[nodiscard]] constexpr bool IsNumber() const { return kind <= SkinKind::strictNumber; }
};

/// What counts when an element isn't there.
struct SkinFallback {
    enum class Rule {
        required,  ///< nothing of the part, the button or the label counts
        stays,     ///< what was there before
        counts,    ///< 0, black, the empty text
    };
    Rule rule = Rule::required;
    std::string_view text{};  ///< for authors
};

/// What the skin's file has of an element.
struct SkinReading {
    enum class State {
        good,
        noPicture,  ///< a file that can't be decoded
        notRead,    ///< what it needs is not there
        empty,
        outOfRange,
        noFile,
        malformed,  ///< no strict number, no colour, none of the words
        missing,
    };
    State state = State::missing;
    bool counts = false;  ///< goes where it belongs, whatever its state
    XmlElement element;   ///< none if it is missing
    std::string_view text;
    double number = 0;
    Color color = 0;
    PicturePointer picture;
};

inline constexpr const char* skinDataFile = "skindata.xml";

/// What about/for-app-version must read: major and minor number of this program.
[[nodiscard]] std::string SkinVersionTaken();

/// The text of an element without the blanks and line ends around it.
[[nodiscard]] std::string_view SkinText(const XmlElement& element);

/// "#RRGGBB"; black for anything else.
[[nodiscard]] Color ParseSkinColor(std::string_view text);
[[nodiscard]] bool IsSkinColor(std::string_view text);

/// The number that a skin's text begins with, kept within what a screen can have.
[[nodiscard]] double SkinNumber(std::string_view text);

/// True for whole texts that are a number, blanks around it aside.
[[nodiscard]] bool IsStrictNumber(std::string_view text);

/// As an author would write it: "1.5".
[[nodiscard]] std::string Written(double number);

/// What a number must be, in words: "above 0, below 9999"; empty for any.
[[nodiscard]] std::string InWords(const SkinRange& range);
/// What a value must be: "pixels, at least 0".
[[nodiscard]] std::string InWords(const SkinValue& value);

}  // namespace zvr
