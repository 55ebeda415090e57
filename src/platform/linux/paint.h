#pragma once

#include "ui/form.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QRect>
#include <QRegion>

#include <map>

class QPainter;

namespace zvr {

inline QRect ToQRect(const Rect& r) {
    return {r.x, r.y, r.width, r.height};
}
inline QColor ToQColor(Color c) {
    return {RedOf(c), GreenOf(c), BlueOf(c)};
}
/// Points count as on a screen of 96 dots an inch, so that a skin looks the same on every panel.
[[nodiscard]] QFont ToQFont(const Font& font);

/// The pictures in front of list rows, each size read when it is first shown.
class ListIcons {
public:
    ListIcons();
    /// Null when there is no picture for it.
    const QImage& Get(ListIcon icon, int rowHeight);

private:
    std::map<std::pair<ListIcon, int>, QImage> images;
};

/// Background and painted controls of a form, back to front, as far as they meet `region`.
void PaintForm(QPainter& painter, const Form& form, const QRegion& region);
/// The rows of a list that show. The painter's origin is the list's top left corner.
void PaintGrid(QPainter& painter, const Control& control, const QRect& dirty, ListIcons& icons);

}  // namespace zvr
