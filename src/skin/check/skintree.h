#pragma once

#include "skin/skinfaults.h"

#include <optional>
#include <span>
#include <string_view>

namespace zvr {

/// How the text of an element is read.
enum class SkinValue { number, strictNumber, color, image, command, text };

/// One element that carries a value.
struct SkinElementRow {
    std::string_view name;
    SkinValue value;
    bool required;
    std::string_view range;     ///< for authors: unit and what is allowed
    std::string_view fallback;  ///< for authors: what counts when it is missing
    std::string_view meaning;
};

/// What its position and size must hold.
enum class SkinPlaceRule { none, bothAboveZero, heightMayBeZero, sizeAlone };

/// A picture of a part that must be one if it is there.
struct SkinPictureFault {
    std::string_view element;
    SkinFault fault;
};

/// A part of a screen with a look of its own: a list, a box, an area.
struct SkinPart {
    std::string_view form;
    std::string_view path;  ///< below the screen's section, such as "imgdisplay/preview"; empty for the section itself
    std::string_view meaning;
    std::span<const SkinElementRow> rows;
    SkinPlaceRule rule = SkinPlaceRule::none;
    SkinFault placeMissing{};
    SkinFault placeInvalid{};
    std::string_view faultName{};  ///< stands in the code for the star
    std::span<const SkinPictureFault> pictures{};
    bool takesTouches = false;
};

struct SkinFormRow {
    std::string_view name;
    std::string_view meaning;
};

/// The 14 screens, in the order in which authors think of them.
[[nodiscard]] std::span<const SkinFormRow> SkinForms();
[[nodiscard]] std::span<const SkinElementRow> GeneralRows();
[[nodiscard]] std::span<const SkinElementRow> FormRows();  ///< of every screen's section
[[nodiscard]] std::span<const SkinElementRow> ButtonRows();
[[nodiscard]] std::span<const SkinElementRow> LabelRows();
[[nodiscard]] std::span<const SkinPart> SkinParts();

}  // namespace zvr
