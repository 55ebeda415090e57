#include "platform/linux/input.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace zvr {
namespace {

Key ToKey(int key) {
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) {
        return static_cast<Key>(static_cast<int>(Key::f1) + key - Qt::Key_F1);
    }
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return Key::enter;
        case Qt::Key_Escape:
            return Key::escape;
        case Qt::Key_Up:
            return Key::up;
        case Qt::Key_Down:
            return Key::down;
        case Qt::Key_PageUp:
            return Key::pageUp;
        case Qt::Key_PageDown:
            return Key::pageDown;
        case Qt::Key_Home:
            return Key::home;
        case Qt::Key_End:
            return Key::end;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return Key::tab;
        case Qt::Key_Backspace:
            return Key::backspace;
        default:
            return Key::other;
    }
}

bool TextBoxUses(Key key, bool multiline) {
    switch (key) {
        case Key::other:
        case Key::backspace:
        case Key::home:
        case Key::end:
            return true;
        case Key::enter:
        case Key::up:
        case Key::down:
        case Key::pageUp:
        case Key::pageDown:
            return multiline;
        default:
            return false;
    }
}

TextWidget* TextWidgetAround(QWidget* widget) {
    for (; widget != nullptr; widget = widget->parentWidget()) {
        if (auto* const text = dynamic_cast<TextWidget*>(widget)) {
            return text;
        }
    }
    return nullptr;
}

}  // namespace

Input::Input(Stage& stage, std::function<FormView*(QWidget*)> viewOf, std::function<QWidget*(QObject*)> widgetOf,
             std::function<void()> syncFocus)
    : stage(stage), viewOf(std::move(viewOf)), widgetOf(std::move(widgetOf)), syncFocus(std::move(syncFocus)) {
    qApp->installEventFilter(this);
}

bool Input::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::KeyPress:
        case QEvent::Wheel:
            break;
        default:
            return false;
    }
    QWidget* const widget = watched->isWindowType() ? widgetOf(watched) : nullptr;
    if (widget == nullptr) {
        return false;
    }
    if (event->type() == QEvent::KeyPress) {
        return Key(*widget, *static_cast<QKeyEvent*>(event));
    }
    if (event->type() == QEvent::Wheel) {
        const auto* const wheel = static_cast<QWheelEvent*>(event);
        return Wheel(*widget, wheel->position().toPoint(), wheel->angleDelta().y());
    }
    return Mouse(*widget, *static_cast<QMouseEvent*>(event));
}

bool Input::Mouse(QWidget& widget, const QMouseEvent& event) {
    FormView* const view = viewOf(&widget);
    if (view == nullptr) {
        return true;
    }
    Form& window = view->form;
    const QPoint inWindow = widget.mapTo(widget.window(), event.position().toPoint());
    const Point p{inWindow.x(), inWindow.y()};
    switch (event.type()) {
        case QEvent::MouseButtonPress: {
            if (event.button() != Qt::LeftButton || pressed) {
                return true;
            }
            const TextWidget* const text = TextWidgetAround(widget.window()->childAt(inWindow));
            pressed = true;
            pressInText = text != nullptr && (stage.ModalForm() == nullptr || stage.ModalForm() == &text->control.form);
            const bool forToolkit = pressInText;
            stage.PointerDown(window, p);
            syncFocus();
            return !forToolkit;
        }
        case QEvent::MouseButtonRelease: {
            if (event.button() != Qt::LeftButton || !pressed) {
                return true;
            }
            pressed = false;
            const bool forToolkit = std::exchange(pressInText, false);
            stage.PointerUp(window, p);
            return !forToolkit;
        }
        case QEvent::MouseMove:
            stage.PointerMove(window, p);
            return pressed && !pressInText;
        default:
            // The second press of a double click comes as a press too; only a text box selects a word by this.
            return !pressInText;
    }
}

bool Input::Key(QWidget& widget, const QKeyEvent& event) {
    FormView* const view = viewOf(&widget);
    if (view == nullptr) {
        return true;
    }
    const auto modifiers = event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    const KeyEvent key{ToKey(event.key()), modifiers != Qt::NoModifier};
    const TextWidget* const text = TextWidgetAround(QApplication::focusWidget());
    if (text != nullptr && TextBoxUses(key.key, text->Multiline())) {
        return false;
    }
    stage.KeyDown(view->form, key);
    syncFocus();
    return true;
}

bool Input::Wheel(QWidget& widget, const QPoint& place, int steps) {
    const QPoint inWindow = widget.mapTo(widget.window(), place);
    FormView* const view = viewOf(widget.window()->childAt(inWindow));
    if (view == nullptr || (stage.ModalForm() != nullptr && stage.ModalForm() != &view->form)) {
        return true;
    }
    const QPoint inForm = view->widget->mapFrom(widget.window(), inWindow);
    Control* const control = view->form.ControlAt({inForm.x(), inForm.y()});
    if (control != nullptr && control->kind == ControlKind::grid) {
        constexpr int rowsOfANotch = 3;
        constexpr int stepsOfANotch = 120;
        Grid& grid = *control->grid;
        grid.SetScrollOffset(grid.ScrollOffset() - steps * rowsOfANotch * grid.Look().rowHeight / stepsOfANotch);
    }
    return true;
}

}  // namespace zvr
