#include "platform/linux/paint.h"

#include "platform/linux/picture.h"
#include "ui/textfit.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace zvr {
namespace {

/// Characters of one line that are looked at: no screen is wider, and texts come from files and phones.
constexpr qsizetype longestLine = 1000;

void PaintLine(QPainter& painter, const QFontMetrics& metrics, const QRect& place, Align align, int top,
               const QString& line) {
    int x = place.x();
    if (align != Align::left) {
        const int room = place.width() - metrics.horizontalAdvance(line);
        x += align == Align::center ? room / 2 : room;
    }
    painter.drawText(x, top + metrics.ascent(), line);
}

/// How much of `text` fits into `width`, cut at an ordinary blank. A first word that is too wide stays whole.
qsizetype FittingLength(const QFontMetrics& metrics, const QString& text, int width) {
    // Measuring costs as much as painting, and live values have no ordinary blank.
    if (!text.contains(u' ') || metrics.horizontalAdvance(text) <= width) {
        return text.size();
    }
    qsizetype fitting = -1;
    for (qsizetype blank = text.indexOf(u' '); blank >= 0; blank = text.indexOf(u' ', blank + 1)) {
        if (fitting >= 0 && metrics.horizontalAdvance(text.left(blank)) > width) {
            break;
        }
        fitting = blank;
    }
    return fitting < 0 ? text.size() : fitting;
}

void PaintFitted(QPainter& painter, const Control& label, const QRect& place) {
    const auto fontAt = [&label](double scale) {
        Font font = label.font;
        font.points *= scale;
        return ToQFont(font);
    };
    const FittedText text =
        FitText(label.caption.get(), {place.width(), place.height()}, [&fontAt](std::string_view line, double scale) {
            const QFontMetrics metrics(fontAt(scale));
            return Size{metrics.horizontalAdvance(ToQString(line)), metrics.lineSpacing()};
        });
    painter.setFont(fontAt(text.scale));
    const QFontMetrics metrics(painter.font());
    int top = place.y();
    for (const std::string& line : text.lines) {
        PaintLine(painter, metrics, place, label.align, top, ToQString(line));
        top += metrics.lineSpacing();
    }
}

void PaintLabel(QPainter& painter, const Control& label, const QRect& visible) {
    if (label.caption->empty()) {
        return;
    }
    const QRect place = ToQRect(label.Place());
    painter.save();
    painter.setClipRect(visible, Qt::IntersectClip);
    const QFont font = ToQFont(label.font);
    painter.setFont(font);
    painter.setPen(ToQColor(label.foreColor));
    if (label.overflow == Overflow::fit) {
        PaintFitted(painter, label, place);
        painter.restore();
        return;
    }
    const QFontMetrics metrics(font);
    int top = place.y();
    for (const QString& paragraph : ToQString(label.caption.get()).remove(u'\r').split(u'\n')) {
        QString rest = paragraph.left(longestLine);
        do {
            const qsizetype length = FittingLength(metrics, rest, place.width());
            const QString line = rest.left(length);
            PaintLine(
                painter, metrics, place, label.align, top,
                label.overflow == Overflow::cut ? line : metrics.elidedText(line, Qt::ElideMiddle, place.width()));
            rest = rest.mid(length + 1);
            top += metrics.lineSpacing();
        } while (!rest.isEmpty() && top <= visible.bottom());
        if (top > visible.bottom()) {
            break;
        }
    }
    painter.restore();
}

/// `part` of a picture whose top left corner lies at `corner`.
void PaintPicture(QPainter& painter, const QImage& image, QPoint corner, const QRect& part) {
    const QRect drawn = part & QRect(corner, image.size());
    if (!drawn.isEmpty()) {
        painter.drawImage(drawn.topLeft(), image, drawn.translated(-corner));
    }
}

bool Covers(const QImage& image, QPoint corner, const QRect& part) {
    return !image.hasAlphaChannel() && QRect(corner, image.size()).contains(part);
}

void PaintPlate(QPainter& painter, const QRect& place, const Plate& plate) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient ground(place.topLeft(), place.bottomLeft());
    ground.setColorAt(0, ToQColor(plate.top));
    ground.setColorAt(1, ToQColor(plate.bottom));
    painter.setBrush(ground);
    painter.setPen(plate.edgeWidth == 0 ? QPen(Qt::NoPen) : QPen(ToQColor(plate.edge), plate.edgeWidth));
    // A pen paints on both sides of its line.
    const double inset = plate.edgeWidth / 2.0;
    painter.drawRoundedRect(QRectF(place).adjusted(inset, inset, -inset, -inset), plate.radius, plate.radius);
    painter.restore();
}

