#include "platform/linux/renderform.h"
#include "platform/eventloop.h"

#include <gtest/gtest.h>
#include <QImage>

#include <cstdlib>
#include <filesystem>

namespace zvr {
namespace {

TEST(RenderForm, PaintsListsAndBoxesWithoutAScreen) {
    const EventLoop loop;
    std::string folder = "/tmp/zvr-test-XXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    Form form("tried");
    form.width = 100.0 * twipsPerPixel;
    form.height = 80.0 * twipsPerPixel;
    form.backColor = RgbColor(10, 20, 30);
    Control& list = form.Add(ControlKind::grid, "list");
    list.Move(0, 0, 50 * twipsPerPixel, 40 * twipsPerPixel);
    list.grid->SetLook({20, 0, RgbColor(200, 0, 0), RgbColor(0, 200, 0), 0, RgbColor(0, 0, 200)});
    list.grid->AddRow("", 1);
    list.grid->AddRow("", 2);
    list.grid->Select(1);
    Control& box = form.Add(ControlKind::textBox, "box");
    box.Move(50 * twipsPerPixel, 40 * twipsPerPixel, 50 * twipsPerPixel, 40 * twipsPerPixel);
    box.backColor = RgbColor(250, 250, 250);
    box.SetText("WWWWWWWWWWWW");

    ASSERT_TRUE(RenderForm(form, folder + "/form.png"));
    const QImage image(QString::fromStdString(folder + "/form.png"));
    ASSERT_EQ(image.size(), QSize(100, 80));
    EXPECT_EQ(image.pixelColor(2, 10), QColor(0, 0, 200)) << "the selected row";
    EXPECT_EQ(image.pixelColor(2, 30), QColor(0, 200, 0)) << "the second row";
    EXPECT_EQ(image.pixelColor(80, 10), QColor(10, 20, 30)) << "the form";
    EXPECT_EQ(image.pixelColor(51, 42), QColor(250, 250, 250)) << "the box";
    bool text = false;
    for (int x = 56; x < 94; ++x) {
        text = text || image.pixelColor(x, 60) == QColor(0, 0, 0);
    }
    EXPECT_TRUE(text) << "in the middle of the box";
    EXPECT_FALSE(RenderForm(form, folder + "/nowhere/form.png"));
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace zvr
