#include "ui/control.h"

#include "platform/text.h"
#include "ui/form.h"

#include <algorithm>

namespace zvr {
namespace {

Rect Intersect(const Rect& a, const Rect& b) {
    const int left = std::max(a.x, b.x);
    const int top = std::max(a.y, b.y);
    return {left, top, std::min(a.x + a.width, b.x + b.width) - left, std::min(a.y + a.height, b.y + b.height) - top};
}

}  // namespace

Control::Control(Form& form, ControlKind kind, std::string name, int index)
    : form(form), kind(kind), name(std::move(name)), index(index) {
    if (kind == ControlKind::grid) {
        grid = std::make_unique<Grid>(*this);
    }
    if (kind == ControlKind::textBox) {
        text = std::make_unique<TextBox>();
    }
}

void Control::SetTag(std::string_view value) {
    if (tag == value) {
        return;
    }
    tag = value;
    ++form.tagRevision;
}

void Control::SetText(std::string_view value, int selectionStart, int selectionLength) {
    const int length = static_cast<int>(text::Length(value));
    const int start = std::clamp(selectionStart, 0, length);
    const int selected = std::clamp(selectionLength, 0, length - start);
    if (text->text == value && text->selectionStart == start && text->selectionLength == selected) {
        return;
    }
    text->text = value;
    text->selectionStart = start;
    text->selectionLength = selected;
    MarkDirty();
}

void Control::TypeText(std::string_view value) {
    const auto start = static_cast<std::size_t>(text->selectionStart);
    const std::size_t end = start + static_cast<std::size_t>(text->selectionLength);
    std::string typed(text::Mid(text->text, 0, start));
    typed += value;
    typed += text::Mid(text->text, end);
    SetText(typed, text->selectionStart + static_cast<int>(text::Length(value)));
}

void Control::TakeBack() {
    if (text->selectionLength == 0 && text->selectionStart > 0) {
        --text->selectionStart;
        text->selectionLength = 1;
    }
    TypeText({});
}

void Control::SetReadOnly(bool value) {
    if (text->readOnly != value) {
        text->readOnly = value;
        MarkDirty();
    }
}

void Control::MarkDirty() {
    form.ControlDirty(*this);
}

void Control::MarkMoved() {
    if (!dirty && VisiblePlace() != painted) {
        MarkDirty();
    }
}

Rect Control::Place() const {
    // Edges are rounded, not sizes, so that neighbours with a common edge never gap or overlap.
    double x = left;
    double y = top;
    if (container != nullptr) {
        const Rect outer = container->Place();
        x += Twips(outer.x);
        y += Twips(outer.y);
    }
    Rect place{Pixels(x), Pixels(y), 0, 0};
    if (kind == ControlKind::image && !stretch && picture.get() != nullptr) {
        const Size size = picture.get()->PixelSize();
        place.width = size.width;
        place.height = size.height;
        return place;
    }
    place.width = Pixels(x + width) - place.x;
    place.height = Pixels(y + height) - place.y;
    return place;
}

Rect Control::VisiblePlace() const {
    if (!IsShown()) {
        return {};
    }
    const Rect place = Place();
    return container == nullptr ? place : Intersect(place, container->VisiblePlace());
}

bool Control::IsShown() const {
    return visible && (container == nullptr || container->IsShown());
}

void Control::Move(double newLeft, double newTop, double newWidth, double newHeight) {
    left = newLeft;
    top = newTop;
    width = newWidth;
    height = newHeight;
}

}  // namespace zvr
