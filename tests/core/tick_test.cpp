#include "core/godfather.h"
#include "media/mediaplayer.h"
#include "platform/headless/mediacontrol.h"
#include "platform/headless/mixer.h"
#include "platform/platform.h"
#include "support/bench.h"
#include "system/playervolume.h"
#include "system/sysvolume.h"

using namespace zvr;

namespace {

class TickTest : public testing::Test {
protected:
    void StartPlaying(bool waveOnly = true) {
        bench.settings = "[general]\nSHOWWARNING=0\nUSEWAVEVOLUMEONLY=" + std::string(waveOnly ? "1" : "0") +
                         "\n[mediaplayer]\nFADEINAFTERPAUSE=1\n";
        bench.platform.media.state->durations["/song.mp3"] = 100;
        bench.Start();
        PlayQueue& wmp = bench.program->mediaplayer.wmp;
        wmp.NewPlaylist();
        wmp.AppendItem("/song.mp3");
        wmp.Play();
        bench.Advance(Milliseconds{500});
        ASSERT_NE(wmp.CurrentMedia(), nullptr);
    }
    double Position() { return bench.program->mediaplayer.wmp.CurrentPosition(); }

    Bench bench;
};

}  // namespace

TEST_F(TickTest, FastForwardMovesOneSecondLessThanTheSettingOnEverySecondTick) {
    StartPlaying();
    bench.program->mediaplayer.wmp.SetCurrentPosition(20);
    bench.program->dispatchCommand("mediaplayer.ffwd");
    const double before = Position();
    bench.Advance(Milliseconds{1000});
    EXPECT_NEAR(Position() - before, 5 * 4 + 1, 0.3);
    bench.program->mediaplayer.wmp.SetCurrentPosition(93);
    bench.Advance(Milliseconds{700});
    EXPECT_EQ(bench.program->mediaplayer.currentSkipMode, 0);
    EXPECT_NEAR(Position(), 99.3, 0.8) << "one second before the end";
    bench.program->mediaplayer.wmp.SetCurrentPosition(50);
    for (const auto& [skipSecs, way] : {std::pair{1, 1}, {5, 1 - 4 * 5}}) {
        bench.program->mediaplayer.skipSecs = skipSecs;
        bench.program->dispatchCommand("mediaplayer.rwnd");
        const double here = Position();
        bench.Advance(Milliseconds{1000});
        EXPECT_NEAR(Position() - here, way, 0.3);
    }
    bench.program->mediaplayer.wmp.SetCurrentPosition(4.9);
    bench.Advance(Milliseconds{100});
    EXPECT_NEAR(Position(), 0, 0.2) << "back to the beginning";
    EXPECT_EQ(bench.program->mediaplayer.currentSkipMode, 0);
}

TEST_F(TickTest, ThePlayersFadeClimbsOnePercentATickAndTheKnobWaitsForIt) {
    StartPlaying(false);
    MediaPlayer& player = bench.program->mediaplayer;
    player.wmp.SetVolume(20);
    bench.Advance(Milliseconds{200});
    const double knob = player.picVolSlider->left;
    EXPECT_NEAR(knob, (player.picVolume->width - player.picVolSlider->width) * 0.2, 1);
    bench.program->dispatchCommand("mediaplayer.pause");
    bench.program->dispatchCommand("mediaplayer.play");
    EXPECT_EQ(player.wmp.Volume(), 0);
    bench.Advance(Milliseconds{1000});
    EXPECT_EQ(player.wmp.Volume(), 10);
    EXPECT_EQ(player.picVolSlider->left, knob);
    bench.Advance(Milliseconds{1500});
    EXPECT_EQ(player.wmp.Volume(), 20);
    EXPECT_EQ(bench.program->playervolume.fadeInVolume, 0);
}

TEST_F(TickTest, ALateTickIsTakenForASleep) {
    bench.Start();
    bench.program->godfather.alwaysCenterWaveBalance = true;
    bench.platform.mixer.state->waveLevel = 0xF0001234;
    bench.Advance(Milliseconds{100});
    EXPECT_EQ(bench.platform.mixer.state->waveLevel, 0xF000F000U);
    bench.platform.desktop.state->taskbarShown = true;  // as a panel comes up again after a sleep
    bench.screen.pointerHidden = true;
    Timer& resume = bench.program->godfather.tmrHibernateResume;
    LocalTime time = bench.platform.loop.Now();
    time.milliseconds += 8000;
    bench.loop.SetWallClock(time);
    bench.Advance(Milliseconds{150});
    EXPECT_FALSE(resume.Enabled());
    time = bench.platform.loop.Now();
    time.milliseconds += 9000;
    bench.loop.SetWallClock(time);
    bench.Advance(Milliseconds{150});
    EXPECT_TRUE(resume.Enabled());
    bench.Advance(Milliseconds{2500});
    EXPECT_FALSE(resume.Enabled());
    EXPECT_FALSE(bench.platform.desktop.state->taskbarShown || bench.screen.pointerHidden);
    bench.program->godfather.AutoSwitchDayNight = true;
    time.milliseconds += -time.milliseconds % 86'400'000 + 23 * 3'600'000;
    bench.loop.SetWallClock(time);
    bench.Advance(Milliseconds{2700});
    EXPECT_EQ(bench.program->godfather.currentBrightness, 4) << "it wakes up in the night";
}

TEST_F(TickTest, NightComesWithinFiveSecondsOfItsTimeAndAChangeByHandAfterwardsStays) {
    bench.settings = "[general]\nSHOWWARNING=0\nAUTOSWITCHDAYNIGHT=1\n";
    LocalTime evening = bench.platform.loop.Now();
    evening.milliseconds += -evening.milliseconds % 86'400'000 + 20 * 3'600'000 - 4000;
    bench.loop.SetWallClock(evening);
    bench.Start();
    GodFather& godfather = bench.program->godfather;
    EXPECT_EQ(godfather.currentBrightness, 1);
    bench.Advance(Milliseconds{3000});
    EXPECT_EQ(godfather.currentBrightness, 4);
    bench.program->dispatchCommand("app.day");
    bench.Advance(Milliseconds{200});
    EXPECT_EQ(godfather.currentBrightness, 4) << "inside the five seconds night comes back";
    bench.Advance(Milliseconds{6000});
    bench.program->dispatchCommand("app.day");
    bench.Advance(Milliseconds{1000});
    EXPECT_EQ(godfather.currentBrightness, 1);
    bench.program->dispatchCommand("app.night");
    evening.milliseconds += 11 * 3'600'000;  // the day begins at seven
    bench.loop.SetWallClock(evening);
    bench.Advance(Milliseconds{3000});
    EXPECT_EQ(godfather.currentBrightness, 4);
    bench.Advance(Milliseconds{2000});
    EXPECT_EQ(godfather.currentBrightness, 1);
}

TEST_F(TickTest, ThePositionKnobFollowsAndRestsAtTheLeftWithoutMedia) {
    StartPlaying();
    MediaPlayer& player = bench.program->mediaplayer;
    player.wmp.SetCurrentPosition(50);
    player.picPosSlider->visible = false;
    bench.Advance(Milliseconds{200});
    EXPECT_TRUE(player.picPosSlider->visible);
    EXPECT_NEAR(player.picPosSlider->left, (player.picPosition->width - player.picPosSlider->width) * 0.5, 60);
    player.wmp.NewPlaylist();
    bench.Advance(Milliseconds{200});
    EXPECT_EQ(player.picPosSlider->left.get(), 0);
}
