#pragma once

#include "platform/picture.h"

#include <QImage>
#include <QString>

namespace zvr {

struct Picture::State {
    std::string path;
    Size size;
    bool decodable = true;   ///< cleared when the file has gone bad since it was loaded
    bool releasable = true;  ///< false where the file would not give these pixels again
    QImage decoded;          ///< null until it is painted, and again when it was released
    QImage scaled;           ///< what a stretched control showed last
};

inline QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The pixels, decoded now if they aren't yet. Null when the file has gone.
[[nodiscard]] const QImage& ImageOf(const Picture& picture);
/// The same in another size; the last size is kept.
[[nodiscard]] const QImage& ScaledImageOf(const Picture& picture, QSize size);
/// Gives the pixels' memory back; they are decoded again when they are painted again. A scaled copy stays if it is the
/// smaller one: that is what is painted.
void ReleasePixels(const Picture& picture);

}  // namespace zvr
