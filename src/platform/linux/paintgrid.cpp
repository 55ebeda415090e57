#include "platform/linux/icons.h"
#include "platform/linux/paint.h"
#include "platform/linux/picture.h"
#include "ui/contrast.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <array>

namespace zvr {
namespace {

constexpr int margin = 8;  ///< left of the icon, and between icon and text
constexpr int scrollMarkWidth = 4;
constexpr int shortestScrollMark = 24;
constexpr qsizetype longestText = 1000;
constexpr Color drawnInk = RgbColor(0xBB, 0xA8, 0x94);  ///< of the icons as they are drawn, for dark rows
constexpr Color darkInk = RgbColor(0x4A, 0x3F, 0x35);   ///< for bright ones

constexpr std::array<const char*, 16> iconNames{
    "",           "list-folder", "list-audio",   "list-video", "list-image", "list-removable",
    "list-fixed", "list-cdrom",  "list-network", "list-this",  "list-home",  "list-mobile",
    "list-work",  "list-fax",    "list-mail",    "list-other"};

int IconSize(int rowHeight) {
    struct Step {
        int tallestRow;
        int size;
    };
    static constexpr std::array steps{Step{25, 20}, Step{31, 24}, Step{63, 28}};
    const auto found =
        std::find_if(steps.begin(), steps.end(), [=](Step step) { return rowHeight <= step.tallestRow; });
    return found == steps.end() ? 32 : found->size;
}

}  // namespace

ListIcons::ListIcons() = default;

const QImage& ListIcons::Get(ListIcon icon, int rowHeight, Color ground) {
    const int size = IconSize(rowHeight);
    const bool dark = Contrast(darkInk, ground) > Contrast(drawnInk, ground);
    const auto [place, fresh] = images.try_emplace({icon, size, dark});
    QImage& image = place->second;
    if (fresh && icon != ListIcon::none) {
        image = DrawnIcon(iconNames[static_cast<std::size_t>(icon)], size);
        if (dark && !image.isNull()) {
            Tint(image, darkInk);
        }
    }
    return image;
}

void PaintGrid(QPainter& painter, const Control& control, const QRect& dirty, ListIcons& icons) {
    const Grid& grid = *control.grid;
    const GridLook& look = grid.Look();
    const Rect place = control.Place();
    const QFont plain = ToQFont(control.font);
    QFont bold = plain;
    bold.setBold(true);
    const int first = std::max(1, static_cast<int>((dirty.top() + grid.ScrollOffset()) / look.rowHeight) + 1);
    int y = static_cast<int>(std::int64_t{first - 1} * look.rowHeight - grid.ScrollOffset());
    for (int row = first; row <= grid.RowCount() && y <= dirty.bottom(); ++row, y += look.rowHeight) {
        const GridRow& record = grid.RowAt(row);
        const bool selected = row == grid.Row();
        const QRect line(0, y, place.width, look.rowHeight);
        const Color ground = selected ? look.selectionBack : row % 2 == 0 ? look.backAlternate : look.back;
        painter.fillRect(line, ToQColor(ground));
        int x = margin;
        if (const QImage& icon = icons.Get(record.icon, look.rowHeight, ground); !icon.isNull()) {
            painter.drawImage(x, y + (look.rowHeight - icon.height()) / 2, icon);
            x += icon.width() + margin;
        }
        const QFont& font = record.bold ? bold : plain;
        const QFontMetrics metrics(font);
        const int room = place.width - x - margin - scrollMarkWidth;
        const QString text = ToQString(record.text).left(longestText);
        painter.setFont(font);
        painter.setPen(ToQColor(selected ? look.selectionFore : look.fore));
        painter.drawText(x, y + (look.rowHeight - metrics.height()) / 2 + metrics.ascent(),
                         metrics.elidedText(text, Qt::ElideMiddle, room, Qt::TextSingleLine));
    }
    if (y <= dirty.bottom()) {
        painter.fillRect(QRect(QPoint(0, y), QPoint(place.width - 1, dirty.bottom())), ToQColor(look.back));
    }
    if (grid.RowCount() == 0 && !grid.Notice().empty()) {
        painter.setFont(plain);
        painter.setPen(ToQColor(look.fore));
        painter.drawText(QRect(margin, 0, place.width - 2 * margin, place.height), Qt::AlignCenter | Qt::TextSingleLine,
                         ToQString(grid.Notice()));
    }
    const ScrollMark mark{grid.Height(), place.height, grid.ScrollOffset()};
    PaintScrollMark(painter, mark, {place.width, place.height}, ToQColor(look.fore));
}

void PaintScrollMark(QPainter& painter, const ScrollMark& mark, const QSize& size, QColor color) {
    if (mark.all <= mark.shown) {
        return;
    }
    const std::int64_t height = size.height();
    const int length = std::max(shortestScrollMark, static_cast<int>(height * mark.shown / mark.all));
    const int top = static_cast<int>((height - length) * mark.first / (mark.all - mark.shown));
    color.setAlpha(110);
    painter.fillRect(size.width() - scrollMarkWidth, top, scrollMarkWidth, length, color);
}

}  // namespace zvr
