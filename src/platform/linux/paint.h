#pragma once

#include "ui/form.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QRect>
#include <QRegion>

#include <cstdint>
#include <map>
#include <tuple>

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
    /// In the ink that stands out best against `ground`. Null when there is no picture for it.
    const QImage& Get(ListIcon icon, int rowHeight, Color ground);

private:
    std::map<std::tuple<ListIcon, int, bool>, QImage> images;  ///< by size and whether the ink is the dark one
};

/// Background and painted controls of a form, back to front, as far as they meet `region`.
void PaintForm(QPainter& painter, const Form& form, const QRegion& region);
inline constexpr int textBoxMargin = 6;  ///< pixels left and right of its text
/// A text box that nobody types into: one line that is too wide loses its middle.
void PaintTextBox(QPainter& painter, const Control& box, const QRect& place);
/// The rows of a list that show. The painter's origin is the list's top left corner.
void PaintGrid(QPainter& painter, const Control& control, const QRect& dirty, ListIcons& icons);

/// How much there is, how much of it shows, and what of it is the first that does; in pixels or lines alike.
struct ScrollMark {
    std::int64_t all = 0;
    std::int64_t shown = 0;
    std::int64_t first = 0;
};
/// Says at the right edge of `size` where a list or text stands, if not all of it shows. What it belongs to is dragged
/// itself, not by this.
void PaintScrollMark(QPainter& painter, const ScrollMark& mark, const QSize& size, QColor color);

}  // namespace zvr
