#include "core/numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace zvr {
namespace {

TEST(Numbers, RoundToTheNearestAndHalvesToEven) {
    EXPECT_EQ(RoundHalfEven(0.5), 0);
    EXPECT_EQ(RoundHalfEven(-1.5), -2);
    EXPECT_EQ(RoundHalfEven(-7.6), -8);
    EXPECT_EQ(RoundHalfEven(1e300), std::numeric_limits<long>::max());
    EXPECT_EQ(RoundHalfEven(-1e300), std::numeric_limits<long>::min());
    EXPECT_EQ(RoundHalfEven(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(Numbers, AreReadFromTheBeginningOfAText) {
    EXPECT_DOUBLE_EQ(LeadingNumber("12px"), 12);
    EXPECT_DOUBLE_EQ(LeadingNumber(" \t-3.75;8"), -3.75);
    EXPECT_DOUBLE_EQ(LeadingNumber("+.5"), 0.5);
    EXPECT_DOUBLE_EQ(LeadingNumber("1,5"), 1);
    EXPECT_DOUBLE_EQ(LeadingNumber("2e3x"), 2000);
    EXPECT_DOUBLE_EQ(LeadingNumber("&HfF00FFg"), 0xFF00FF);
    EXPECT_DOUBLE_EQ(LeadingNumber("1e999"), std::numeric_limits<double>::max());
    EXPECT_DOUBLE_EQ(LeadingNumber("1e-999"), 0);
    for (const char* none : {"", " ", "x", "-", "+-1", "--1", ".", "&H", "&", "&Hg", "inf", "nan", "-inf"}) {
        EXPECT_DOUBLE_EQ(LeadingNumber(none), 0) << none;
    }
}

}  // namespace
}  // namespace zvr
