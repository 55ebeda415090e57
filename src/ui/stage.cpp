#include "ui/stage.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zvr {
namespace {

/// A finger trembles; only a longer way is a drag and takes the tap with it.
constexpr int dragThreshold = 12;
constexpr Milliseconds doubleTapTime{500};
constexpr Milliseconds timeToSeeRows{300};  ///< before it a finger can only have meant the rows before
constexpr Milliseconds glideStep{16};
constexpr double glideFriction = 0.94;  ///< of the speed left after a step
constexpr double slowestGlide = 0.03;   ///< pixels a millisecond

}  // namespace

Stage::Stage(EventLoop& loop) : loop(loop), glideTimer(loop, [this] { Glide(); }) {
    glideTimer.SetInterval(glideStep);
}

void Stage::Add(Form& form) {
    form.loaded = true;
    form.visible = false;
    form.onDirty = [this](Form&) { Changed(); };
    form.onControlsGone = [this](const Form& gone) { ForgetControlsOf(gone); };
    form.onRowsGone = [this](Grid& grid) { grid.replaced = this->loop.Monotonic(); };
    order.insert(form.role == FormRole::root
                     ? order.begin()
                     : std::find_if(order.begin(), order.end(), [](Form* f) { return f->role != FormRole::root; }),
                 &form);
    Changed();
}

void Stage::Remove(Form& form) {
    form.loaded = false;
    Hide(form);
    form.onDirty = nullptr;
    form.onControlsGone = nullptr;
    form.onRowsGone = nullptr;
    std::erase(order, &form);
    if (behindModal == &form) {
        behindModal = nullptr;
    }
    ForgetControlsOf(form);
    Changed();
}

void Stage::ForgetControlsOf(const Form& form) {
    if (press.form == &form) {
        press = {};
    }
    if (glidingGrid != nullptr && &glidingGrid->form == &form) {
        glideTimer.Stop();
        glidingGrid = nullptr;
    }
    if (lastTapGrid != nullptr && &lastTapGrid->form == &form) {
        lastTapGrid = nullptr;
    }
    if (onControlsGone) {
        onControlsGone(form);
    }
}

void Stage::Front(Form& form, Control* focus) {
    if (!form.loaded) {
        return;
    }
    form.visible = true;
    std::erase(order, &form);
    // Behind an open dialog, before everything else.
    const auto place = std::find_if(order.begin(), order.end(), [this](Form* other) {
        return std::find(modalForms.begin(), modalForms.end(), other) != modalForms.end();
    });
    order.insert(place, &form);
    if (focus != nullptr) {
        form.focus = focus;
    }
    if (form.role == FormRole::child && modalForms.empty()) {
        Activate(&form);
    }
    Changed();
}

Form* Stage::Root() const {
    return order.empty() || order.front()->role != FormRole::root ? nullptr : order.front();
}

void Stage::Show(Form& form) {
    if (form.loaded) {
        form.visible = true;
        rootIsLent = rootIsLent && &form != Root();
        Changed();
    }
}

void Stage::Hide(Form& form) {
    if (&form == Root() && form.loaded && !modalForms.empty()) {
        rootIsLent = true;
        return;
    }
    form.visible = false;
    std::erase(modalForms, &form);
    if (Form* const root = Root(); rootIsLent && modalForms.empty() && root != nullptr) {
        rootIsLent = false;
        root->visible = false;
    }
    if (active == &form) {
        active = nullptr;
    }
    Changed();
}

Form* Stage::FrontForm() const {
    const auto found = std::find_if(order.rbegin(), order.rend(), [this](Form* form) {
        return form->role == FormRole::child && form->visible &&
               std::find(modalForms.begin(), modalForms.end(), form) == modalForms.end();
    });
    return found == order.rend() ? nullptr : *found;
}

Form* Stage::ActiveForm() const {
    return modalForms.empty() ? FrontForm() : modalForms.back();
}

void Stage::ShowModal(Form& form) {
    if (!form.loaded) {
        return;
    }
    PointerCancel();
    if (modalForms.empty()) {
        behindModal = FrontForm();
    }
    if (Form* const root = Root(); root != nullptr && !root->visible && form.role == FormRole::child) {
        rootIsLent = true;
        root->visible = true;
    }
    form.visible = true;
    std::erase(order, &form);
    order.push_back(&form);
    std::erase(modalForms, &form);
    modalForms.push_back(&form);
    Changed();
}

