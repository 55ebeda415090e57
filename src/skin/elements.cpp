#include "skin/elements.h"

#include "core/numbers.h"
#include "core/program.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "skin/buttons.h"
#include "skin/skinner.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace zvr {
namespace {

constexpr double standardPoints = 12;
constexpr double mostPoints = 2000;
constexpr double highestRow = 10'000;  ///< pixels
constexpr int standardTitleCharacters = 10;

bool HasAll(const XmlElement& record, std::initializer_list<std::string_view> names) {
    return std::all_of(names.begin(), names.end(), [&](std::string_view name) { return bool(record.Child(name)); });
}

std::string TextOf(const XmlElement& record, std::string_view name) {
    return record.Child(name).Text();
}

double NumberOf(const XmlElement& record, std::string_view name) {
    return SkinNumber(TextOf(record, name));
}

bool Holds(std::string_view letters, char small) {
    return std::any_of(letters.begin(), letters.end(),
                       [small](char c) { return c == small || c == small - 'a' + 'A'; });
}

/// In front of the form's other buttons and labels, but never of what is a window of its own on the real screen: a
/// list, a text box, a video or picture area covers what a skin lays below it.
void PlaceInFront(Form& form, Control& element) {
    const auto& order = form.Controls();
    const auto area = std::find_if(order.begin(), order.end(), [](const Control* control) {
        return control->kind != ControlKind::image && control->kind != ControlKind::label;
    });
    if (area == order.end()) {
        form.BringToFront(element);
    } else {
        form.PlaceBehind(element, **area);
    }
}

Control& ElementOf(Form& form, ControlKind kind, const char* array, int index) {
    Control* const known = form.Find(array, index);
    return known != nullptr ? *known : form.Add(kind, array, index);
}

bool IsAllowed(const Form& form, std::string_view command) {
    const auto isOneOf = [command](std::initializer_list<std::string_view> commands) {
        return std::find(commands.begin(), commands.end(), command) != commands.end();
    };
    if (form.name == "messagebox") {
        return isOneOf({"messagebox.ok", "messagebox.yes", "messagebox.no"});
    }
    if (form.name == "smsbox") {
        return isOneOf({"smsbox.send", "smsbox.close", "externalapps.onscreenkeyboard"});
    }
    return true;
}

void MakeButton(Program& program, Form& form, int index, const XmlElement& record, const PicturePointer& normal,
                const PicturePointer& active) {
    Control* button = form.Find("abutton", index);
    if (button == nullptr) {
        button = &form.Add(ControlKind::image, "abutton", index);
        BindButton(program, *button);
    }
    button->normalPicture = normal;
    button->activePicture = active;
    const Size size = normal->PixelSize();
    button->Move(NumberOf(record, "posx") * twipsPerPixel, NumberOf(record, "posy") * twipsPerPixel,
                 size.width * double{twipsPerPixel}, size.height * double{twipsPerPixel});
    button->picture = normal;
    button->visible = true;
    button->SetTag(TextOf(record, "command"));
    PlaceInFront(form, *button);
}

/// False if a picture can't be decoded.
bool MakeButtons(Program& program, Form& form, const XmlElement& buttons) {
    int index = 0;
    for (const XmlElement& record : buttons.Children()) {
        if (!HasAll(record, {"posx", "posy", "command", "normal-image", "active-image"})) {
            continue;
        }
        if (NumberOf(record, "posx") < 0 || NumberOf(record, "posy") < 0) {
            continue;
        }
        const std::string command = TextOf(record, "command");
        if (command.empty() || !IsAllowed(form, command)) {
            continue;
        }
        const SkinPicture normal = program.skinner.FindPicture(TextOf(record, "normal-image"));
        const SkinPicture active = program.skinner.FindPicture(TextOf(record, "active-image"));
        if (!normal.exists || !active.exists) {
            continue;
        }
        if (normal.picture == nullptr || active.picture == nullptr) {
            program.skinner.ReportSkinError(SkinFault::buttonPicture, form.name);
            return false;
        }
        if (++index > mostElements) {
            break;
        }
        MakeButton(program, form, index, record, normal.picture, active.picture);
    }
    return true;
}

bool IsUsable(const XmlElement& record) {
    const std::initializer_list<std::string_view> numbers{"posx", "posy", "width", "height", "shadow-distance"};
    return !TextOf(record, "text").empty() && std::none_of(numbers.begin(), numbers.end(), [&](std::string_view name) {
        return NumberOf(record, name) < 0;
    });
}

void EndOnBadShadow(Program& program, const std::string& text) {
    program.skinner.skinFailed = true;
    program.CloseSplash();
    program.platform.dialogs.ShowCritical(
        "Run-time error: type mismatch.\n\nThe skin gives a label the "
        "shadow-distance \"" +
        std::string(text::Mid(text, 0, 40)) + "\", which is not a number.");
    program.EndAtOnce(1);
}

void MakeLabels(Program& program, Form& form, const XmlElement& labels) {
    int index = 0;
    for (const XmlElement& record : labels.Children()) {
        if (!HasAll(record, {"posx", "posy", "width", "height", "text", "shadow-distance"})) {
            continue;
        }
        if (const std::string distance = TextOf(record, "shadow-distance"); !IsStrictNumber(distance)) {
            EndOnBadShadow(program, distance);
            return;
        }
        if (!IsUsable(record)) {
            continue;
        }
        if (index + 2 > mostElements) {
            break;
        }
        MakeLabel(++index, record, form, false);
        if (NumberOf(record, "shadow-distance") > 0 && record.Child("shadow-color")) {
            MakeLabel(++index, record, form, true);
        }
    }
}

void SetLabelText(Control& label, const XmlElement& record) {
    const std::string text = TextOf(record, "text");
    if (!text.starts_with("**") || !text.ends_with("**")) {
        label.caption = WithoutBreaks(text);
        label.SetTag("");
        return;
    }
    label.caption = std::string();
    label.SetTag(text);
    if (text == "**MEDIATITLE**") {
        const double wanted = NumberOf(record, "charcount");
        const bool taken = wanted > 4 && wanted <= 50;
        label.titleCharacters = taken ? static_cast<int>(RoundHalfEven(wanted)) : standardTitleCharacters;
        label.helpId = label.titleCharacters * 100 + 1;
    }
}

Align LabelAlign(const XmlElement& record) {
    const XmlElement align = record.Child("align");
    if (!align || align.Text() == "center") {
        return Align::center;
    }
    return align.Text() == "right" ? Align::right : Align::left;
}

/// What lists and text boxes have in common. Bold and italic stay once they are set.
Font FontAt(const Skinner& skinner, const std::string& base, Font font) {
    if (const std::string face = skinner.ReadSkinValue(base + "font-face"); !face.empty()) {
        font.face = face;
    }
    if (const double points = SkinNumber(skinner.ReadSkinValue(base + "font-size")); points > 0) {
        font.points = std::min(points, mostPoints);
    }
    const std::string style = skinner.ReadSkinValue(base + "font-style");
    font.bold = font.bold || Holds(style, 'b');
    font.italic = font.italic || Holds(style, 'i');
    return font;
}

}  // namespace

