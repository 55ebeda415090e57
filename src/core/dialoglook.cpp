#include "core/dialoglook.h"

#include "core/godfather.h"
#include "core/program.h"
#include "skin/skinner.h"

#include <algorithm>
#include <cmath>

namespace zvr {
namespace {

constexpr int smallestTarget = 76;
constexpr int largestTarget = 96;
constexpr double targetOfHeight = 0.12;    ///< of the root's height
constexpr double capitalsBelowTop = 0.69;  ///< of the size in pixels: the middle of a capital below its label's top
constexpr double pixelsOfPoint = 96.0 / 72;
constexpr double buttonPoints = 17;
constexpr double titlePoints = 15;

Color Mixed(Color from, Color to, int percent) {
    const auto mix = [percent](int a, int b) { return a + (b - a) * percent / 100; };
    return RgbColor(mix(RedOf(from), RedOf(to)), mix(GreenOf(from), GreenOf(to)), mix(BlueOf(from), BlueOf(to)));
}

}  // namespace

int DialogLook::Scaled(int pixels) const {
    return static_cast<int>(std::lround(pixels * scale));
}

Font DialogLook::TextFont(double points) const {
    Font font;
    font.face = "Roboto";
    font.points = points * scale;
    return font;
}

DialogLook LookOfSkin(const Program& program) {
    DialogLook look;
    const Color ground = ParseSkinColor(program.skinner.ReadSkinValue("general/background-color"));
    const bool dark = RedOf(ground) * 3 + GreenOf(ground) * 6 + BlueOf(ground) < 1280;
    // Warm and dim on a nearly black ground, as a night skin has it; plain contrast otherwise.
    const bool night = dark && RedOf(ground) > BlueOf(ground);
    const Color ink = !dark ? RgbColor(20, 24, 27) : night ? RgbColor(0xBF, 0x9D, 0x80) : RgbColor(0xF1, 0xF4, 0xF6);
    look.ground = Mixed(ground, ink, 4);
    look.edge = Mixed(ground, ink, 45);
    look.text = ink;
    look.dim = Mixed(ground, ink, 80);
    look.pressedText = Mixed(ground, ink, 3);
    look.selection = night ? RgbColor(0x68, 0x37, 0x16) : RgbColor(0x84, 0x46, 0x1B);
    look.accent = night ? RgbColor(0xD0, 0x71, 0x2B) : RgbColor(0xFF, 0x94, 0x47);
    // This grey can be read on what is nearly black, and on nothing lighter.
    look.off = RgbColor(0x80, 0x80, 0x80);
    const Color black = RgbColor(0x0A, 0x0A, 0x0A);
    const int height = program.godfather.form.Place().height;
    look.target = std::clamp(static_cast<int>(std::lround(height * targetOfHeight)), smallestTarget, largestTarget);
    look.scale = static_cast<double>(look.target) / smallestTarget;
    const int radius = look.Scaled(12);
    look.key = {Mixed(ground, ink, 18), Mixed(ground, ink, 11), Mixed(ground, ink, 30), radius, 1, true};
    look.pressed = {Mixed(ground, ink, 94), Mixed(ground, ink, 76), ink, radius, 2, true};
    look.sunk = {black, black, Mixed(ground, ink, 12), radius, 1, true};
    return look;
}

void PlaceDialogText(Control& label, Rect place) {
    const int top =
        place.y + place.height / 2 - static_cast<int>(capitalsBelowTop * label.font->points * pixelsOfPoint);
    label.Move({place.x, top, place.width, place.y + place.height - top});
}

DialogButton AddDialogButton(Form& form, const std::string& plateName, std::string textName, int index,
                             std::string caption, const DialogLook& look, std::function<void()> onClick) {
    DialogButton button;
    button.plate = &form.Add(ControlKind::picture, plateName, index);
    button.label = &form.Add(ControlKind::label, std::move(textName), index);
    button.label->caption = std::move(caption);
    button.label->align = Align::center;
    if (onClick) {
        ControlEvents& events = button.plate->events;
        const auto press = [button, &look](bool down) {
            button.plate->plate = down ? look.pressed : look.key;
            button.label->foreColor = down ? look.pressedText : look.text;
        };
        events.onDown = [press](Point) { press(true); };
        events.onUp = [press](Point) { press(false); };
        events.onClick = [onClick = std::move(onClick)](Point) { onClick(); };
    }
    return button;
}

void DialogButton::Dress(Rect place, const DialogLook& look) const {
    const bool deaf = !plate->events.onClick;
    plate->Move(place);
    plate->plate = deaf ? look.sunk : look.key;
    label->font = look.TextFont(buttonPoints);
    label->foreColor = deaf ? look.off : look.text;
    PlaceDialogText(*label, {place.x + 4, place.y, place.width - 8, place.height});
}

void DialogButton::Show(bool visible) const {
    for (Control* control : {plate, label}) {
        control->visible = visible;
    }
}

Control& AddDialogTitle(Form& form, std::string caption) {
    Control& title = form.Add(ControlKind::label, "lblTitle");
    title.caption = std::move(caption);
    return title;
}

void DressDialogTitle(Control& title, Rect place, const DialogLook& look) {
    title.font = look.TextFont(titlePoints);
    title.foreColor = look.dim;
    PlaceDialogText(title, place);
}

Control& AddDialogGround(Form& form) {
    return form.Add(ControlKind::picture, "picGround");
}

void FrameDialog(const Program& program, Form& form, Control& ground, Size size, const DialogLook& look) {
    const Form& root = program.godfather.form;
    form.Resize(size);
    form.CentreIn(root);
    form.backColor = look.edge;
    ground.Move({1, 1, size.width - 2, size.height - 2});
    ground.backColor = look.ground;
}

}  // namespace zvr
