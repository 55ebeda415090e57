#include "platform/photo.h"
#include "support/temporaryfolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <sys/stat.h>

namespace zvr {
namespace {

TEST(Photos, OfAllKindsTellTheSizeOfTheWhole) {
    const TemporaryFolder folder;
    struct Case {
        const char* name;
        Size size;
    };
    for (const auto& [name, size] : {Case{"a.jpg", {640, 480}}, Case{"b.png", {640, 480}}, Case{"c.gif", {640, 480}},
                                     Case{"d.bmp", {640, 480}}, Case{"dot.png", {1, 1}}}) {
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
