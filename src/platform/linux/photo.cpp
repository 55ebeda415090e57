#include "platform/photo.h"

#include "platform/linux/imageformat.h"
#include "platform/linux/picture.h"
#include "platform/log.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace zvr {
namespace {

/// Of one picture, while it is being decoded; what can't be decoded row by row needs all of it.
constexpr int mostMegabytes = 64;

QImage Decode(QIODevice& source, Size area, Size& whole) {
    const QByteArray format = FormatOfImage(source);
    QImageReader reader(&source);
    ReadAs(reader, format);
    reader.setAutoTransform(true);
    // The size is told, and asked for, as it is before the turning.
    const bool turned = (reader.transformation() & QImageIOHandler::TransformationRotate90) != 0;
    if (const QSize size = reader.size(); !size.isEmpty()) {
        if (!FitsIntoMemory(source, format, size)) {
            return {};
        }
        whole = turned ? Size{size.height(), size.width()} : Size{size.width(), size.height()};
        const Size fitted = FittedInto(whole, area);
        if (fitted != whole) {
            reader.setScaledSize(turned ? QSize(fitted.height, fitted.width) : QSize(fitted.width, fitted.height));
        }
    }
    return reader.read();
}

}  // namespace

PicturePointer LoadPhoto(const std::string& path, Size area) {
    static const bool limited = [] {
        QImageReader::setAllocationLimit(mostMegabytes);
        return true;
    }();
    (void)limited;
    QFile file(ToQString(path));
    Size whole;
    QImage image;
    // Opening a named pipe would wait for ever.
    if (QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly)) {
        image = Decode(file, area, whole);
    }
    if (image.isNull()) {
        Log::Warning("the picture {} can't be read or is none", path);
        return nullptr;
    }
    // Some decoders don't tell the size before, and one tells that of a frame.
    if (whole == Size{} || Size{image.width(), image.height()} != FittedInto(whole, area)) {
        whole = {image.width(), image.height()};
        if (const Size fitted = FittedInto(whole, area); fitted != whole) {
            image = image.scaled(fitted.width, fitted.height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        }
    }
    // The formats that go to the screen without conversion.
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    image.setDevicePixelRatio(1);
    auto state = std::make_unique<Picture::State>();
    state->path = path;
    state->size = whole;
    state->decoded = std::move(image);
    state->releasable = false;
    return std::make_shared<const Picture>(std::move(state));
}

}  // namespace zvr
