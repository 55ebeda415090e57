#include "zvr_osk/linux/painting.h"

#include "skin/keyboardpictures.h"
#include "ui/contrast.h"

#include <QFont>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>

#include <algorithm>
#include <string_view>

namespace zvr::osk {
namespace {

constexpr double pixelsOfPoint = 96.0 / 72;
constexpr double wordOfLetter = 0.72;  ///< size of "123" beside that of letters
constexpr int radius = 8;
constexpr int pressedLower = 2;
constexpr int mostGrain = 7;  ///< of 255: brushed metal, felt rather than seen
constexpr int litBarWidth = 32;

QColor ColorOf(Color color) {
    return {RedOf(color), GreenOf(color), BlueOf(color)};
}

QLinearGradient Gradient(const QRectF& place, const Shade& shade) {
    QLinearGradient gradient(place.topLeft(), place.bottomLeft());
    gradient.setColorAt(0, ColorOf(shade.top));
    gradient.setColorAt(1, ColorOf(shade.bottom));
    return gradient;
}

void FillRounded(QPainter& painter, const QRectF& place, double corner, const QBrush& brush) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawRoundedRect(place, corner, corner);
}

/// Streaks from left to right, the same at each start.
QImage Grain() {
    constexpr int width = 256;
    constexpr int height = 64;
    constexpr int streak = 40;
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    QRandomGenerator random(1);
    for (int y = 0; y < height; ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        int strength = 0;
        for (int x = 0; x < width; ++x) {
            strength = x % streak == 0 ? random.bounded(mostGrain) : strength;
            line[x] = qPremultiply(qRgba(255, 255, 255, strength));
        }
    }
    return image;
}

/// Corners as they are, edges and middle stretched: one picture for keys of every width.
void DrawStretched(QPainter& painter, const QRect& place, const QImage& picture) {
    const int corner = std::min({picture.width() / 3, picture.height() / 3, place.width() / 2, place.height() / 2});
    const auto cuts = [corner](int from, int length) {
        return std::array{from, from + corner, from + length - corner, from + length};
    };
    const auto toX = cuts(place.x(), place.width());
    const auto toY = cuts(place.y(), place.height());
    const auto fromX = cuts(0, picture.width());
    const auto fromY = cuts(0, picture.height());
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            painter.drawImage(
                QRect(QPoint(toX[column], toY[row]), QPoint(toX[column + 1] - 1, toY[row + 1] - 1)), picture,
                QRect(QPoint(fromX[column], fromY[row]), QPoint(fromX[column + 1] - 1, fromY[row + 1] - 1)));
        }
    }
}

QString IconOf(const PlacedKey& key, Shift shift, Edge edge) {
    switch (key.key.act) {
        case Act::shift:
            return shift == Shift::locked ? "shift-lock" : "shift";
        case Act::backspace:
            return "backspace";
        case Act::edge:
            return edge == Edge::top ? "keyboard-bottom" : "keyboard-top";
        case Act::hide:
            return "keyboard-hide";
        case Act::enter:
            return "set";
        case Act::left:
            return "left";
        case Act::right:
            return "right";
        case Act::sign:
            return key.key.sign == U' ' ? "space" : "";
        case Act::page:
        case Act::layout:
        case Act::nothing:
            break;
    }
    return {};
}

QString CaptionOf(const Keyboard& keyboard, const PlacedKey& key) {
    switch (key.key.act) {
        case Act::page:
            return keyboard.PresentPage() == Page::letters ? "123" : "ABC";
        case Act::layout:
            return QString::fromLatin1(keyboard.PresentLayout().name.data(),
                                       static_cast<qsizetype>(keyboard.PresentLayout().name.size()));
        default:
            const char32_t sign = keyboard.SignOf(key);
            return QString::fromUcs4(&sign, 1);
    }
}

}  // namespace

void Painting::Wear(const ZvrLook& look) {
    palette = PaletteOf(look);
    pictures.clear();
    for (const std::string_view name : keyboardPictures) {
        const std::string file = look.skinFolder + std::string(keyboardPictureFolder) + std::string(name) +
                                 std::string(keyboardPictureEnding);
        const QImage picture = look.skinFolder.empty() ? QImage() : QImage(QString::fromStdString(file));
        // Three pieces each way is the least that can be stretched.
        if (picture.width() >= 3 && picture.height() >= 3) {
            pictures.insert(QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size())),
                            picture.convertToFormat(QImage::Format_ARGB32_Premultiplied));
        }
    }
}

void Painting::Paint(QPainter& painter, const Keyboard& keyboard, QRect part, Edge edge) {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setClipRect(part);
    const QRect all(0, 0, painter.device()->width(), keyboard.PresentMeasures().height);
    PaintGround(painter, all, edge);
    for (const PlacedKey& key : keyboard.Keys()) {
        if (part.intersects(QRect(key.place.x, key.place.y, key.place.width, key.place.height))) {
            PaintKey(painter, keyboard, key, edge);
        }
    }
}

