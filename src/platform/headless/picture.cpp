#include "platform/picture.h"

#include "platform/files.h"
#include "platform/log.h"

#include <optional>
#include <string_view>

namespace zvr {
namespace {

unsigned BigEndian(std::string_view bytes, std::size_t at, int count) {
    unsigned value = 0;
    for (int i = 0; i < count; ++i) {
        value = value << 8U | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
    }
    return value;
}

unsigned LittleEndian(std::string_view bytes, std::size_t at, int count) {
    unsigned value = 0;
    for (int i = count - 1; i >= 0; --i) {
        value = value << 8U | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
    }
    return value;
}

std::optional<Size> JpegSize(std::string_view bytes) {
    std::size_t at = 2;
    while (at + 9 < bytes.size() && bytes[at] == '\xFF') {
        const auto marker = static_cast<unsigned char>(bytes[at + 1]);
        if (marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC) {
            return Size{static_cast<int>(BigEndian(bytes, at + 7, 2)), static_cast<int>(BigEndian(bytes, at + 5, 2))};
        }
        at += 2 + BigEndian(bytes, at + 2, 2);
    }
    return std::nullopt;
}

/// Nothing is painted here, so the size in the header and a whole end are enough of a decoder.
std::optional<Size> SizeOf(std::string_view bytes) {
    if (bytes.starts_with("\x89PNG\r\n\x1a\n") && bytes.size() >= 45 && bytes.substr(bytes.size() - 8, 4) == "IEND") {
        return Size{static_cast<int>(BigEndian(bytes, 16, 4)), static_cast<int>(BigEndian(bytes, 20, 4))};
    }
    if (bytes.starts_with("GIF8") && bytes.size() > 13) {
        return Size{static_cast<int>(LittleEndian(bytes, 6, 2)), static_cast<int>(LittleEndian(bytes, 8, 2))};
    }
    if (bytes.starts_with("BM") && bytes.size() > 54) {
        return Size{static_cast<int>(LittleEndian(bytes, 18, 4)), static_cast<int>(LittleEndian(bytes, 22, 4))};
    }
    if (bytes.starts_with("\xFF\xD8")) {
        return JpegSize(bytes);
    }
    return std::nullopt;
}

}  // namespace

struct Picture::State {
    std::string path;
    Size size;
};

Picture::Picture(std::unique_ptr<State> state) : state(std::move(state)) {}
Picture::~Picture() = default;

Size Picture::PixelSize() const {
    return state->size;
}

const std::string& Picture::Path() const {
    return state->path;
}

PicturePointer LoadPicture(const std::string& path) {
    const auto bytes = files::Read(path);
    const auto size = bytes ? SizeOf(*bytes) : std::nullopt;
    if (!size || size->width <= 0 || size->height <= 0) {
        Log::Warning("the picture {} can't be read or is none", path);
        return nullptr;
    }
    return std::make_shared<Picture>(std::make_unique<Picture::State>(Picture::State{path, *size}));
}

PicturePointer IconPicture(const std::string& name, int pixels, Color) {
    return std::make_shared<Picture>(std::make_unique<Picture::State>(Picture::State{name, {pixels, pixels}}));
}

/// Whoever spoils a picture says so in it.
bool CanBeDecoded(const Picture& picture) {
    return files::Read(picture.Path()).value_or("spoilt").find("spoilt") == std::string::npos;
}

}  // namespace zvr
