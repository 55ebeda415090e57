#include "platform/linux/windowdrag.h"

#include <QCoreApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QScreen>

#include <algorithm>

namespace zvr {

WindowDrag::WindowDrag(QWidget& window) : QObject(&window), window(window), fromPointer(window.pos() - QCursor::pos()) {
    qApp->installEventFilter(this);
}

bool WindowDrag::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseMove:
            MoveTo(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
            return true;
        case QEvent::MouseButtonRelease:
            qApp->removeEventFilter(this);
            deleteLater();
            return false;
        default:
            return false;
    }
}

/// All of it stays on the screen: the part that is left must not be too small to pull it back.
void WindowDrag::MoveTo(QPoint pointer) {
    const QRect room = window.screen()->geometry();
    const QPoint wanted = pointer + fromPointer;
    window.move(std::clamp(wanted.x(), room.left(), std::max(room.left(), room.right() + 1 - window.width())),
                std::clamp(wanted.y(), room.top(), std::max(room.top(), room.bottom() + 1 - window.height())));
}

}  // namespace zvr
