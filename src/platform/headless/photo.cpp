#include "platform/photo.h"

namespace zvr {

PicturePointer LoadPhoto(const std::string& path, Size) {
    return LoadPicture(path);  // without pixels there is nothing to save
}

}  // namespace zvr