void Painting::PaintGround(QPainter& painter, const QRect& all, Edge edge) {
    if (const auto picture = pictures.constFind("background"); picture != pictures.cend()) {
        painter.drawImage(all, *picture);
        return;
    }
    painter.fillRect(all, Gradient(all, palette.ground));
    grain = grain.isNull() ? Grain() : grain;
    painter.setOpacity(std::min(1.0, 0.2 + Luminance(palette.ink)));  // less by night
    painter.fillRect(all, QBrush(grain));
    painter.setOpacity(1);
    const int line = edge == Edge::top ? all.bottom() - 1 : all.top();
    painter.fillRect(QRect(all.left(), line, all.width(), 2), ColorOf(palette.shadow));
    painter.fillRect(QRect(all.left(), edge == Edge::top ? line : line + 1, all.width(), 1), ColorOf(palette.hairline));
}

Painting::Kind Painting::KindOf(const PlacedKey& key, bool pressed) const {
    if (pressed) {
        return {"pressed", palette.pressed, palette.pressedEdge, palette.pressedInk};
    }
    if (key.key.act == Act::sign) {
        return {"key", palette.key, palette.keyEdge, palette.ink};
    }
    if (key.key.act == Act::enter) {
        return {"enter", palette.key, palette.keyEdge, palette.ink, true};
    }
    return {"quiet", palette.quiet, palette.quietEdge, palette.quietInk};
}

void Painting::PaintBody(QPainter& painter, const QRect& place, const Kind& kind, bool pressed) const {
    if (const auto picture = pictures.constFind(kind.name); picture != pictures.cend()) {
        DrawStretched(painter, place, *picture);
        return;
    }
    const QRectF whole(place);
    if (pressed) {
        FillRounded(painter, whole, radius, ColorOf(palette.shadow));
        FillRounded(painter, whole.adjusted(1, 1, -1, -1), radius - 1, ColorOf(kind.edge));
        FillRounded(painter, whole.adjusted(3, 3, -3, -3), radius - 3, Gradient(whole, kind.shade));
        return;
    }
    FillRounded(painter, whole.adjusted(0, 1, 0, 0), radius, ColorOf(palette.shadow));
    FillRounded(painter, whole.adjusted(0, 0, 0, -2), radius, Gradient(whole, {kind.edge, kind.shade.bottom}));
    FillRounded(painter, whole.adjusted(1, 1, -1, -3), radius - 1, Gradient(whole, kind.shade));
    if (kind.rim) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QBrush(Gradient(whole, palette.rim)), 2));
        painter.drawRoundedRect(whole.adjusted(2, 2, -2, -4), radius - 2, radius - 2);
    }
}

void Painting::PaintKey(QPainter& painter, const Keyboard& keyboard, const PlacedKey& key, Edge edge) {
    const QRect place(key.place.x, key.place.y, key.place.width, key.place.height);
    const bool pressed = keyboard.IsPressed(key);
    const bool lit = key.key.act == Act::shift && keyboard.ShiftState() != Shift::off && !pressed;
    const Kind kind = KindOf(key, pressed);
    PaintBody(painter, place, kind, pressed);

    Color ink = lit ? palette.litInk : kind.ink;
    if (const auto picture = pictures.constFind(kind.name); picture != pictures.cend()) {
        const QColor ground = picture->pixelColor(picture->width() / 2, picture->height() / 2);
        ink = Legible(ink, RgbColor(ground.red(), ground.green(), ground.blue()));
    }
    const Measures& measures = keyboard.PresentMeasures();
    const double middle = place.top() + (place.height() - 2) / 2.0 + (pressed ? pressedLower : 0) - (lit ? 3 : 0);
    if (lit) {
        FillRounded(painter, QRectF(place.center().x() - litBarWidth / 2.0, place.bottom() - 8, litBarWidth, 4), 2,
                    ColorOf(ink));
    }
    if (const QString icon = IconOf(key, keyboard.ShiftState(), edge); !icon.isEmpty()) {
        PaintIcon(painter, icon, measures.icon, QPoint(place.center().x(), qRound(middle)), ink);
        return;
    }
    const bool word = key.key.act != Act::sign;
    QFont font;
    font.setFamilies({"Roboto Medium", "Roboto", "Liberation Sans"});
    font.setPixelSize(qRound(measures.points * pixelsOfPoint * (word ? wordOfLetter : 1)));
    painter.setFont(font);
    painter.setPen(ColorOf(ink));
    const QFontMetricsF metrics(font);
    const QString caption = CaptionOf(keyboard, key);
    painter.drawText(QPointF(place.left() + (place.width() - metrics.horizontalAdvance(caption)) / 2,
                             middle + metrics.capHeight() / 2),
                     caption);
}

void Painting::PaintIcon(QPainter& painter, const QString& name, int size, QPoint middle, Color ink) {
    QImage& mask = icons[QString("%1-%2").arg(name).arg(size)];
    if (mask.isNull()) {
        // Drawn in the sizes of car screens; the next larger one is good enough for any other.
        for (const int drawn : {25, 28, 36, 72}) {
            if (drawn >= size || drawn == 72) {
                mask = QImage(QString(":/osk/%1-%2.png").arg(name).arg(drawn));
                break;
            }
        }
        if (mask.width() != size) {
            mask = mask.scaled(size, size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        }
        mask.convertTo(QImage::Format_ARGB32_Premultiplied);
    }
    QImage inked = mask;
    QPainter over(&inked);
    over.setCompositionMode(QPainter::CompositionMode_SourceIn);
    over.fillRect(inked.rect(), ColorOf(ink));
    over.end();
    painter.drawImage(middle - QPoint(size / 2, size / 2), inked);
}

}  // namespace zvr::osk
