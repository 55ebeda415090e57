#include "platform/display.h"

#include <gtest/gtest.h>

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
