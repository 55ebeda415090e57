#include "platform/linux/screen.h"
#include "platform/linux/x11.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace zvr {
namespace {

constexpr Qt::WindowFlags styledFlags = Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;

Qt::WindowFlags FlagsOf(const Form& form) {
    constexpr std::uint32_t frame = 0xC00000 | 0x40000;  // title bar, sizing border
    constexpr std::uint32_t toolWindow = 0x80;
    Qt::WindowFlags flags = (form.extendedStyle.get() & toolWindow) != 0 ? Qt::Tool : Qt::Window;
    flags.setFlag(Qt::FramelessWindowHint, (form.style.get() & frame) == 0);
    flags.setFlag(Qt::WindowStaysOnTopHint, form.topMost);
    // Bars above other programs: who types there goes on typing there. No window manager has them in its hands: each
    // would lay a full-screen program over them, and they are the way back.
    flags.setFlag(Qt::WindowDoesNotAcceptFocus, form.isModule);
    flags.setFlag(Qt::X11BypassWindowManagerHint, form.isModule);
    return flags;
}

}  // namespace

Form* Screen::State::RootForm() const {
    if (stage == nullptr || stage->Forms().empty() || stage->Forms().front()->role != FormRole::root) {
        return nullptr;
    }
    return stage->Forms().front();
}

FormView* Screen::State::RootView() const {
    const auto view = views.find(RootForm());
    return view == views.end() ? nullptr : view->second.get();
}

FormView* Screen::State::ViewOf(Form& form) {
    if (const auto known = views.find(&form); known != views.end()) {
        return known->second.get();
    }
    QWidget* parent = nullptr;
    if (form.role == FormRole::child) {
        Form* const root = RootForm();
        FormView* const rootView = root == nullptr ? nullptr : ViewOf(*root);
        if (rootView == nullptr) {
            return nullptr;
        }
        parent = rootView->widget;
    }
    auto& view = views[&form];
    view = std::make_unique<FormView>(form, parent, *stage, icons);
    PrepareWindow(*view);
    return view.get();
}

FormView* Screen::State::ViewAround(QWidget* widget) const {
    for (; widget != nullptr; widget = widget->parentWidget()) {
        for (const auto& [form, view] : views) {
            if (view->widget == widget) {
                return view.get();
            }
        }
    }
    return nullptr;
}

void Screen::State::PrepareWindow(FormView& view) {
    FormWidget& widget = *view.widget;
    switch (view.form.role) {
        case FormRole::child:
            widget.hide();
            break;
        case FormRole::root:
            widget.setWindowTitle(title);
            widget.onEvent = [this](QEvent& event) { return RootEvent(event); };
            ApplyRootFrame();
            break;
        case FormRole::window:
            widget.setWindowFlags(FlagsOf(view.form));
            widget.setWindowTitle(title);
            // The first window of all, the splash, is an answer to the one who started us: a full screen of another
            // program stays before it unless it is active.
            widget.setAttribute(Qt::WA_ShowWithoutActivating, RootView() != nullptr);
            widget.onEvent = [&form = view.form, &widget](QEvent& event) {
                if (event.type() == QEvent::Move && widget.isVisible()) {
                    form.left = Twips(widget.x());  // the driver has dragged it
                    form.top = Twips(widget.y());
                }
                return false;
            };
            break;
    }
}

void Screen::State::SyncWindow(FormView& view) {
    FormWidget& widget = *view.widget;
    if (view.form.role == FormRole::root) {
        const QRect place = ToQRect(view.form.Place());
        if (frame && !widget.isMaximized() && widget.size() != place.size()) {
            widget.resize(place.size());
        }
        if (!widget.isVisible()) {
            ShowRoot();
        }
        return;
    }
    if (const QRect place = ToQRect(view.form.Place()); widget.geometry() != place) {
        widget.setGeometry(place);
    }
    if (const QSize strip = widget.size(); !view.form.reservesTop) {
        view.strip.reset();
    } else if (!view.strip || view.strip->size != Size{strip.width(), strip.height()}) {
        view.strip.reset();
        view.strip = std::make_unique<TopStrip>(Size{strip.width(), strip.height()});
    }
    const double opacity = x11::CompositorRuns() ? view.form.alpha / 255.0 : 1.0;
    if (widget.windowOpacity() != opacity) {
        widget.setWindowOpacity(opacity);
    }
    if (QWindow* const window = widget.windowHandle();
        window != nullptr && (window->flags() & styledFlags) != (FlagsOf(view.form) & styledFlags)) {
        // At the window itself: through the widget it would become another window.
        window->setFlags((window->flags() & ~styledFlags) | (FlagsOf(view.form) & styledFlags));
    }
    const bool activates = !widget.isVisible() && !widget.testAttribute(Qt::WA_ShowWithoutActivating);
    widget.show();
    if (activates) {
        widget.activateWindow();
    }
}

void Screen::State::ApplyRootFrame() {
    FormView* const root = RootView();
    const bool shown = root->widget->isVisible();
    root->widget->setWindowFlags(frame ? Qt::Window : Qt::Window | Qt::FramelessWindowHint);
    if (frame) {
        root->widget->setWindowState(shownState == WindowState::maximized ? Qt::WindowMaximized : Qt::WindowNoState);
        root->widget->resize(root->form.Place().width, root->form.Place().height);
    }
    if (shown) {
        ShowRoot();
    }
}

void Screen::State::ShowRoot() {
    FormWidget& widget = *RootView()->widget;
    if (!frame) {
        // The place is set by hand too, for screens on which no window manager does it.
        widget.setGeometry(QGuiApplication::primaryScreen()->geometry());
        widget.setWindowState(Qt::WindowFullScreen);
    }
    widget.show();
    widget.raise();
    // A window that is there before the root, the splash, stays in front of it: a full screen alone would cover
    // even those that stay on top.
    for (const auto& [form, view] : views) {
        if (form->role == FormRole::window && view->widget->isVisible()) {
            x11::SetOwner(view->widget->winId(), widget.winId());
        }
    }
    widget.activateWindow();
    x11::Activate(widget.winId());  // for who comes back from behind another program that the driver typed into
    RootResized();                  // the toolkit reports the first size before the window shows
}

bool Screen::State::RootEvent(QEvent& event) {
    switch (event.type()) {
        case QEvent::Close:
            event.ignore();
            onCloseRequest(false);
            return true;
        case QEvent::Resize:
            RootResized();
            return false;
        case QEvent::WindowStateChange:
            RootStateChanged();
            return false;
        case QEvent::WindowDeactivate:
            stage->PointerCancel();
            return false;
        default:
            return false;
    }
}

void Screen::State::RootResized() {
    FormView* const root = RootView();
    if (root == nullptr || !root->widget->isVisible()) {
        return;
    }
    Form& form = root->form;
    const QSize size = root->widget->size();
    if (const Rect place = form.Place(); place.width == size.width() && place.height == size.height()) {
        return;
    }
    form.Resize({size.width(), size.height()});
    if (form.onResize) {
        form.onResize();
    }
}

void Screen::State::RootStateChanged() {
    FormView* const root = RootView();
    if (root == nullptr) {
        return;
    }
    const Qt::WindowStates now = root->widget->windowState();
    minimized = now.testFlag(Qt::WindowMinimized);
    if (frame && !minimized) {
        shownState = now.testFlag(Qt::WindowMaximized) ? WindowState::maximized : WindowState::normal;
    }
    const WindowState after = minimized ? WindowState::minimized : shownState;
    if (after != reportedState) {
        reportedState = after;
        if (root->form.onResize) {
            root->form.onResize();
        }
    }
}

}  // namespace zvr
