#include "platform/headless/screen.h"

#include <cmath>
#include <iomanip>
#include <sstream>

namespace zvr {

Screen::Screen(EventLoop& loop) : state(std::make_unique<State>()) {
    state->loop = &loop;
}
Screen::~Screen() = default;

void Screen::State::Paint() {
    ++paints;
    for (Form* form : stage->Forms()) {
        paintedForms += form->dirty ? 1 : 0;
        form->dirty = false;
        for (Control* control : form->dirtyControls) {
            control->dirty = false;
            control->painted = control->VisiblePlace();
            ++paintedControls;
        }
        form->dirtyControls.clear();
    }
    stage->Painted();
}

void Screen::State::SetRootSize(Size next) {
    Form* const root = stage->Forms().front();
    root->Resize(next);
    if (root->onResize) {
        root->onResize();
    }
}

void Screen::Open(Stage& stage) {
    state->stage = &stage;
    stage.onChange = [this] {
        state->loop->Post([this] {
            if (state->stage != nullptr) {
                state->Paint();
            }
        });
    };
    state->Paint();
    stage.Changed();
}

void Screen::Close() {
    if (state->stage != nullptr) {
        state->stage->onChange = nullptr;
        state->stage = nullptr;
    }
}

void Screen::Flush() {
    if (state->stage != nullptr) {
        state->Paint();
    }
}

Size Screen::PixelSize() const {
    return state->size;
}

Point Screen::RootOrigin() const {
    return state->origin;
}

void Screen::SetFrame(bool titleBarAndBorder) {
    state->frame = titleBarAndBorder;
}

void Screen::SetDim(double share) {
    state->dim = share;
}

void Screen::SetTitle(const std::string& title) {
    state->title = title;
}

void Screen::SetRootState(WindowState next) {
    if (state->rootState == next) {
        return;
    }
    state->rootState = next;
    if (state->stage != nullptr && !state->stage->Forms().empty() && state->stage->Forms().front()->onResize) {
        state->stage->Forms().front()->onResize();
    }
}

WindowState Screen::RootState() const {
    return state->rootState;
}

void Screen::ActivateRoot() {}

bool Screen::CanBeTranslucent() const {
    return state->translucent;
}

void Screen::HidePointer(bool hidden) {
    state->pointerHidden = hidden;
}

void Screen::StartDrag(const Form& window) {
    state->dragged = &window;
}

std::uintptr_t Screen::WindowOf(const Control& video) {
    return video.kind == ControlKind::video ? 1 : 0;
}

std::string SceneOf(const Form& form) {
    static constexpr const char* kinds[] = {"image", "label", "picture", "grid", "textBox", "video"};
    static constexpr const char* aligns[] = {"left", "center", "right"};
    std::ostringstream scene;
    const auto color = [&scene](Color value) {
        scene << " #" << std::hex << std::setfill('0') << std::setw(6)
              << (RedOf(value) << 16 | GreenOf(value) << 8 | BlueOf(value)) << std::dec;
    };
    const Rect place = form.Place();
    scene << form.name << " " << place.x << "," << place.y << " " << place.width << "x" << place.height;
    color(form.backColor);
    scene << "\n";
    for (const Control* control : form.Controls()) {
        if (!control->IsShown()) {
            continue;
        }
        const Rect at = control->Place();
        scene << kinds[static_cast<int>(control->kind)] << " " << control->name << "(" << control->index << ") " << at.x
              << "," << at.y << " " << at.width << "x" << at.height;
        if (!control->Tag().empty()) {
            scene << " [" << control->Tag() << "]";
        }
        if (!control->caption.get().empty()) {
            scene << " \"" << control->caption.get() << "\"";
        }
        if (const Plate& plate = control->plate; plate.shown) {
            color(plate.top);
            color(plate.bottom);
            color(plate.edge);
            scene << " edge " << plate.edgeWidth << " round " << plate.radius;
        } else if (control->kind == ControlKind::picture && control->picture.get() == nullptr) {
            color(control->backColor);
        } else if (control->kind == ControlKind::label || control->kind == ControlKind::grid) {
            scene << " " << std::lround(control->font.get().points * 10) / 10.0 << "pt"
                  << (control->font.get().bold ? " bold " : " ") << aligns[static_cast<int>(control->align.get())];
            color(control->kind == ControlKind::label ? control->foreColor.get() : control->grid->Look().fore);
        }
        scene << "\n";
    }
    return scene.str();
}

}  // namespace zvr