void SkinForm(Program& program, Form& form) {
    Skinner& skinner = program.skinner;
    const std::string base = "//" + form.name + "/";
    form.backColor = ParseSkinColor(skinner.ReadSkinValue(base + "background-color"));
    if (const SkinPicture background = skinner.FindPicture(skinner.ReadSkinValue(base + "background-image"));
        background.exists) {
        if (background.picture == nullptr) {
            skinner.ReportSkinError(SkinFault::formBackground, form.name);
            return;
        }
        form.background = background.picture;
    }
    if (const XmlElement buttons = skinner.skinDocument.First(base + "buttons");
        buttons && !MakeButtons(program, form, buttons)) {
        return;
    }
    if (const XmlElement labels = skinner.skinDocument.First(base + "labels")) {
        MakeLabels(program, form, labels);
    }
}

void MakeLabel(int index, const XmlElement& record, Form& form, bool isShadow) {
    Control& label = ElementOf(form, ControlKind::label, "albl", index);
    const double shift = isShadow ? NumberOf(record, "shadow-distance") : 0;
    label.Move((NumberOf(record, "posx") + shift) * twipsPerPixel, (NumberOf(record, "posy") + shift) * twipsPerPixel,
               NumberOf(record, "width") * twipsPerPixel, NumberOf(record, "height") * twipsPerPixel);
    SetLabelText(label, record);
    label.font = LabelFont(record);
    if (const XmlElement color = record.Child(isShadow ? "shadow-color" : "font-color")) {
        label.foreColor = ParseSkinColor(color.Text());
    }
    label.align = LabelAlign(record);
    label.visible = true;
    Control* const front = isShadow ? form.Find("albl", index - 1) : nullptr;
    if (front != nullptr) {
        form.PlaceBehind(label, *front);
    } else {
        PlaceInFront(form, label);
    }
}

