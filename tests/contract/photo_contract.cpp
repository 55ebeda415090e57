#include "platform/photo.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace zvr {
namespace {

namespace fs = std::filesystem;

class Photos : public testing::Test {
protected:
    void SetUp() override { fs::create_directories(folder); }
    void TearDown() override { fs::remove_all(folder); }

    /// A file of that name that a drawing program makes; false where there is none.
    [[nodiscard]] bool Draw(const std::string& name, const std::string& size, const std::string& options = {}) const {
        const std::string command = "convert -size " + size + " gradient:red-blue " + options + " '" +
                                    (folder / name).string() + "' 2>/dev/null";
        return std::system(command.c_str()) == 0;
    }
    [[nodiscard]] PicturePointer Load(const std::string& name, Size area = {200, 100}) const {
        return LoadPhoto((folder / name).string(), area);
    }
    [[nodiscard]] std::string Bytes(const std::string& name) const {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(folder / name, std::ios::binary) << bytes;
    }

    const fs::path folder = fs::temp_directory_path() / ("zvr-photos-" + std::to_string(std::random_device{}()));
};

TEST_F(Photos, OfAllKindsTellTheSizeOfTheWhole) {
    for (const char* name : {"a.jpg", "b.png", "c.gif", "d.bmp"}) {
        ASSERT_TRUE(Draw(name, "640x480"));
        const PicturePointer picture = Load(name);
        ASSERT_NE(picture, nullptr) << name;
        EXPECT_EQ(picture->PixelSize(), (Size{640, 480})) << name;
    }
    ASSERT_TRUE(Draw("dot.png", "1x1"));
    EXPECT_EQ(Load("dot.png")->PixelSize(), (Size{1, 1}));
    EXPECT_EQ(Load("none.jpg"), nullptr);
    Write("text.jpg", "no picture at all");
    EXPECT_EQ(Load("text.jpg"), nullptr);
}

// Whatever a card makes of a picture: it is a picture or none, in the time that a tap may take.
TEST_F(Photos, WithAnyDamageAreShownOrPassedOver) {
    std::mt19937 random(5);
    for (const char* name : {"a.jpg", "b.png", "c.gif", "d.bmp", "e.webp", "f.tiff"}) {
        if (!Draw(name, "64x48")) {
            continue;
        }
        const std::string whole = Bytes(name);
        for (int i = 0; i < 150; ++i) {
            std::string damaged = whole;
            for (unsigned edits = 1 + random() % 8; edits > 0; --edits) {
                damaged[random() % (i % 2 == 0 ? damaged.size() : std::min<std::size_t>(damaged.size(), 64))] =
                    static_cast<char>(random());
            }
            damaged.resize(random() % 3 == 0 ? random() % damaged.size() : damaged.size());
            Write("damaged", damaged);
            (void)Load("damaged");
        }
    }
}

}  // namespace
}  // namespace zvr
