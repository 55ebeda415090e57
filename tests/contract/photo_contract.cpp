#include "platform/photo.h"
#include "support/temporaryfolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <sys/stat.h>

namespace zvr {
namespace {

TEST(Photos, OfAllKindsTellTheSizeOfTheWhole) {
    const TemporaryFolder folder;
    for (const std::string name : {"a.jpg", "b.png", "c.gif", "d.bmp", "dot.png"}) {
        const Size size = name == "dot.png" ? Size{1, 1} : Size{640, 480};
        const std::string path = folder.path + "/" + name;
        const std::string pixels = std::to_string(size.width) + "x" + std::to_string(size.height);
        ASSERT_EQ(std::system(("convert -size " + pixels + " gradient:red-blue " + path).c_str()), 0);
        const PicturePointer picture = LoadPhoto(path, {200, 100});
        ASSERT_NE(picture, nullptr) << name;
        EXPECT_EQ(picture->PixelSize(), size) << name;
    }
    EXPECT_EQ(LoadPhoto(folder.path + "/none.jpg", {200, 100}), nullptr);
    EXPECT_EQ(LoadPhoto(folder.Write("text.jpg", "no picture at all"), {200, 100}), nullptr);
    ASSERT_EQ(::mkfifo((folder.path + "/pipe.jpg").c_str(), 0600), 0);
    EXPECT_EQ(LoadPhoto(folder.path + "/pipe.jpg", {200, 100}), nullptr);
}

}  // namespace
}  // namespace zvr
