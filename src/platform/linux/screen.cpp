#include "platform/linux/screen.h"

#include "platform/linux/picture.h"
#include "platform/linux/windowdrag.h"
#include "platform/linux/x11.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <cstdlib>
#include <utility>

namespace zvr {
namespace {

/// The tool kit ends the process when the display has gone, in the middle of whatever it does. An end of our own takes
/// the screen down before.
Screen* lostScreen = nullptr;

void AskToSave() {
    if (lostScreen != nullptr && lostScreen->onSaveRequest) {
        lostScreen->onSaveRequest();
    }
}

}  // namespace

SessionEnd::SessionEnd(std::function<void()> onEnd) : onEnd(std::move(onEnd)) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool SessionEnd::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Quit || watched != QCoreApplication::instance()) {
        return false;
    }
    onEnd();
    return true;
}

Screen::Screen(EventLoop& loop) : state(std::make_unique<State>()) {
    state->loop = &loop;
    const auto end = [this] {
        if (onCloseRequest) {
            onCloseRequest(true);
        }
    };
    lostScreen = this;
    [[maybe_unused]] static const int once = std::atexit(AskToSave);
    state->endSignals = std::make_unique<EndSignals>(end);
    state->sessionEnd = std::make_unique<SessionEnd>(end);
    // The session waits with its end for this to return.
    QObject::connect(qGuiApp, &QGuiApplication::commitDataRequest, state->sessionEnd.get(), AskToSave);
    // From the loop: the question may open a dialog, which must not stand inside the window's own event.
    state->onCloseRequest = [this](bool sessionEnds) {
        state->loop->Post([this, sessionEnds] {
            if (onCloseRequest) {
                onCloseRequest(sessionEnds);
            }
        });
    };
}

Screen::~Screen() {
    lostScreen = nullptr;
    Close();
}

void Screen::Open(Stage& stage) {
    state->stage = &stage;
    state->input = std::make_unique<Input>(
        stage, [this](QWidget* widget) { return state->ViewAround(widget); },
        [this](QObject* window) -> QWidget* {
            for (const auto& [form, view] : state->views) {
                if (QWidget* const widget = view->WidgetOf(window)) {
                    return widget;
                }
            }
            return nullptr;
        },
        [this] { state->SyncFocus(); });
    state->leftFormTimer.setSingleShot(true);
    QObject::connect(&state->leftFormTimer, &QTimer::timeout, [this] { state->ReleaseLeft(); });
    state->screenWatch = QObject::connect(QGuiApplication::primaryScreen(), &QScreen::geometryChanged, [this] {
        if (FormView* const root = state->RootView(); root != nullptr && !state->frame) {
            root->widget->setGeometry(QGuiApplication::primaryScreen()->geometry());
        }
    });
    stage.onChange = [this] { state->changed = true; };
    // Not by a task or an event of its own: with ten changes a second the way through the loop costs more than the
    // paint.
    state->loop->state->beforeRest = [own = state.get()] {
        if (std::exchange(own->changed, false)) {
            own->Sync();
        }
    };
    stage.onControlsGone = [this](const Form& form) {
        if (const auto view = state->views.find(&form); view != state->views.end()) {
            view->second->ForgetControls();
        }
    };
    state->Sync();
}

void Screen::Close() {
    if (state->stage == nullptr) {
        return;
    }
    QObject::disconnect(state->screenWatch);
    state->stage->onChange = nullptr;
    state->stage->onControlsGone = nullptr;
    state->stage = nullptr;
    state->input.reset();
    // Child forms lie in the root's widget; they go first.
    std::erase_if(state->views, [](const auto& entry) { return entry.first->role == FormRole::child; });
    state->views.clear();
    state->stackedForms.clear();
    state->leftForm = nullptr;
    state->leftFormTimer.disconnect();
    HidePointer(false);
}

