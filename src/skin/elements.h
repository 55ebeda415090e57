#pragma once

#include "platform/xml.h"
#include "skin/skinfaults.h"
#include "ui/form.h"

#include <string_view>

namespace zvr {

class Program;
class Skinner;

/// More buttons or labels a form than any screen has use for are left out: each is looked for among the others.
inline constexpr int mostElements = 2000;

/// Background, buttons and labels of a form. A faulty button or label is left out without a word; a picture that
/// can't be decoded is reported and ends the form's skinning.
void SkinForm(Program& program, Form& form);

/// Makes or reuses the element `index` of the form's labels, in front of the others; a shadow lies right behind the
/// element before it.
void MakeLabel(int index, const XmlElement& record, Form& form, bool isShadow);

/// Place and look of a list, from the element of its name in the module's section.
void SkinList(Program& program, Control& list, std::string_view moduleName);

/// Place and look of a text box. `path` ends with a slash. Left as it was when its place is at fault.
void SkinTextBox(Program& program, Control& box, std::string_view path);

enum class SizeRule { bothAboveZero, heightMayBeZero };
enum class PlaceState { good, missing, invalid };

/// posx, posy, width and height below one path, in twips.
struct SkinPlace {
    PlaceState state = PlaceState::good;
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

/// `path` ends with a slash. `missing` when one of the four elements is, whatever the others hold.
[[nodiscard]] SkinPlace ReadPlace(const Skinner& skinner, std::string_view path, SizeRule rule);

/// The same, its faults reported; true if the place is good.
[[nodiscard]] bool ReadPlace(Skinner& skinner, std::string_view path, SizeRule rule, SkinFault missing,
                             SkinFault invalid, std::string_view name, SkinPlace& place);

void MoveTo(Control& control, const SkinPlace& place);

/// The typeface of a label.
[[nodiscard]] Font LabelFont(const XmlElement& record);

/// True for whole texts that are a number, blanks around it aside.
[[nodiscard]] bool IsStrictNumber(std::string_view text);

}  // namespace zvr
