#pragma once

#include "zvr_osk/keyboard.h"
#include "zvr_osk/look.h"

#include <QHash>
#include <QImage>
#include <QString>

class QPainter;
class QRect;

namespace zvr::osk {

/// Draws the keyboard in the colours of a skin, or with the pictures that the skin brings along for it.
class Painting {
public:
    void Wear(const ZvrLook& look);
    /// What meets `part`; `top` is the screen's edge at which the keyboard stands.
    void Paint(QPainter& painter, const Keyboard& keyboard, QRect part, Edge edge);

private:
    struct Kind {
        QString name;  ///< of its pictures
        Shade shade;
        Color edge = 0;
        Color ink = 0;
        bool rim = false;
    };
    [[nodiscard]] Kind KindOf(const PlacedKey& key, bool pressed) const;
    void PaintGround(QPainter& painter, const QRect& all, Edge edge);
    void PaintKey(QPainter& painter, const Keyboard& keyboard, const PlacedKey& key, Edge edge);
    void PaintBody(QPainter& painter, const QRect& place, const Kind& kind, bool pressed) const;
    void PaintIcon(QPainter& painter, const QString& name, int size, QPoint middle, Color ink);

    Palette palette;
    QHash<QString, QImage> pictures;  ///< the skin's, by file name without its ending
    QHash<QString, QImage> icons;     ///< as masks
    QImage grain;
};

}  // namespace zvr::osk
