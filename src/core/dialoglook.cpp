#include "core/dialoglook.h"

#include "core/godfather.h"
#include "core/program.h"
#include "skin/skinner.h"

#include <algorithm>

namespace zvr {
namespace {

constexpr double capitalsBelowTop = 0.69;  ///< of the size in pixels: the middle of a capital below its label's top

Color Mixed(Color from, Color to, int percent) {
    const auto mix = [percent](int a, int b) { return a + (b - a) * percent / 100; };
    return RgbColor(mix(RedOf(from), RedOf(to)), mix(GreenOf(from), GreenOf(to)), mix(BlueOf(from), BlueOf(to)));
}

void MoveTo(Control& control, Rect place) {
    control.Move(place.x * double{twipsPerPixel}, place.y * double{twipsPerPixel}, place.width * double{twipsPerPixel},
                 place.height * double{twipsPerPixel});
}

}  // namespace

DialogLook LookOfSkin(const Program& program) {
    DialogLook look;
    const Color ground = ParseSkinColor(program.skinner.ReadSkinValue("general/background-color"));
    const bool dark = RedOf(ground) * 3 + GreenOf(ground) * 6 + BlueOf(ground) < 1280;
    // Warm and dim on a nearly black ground, as a night skin has it; plain contrast otherwise.
    const bool night = dark && RedOf(ground) > BlueOf(ground);
    const Color ink = !dark ? RgbColor(20, 24, 27) : night ? RgbColor(0xBF, 0x9D, 0x80) : RgbColor(0xF1, 0xF4, 0xF6);
    look.ground = Mixed(ground, ink, 4);
    look.plate = Mixed(ground, ink, 13);
    look.edge = Mixed(ground, ink, 45);
    look.text = ink;
    look.dim = Mixed(ground, ink, 66);
    look.selection = night ? RgbColor(0x4A, 0x27, 0x10) : RgbColor(0x84, 0x46, 0x1B);
    return look;
}

Font DialogFont(double points, bool bold) {
    Font font;
    font.face = "Roboto";
    font.points = points;
    font.bold = bold;
    return font;
}

Control& AddDialogText(Form& form, std::string name, int index, Rect place, const std::string& caption, Color color,
                       double points) {
    Control& label = form.Add(ControlKind::label, std::move(name), index);
    MoveTo(label, place);
    label.font = DialogFont(points);
    label.foreColor = color;
    label.caption = caption;
    return label;
}

Control& AddDialogButton(Form& form, std::string plateName, std::string textName, int index, Rect place,
                         const std::string& caption, const DialogLook& look, std::function<void()> onClick) {
    Control& edge = form.Add(ControlKind::picture, plateName + "Edge", index);
    MoveTo(edge, place);
    edge.backColor = look.edge;
    Control& plate = form.Add(ControlKind::picture, std::move(plateName), index);
    MoveTo(plate, {place.x + 1, place.y + 1, place.width - 2, place.height - 2});
    plate.backColor = look.plate;
    const double points = 17;
    const int top = place.y + place.height / 2 - static_cast<int>(capitalsBelowTop * points * 96 / 72);
    Control& label = AddDialogText(form, std::move(textName), index,
                                   {place.x + 4, top, place.width - 8, place.height - (top - place.y)}, caption,
                                   onClick ? look.text : RgbColor(0x80, 0x80, 0x80), points);
    label.align = Align::center;
    if (onClick) {
        plate.events.onDown = [&plate, look](Point) { plate.backColor = look.edge; };
        plate.events.onUp = [&plate, look](Point) { plate.backColor = look.plate; };
        plate.events.onClick = [onClick = std::move(onClick)](Point) { onClick(); };
    }
    return plate;
}

void FrameDialog(Program& program, Form& form, Size size, const DialogLook& look) {
    const Form& root = program.godfather.form;
    form.width = size.width * double{twipsPerPixel};
    form.height = size.height * double{twipsPerPixel};
    form.left = (root.width - form.width) / 2;
    form.top = (root.height - form.height) / 2;
    form.backColor = look.edge;
    Control& ground = form.Add(ControlKind::picture, "picGround");
    MoveTo(ground, {1, 1, size.width - 2, size.height - 2});
    ground.backColor = look.ground;
}

}  // namespace zvr
