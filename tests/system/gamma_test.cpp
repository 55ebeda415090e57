#include "platform/headless/display.h"
#include "support/bench.h"
#include "system/setgamma.h"

using namespace zvr;

namespace {

GammaRamp Straight(int top) {
    GammaRamp ramp{};
    for (auto& channel : ramp) {
        for (std::size_t i = 0; i < channel.size(); ++i) {
            channel[i] = static_cast<std::uint16_t>(static_cast<int>(i) * top / 255);
        }
    }
    return ramp;
}

class Gamma : public testing::Test {
protected:
    TemporaryFolder folder;
    Display display;
    double dim = 0;
    SetGamma gamma{display, folder.path, [this](double share) { dim = share; }};
};

}  // namespace

TEST_F(Gamma, ARunThatWasKilledDimmedIsUndoneBeforeTheLevelsAreTaken) {
    display.SetRamp(Straight(65535));
    for (int run = 0; run < 2; ++run) {
        SetGamma next(display, folder.path, [this](double share) { dim = share; });
        next.RestoreFromRampFile();
        next.InitRamps();
        next.SaveRampFile();
        next.SetBrightness(4);
        EXPECT_EQ(display.Ramp()->at(0)[255], 32768);
    }
    EXPECT_EQ(dim, 0);
    folder.Write("restore.bsf", "0=1,2");
    gamma.RestoreFromRampFile();
    EXPECT_EQ(display.Ramp()->at(0)[255], 32768) << "a broken file changes nothing";
}

TEST_F(Gamma, WhereTheDisplayTakesNoRampTheWindowsAreDarkenedInstead) {
    display.state->refuses = true;
    for (const bool hasRamp : {true, false}) {
        if (!hasRamp) {
            display.state->ramp.reset();
            std::filesystem::remove(folder.path + "/restore.bsf");
        }
        gamma.RestoreFromRampFile();
        gamma.InitRamps();
        gamma.SaveRampFile();
        EXPECT_EQ(folder.Has("restore.bsf"), hasRamp);
        gamma.SetBrightness(3);
        EXPECT_DOUBLE_EQ(dim, 0.35);
        gamma.SaveCurrentRamp();
        gamma.SetBrightness(4);
        EXPECT_DOUBLE_EQ(dim, 0.5);
        gamma.SetBrightness(7);
        EXPECT_DOUBLE_EQ(dim, 0.5);
        gamma.RestoreSavedRamp();
        EXPECT_DOUBLE_EQ(dim, 0.35) << "after a trial";
        gamma.SetBrightness(1);
        EXPECT_EQ(dim, 0);
        gamma.SetBrightness(4);
        gamma.RestoreOriginalRamp();
        EXPECT_EQ(dim, 0);
    }
}

TEST_F(Gamma, ADisplayThatBeginsToTakeRampsIsNotDarkenedTwice) {
    gamma.InitRamps();
    display.state->refuses = true;
    gamma.SetBrightness(4);
    display.state->refuses = false;
    gamma.SaveCurrentRamp();
    gamma.SetBrightness(4);
    EXPECT_EQ(dim, 0);
    EXPECT_EQ(display.Ramp()->at(0)[255], 32768);
    gamma.RestoreSavedRamp();
    EXPECT_DOUBLE_EQ(dim, 0.5);
    EXPECT_EQ(display.Ramp()->at(0)[255], 65535);
}

TEST_F(Gamma, TheFileReadsBackAndRefusesBadNumbers) {
    const GammaRamp ramp = Straight(65535);
    const std::string text = RampText(ramp);
    EXPECT_TRUE(text.ends_with("255=-1,-1,-1\n"));
    EXPECT_EQ(ParseRamp(text), ramp);
    EXPECT_FALSE(ParseRamp(text.substr(0, text.size() - 2)));
    EXPECT_FALSE(ParseRamp("0=70000,0,0\n" + text.substr(text.find('\n') + 1)));
}
