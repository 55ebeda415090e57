#include "platform/linux/picture.h"
#include "platform/linux/screen.h"

#include <algorithm>
#include <chrono>
#include <unordered_set>
#include <utility>

namespace zvr {
namespace {

/// All screens' pictures together would be most of the program's memory. Those of the last one are kept for a while:
/// the way back is the one that is gone most, and decoding them takes 10 ms.
constexpr std::chrono::seconds keepsLeftForm(5);

void AddPictures(const Form& form, std::unordered_set<const Picture*>& pictures) {
    const auto add = [&pictures](const PicturePointer& picture) {
        if (picture != nullptr) {
            pictures.insert(picture.get());
        }
    };
    add(form.background);
    for (const auto& control : form.Controls()) {
        add(control->picture);
        add(control->inlay->picture);
        add(control->normalPicture);
        add(control->activePicture);
    }
}

}  // namespace

void Screen::State::Sync() {
    // First: what changes from here on asks for another turn.
    stage->Painted();
    ForgetRemovedForms();
    const std::vector<Form*> forms = stage->Forms();
    for (Form* form : forms) {
        SyncForm(*form, form->visible && !IsCovered(*form));
    }
    SyncStacking();
    SyncVideoMasks();
    SyncDim();
    SyncFocus();
}

void Screen::State::SyncDim() {
    for (const auto& [form, view] : views) {
        if (form->role != FormRole::child) {
            view->Dim(dim);
        }
    }
}

void Screen::State::ForgetRemovedForms() {
    const std::vector<Form*>& forms = stage->Forms();
    const auto gone = [&forms](const Form* form) { return std::find(forms.begin(), forms.end(), form) == forms.end(); };
    if (leftForm != nullptr && gone(leftForm)) {
        leftForm = nullptr;
    }
    std::erase_if(views, [&gone](const auto& entry) { return gone(entry.first); });
}

bool Screen::State::IsCovered(const Form& form) const {
    if (form.role != FormRole::child) {
        return false;
    }
    const std::vector<Form*>& forms = stage->Forms();
    const QRect place = ToQRect(form.Place());
    auto front = std::find(forms.begin(), forms.end(), &form);
    return std::any_of(++front, forms.end(), [&place](const Form* other) {
        return other->role == FormRole::child && other->visible && ToQRect(other->Place()).contains(place);
    });
}

void Screen::State::SyncForm(Form& form, bool shown) {
    if (!shown) {
        // When it comes up again all of it is painted.
        for (Control* control : form.dirtyControls) {
            control->dirty = false;
        }
        form.dirtyControls.clear();
        form.dirty = true;
        const auto view = views.find(&form);
        if (view != views.end() && !view->second->widget->isHidden()) {
            view->second->widget->hide();
            view->second->strip.reset();
            LeaveForm(form);
        }
        return;
    }
    FormView* const view = ViewOf(form);
    if (view == nullptr) {
        return;
    }
    if (leftForm == &form) {
        leftForm = nullptr;
    }
    const bool whole = form.dirty;
    view->Sync();
    if (form.role == FormRole::child) {
        if (const QRect place = ToQRect(form.Place()); view->widget->geometry() != place) {
            view->widget->setGeometry(place);
            view->PlaceVideos();
        }
        view->widget->show();
    } else if (whole || !view->widget->isVisible()) {
        SyncWindow(*view);
    }
}

void Screen::State::LeaveForm(const Form& form) {
    ReleaseLeft();
    leftForm = &form;
    leftFormTimer.start(keepsLeftForm);
}

void Screen::State::ReleaseLeft() {
    // The timer may come between the end of a form and the next sync.
    const std::vector<Form*>& forms = stage->Forms();
    const Form* const form = std::exchange(leftForm, nullptr);
    if (std::find(forms.begin(), forms.end(), form) == forms.end()) {
        return;
    }
    std::unordered_set<const Picture*> left;
    AddPictures(*form, left);
    std::unordered_set<const Picture*> inUse;
    for (const Form* other : forms) {
        if (other->visible && !IsCovered(*other)) {
            AddPictures(*other, inUse);
        }
    }
    for (const Picture* picture : left) {
        if (!inUse.contains(picture)) {
            ReleasePixels(*picture);
        }
    }
}

void Screen::State::SyncStacking() {
    std::vector<const Form*> order;
    for (const Form* form : stage->Forms()) {
        if (form->role == FormRole::child && views.contains(form)) {
            order.push_back(form);
        }
    }
    if (order == stackedForms) {
        return;
    }
    for (const Form* form : order) {
        views[form]->widget->raise();
    }
    stackedForms = std::move(order);
}

void Screen::State::SyncVideoMasks() {
    if (std::none_of(views.begin(), views.end(), [](const auto& entry) { return entry.second->OwnsVideo(); })) {
        return;
    }
    QRegion covered;
    const std::vector<Form*>& forms = stage->Forms();
    for (auto form = forms.rbegin(); form != forms.rend(); ++form) {
        const auto view = views.find(*form);
        if ((*form)->role == FormRole::window || view == views.end() || view->second->widget->isHidden()) {
            continue;
        }
        const QRect place = (*form)->role == FormRole::child ? ToQRect((*form)->Place()) : QRect();
        if (view->second->OwnsVideo()) {
            view->second->MaskVideos(covered.translated(-place.topLeft()));
        }
        covered += place;
    }
}

void Screen::State::SyncFocus() {
    FormView* const root = RootView();
    if (stage == nullptr || root == nullptr) {
        return;
    }
    QWidget* wanted = root->widget;
    if (const Form* const active = stage->ActiveForm(); active != nullptr && active->focus != nullptr) {
        const auto view = views.find(active);
        TextWidget* const text = view == views.end() ? nullptr : view->second->TextAt(active->focus);
        if (text != nullptr && !text->isHidden()) {
            wanted = text->Editor();
        }
    }
    if (!wanted->hasFocus() && root->widget->focusWidget() != wanted) {
        wanted->setFocus(Qt::OtherFocusReason);
    }
}

}  // namespace zvr
