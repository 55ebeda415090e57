#pragma once

#include "platform/background.h"
#include "platform/lifetime.h"
#include "platform/picture.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zvr {

/// A few photos that were decoded for an area of the screen: the one that is shown, and those that will be asked for
/// next. All decoding is done in the background, what is waited for first.
class PhotoShelf {
public:
    PhotoShelf(EventLoop& loop, Background& background) : loop(loop), background(background) {}

    /// Waits, with events running, until it is decoded or `isWanted` no longer holds. Null when it can't be read.
    [[nodiscard]] PicturePointer Get(const std::string& path, Size area, const std::function<bool()>& isWanted);
    /// Decodes them for a later Get, and lets go of all but these and `shown`.
    void Expect(const std::vector<std::string>& paths, Size area, const std::string& shown);
    /// Lets go of all.
    void Clear();

private:
    struct Photo {
        std::string path;
        Size area;
        PicturePointer picture;  ///< null: not yet, or none
        bool done = false;
        std::atomic<bool> givenUp = false;
    };

    [[nodiscard]] std::shared_ptr<Photo> Find(const std::string& path, Size area) const;
    std::shared_ptr<Photo> Begin(const std::string& path, Size area);

    EventLoop& loop;
    Background& background;
    std::vector<std::shared_ptr<Photo>> photos;
};

}  // namespace zvr
