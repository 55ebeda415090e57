#include "skin/clsstyle.h"
#include "platform/headless/screen.h"

#include <gtest/gtest.h>

using namespace zvr;

TEST(WindowStyle, PressesDragAndOpenTheMenuWhereTheFormWantsThat) {
    EventLoop loop;
    Screen screen(loop);
    Form form("bar", FormRole::window);
    clsStyle style(screen);
    style.Client = &form;
    style.MouseDown(true, {5, 5});
    style.MouseDown(false, {5, 5});
    EXPECT_EQ(screen.state->dragged, nullptr);
    EXPECT_EQ(screen.state->menuOf, nullptr);
    style.AutoDrag = true;
    style.AutoSysMenu = true;
    style.MouseDown(true, {5, 5});
    EXPECT_EQ(screen.state->dragged, &form);
    EXPECT_EQ(screen.state->menuOf, nullptr);
    style.MouseDown(false, {5, 5});
    EXPECT_EQ(screen.state->menuOf, &form);
}

TEST(WindowStyle, FullOpacityTogglesTheLayer) {
    Form form("bar", FormRole::window);
    SetFormAlpha(form, 220);
    EXPECT_EQ(form.alpha.get(), 220);
    EXPECT_EQ(form.extendedStyle.get(), 0x80000U);
    SetFormAlpha(form, 255);
    EXPECT_EQ(form.extendedStyle.get(), 0U);
    SetFormAlpha(form, 255);
    EXPECT_EQ(form.extendedStyle.get(), 0x80000U);
    EXPECT_EQ(form.alpha.get(), 255);
}
