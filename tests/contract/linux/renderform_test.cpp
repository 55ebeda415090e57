#include "platform/linux/renderform.h"
#include "platform/eventloop.h"
#include "support/temporaryfolder.h"
#include "ui/contrast.h"

#include <gtest/gtest.h>
#include <QImage>

#include <algorithm>

namespace zvr {
namespace {

TEST(RenderForm, PaintsListsAndBoxesWithoutAScreen) {
    const EventLoop loop;
    const TemporaryFolder folder;
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

    ASSERT_TRUE(RenderForm(form, folder.path + "/form.png"));
    const QImage image(QString::fromStdString(folder.path + "/form.png"));
    ASSERT_EQ(image.size(), QSize(100, 80));
    EXPECT_EQ(image.pixelColor(2, 10), QColor(0, 0, 200)) << "the selected row";
    EXPECT_EQ(image.pixelColor(2, 30), QColor(0, 200, 0)) << "the second row";
    EXPECT_EQ(image.pixelColor(80, 10), QColor(10, 20, 30)) << "the form";
    EXPECT_EQ(image.pixelColor(51, 42), QColor(250, 250, 250)) << "the box";
    bool text = false;
    for (int x = 56; x < 94; ++x) {
        for (int y = 55; y < 65; ++y) {
            text = text || image.pixelColor(x, y).lightness() < 100;
        }
    }
    EXPECT_TRUE(text) << "in the middle of the box";
    EXPECT_FALSE(RenderForm(form, folder.path + "/nowhere/form.png"));
}

/// A form of one list, one label and one text box, each narrower than its text.
QImage Narrow(const std::string& text, Overflow overflow, Color ground) {
    const EventLoop loop;
    Form form("tried");
    form.Resize({160, 90});
    form.backColor = RgbColor(255, 255, 255);
    Control& list = form.Add(ControlKind::grid, "list");
    list.Move(Rect{0, 0, 160, 30});
    list.grid->SetLook({30, 0, ground, ground, 0, ground});
    list.grid->AddRow(text, 1, ListIcon::folder);
    Control& label = form.Add(ControlKind::label, "label");
    label.Move(Rect{0, 30, 160, 30});
    label.caption = text;
    label.overflow = overflow;
    Control& box = form.Add(ControlKind::textBox, "box");
    box.Move(Rect{0, 60, 160, 30});
    box.backColor = RgbColor(255, 255, 255);
    box.SetText(text);
    const TemporaryFolder folder;
    EXPECT_TRUE(RenderForm(form, folder.path + "/form.png"));
    return QImage(QString::fromStdString(folder.path + "/form.png"));
}

TEST(RenderForm, WhatIsTooLongKeepsItsBeginningAndItsEnd) {
    const Color white = RgbColor(255, 255, 255);
    const auto image = [&](const char* text, Overflow overflow) { return Narrow(text, overflow, white); };
    const QImage one = image("Collected\u00a0works\u00a0of\u00a0them\u00a0all,\u00a0part\u00a01", Overflow::ellipsis);
    const QImage otherEnd =
        image("Collected\u00a0works\u00a0of\u00a0them\u00a0all,\u00a0part\u00a04", Overflow::ellipsis);
    const QImage otherBegin =
        image("Xollected\u00a0works\u00a0of\u00a0them\u00a0all,\u00a0part\u00a01", Overflow::ellipsis);
    for (const QRect part : {QRect(0, 0, 160, 30), QRect(0, 30, 160, 30), QRect(0, 60, 160, 30)}) {
        EXPECT_NE(one.copy(part), otherEnd.copy(part)) << part.y();
        EXPECT_NE(one.copy(part), otherBegin.copy(part)) << part.y();
    }
    EXPECT_EQ(image("Collected\u00a0works\u00a0of\u00a0them\u00a0all,\u00a01", Overflow::cut).copy(0, 30, 160, 30),
              image("Collected\u00a0works\u00a0of\u00a0them\u00a0all,\u00a04", Overflow::cut).copy(0, 30, 160, 30));
}

TEST(RenderForm, AnIconStandsOutOnBrightRowsAndOnDarkOnes) {
    for (const int ground : {0, 60, 190, 255}) {
        const QImage image = Narrow("", Overflow::cut, RgbColor(ground, ground, ground));
        double most = 1;
        for (int x = 8; x < 32; ++x) {
            for (int y = 0; y < 30; ++y) {
                const QColor ink = image.pixelColor(x, y);
                most = std::max(
                    most, Contrast(RgbColor(ink.red(), ink.green(), ink.blue()), RgbColor(ground, ground, ground)));
            }
        }
        EXPECT_GT(most, 4.5) << ground;
    }
}

}  // namespace
}  // namespace zvr
