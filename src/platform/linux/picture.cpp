#include "platform/linux/picture.h"

#include "platform/linux/imageformat.h"
#include "platform/linux/png.h"
#include "platform/log.h"

#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <mutex>
#include <unordered_map>

namespace zvr {
namespace {

constexpr qint64 largestFile = 256LL * 1024 * 1024;

struct Kept {
    std::weak_ptr<const Picture> picture;
    qint64 modified = 0;
    qint64 bytes = 0;
};

/// Pictures that somebody still holds. Only a shortcut: without it the same file is read twice.
struct Cache {
    std::mutex mutex;
    std::unordered_map<std::string, Kept> byPath;
    std::size_t sweepAt = 256;

    PicturePointer Find(const std::string& path, qint64 modified, qint64 bytes) {
        const std::lock_guard lock(mutex);
        const auto found = byPath.find(path);
        return found != byPath.end() && found->second.modified == modified && found->second.bytes == bytes
                   ? found->second.picture.lock()
                   : nullptr;
    }
    void Keep(const std::string& path, const Kept& kept) {
        const std::lock_guard lock(mutex);
        byPath[path] = kept;
        if (byPath.size() >= sweepAt) {
            std::erase_if(byPath, [](const auto& entry) { return entry.second.picture.expired(); });
            sweepAt = byPath.size() * 2 + 256;
        }
    }
};

Cache& PictureCache() {
    static Cache cache;
    return cache;
}

/// Drawing programs add an alpha channel that says nothing to most pictures; blending it costs at every paint.
bool IsOpaque(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        const auto* const line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        if (!std::all_of(line, line + image.width(), [](QRgb pixel) { return qAlpha(pixel) == 255; })) {
            return false;
        }
    }
    return true;
}

QImage Decode(QIODevice& source) {
    const QByteArray format = FormatOfImage(source);
    if (format != "png" && format != "jpeg" && format != "bmp" && format != "gif") {
        return {};
    }
    QImageReader reader(&source);
    ReadAs(reader, format);
    QImage image = FitsIntoMemory(source, format, reader.size()) ? reader.read() : QImage{};
    if (image.isNull()) {
        return {};
    }
    // The formats that go to the screen without conversion.
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    if (image.hasAlphaChannel() && IsOpaque(image)) {
        image.reinterpretAsFormat(QImage::Format_RGB32);
    }
    image.setDevicePixelRatio(1);
    return image;
}

std::unique_ptr<Picture::State> Load(const std::string& path) {
    QFile file(ToQString(path));
    if (!file.open(QIODevice::ReadOnly) || file.size() > largestFile) {
        return nullptr;
    }
    const QByteArray bytes = file.readAll();
    auto state = std::make_unique<Picture::State>();
    state->path = path;
    if (bytes.startsWith("\x89PNG")) {
        // Most pictures of a skin are on screens that are not shown now, and many never are.
        const auto size = CheckPng({bytes.constData(), static_cast<std::size_t>(bytes.size())});
        if (!size) {
            return nullptr;
        }
        state->size = *size;
        return state;
    }
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    state->decoded = Decode(buffer);
    if (state->decoded.isNull()) {
        return nullptr;
    }
    state->size = {state->decoded.width(), state->decoded.height()};
    return state;
}

}  // namespace

Picture::Picture(std::unique_ptr<State> state) : state(std::move(state)) {}
Picture::~Picture() = default;

Size Picture::PixelSize() const {
    return state->size;
}

const std::string& Picture::Path() const {
    return state->path;
}

PicturePointer LoadPicture(const std::string& path) {
    const QFileInfo info(ToQString(path));
    if (!info.isFile()) {
        Log::Warning("the picture {} isn't there", path);
        return nullptr;
    }
    const qint64 modified = info.lastModified().toMSecsSinceEpoch();
    if (auto known = PictureCache().Find(path, modified, info.size())) {
        return known;
    }
    auto state = Load(path);
    if (!state) {
        Log::Warning("the picture {} can't be read or is none", path);
        return nullptr;
    }
    auto picture = std::make_shared<const Picture>(std::move(state));
    PictureCache().Keep(path, {picture, modified, info.size()});
    return picture;
}

bool CanBeDecoded(const Picture& picture) {
    const bool was = !picture.state->decoded.isNull();
    const bool can = !ImageOf(picture).isNull();
    if (!was) {
        ReleasePixels(picture);
    }
    return can;
}

const QImage& ImageOf(const Picture& picture) {
    Picture::State& state = *picture.state;
    if (state.decoded.isNull() && state.decodable) {
        QFile file(ToQString(state.path));
        if (file.open(QIODevice::ReadOnly)) {
            state.decoded = Decode(file);
        }
        state.decodable = !state.decoded.isNull();
        if (!state.decodable) {
            Log::Warning("the picture {} can't be decoded any more", state.path);
        }
    }
    return state.decoded;
}

const QImage& ScaledImageOf(const Picture& picture, QSize size) {
    if (picture.state->scaled.size() == size) {
        return picture.state->scaled;
    }
    const QImage& image = ImageOf(picture);
    if (image.isNull() || image.size() == size) {
        return image;
    }
    Picture::State& state = *picture.state;
    state.scaled = image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return state.scaled;
}

void ReleasePixels(const Picture& picture) {
    Picture::State& state = *picture.state;
    if (!state.releasable) {
        return;
    }
    if (!state.decoded.isNull() && state.scaled.sizeInBytes() >= state.decoded.sizeInBytes()) {
        state.scaled = {};
    }
    state.decoded = {};
}

}  // namespace zvr
