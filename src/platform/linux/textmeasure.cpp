#include "platform/textmeasure.h"

#include "platform/linux/paint.h"
#include "platform/linux/picture.h"

#include <QFontInfo>
#include <QFontMetrics>

namespace zvr {

Size TextSize(const Font& font, std::string_view line) {
    const QFontMetrics metrics(ToQFont(font));
    return {metrics.horizontalAdvance(ToQString(line)), metrics.height()};
}

std::string TypefaceShown(std::string_view face) {
    Font font;
    font.face = face;
    return QFontInfo(ToQFont(font)).family().toStdString();
}

}  // namespace zvr
