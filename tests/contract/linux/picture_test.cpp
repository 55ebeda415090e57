#include "platform/linux/picture.h"

#include "platform/linux/png.h"
#include "platform/photo.h"
#include "support/temporaryfolder.h"

#include <gtest/gtest.h>
#include <QBuffer>
#include <QImageWriter>
#include <QPainter>

namespace zvr {
namespace {

QImage Sample(int width = 40, int height = 30) {
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixel(x, y, qRgba(x * 6 % 256, y * 8 % 256, (x * y) % 256, x < 5 ? 0 : 255));
        }
    }
    return image;
}

QByteArray Encoded(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

std::string_view View(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

class Pictures : public testing::Test {
protected:
    std::string Write(const std::string& name, const QByteArray& bytes) const {
        return folder.Write(name, View(bytes));
    }

    const TemporaryFolder folder;
};

TEST_F(Pictures, EachFormatIsRead) {
    for (const char* format : {"png", "jpeg", "bmp"}) {
        // The ending may lie.
        const auto picture = LoadPicture(Write(std::string(format) + ".dat", Encoded(Sample(), format)));
        ASSERT_NE(picture, nullptr) << format;
        EXPECT_EQ(picture->PixelSize(), (Size{40, 30})) << format;
        EXPECT_EQ(ImageOf(*picture).size(), QSize(40, 30)) << format;
    }
    const QByteArray gif = QByteArray::fromBase64("R0lGODlhAQABAIAAAP///wAAACH5BAAAAAAALAAAAAABAAEAAAICRAEAOw==");
    const auto picture = LoadPicture(Write("dot.gif", gif));
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->PixelSize(), (Size{1, 1}));
}

TEST_F(Pictures, BrokenFilesAreFoundWhenTheyAreLoaded) {
    const QByteArray png = Encoded(Sample(), "png");
    const QByteArray jpeg = Encoded(Sample(), "jpeg");
    EXPECT_EQ(LoadPicture(folder.path + "/missing.png"), nullptr);
    EXPECT_EQ(LoadPicture(folder.path), nullptr);
    EXPECT_EQ(LoadPicture(Write("empty.png", {})), nullptr);
    EXPECT_EQ(LoadPicture(Write("text.png", "<svg xmlns='http://www.w3.org/2000/svg'/>")), nullptr);
    EXPECT_EQ(LoadPicture(Write("head.jpg", jpeg.left(20))), nullptr);
    EXPECT_EQ(LoadPicture(Write("head.bmp", Encoded(Sample(), "bmp").left(30))), nullptr);
    for (qsizetype length = 0; length < png.size(); ++length) {
        EXPECT_FALSE(CheckPng(View(png.left(length)))) << "cut after " << length;
    }
    for (qsizetype at = 0; at < png.size(); ++at) {
        QByteArray flipped = png;
        flipped[at] = static_cast<char>(flipped[at] ^ 0x10);
        EXPECT_FALSE(CheckPng(View(flipped))) << "a bit of byte " << at;
    }
}

TEST_F(Pictures, AWholePngIsOneThatCanBeDecoded) {
    const QImage sample = Sample(37, 21);
    for (const QImage::Format format : {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_Grayscale8,
                                        QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_RGBA64}) {
        const QImage image = sample.convertToFormat(format);
        const QByteArray png = Encoded(image, "png");
        EXPECT_EQ(CheckPng(View(png)), (Size{37, 21})) << format;
        const auto picture = LoadPicture(Write("kind" + std::to_string(format) + ".png", png));
        ASSERT_NE(picture, nullptr);
        const QImage direct = QImage::fromData(png).convertToFormat(QImage::Format_ARGB32_Premultiplied);
        EXPECT_EQ(ImageOf(*picture).convertToFormat(QImage::Format_ARGB32_Premultiplied), direct) << format;
    }
}

TEST_F(Pictures, ReleasedPixelsComeBack) {
    const auto picture = LoadPicture(Write("a.png", Encoded(Sample(), "png")));
    EXPECT_TRUE(picture->state->decoded.isNull()) << "what isn't painted needs no memory";
    const QImage before = ImageOf(*picture).copy();
    EXPECT_EQ(ScaledImageOf(*picture, {10, 10}).size(), QSize(10, 10));
    ReleasePixels(*picture);
    EXPECT_EQ(ImageOf(*picture), before);
    ReleasePixels(*picture);
    std::filesystem::remove(picture->Path());
    EXPECT_TRUE(ImageOf(*picture).isNull());
}

TEST_F(Pictures, OneFileIsOnePictureUntilItChanges) {
    const std::string path = Write("a.png", Encoded(Sample(), "png"));
    const auto first = LoadPicture(path);
    EXPECT_EQ(LoadPicture(path), first);
    Write("a.png", Encoded(Sample(50, 50), "png"));
    const auto second = LoadPicture(path);
    EXPECT_NE(second, first);
    EXPECT_EQ(second->PixelSize(), (Size{50, 50}));
}

TEST_F(Pictures, AnAlphaChannelThatSaysNothingCostsNothing) {
    QImage image(20, 20, QImage::Format_ARGB32);
    image.fill(qRgba(10, 20, 30, 255));
    const auto opaque = LoadPicture(Write("opaque.png", Encoded(image, "png")));
    EXPECT_FALSE(ImageOf(*opaque).hasAlphaChannel());
    image.setPixel(19, 19, qRgba(10, 20, 30, 254));
    const auto clear = LoadPicture(Write("clear.png", Encoded(image, "png")));
    EXPECT_TRUE(ImageOf(*clear).hasAlphaChannel());
}

TEST_F(Pictures, AJpegThatIsKeptWholeWhileItIsDecodedHasABoundedSize) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(true);
    ASSERT_TRUE(writer.write(Sample()));
    EXPECT_NE(LoadPhoto(Write("small.jpg", bytes), {20, 20}), nullptr);
    bytes.replace(bytes.indexOf("\xFF\xC2") + 5, 4, "\x4E\x20\x4E\x20");  // 20,000 x 20,000: more than a gigabyte
    const std::string large = Write("large.jpg", bytes);
    EXPECT_EQ(LoadPhoto(large, {20, 20}), nullptr);
    EXPECT_EQ(LoadPicture(large), nullptr);
}

TEST_F(Pictures, APhotoOfATurnedCameraStandsUpright) {
    QImage wide(40, 30, QImage::Format_RGB32);
    wide.fill(Qt::black);
    QPainter(&wide).fillRect(0, 0, 40, 10, Qt::white);
    // Behind the marker of the file's beginning: its first row is shown at the right.
    const QByteArray turned(
        "\xFF\xE1\0\x22"
        "Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\x06\0\0\0\0\0\0\0",
        36);
    const auto photo = LoadPhoto(Write("a.jpg", Encoded(wide, "jpeg").insert(2, turned)), {100, 20});
    ASSERT_NE(photo, nullptr);
    EXPECT_EQ(photo->PixelSize(), (Size{30, 40}));
    ASSERT_EQ(ImageOf(*photo).size(), QSize(15, 20));
    EXPECT_LT(ImageOf(*photo).pixelColor(2, 10).lightness(), 60);
    EXPECT_GT(ImageOf(*photo).pixelColor(13, 10).lightness(), 200);
}

}  // namespace
}  // namespace zvr