void Stage::CloseModal(Form& form) {
    Hide(form);
    Form* const front = FrontForm();
    if (!modalForms.empty() || front == nullptr) {
        return;
    }
    // Coming back to the screen that was in front is no new visit to it.
    if (front == behindModal) {
        active = front;
    } else {
        Activate(front);
    }
}

void Stage::Activate(Form* form) {
    if (active == form) {
        return;
    }
    active = form;
    if (form->onActivate) {
        form->onActivate();
    }
}

Point Stage::ToForm(const Form& form, Point p) const {
    if (form.role != FormRole::child) {
        return p;
    }
    const Rect place = form.Place();
    return {p.x - place.x, p.y - place.y};
}

Stage::Hit Stage::HitAt(Form& window, Point p) const {
    const auto within = [this, p](Form& form) {
        const Point inForm = ToForm(form, p);
        return Hit{&form, form.ControlAt(inForm), inForm};
    };
    if (window.role == FormRole::window) {
        return within(window);
    }
    if (Form* const modal = ModalForm(); modal != nullptr) {
        return modal->visible && modal->Place().Contains(p) ? within(*modal) : Hit{};
    }
    for (auto form = order.rbegin(); form != order.rend(); ++form) {
        if ((*form)->role == FormRole::child && (*form)->visible && (*form)->Place().Contains(p)) {
            return within(**form);
        }
    }
    return within(window);
}

void Stage::PointerDown(Form& window, Point p) {
    const bool gliding = glideTimer.Enabled();
    glideTimer.Stop();
    const Hit hit = HitAt(window, p);
    if (hit.form == nullptr || loop.Monotonic() < deafUntil) {
        press = {};
        return;
    }
    press = {hit.form, hit.control, hit.inForm};
    press.time = loop.Monotonic();
    press.stopsGlide = gliding && hit.control == glidingGrid;
    lastMove = hit.inForm;
    lastMoveTime = loop.Monotonic();
    glideSpeed = 0;
    Control* control = hit.control;
    if (hit.form->onTouch) {
        hit.form->onTouch(control);
    }
    if (control == nullptr) {
        if (hit.form->onPress) {
            hit.form->onPress();
        }
        return;
    }
    // A knob without handlers belongs to its track.
    while (!control->events.onDown && !control->events.onClick && control->container != nullptr) {
        control = control->container;
    }
    press.control = control;
    if (control->kind == ControlKind::grid) {
        press.startOffset = control->grid->ScrollOffset();
        hit.form->focus = control;
    } else if (control->kind == ControlKind::textBox) {
        hit.form->focus = control;
    }
    if (control->events.onDown) {
        const Rect place = control->Place();
        control->events.onDown({hit.inForm.x - place.x, hit.inForm.y - place.y});
    }
}

void Stage::PointerMove(Form& window, Point p) {
    if (press.form == nullptr) {
        const Hit hit = HitAt(window, p);
        if (hit.form != nullptr && hit.control == nullptr && hit.form->onRelease) {
            hit.form->onRelease();
        }
        return;
    }
    const Point inForm = ToForm(*press.form, p);
    if (press.control == nullptr) {
        return;
    }
    if (press.control->kind == ControlKind::grid) {
        DragGrid(inForm);
    }
    if (press.control->events.onDrag) {
        const Rect place = press.control->Place();
        press.control->events.onDrag({inForm.x - place.x, inForm.y - place.y});
    }
}

void Stage::DragGrid(Point inForm) {
    const int way = inForm.y - press.start.y;
    press.scrolling = press.scrolling || std::abs(way) > dragThreshold;
    if (!press.scrolling) {
        return;
    }
    press.control->grid->SetScrollOffset(press.startOffset - way);
    const Milliseconds now = loop.Monotonic();
    if (now > lastMoveTime) {
        const double speed =
            static_cast<double>(lastMove.y - inForm.y) / static_cast<double>((now - lastMoveTime).count());
        glideSpeed = 0.6 * speed + 0.4 * glideSpeed;
        lastMove = inForm;
        lastMoveTime = now;
    }
}

void Stage::PointerUp(Form& window, Point p) {
    (void)window;
    const Press ended = press;
    press = {};
    if (ended.form == nullptr) {
        return;
    }
    const Point inForm = ToForm(*ended.form, p);
    Control* const control = ended.control;
    if (control != nullptr) {
        const Rect place = control->Place();
        const Point inControl{inForm.x - place.x, inForm.y - place.y};
        const bool inside = control->VisiblePlace().Contains(inForm);
        if (control->events.onUp) {
            control->events.onUp(inControl);
        }
        if (ended.scrolling) {
            if (loop.Monotonic() - lastMoveTime < Milliseconds{80} && std::abs(glideSpeed) > slowestGlide) {
                glidingGrid = control;
                glideTimer.Start();
            }
        } else if (inside && control->kind == ControlKind::grid) {
            GridTapped(*control, inControl, ended);
        } else if (inside && control->events.onClick) {
            control->events.onClick(inControl);
        }
    } else if (ended.form->onRelease) {
        ended.form->onRelease();
    }
}

