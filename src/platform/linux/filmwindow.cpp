#include "platform/linux/filmwindow.h"

#include "platform/linux/x11.h"

#include <QEvent>

namespace zvr {

FilmWindow::~FilmWindow() {
    Leave();
}

std::uintptr_t FilmWindow::Inside(std::uintptr_t area) {
    QWidget* const wanted = area == 0 ? nullptr : QWidget::find(static_cast<WId>(area));
    if (wanted == nullptr || wanted != widget || film == 0) {
        Leave();
        if (wanted == nullptr) {
            return 0;
        }
        widget = wanted;
        widget->installEventFilter(this);
        film = x11::MakeChild(area, x11::ChildKind::picture);
        pane = x11::MakeChild(area, x11::ChildKind::pane);
    }
    return film;
}

void FilmWindow::Press(Point p) const {
    if (film != 0) {
        x11::SendPress(film, p);
    }
}

bool FilmWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && film != 0) {
        const Size size = x11::SizeOf(widget->winId());
        x11::Resize(film, size);
        x11::Resize(pane, size);
    } else if (event->type() == QEvent::WinIdChange) {
        film = pane = 0;  // they went with the old one
    }
    return QObject::eventFilter(watched, event);
}

void FilmWindow::Leave() {
    if (widget != nullptr) {
        widget->removeEventFilter(this);
        if (film != 0) {
            x11::Destroy(film);
            x11::Destroy(pane);
        }
    }
    widget = nullptr;
    film = pane = 0;
}

}  // namespace zvr
