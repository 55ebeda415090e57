#include "platform/eventloop.h"
#include "platform/textmeasure.h"

#include <gtest/gtest.h>

namespace zvr {
namespace {

TEST(TextMeasure, GrowsWithTheTextAndTheTypeface) {
    const EventLoop loop;  // typefaces are there while it lives
    Font font;
    const Size one = TextSize(font, "Evening");
    EXPECT_GT(one.width, 7 * 3);
    EXPECT_GT(TextSize(font, "Evening Drive").width, one.width);
    EXPECT_EQ(TextSize(font, "").width, 0);
    EXPECT_EQ(TextSize(font, "").height, one.height);
    font.points = 24;
    const Size large = TextSize(font, "Evening");
    EXPECT_NEAR(large.width, 2 * one.width, one.width / 5.0);
    // 24 points are 32 pixels; a line has room for what goes above and below the small letters.
    EXPECT_GE(large.height, 32);
    EXPECT_LE(large.height, 48);
}

}  // namespace
}  // namespace zvr
