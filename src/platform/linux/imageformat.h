#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QImageReader>

namespace zvr {

/// The kinds of pictures that are shown, each by the bytes that it begins with. Left to find out by itself the tool kit
/// loads the decoders of every format that the machine knows: 1 MB, and a tenth of the start.
[[nodiscard]] inline QByteArray FormatOfImage(QIODevice& source) {
    const QByteArray head = source.peek(12);
    if (head.startsWith("\x89PNG")) {
        return "png";
    }
    if (head.startsWith("\xFF\xD8\xFF")) {
        return "jpeg";
    }
    if (head.startsWith("GIF8")) {
        return "gif";
    }
    if (head.startsWith("BM")) {
        return "bmp";
    }
    if (head.startsWith("RIFF") && head.endsWith("WEBP")) {
        return "webp";
    }
    if (head.startsWith(QByteArray("II*\0", 4)) || head.startsWith(QByteArray("MM\0*", 4))) {
        return "tiff";
    }
    return {};
}

/// Whether a JPEG file comes in one scan, so that it can be decoded row by row. False where that can't be told.
[[nodiscard]] inline bool HasOneScan(QIODevice& jpeg) {
    constexpr int shortestSegment = 10;  // of the two kinds that tell: marker, length, and what follows at fixed places
    const qint64 before = jpeg.pos();
    int components = 0;
    bool hasOne = false;
    for (qint64 at = 2; jpeg.seek(at);) {
        const QByteArray segment = jpeg.read(shortestSegment);
        const auto byte = [&segment](int place) { return static_cast<unsigned char>(segment[place]); };
        if (segment.size() < shortestSegment || byte(0) != 0xFF) {
            break;
        }
        if (byte(1) == 0xDA) {
            hasOne = components > 0 && byte(4) == components;
            break;
        }
        if (byte(1) == 0xC0 || byte(1) == 0xC1) {
            components = byte(9);
        }
        at += 2 + byte(2) * 256 + byte(3);
    }
    jpeg.seek(before);  // a reader may be on its way through it
    return hasOne;
}

/// False for a JPEG file in several scans with many pixels: its decoder holds six bytes a pixel until the last one is
/// read, whatever size is asked for.
[[nodiscard]] inline bool FitsIntoMemory(QIODevice& source, const QByteArray& format, QSize size) {
    constexpr qint64 mostPixels = 40'000'000;
    return format != "jpeg" || qint64{size.width()} * size.height() <= mostPixels || HasOneScan(source);
}

/// An empty format is none, too.
inline void ReadAs(QImageReader& reader, const QByteArray& format) {
    reader.setAutoDetectImageFormat(false);
    reader.setFormat(format);
}

}  // namespace zvr
