#include "platform/linux/icons.h"

#include "platform/linux/paint.h"
#include "platform/linux/picture.h"

#include <QPainter>

#include <array>
#include <cstdlib>

/// Ties the pictures into the program; a library's resources are left out by the linker otherwise.
static void TieIcons() {
#ifdef ZVR_HAS_LIST_ICONS
    Q_INIT_RESOURCE(zvr_icons);
#endif
}

namespace zvr {

QImage DrawnIcon(const QString& name, int size) {
    TieIcons();
    QImage image;
    if (image.load(QString(":/icons/%1-%2.png").arg(name).arg(size), "png")) {
        image.convertTo(QImage::Format_ARGB32_Premultiplied);
    }
    return image;
}

void Tint(QImage& icon, Color ink) {
    QPainter painter(&icon);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(icon.rect(), ToQColor(ink));
}

PicturePointer IconPicture(const std::string& name, int pixels, Color ink) {
    // Those of list rows come in other sizes than those of keys.
    const auto sizes = name.starts_with("list-") ? std::array{24, 28, 32, 40} : std::array{24, 28, 34, 44};
    int nearest = sizes[0];
    for (const int size : sizes) {
        nearest = std::abs(size - pixels) < std::abs(nearest - pixels) ? size : nearest;
    }
    QImage image = DrawnIcon(ToQString(name), nearest);
    if (image.isNull()) {
        return nullptr;
    }
    Tint(image, ink);
    auto state = std::make_unique<Picture::State>();
    state->path = name;
    state->size = {nearest, nearest};
    state->decoded = std::move(image);
    state->releasable = false;
    return std::make_shared<const Picture>(std::move(state));
}

}  // namespace zvr
