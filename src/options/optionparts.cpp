#include "options/optionparts.h"

#include "core/godfather.h"
#include "core/program.h"

#include <algorithm>

namespace zvr {

void OptionParts::Begin() {
    Forget();
    const Size size{program.godfather.form.Place().width, program.godfather.form.Place().height};
    look = LookFor(size, !program.godfather.brightnessIsDay);
    form.left = 0;
    form.top = 0;
    form.Resize(size);
    form.backColor = look.pageBottom;
    AddPlate("picGround", {0, 0, size.width, size.height}, {look.pageTop, look.pageBottom, 0, 0, 0, true});
}

void OptionParts::Forget() {
    form.RemoveControls();
    keys.clear();
}

Rect OptionParts::PageBeside(int panelWidth) const {
    const Rect whole = form.Place();
    const int left = look.margin + (panelWidth > 0 ? panelWidth + look.Scaled(8) : 0);
    return {left, look.margin, whole.width - look.margin - left,
            whole.height - 2 * look.margin - look.foot - look.footGap};
}

Control& OptionParts::AddText(Rect room, const std::string& text, Color color, double points, bool medium) {
    Control& label = form.Add(ControlKind::label, "lbl");
    label.foreColor = color;
    PlaceText(label, room, text, look, points, medium);
    return label;
}

Control& OptionParts::AddPlate(std::string name, Rect place, const Plate& plate, int index) {
    Control& control = form.Add(ControlKind::picture, std::move(name), index);
    control.Move(place);
    control.plate = plate;
    return control;
}

Control& OptionParts::AddWell(std::string name, Rect place) {
    return AddPlate(std::move(name), place, {look.well, look.well, look.wellEdge, look.Scaled(12), 1, true});
}

void OptionParts::AddLine(int left, int top, int width) {
    AddPlate("line", {left, top, width, 1}, {look.line, look.line, 0, 0, 0, true});
}

void OptionParts::AddIcon(const std::string& name, Rect row, int left, int size, Color ink, Control* on) {
    Control& image = form.Add(ControlKind::image, "icon");
    image.picture = IconPicture(name, look.Scaled(size), ink);
    const Size drawn = image.picture.get() == nullptr ? Size{} : image.picture.get()->PixelSize();
    image.container = on;
    const Rect origin = on == nullptr ? Rect{} : on->Place();
    image.Move({row.x - origin.x + look.Scaled(left), row.y - origin.y + (row.height - drawn.height) / 2, drawn.width,
                drawn.height});
}

OptionKey& OptionParts::AddKey() {
    keys.push_back(std::make_unique<OptionKey>());
    return *keys.back();
}

void OptionParts::AddMarks(Rect page, int count, int present) {
    if (count < 2) {
        return;
    }
    const int top = page.y + look.Scaled(20);
    const int room = page.height - look.Scaled(40);
    // More pages than can have one each share: what counts is how far down the present one is.
    const int shown = std::min(count, std::max(2, room / look.Scaled(12)));
    const int lit = present * shown / count;
    const int gap = look.Scaled(6);
    for (int i = 0; i < shown; ++i) {
        const int from = top + room * i / shown;
        const int to = top + room * (i + 1) / shown - gap;
        const Color color = i == lit ? look.accent : look.off;
        AddPlate("mark", {page.x + page.width - look.Scaled(11), from, look.Scaled(4), to - from},
                 {color, color, 0, look.Scaled(2), 0, true});
    }
}

void OptionParts::AddFoot(Rect page, const std::vector<FootKey>& wanted) {
    const int gap = look.Scaled(8);
    const int small = look.Scaled(80);
    const auto smalls = static_cast<int>(
        std::count_if(wanted.begin(), wanted.end(), [](const FootKey& key) { return key.text.empty(); }));
    const int larges = static_cast<int>(wanted.size()) - smalls;
    const int room = page.width - smalls * (small + gap) - (larges - 1) * gap;
    int left = page.x;
    int large = 0;
    for (const FootKey& foot : wanted) {
        OptionKey& key = AddKey();
        key.icon = foot.icon;
        key.text = foot.text;
        key.style = foot.style;
        key.onClick = foot.onClick;
        const int width = foot.text.empty() ? small : room * (large + 1) / larges - room * large / larges;
        large += foot.text.empty() ? 0 : 1;
        key.Make(form, foot.name, 0, {left, page.y + page.height + look.footGap, width, look.foot}, look);
        key.Enable(foot.enabled);
        left += width + gap;
    }
}

}  // namespace zvr
