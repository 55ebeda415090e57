#include "platform/linux/renderform.h"

#include "platform/linux/paint.h"
#include "platform/linux/picture.h"

#include <QPainter>
#include <QTextOption>

namespace zvr {
namespace {

constexpr int sideMargin = 6;

void PaintTextBox(QPainter& painter, const Control& box, const QRect& place) {
    painter.fillRect(place, ToQColor(box.backColor));
    painter.setFont(ToQFont(box.font));
    painter.setPen(ToQColor(box.foreColor));
    const bool lines = box.text->multiline;
    const Align side = box.align;
    QTextOption option(side == Align::left ? Qt::AlignLeft : side == Align::right ? Qt::AlignRight : Qt::AlignHCenter);
    option.setAlignment(option.alignment() | (lines ? Qt::AlignTop : Qt::AlignVCenter));
    option.setWrapMode(lines ? QTextOption::WordWrap : QTextOption::NoWrap);
    painter.drawText(QRectF(place.adjusted(sideMargin, 0, -sideMargin, 0)), ToQString(box.text->text), option);
}

}  // namespace

bool RenderForm(const Form& form, const std::string& file) {
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
    painter.end();
    return image.save(ToQString(file), "PNG");
}

}  // namespace zvr
