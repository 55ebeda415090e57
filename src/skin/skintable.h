#pragma once

#include "skin/skinvalues.h"
#include "ui/form.h"

#include <span>
#include <string_view>

namespace zvr {

class Program;
class SkinReadings;

// The skin format, stated once: the load walks these tables and applies them, the check walks them and tells all that
// is wrong, the reference for skin authors prints them.

/// Where the values of a part go.
struct SkinTarget {
    Program& program;
    Form& form;
    Control* control = nullptr;  ///< of the part, null for none
    Control* second = nullptr;   ///< that goes with it: a slider's knob
    GridLook look{};             ///< of a list: applied when all values are put
};

/// One element that carries a value.
struct SkinElement {
    std::string_view name;
    SkinValue value;
    SkinFallback without;
    /// Where it goes; null for what is taken together with others when all are read.
    void (*put)(SkinTarget& target, const SkinReading& reading);
    std::string_view meaning;  ///< for authors, a line
    std::string_view fault =
        {};  ///< code of a value that can't be used; '*' stands for the screen; empty: passes in silence
    std::string_view needs = {};  ///< an element before it without which it is not read
};

/// What a part is to the finger and the eye.
enum class SkinArea {
    none,
    touched,  ///< a finger aims at it, and it covers buttons and labels
    covers,   ///< it covers them
    box,      ///< its width and height are the screen's
};

/// Elements that belong together: of a section, a button, a list, an area. They count only if all that are required do.
struct SkinPart {
    std::string_view form;   ///< screen; empty: each
    std::string_view path;   ///< below the screen's section, such as "imgdisplay/preview"; empty for the section itself
    std::string_view title;  ///< that the reference gives parts of one kind; empty: the path
    std::string_view meaning;
    std::span<const SkinElement> elements;
    SkinArea area = SkinArea::none;
    std::string_view missing{};                  ///< code when a required element is missing; '*' stands for `codeName`
    std::string_view invalid{};                  ///< code when one can't be used
    std::string_view codeName{};                 ///< empty: that of the screen
    void (*find)(SkinTarget& target) = nullptr;  ///< finds the controls
    void (*before)(Program& program) = nullptr;
    /// When all values are put. `placed`: the required ones count.
    void (*after)(SkinTarget& target, const SkinReadings& readings, bool placed) = nullptr;
    bool endsLayout = false;  ///< a fault of its required elements ends the layout of the screen
};

struct SkinFormRow {
    std::string_view name;
    std::string_view module;  ///< that it belongs to
    Form& (*form)(Program& program);
    std::span<const std::string_view> commands;  ///< that its buttons may have; empty: any
    std::span<const std::string_view> needed;    ///< without these a driver is locked in
    bool leads;                                  ///< a button must lead to another screen
    std::string_view meaning;

    [[nodiscard]] bool Takes(std::string_view command) const;
};

/// More buttons or labels a form than any screen has use for are left out: each is looked for among the others.
inline constexpr int mostElements = 2000;

/// The 14 screens, in the order in which a load makes their buttons and labels.
[[nodiscard]] std::span<const SkinFormRow> SkinForms();
[[nodiscard]] const SkinFormRow* FindSkinForm(std::string_view name);  ///< null for none

/// Of the section "general", of each screen's section, of a button, of a label.
[[nodiscard]] const SkinPart& GeneralPart();
[[nodiscard]] const SkinPart& SectionPart();
[[nodiscard]] const SkinPart& ButtonPart();
[[nodiscard]] const SkinPart& LabelPart();

/// In the order in which a load applies them, after all buttons and labels.
[[nodiscard]] std::span<const SkinPart> SkinParts();

}  // namespace zvr