void Screen::Flush() {
    if (state->stage == nullptr) {
        return;
    }
    state->Sync();
    for (const auto& [form, view] : state->views) {
        if (view->widget->isWindow() && view->widget->isVisible()) {
            QEvent paintNow(QEvent::UpdateRequest);
            QCoreApplication::sendEvent(view->widget, &paintNow);
        }
    }
    x11::FlushConnection();
}

void Screen::StartDrag(const Form& window) {
    const auto view = state->views.find(&window);
    if (view == state->views.end() || view->second->widget->windowHandle() == nullptr) {
        return;
    }
    QWidget& widget = *view->second->widget;
    if (widget.windowFlags().testFlag(Qt::X11BypassWindowManagerHint)) {
        new WindowDrag(widget);
    } else {
        widget.windowHandle()->startSystemMove();
    }
}

Point Screen::RootOrigin() const {
    const FormView* const root = state->stage == nullptr ? nullptr : state->RootView();
    const QPoint origin = root == nullptr ? QPoint() : root->widget->mapToGlobal(QPoint());
    return {origin.x(), origin.y()};
}

Size Screen::PixelSize() const {
    const QSize size = QGuiApplication::primaryScreen()->geometry().size();
    return {size.width(), size.height()};
}

void Screen::SetFrame(bool titleBarAndBorder) {
    if (state->frame == titleBarAndBorder) {
        return;
    }
    state->frame = titleBarAndBorder;
    if (state->RootView() != nullptr) {
        state->ApplyRootFrame();
    }
}

void Screen::SetTitle(const std::string& title) {
    state->title = ToQString(title);
    if (FormView* const root = state->RootView()) {
        root->widget->setWindowTitle(state->title);
    }
}

void Screen::SetRootState(WindowState next) {
    if (RootState() == next) {
        return;
    }
    FormView* const root = state->RootView();
    if (next == WindowState::minimized && !x11::WindowManagerRuns()) {
        return;  // nobody could bring it back
    }
    if (next != WindowState::minimized) {
        state->shownState = next;
    }
    if (root == nullptr) {
        return;
    }
    const Qt::WindowStates full = state->frame ? Qt::WindowNoState : Qt::WindowFullScreen;
    switch (next) {
        case WindowState::minimized:
            root->widget->setWindowState(root->widget->windowState() | Qt::WindowMinimized);
            break;
        case WindowState::normal:
            root->widget->setWindowState(full);
            break;
        case WindowState::maximized:
            root->widget->setWindowState(state->frame ? Qt::WindowMaximized : full);
            break;
    }
    state->RootStateChanged();
}

WindowState Screen::RootState() const {
    return state->minimized ? WindowState::minimized : state->shownState;
}

void Screen::ActivateRoot() {
    FormView* const root = state->RootView();
    if (root == nullptr || !root->widget->isVisible()) {
        return;
    }
    root->widget->raise();
    if (x11::WindowManagerRuns()) {
        x11::Activate(root->widget->winId());
    } else {
        root->widget->activateWindow();
    }
}

bool Screen::CanBeTranslucent() const {
    return x11::CompositorRuns();
}

void Screen::HidePointer(bool hidden) {
    if (state->pointerHidden == hidden) {
        return;
    }
    state->pointerHidden = hidden;
    if (hidden) {
        QGuiApplication::setOverrideCursor(Qt::BlankCursor);
    } else {
        QGuiApplication::restoreOverrideCursor();
    }
}

void Screen::SetDim(double share) {
    state->dim = share;
    if (state->stage != nullptr) {
        state->SyncDim();
    }
}

std::uintptr_t Screen::WindowOf(const Control& video) {
    if (state->stage == nullptr || video.kind != ControlKind::video) {
        return 0;
    }
    FormView* const view = state->ViewOf(video.form);
    if (view == nullptr) {
        return 0;
    }
    // Also while it is hidden: the player takes the size that the window has for the first picture's.
    QWidget& widget = view->WidgetFor(video);
    widget.setGeometry(ToQRect(video.Place()));
    return widget.winId();
}

}  // namespace zvr
