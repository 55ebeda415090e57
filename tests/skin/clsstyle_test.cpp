#include "skin/clsstyle.h"

#include <gtest/gtest.h>

using namespace zvr;

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
