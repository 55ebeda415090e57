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

/// An empty format is none, too.
inline void ReadAs(QImageReader& reader, const QByteArray& format) {
    reader.setAutoDetectImageFormat(false);
    reader.setFormat(format);
}

}  // namespace zvr
