#include "media/photoshelf.h"

#include "platform/photo.h"

#include <algorithm>

namespace zvr {

std::shared_ptr<PhotoShelf::Photo> PhotoShelf::Find(const std::string& path, Size area) const {
    const auto found = std::find_if(photos.begin(), photos.end(),
                                    [&](const auto& photo) { return photo->path == path && photo->area == area; });
    return found == photos.end() ? nullptr : *found;
}

std::shared_ptr<PhotoShelf::Photo> PhotoShelf::Begin(const std::string& path, Size area) {
    auto photo = std::make_shared<Photo>();
    photo->path = path;
    photo->area = area;
    photos.push_back(photo);
    const auto decoded = std::make_shared<PicturePointer>();
    background.Do(
        [photo, decoded, path, area] {
            if (!photo->givenUp) {
                *decoded = LoadPhoto(path, area);
            }
        },
        [photo, decoded] {
            photo->picture = *decoded;
            photo->done = true;
        });
    return photo;
}

PicturePointer PhotoShelf::Get(const std::string& path, Size area, const std::function<bool()>& isWanted) {
    auto photo = Find(path, area);
    if (photo == nullptr) {
        Clear();  // what was expected turns out not to be wanted, and stands in the way
        photo = Begin(path, area);
    }
    loop.WaitUntil("a photo", [&] { return photo->done || !isWanted(); });
    if (photo->done && photo->picture == nullptr) {
        std::erase(photos, photo);  // its stick may be back at the next try
    }
    return photo->picture;
}

void PhotoShelf::Expect(const std::vector<std::string>& paths, Size area, const std::string& shown) {
    std::erase_if(photos, [&](const auto& photo) {
        const bool isKept = photo->area == area &&
                            (photo->path == shown || std::find(paths.begin(), paths.end(), photo->path) != paths.end());
        photo->givenUp = !isKept;
        return !isKept;
    });
    for (const std::string& path : paths) {
        if (Find(path, area) == nullptr) {
            Begin(path, area);
        }
    }
}

void PhotoShelf::Clear() {
    for (const auto& photo : photos) {
        photo->givenUp = true;
    }
    photos.clear();
}

}  // namespace zvr
