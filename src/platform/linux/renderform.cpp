#include "platform/linux/renderform.h"

#include "platform/linux/paint.h"
#include "platform/linux/picture.h"

#include <QPainter>

namespace zvr {
namespace {

constexpr Color keyLine = RgbColor(0xFF, 0x3B, 0xD4);
constexpr Color areaLine = RgbColor(0x30, 0xD0, 0xFF);

/// The name within the edges, a line for each part: keys are narrow and commands long.
void PaintOutline(QPainter& painter, const QRect& place, Color color, const std::string& name) {
    const QFontMetrics metrics = painter.fontMetrics();
    painter.save();
    painter.setClipRect(place);
    painter.setPen(ToQColor(color));
    painter.drawRect(place.adjusted(0, 0, -1, -1));
    QPoint corner = place.topLeft() + QPoint(2, 2);
    for (const QString& part : ToQString(name).replace(u'.', ".\n").split(u'\n')) {
        const QString line = metrics.elidedText(part, Qt::ElideRight, place.width() - 6);
        const QRect plate(corner, QSize(metrics.horizontalAdvance(line) + 2, metrics.height()));
        painter.fillRect(plate, QColor(0, 0, 0, 190));
        painter.drawText(plate, Qt::AlignCenter | Qt::TextDontClip, line);
        corner.ry() += metrics.height();
    }
    painter.restore();
}

void PaintOutlines(QPainter& painter, const Form& form) {
    QFont small = painter.font();
    small.setPixelSize(11);
    painter.setFont(small);
    for (const Control* control : form.Controls()) {
        const bool key = control->activePicture != nullptr;
        const bool area = control->kind != ControlKind::image && control->kind != ControlKind::label;
        const QRect place = ToQRect(control->VisiblePlace());
        if ((key || area) && !place.isEmpty()) {
            PaintOutline(painter, place, key ? keyLine : areaLine, key ? control->Tag() : control->name);
        }
    }
}

}  // namespace

bool RenderKey(const std::string& caption, Size size, bool pressed, const std::string& file) {
    QImage image(size.width, size.height, QImage::Format_RGB32);
    if (image.isNull()) {
        return false;
    }
    image.fill(QColor(0x14, 0x18, 0x1B));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(pressed ? QColor(0xD0, 0xD8, 0xDD) : QColor(0x30, 0x38, 0x3E));
    painter.drawRoundedRect(image.rect(), 8, 8);
    painter.setPen(pressed ? QColor(0x15, 0x19, 0x1C) : QColor(0xF1, 0xF4, 0xF6));
    QFont font("Roboto");
    for (int pixels = 24; pixels > 8; --pixels) {
        font.setPixelSize(pixels);
        if (QFontMetrics(font).horizontalAdvance(ToQString(caption)) <= size.width - 8) {
            break;
        }
    }
    painter.setFont(font);
    painter.drawText(image.rect(), Qt::AlignCenter, ToQString(caption));
    painter.end();
    return image.save(ToQString(file), "PNG");
}

bool RenderForm(const Form& form, const std::string& file, bool outlines) {
    const Rect size = form.Place();
    QImage image(size.width, size.height, QImage::Format_RGB32);
    if (image.isNull()) {
        return false;
    }
    QPainter painter(&image);
    PaintForm(painter, form, QRect(0, 0, size.width, size.height));
    ListIcons icons;
    for (const Control* control : form.Controls()) {
        const QRect place = ToQRect(control->VisiblePlace());
        if (place.isEmpty()) {
            continue;
        }
        painter.save();
        painter.setClipRect(place);
        if (control->kind == ControlKind::grid) {
            painter.translate(place.topLeft());
            PaintGrid(painter, *control, QRect(QPoint(), place.size()), icons);
        } else if (control->kind == ControlKind::textBox) {
            PaintTextBox(painter, *control, place);
        }
        painter.restore();
    }
    if (outlines) {
        PaintOutlines(painter, form);
    }
    painter.end();
    return image.save(ToQString(file), "PNG");
}

}  // namespace zvr