/// What a mask of that shape would make of both pictures with XOR, AND and XOR: each pixel is one's or the other's.
void PaintInlay(QPainter& painter, const Inlay& inlay, const QRect& place, const QRect& part) {
    std::vector<QRect> rows;
    rows.reserve(inlay.shape.size());
    for (const Rect& run : inlay.shape) {
        if (const QRect row = ToQRect(run).translated(place.topLeft()) & part; !row.isEmpty()) {
            rows.push_back(row);
        }
    }
    if (rows.empty()) {
        return;
    }
    QRegion shape;
    shape.setRects(rows.data(), static_cast<int>(rows.size()));
    painter.save();
    painter.setClipRegion(shape, Qt::IntersectClip);
    const QImage image = inlay.picture == nullptr ? QImage() : ImageOf(*inlay.picture);
    const QRect bounds = shape.boundingRect();
    if (image.isNull() || !Covers(image, place.topLeft(), bounds)) {
        painter.fillRect(bounds, ToQColor(inlay.color));
    }
    if (!image.isNull()) {
        PaintPicture(painter, image, place.topLeft(), bounds);
    }
    painter.restore();
}

void PaintPictureControl(QPainter& painter, const Control& control, const QRect& part) {
    const QRect place = ToQRect(control.Place());
    const Picture* const picture = control.picture.get().get();
    QImage image;
    if (picture != nullptr) {
        image = control.stretch ? ScaledImageOf(*picture, place.size()) : ImageOf(*picture);
    }
    if (control.plate->shown) {
        PaintPlate(painter, place, control.plate);
    } else if (control.kind == ControlKind::picture && (image.isNull() || !Covers(image, place.topLeft(), part))) {
        painter.fillRect(part, ToQColor(control.backColor));
    }
    if (!image.isNull()) {
        PaintPicture(painter, image, place.topLeft(), part);
    }
    if (!control.inlay->shape.empty()) {
        PaintInlay(painter, control.inlay, place, part);
    }
}

void PaintBackground(QPainter& painter, const Form& form, const QRegion& region) {
    const Picture* const picture = form.background.get().get();
    for (const QRect& part : region) {
        const QImage image = picture == nullptr ? QImage() : ImageOf(*picture);
        if (image.isNull() || !Covers(image, {}, part)) {
            painter.fillRect(part, ToQColor(form.backColor));
        }
        if (!image.isNull()) {
            PaintPicture(painter, image, {}, part);
        }
    }
}

}  // namespace

QFont ToQFont(const Font& font) {
    QFont result(ToQString(font.face));
    result.setPixelSize(static_cast<int>(std::clamp<long>(std::lround(font.points * 96.0 / 72.0), 1, 2000)));
    // Set only where wanted: a face such as "Roboto Medium" has a weight of its own.
    if (font.bold) {
        result.setBold(true);
    }
    result.setItalic(font.italic);
    result.setUnderline(font.underline);
    result.setStrikeOut(font.strikethrough);
    return result;
}

void PaintTextBox(QPainter& painter, const Control& box, const QRect& place) {
    painter.fillRect(place, ToQColor(box.backColor));
    const QFont font = ToQFont(box.font);
    painter.setFont(font);
    painter.setPen(ToQColor(box.foreColor));
    const bool lines = box.text->multiline;
    const Align side = box.align;
    QTextOption option(side == Align::left ? Qt::AlignLeft : side == Align::right ? Qt::AlignRight : Qt::AlignHCenter);
    option.setAlignment(option.alignment() | (lines ? Qt::AlignTop : Qt::AlignVCenter));
    option.setWrapMode(lines ? QTextOption::WordWrap : QTextOption::NoWrap);
    const QRect room = place.adjusted(textBoxMargin, 0, -textBoxMargin, 0);
    const QString text = ToQString(box.text->text);
    painter.drawText(
        QRectF(room),
        lines ? text : QFontMetrics(font).elidedText(text.left(longestLine), Qt::ElideMiddle, room.width()), option);
}

void PaintForm(QPainter& painter, const Form& form, const QRegion& region) {
    PaintBackground(painter, form, region);
    for (const Control* control : form.Controls()) {
        const QRect visible = ToQRect(control->VisiblePlace());
        if (visible.isEmpty() || !region.intersects(visible)) {
            continue;
        }
        switch (control->kind) {
            case ControlKind::label:
                PaintLabel(painter, *control, visible);
                break;
            case ControlKind::image:
            case ControlKind::picture:
                PaintPictureControl(painter, *control, visible & region.boundingRect());
                break;
            case ControlKind::grid:
            case ControlKind::textBox:
            case ControlKind::video:
                break;  // widgets of their own
        }
    }
}

}  // namespace zvr
