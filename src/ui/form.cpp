#include "ui/form.h"

#include <algorithm>

namespace zvr {

Form::Form(std::string name, FormRole role) : name(std::move(name)), role(role) {}

Control& Form::Add(ControlKind kind, std::string controlName, int index) {
    owned.push_back(std::make_unique<Control>(*this, kind, std::move(controlName), index));
    order.push_back(owned.back().get());
    ++tagRevision;
    MarkDirty();
    return *owned.back();
}

Control* Form::Find(std::string_view controlName, int index) const {
    const auto found = std::find_if(owned.begin(), owned.end(), [&](const auto& control) {
        return control->index == index && control->name == controlName;
    });
    return found == owned.end() ? nullptr : found->get();
}

void Form::RemoveControls() {
    if (onControlsGone) {
        onControlsGone(*this);
    }
    focus = nullptr;
    dirtyControls.clear();
    order.clear();
    owned.clear();
    ++tagRevision;
    MarkDirty();
}

void Form::SendToBack(Control& control) {
    if (order.front() == &control) {
        return;
    }
    std::erase(order, &control);
    order.insert(order.begin(), &control);
    control.MarkDirty();
}

void Form::BringToFront(Control& control) {
    if (order.back() == &control) {
        return;
    }
    std::erase(order, &control);
    order.push_back(&control);
    control.MarkDirty();
}

void Form::PlaceBehind(Control& control, Control& front) {
    std::erase(order, &control);
    order.insert(std::find(order.begin(), order.end(), &front), &control);
    control.MarkDirty();
}

Control* Form::ControlAt(Point p) const {
    const auto found = std::find_if(order.rbegin(), order.rend(), [p](const Control* control) {
        // A label is text on the form, not a thing to touch: presses fall through to what it describes.
        return control->kind != ControlKind::label && control->VisiblePlace().Contains(p);
    });
    return found == order.rend() ? nullptr : *found;
}

Rect Form::Place() const {
    const int x = Pixels(left);
    const int y = Pixels(top);
    return {x, y, Pixels(left + width) - x, Pixels(top + height) - y};
}

void Form::Resize(Size pixels) {
    width = Twips(pixels.width);
    height = Twips(pixels.height);
}

void Form::CentreIn(const Form& outer) {
    left = Centred(outer.width, width);
    top = Centred(outer.height, height);
}

void Form::MarkDirty() {
    dirty = true;
    if (onDirty) {
        onDirty(*this);
    }
}

void Form::ControlDirty(Control& control) {
    if (control.dirty) {
        return;
    }
    control.dirty = true;
    dirtyControls.push_back(&control);
    if (onDirty) {
        onDirty(*this);
    }
}

}  // namespace zvr