void SkinList(Program& program, Control& list, std::string_view moduleName) {
    Skinner& skinner = program.skinner;
    const std::string base = "//" + std::string(moduleName) + "/" + list.name + "/";
    SkinPlace place;
    if (!ReadPlace(skinner, base, SizeRule::bothAboveZero, SkinFault::listPlaceMissing, SkinFault::listPlaceInvalid,
                   moduleName, place)) {
        return;
    }
    MoveTo(list, place);
    list.font = FontAt(skinner, base, list.font);
    GridLook look = list.grid->Look();
    if (const double row = SkinNumber(skinner.ReadSkinValue(base + "row-height")); row > 0) {
        look.rowHeight = static_cast<int>(RoundHalfEven(std::min(row, highestRow)));
    }
    const auto color = [&](const char* name) { return ParseSkinColor(skinner.ReadSkinValue(base + name)); };
    look.fore = color("font-color");
    look.back = color("background-color");
    look.backAlternate = color("background-color-alt");
    look.selectionFore = color("selection-font-color");
    look.selectionBack = color("selection-background-color");
    list.grid->SetLook(look);
}

void SkinTextBox(Program& program, Control& box, std::string_view path) {
    Skinner& skinner = program.skinner;
    const std::string base(path);
    SkinPlace place;
    if (!ReadPlace(skinner, base, SizeRule::heightMayBeZero, SkinFault::textBoxPlaceMissing,
                   SkinFault::textBoxPlaceInvalid, box.name, place)) {
        return;
    }
    MoveTo(box, place);
    box.font = FontAt(skinner, base, box.font);
    const std::string align = text::Lower(skinner.ReadSkinValue(base + "align"));
    box.align = align == "left" ? Align::left : align == "right" ? Align::right : Align::center;
    box.foreColor = ParseSkinColor(skinner.ReadSkinValue(base + "font-color"));
    box.backColor = ParseSkinColor(skinner.ReadSkinValue(base + "background-color"));
}

SkinPlace ReadPlace(const Skinner& skinner, std::string_view path, SizeRule rule) {
    constexpr std::array<std::string_view, 4> names{"posx", "posy", "width", "height"};
    std::array<double, 4> pixels{};
    SkinPlace place;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const XmlElement element = skinner.skinDocument.First(std::string(path) + std::string(names[i]));
        if (!element) {
            place.state = PlaceState::missing;
            return place;
        }
        pixels[i] = SkinNumber(element.Text());
    }
    const auto [x, y, width, height] = pixels;
    const bool heightFits = rule == SizeRule::heightMayBeZero ? height >= 0 : height > 0;
    place.state = x >= 0 && y >= 0 && width > 0 && heightFits ? PlaceState::good : PlaceState::invalid;
    place.left = x * twipsPerPixel;
    place.top = y * twipsPerPixel;
    place.width = width * twipsPerPixel;
    place.height = height * twipsPerPixel;
    return place;
}

bool ReadPlace(Skinner& skinner, std::string_view path, SizeRule rule, SkinFault missing, SkinFault invalid,
               std::string_view name, SkinPlace& place) {
    place = ReadPlace(skinner, path, rule);
    if (place.state != PlaceState::good) {
        skinner.ReportSkinError(place.state == PlaceState::missing ? missing : invalid, name);
    }
    return place.state == PlaceState::good;
}

void MoveTo(Control& control, const SkinPlace& place) {
    control.Move(place.left, place.top, place.width, place.height);
}

Font LabelFont(const XmlElement& record) {
    Font font;
    if (const XmlElement face = record.Child("font-face")) {
        font.face = face.Text();
    }
    if (const XmlElement size = record.Child("font-size")) {
        const double points = SkinNumber(size.Text());
        font.points = points > 0 ? std::min(points, mostPoints) : standardPoints;
    }
    const std::string style = TextOf(record, "font-style");
    font.bold = Holds(style, 'b');
    font.italic = Holds(style, 'i');
    font.underline = Holds(style, 'u');
    font.strikethrough = Holds(style, 's');
    return font;
}

bool IsStrictNumber(std::string_view text) {
    const auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
    while (!text.empty() && blank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && blank(text.back())) {
        text.remove_suffix(1);
    }
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc{} && result.ptr == text.data() + text.size() && std::isfinite(value);
}

}  // namespace zvr
