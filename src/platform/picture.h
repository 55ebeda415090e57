#pragma once

#include "ui/geometry.h"

#include <memory>
#include <string>

namespace zvr {

/// A picture from a file. Two controls that show one picture share it; pictures are compared by pointer.
class Picture {
public:
    struct State;
    explicit Picture(std::unique_ptr<State> state);
    ~Picture();
    [[nodiscard]] Size PixelSize() const;
    [[nodiscard]] const std::string& Path() const;

    std::unique_ptr<State> state;
};
using PicturePointer = std::shared_ptr<const Picture>;

/// Reads a PNG, JPEG, BMP or GIF file. Null if the file is missing or can't be decoded.
/// A file read twice and unchanged since may give the same picture.
[[nodiscard]] PicturePointer LoadPicture(const std::string& path);

/// An icon of the program's own, for keys that no skin draws, in that ink; `pixels` is the size wished for, and the
/// nearest one that there is comes. Null if there is none of that name.
[[nodiscard]] PicturePointer IconPicture(const std::string& name, int pixels, Color ink);

/// Whether its pixels can be had: loading looks at a file's frame, and puts off decoding what is not shown yet.
[[nodiscard]] bool CanBeDecoded(const Picture& picture);

}  // namespace zvr
