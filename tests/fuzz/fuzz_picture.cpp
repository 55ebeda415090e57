#include "target.h"

#include "platform/linux/picture.h"
#include "platform/photo.h"

#include <sys/mman.h>
#include <unistd.h>

#include <string>

using namespace zvr;

namespace {

/// A file that holds nothing but the input.
class InputFile {
public:
    explicit InputFile(std::string_view input) : descriptor(memfd_create("picture", 0)) {
        Require(write(descriptor, input.data(), input.size()) == static_cast<ssize_t>(input.size()));
    }
    ~InputFile() { close(descriptor); }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    [[nodiscard]] std::string Path() const { return "/proc/self/fd/" + std::to_string(descriptor); }

private:
    int descriptor;
};

}  // namespace

/// Any file as a photo and as a picture of a skin: none, or one that is not larger than its area and has pixels.
void zvr::Try(std::string_view input) {
    const InputFile file(input);
    constexpr Size area{64, 40};
    if (const PicturePointer photo = LoadPhoto(file.Path(), area)) {
        const QImage& image = ImageOf(*photo);
        Require(!image.isNull() && image.width() <= area.width && image.height() <= area.height);
        ReleasePixels(*photo);
        Require(!ImageOf(*photo).isNull());
    }
    if (const PicturePointer picture = LoadPicture(file.Path())) {
        const Size whole = picture->PixelSize();
        Require(whole.width > 0 && whole.height > 0);
        if (CanBeDecoded(*picture)) {
            Require(ScaledImageOf(*picture, {20, 10}).size() == QSize(20, 10));
            ReleasePixels(*picture);
            Require(ImageOf(*picture).size() == QSize(whole.width, whole.height));
        }
    }
}
