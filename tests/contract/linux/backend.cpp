#include "contract/backend.h"

#include "platform/linux/picture.h"
#include "platform/linux/screen.h"

#include <gtest/gtest.h>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QWindow>

namespace zvr::contract {
namespace {

constexpr Milliseconds moment{20};

QWindow* RootWindow(Screen& screen) {
    return screen.state->RootView()->widget->windowHandle();
}

void SendMouse(Hand& hand, QEvent::Type type, Point p, Qt::MouseButton button, Qt::MouseButtons held) {
    QWindow* const window = RootWindow(hand.screen);
    const QPointF place(p.x, p.y);
    QCoreApplication::postEvent(window,
                                new QMouseEvent(type, place, window->mapToGlobal(place), button, held, Qt::NoModifier));
    hand.loop.Wait(moment);
}

void SendKey(Hand& hand, int key, const QString& text) {
    QWindow* const window = RootWindow(hand.screen);
    QCoreApplication::postEvent(window, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, text));
    QCoreApplication::postEvent(window, new QKeyEvent(QEvent::KeyRelease, key, Qt::NoModifier, text));
    hand.loop.Wait(moment);
}

int ToQtKey(Key key) {
    if (key >= Key::f1) {
        return Qt::Key_F1 + static_cast<int>(key) - static_cast<int>(Key::f1);
    }
    switch (key) {
        case Key::enter:
            return Qt::Key_Return;
        case Key::escape:
            return Qt::Key_Escape;
        case Key::up:
            return Qt::Key_Up;
        case Key::down:
            return Qt::Key_Down;
        case Key::pageUp:
            return Qt::Key_PageUp;
        case Key::pageDown:
            return Qt::Key_PageDown;
        case Key::home:
            return Qt::Key_Home;
        case Key::end:
            return Qt::Key_End;
        default:
            return Qt::Key_unknown;
    }
}

}  // namespace

void Hand::Press(Point inRoot) {
    SendMouse(*this, QEvent::MouseButtonPress, inRoot, Qt::LeftButton, Qt::LeftButton);
}

void Hand::Drag(Point inRoot) {
    SendMouse(*this, QEvent::MouseMove, inRoot, Qt::NoButton, Qt::LeftButton);
}

void Hand::Lift(Point inRoot) {
    SendMouse(*this, QEvent::MouseButtonRelease, inRoot, Qt::LeftButton, Qt::NoButton);
}

void Hand::Strike(Key key) {
    SendKey(*this, ToQtKey(key), {});
}

void Hand::Type(Control&, std::string_view text) {
    SendKey(*this, Qt::Key_unknown, ToQString(text));
}

std::string Hand::ShownText(Control& box) {
    QWidget* const editor = screen.state->ViewOf(box.form)->TextAt(&box)->Editor();
    if (const auto* const line = qobject_cast<QLineEdit*>(editor)) {
        return line->text().toStdString();
    }
    return qobject_cast<QPlainTextEdit*>(editor)->toPlainText().toStdString();
}

}  // namespace zvr::contract

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