void Stage::PointerCancel() {
    const Press ended = press;
    press = {};
    if (ended.control != nullptr && ended.control->events.onUp) {
        ended.control->events.onUp({-1, -1});
    }
}

void Stage::GridTapped(Control& control, Point inControl, const Press& tap) {
    Grid& grid = *control.grid;
    const int row = grid.RowAtPixel(inControl.y);
    const bool wasReplaced = grid.replaced > Milliseconds{0};
    const bool quick = lastTapGrid == &control && tap.time - lastTapTime <= doubleTapTime;
    const bool ofFormerRows = quick && wasReplaced && lastTapTime <= grid.replaced &&
                              std::abs(inControl.y - lastTapPlace) < grid.Look().rowHeight;
    const bool unseen = wasReplaced && tap.time < grid.replaced + timeToSeeRows;
    if (tap.stopsGlide || unseen || ofFormerRows || row == 0) {
        lastTapGrid = nullptr;  // this touch was not meant for the row that it met
        return;
    }
    const bool second = quick && lastTapRow == row;
    lastTapGrid = second ? nullptr : &control;
    lastTapRow = row;
    lastTapTime = tap.time;
    lastTapPlace = inControl.y;
    grid.Select(row);
    if (second) {
        if (control.events.onDoubleClick) {
            control.events.onDoubleClick();
        }
    } else if (control.events.onClick) {
        control.events.onClick(inControl);
    }
}

void Stage::Glide() {
    const std::int64_t before = glidingGrid->grid->ScrollOffset();
    glidingGrid->grid->SetScrollOffset(before + std::lround(glideSpeed * static_cast<double>(glideStep.count())));
    glideSpeed *= glideFriction;
    if (std::abs(glideSpeed) < slowestGlide || glidingGrid->grid->ScrollOffset() == before) {
        glideTimer.Stop();
    }
}

void Stage::KeyDown(Form& window, const KeyEvent& key) {
    Form* const form = window.role == FormRole::window ? &window : ActiveForm();
    if (form == nullptr || loop.Monotonic() < deafUntil) {
        return;
    }
    Control* const list = form->focus;
    const bool ofList = list != nullptr && list->kind == ControlKind::grid && list->IsShown() && !key.modifier;
    if (!(ofList && ListTook(*list, key.key)) && form->onKeyDown) {
        form->onKeyDown(key);
    }
}

bool Stage::ListTook(Control& list, Key key) {
    Grid& grid = *list.grid;
    const int row = grid.Row();
    const int page = grid.VisibleRows();
    const int last = grid.RowCount();
    const bool upwards = key == Key::up || key == Key::pageUp;
    if ((upwards || key == Key::down || key == Key::pageDown) && grid.SelectInView(upwards)) {
        return true;
    }
    switch (key) {
        case Key::up:
            grid.Select(std::max(1, row - 1));
            return true;
        case Key::down:
            grid.Select(std::min(last, row + 1));
            return true;
        case Key::pageUp:
            grid.Select(std::max(1, row - page));
            return true;
        case Key::pageDown:
            grid.Select(std::min(last, row + page));
            return true;
        case Key::home:
            grid.Select(1);
            return true;
        case Key::end:
            grid.Select(last);
            return true;
        case Key::enter:
            if (row == 0 || !list.events.onDoubleClick) {
                return false;
            }
            // Both, so that Enter chooses the row whichever of the two taps the user has set for it.
            if (list.events.onClick) {
                list.events.onClick({});
            }
            list.events.onDoubleClick();
            return true;
        default:
            return false;
    }
}

void Stage::TextEdited(Control& box, std::string_view text, int selectionStart, int selectionLength) {
    const bool changed = box.text->text != text;
    box.text->text = text;
    box.text->selectionStart = selectionStart;
    box.text->selectionLength = selectionLength;
    if (changed && box.events.onChange) {
        box.events.onChange();
    }
}

void Stage::Changed() {
    if (changePending) {
        return;
    }
    changePending = true;
    if (onChange) {
        onChange();
    }
}

}  // namespace zvr
