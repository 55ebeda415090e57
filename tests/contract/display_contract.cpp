#include "platform/display.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zvr {
namespace {

GammaRamp Scaled(double share) {
    GammaRamp ramp{};
    for (std::size_t colour = 0; colour < ramp.size(); ++colour) {
        for (std::size_t i = 0; i < ramp[colour].size(); ++i) {
            const double level = static_cast<double>(i * 257) * share / static_cast<double>(colour + 1);
            ramp[colour][i] = static_cast<std::uint16_t>(level);
        }
    }
    return ramp;
}

TEST(Brightness, IsAStraightLineUntilSomebodySetsIt) {
    Display display;
    const auto ramp = display.Ramp();
    ASSERT_TRUE(ramp) << "no display to test with";
    for (const auto& colour : *ramp) {
        EXPECT_EQ(colour.front(), 0);
        EXPECT_GE(colour.back(), 65280);
        EXPECT_TRUE(std::is_sorted(colour.begin(), colour.end()));
    }
}

TEST(Brightness, ReadsBackWhatWasSet) {
    Display display;
    const auto before = display.Ramp();
    ASSERT_TRUE(before) << "no display to test with";
    for (const double share : {0.4, 1.0, 0.0625}) {
        const GammaRamp wanted = Scaled(share);
        display.SetRamp(wanted);
        EXPECT_EQ(display.Ramp(), wanted);
    }
    display.SetRamp(*before);
    EXPECT_EQ(display.Ramp(), before);
}

}  // namespace
}  // namespace zvr
