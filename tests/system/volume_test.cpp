#include "system/playervolume.h"

#include "media/playqueue.h"

#include "platform/headless/mediacontrol.h"
#include "platform/headless/mixer.h"
#include "system/sysvolume.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace zvr {
namespace {

/// The volumes over a sound card that the test puts together.
class Volumes : public testing::Test {
protected:
    Volumes() {
        lines.Open();
        sysvolume.useWaveVolumeOnly = true;
    }

    std::uint32_t& Level() { return card.waveLevel; }
    void SetPercent(int percent) {
        const auto level = static_cast<std::uint32_t>(std::nearbyint(655.35 * percent));
        Level() = (level << 16U) + level;
    }
    std::uint32_t Level(MixerLine line) { return card.lines[line].volume; }
    int Percent() { return static_cast<int>(std::nearbyint((Level() & 0xFFFFU) / 655.35)); }

    EventLoop loop;
    Mixer mixer;
    Mixer::State& card = *mixer.state;
    MediaControl media{loop};
    PlayQueue wmp{loop, media, 1};
    clsVolume lines{mixer};
    SysVolume sysvolume{mixer, lines};
    PlayerVolume playervolume{sysvolume, lines, wmp};
};

TEST_F(Volumes, ReadAsLouderChannelAndBalance) {
    // Digits that are missing at the front shift the halves.
    const std::array<long, 3> rows[] = {{0xFFFFFFFF, 65535, 0},
                                        {0, 0, 0},
                                        {0xFFFF7FFF, 65535, -50},
                                        {0x7FFFFFFF, 65535, 50},
                                        {0xFFFF0000, 65535, -100},
                                        {0x10001000, 4096, 0},
                                        {0x0000FFFF, 255, 0},
                                        {0x08001000, 0x800, -100},
                                        {0x0FFF0FFE, 0xFFF, 0},
                                        {5, 0, 0},
                                        {0x1FF, 15, 93}};
    for (const auto& [level, expectedVolume, expectedBalance] : rows) {
        Level() = static_cast<std::uint32_t>(level);
        long volume = -1;
        long balance = -1;
        sysvolume.GetWaveVolume(volume, balance);
        EXPECT_EQ(std::pair(volume, balance), std::pair(expectedVolume, expectedBalance)) << level;
    }
}

TEST_F(Volumes, MoveByStepsWithinTheirBoundsThatMayGrowWithTheLevel) {
    constexpr int plain = -1;  // a stepping of the growing kind otherwise
    const std::array<int, 4> rows[] = {{plain, 50, 10, 60}, {plain, 60, 1000, 100}, {plain, 100, -100, 0},
                                       {plain, 0, -10, 0},  {50, 0, 50, 1},         {50, 81, 50, 90},
                                       {50, 64, -50, 56},   {0, 80, 1, 81}};
    for (const auto& [stepping, from, change, to] : rows) {
        SCOPED_TRACE(testing::Message() << from << " and " << change);
        sysvolume.exponentialVolumeChanges = stepping != plain;
        sysvolume.volStepping = stepping;
        SetPercent(from);
        sysvolume.ChangeWaveVolume(change);
        EXPECT_EQ(Percent(), to);
        EXPECT_EQ(sysvolume.waveVolume, to);
    }
    sysvolume.exponentialVolumeChanges = false;
    sysvolume.ChangeWaveVolume(-25, true);
    EXPECT_EQ(Percent(), 56);
    EXPECT_EQ(sysvolume.waveVolume, 81);
    const int writes = card.waveWrites;
    sysvolume.ChangeWaveVolume(0);
    EXPECT_EQ(card.waveWrites, writes);
}

TEST_F(Volumes, SwapSidesWithEachStepOffCentre) {
    Level() = 0xFFFF7FFF;
    sysvolume.ChangeWaveVolume(1);
    EXPECT_EQ(Level(), 0x8000FFFFU);
    sysvolume.ChangeWaveVolume(1);
    EXPECT_EQ(Level(), 0xFFFF8000U);
}

TEST_F(Volumes, DriveTheWaveOutputOrThePlayer) {
    wmp.SetVolume(50);
    SetPercent(50);
    playervolume.ChangeMediaVolume(10);
    EXPECT_EQ(Percent(), 60);
    EXPECT_EQ(wmp.Volume(), 50);
    sysvolume.useWaveVolumeOnly = false;
    playervolume.ChangeMediaVolume(-10);
    EXPECT_EQ(Percent(), 60);
    EXPECT_EQ(wmp.Volume(), 40);
    playervolume.ChangeMediaVolume(90);
    EXPECT_EQ(wmp.Volume(), 100);
}

TEST_F(Volumes, CommandsEndAFadeOfTheVolumeThatTheyMove) {
    for (const bool waveOnly : {true, false}) {
        sysvolume.useWaveVolumeOnly = waveOnly;
        playervolume.fadeInVolume = 90;
        playervolume.ChangeWaveVolume(-1);
        EXPECT_EQ(playervolume.fadeInVolume, waveOnly ? 0 : 90) << "the wave output is not what fades here";
        playervolume.fadeInVolume = 90;
        playervolume.ChangeMediaVolume(1);
        EXPECT_EQ(playervolume.fadeInVolume, 0);
    }
}

TEST_F(Volumes, AFadeWritesTheMixerOnceATickItsLastOneToo) {
    SetPercent(50);
    sysvolume.ReadWaveVolume();
    playervolume.fadeInVolume = 50;
    playervolume.Silence();
    for (int percent = 3; percent < 50; percent += 3) {
        const int writes = card.waveWrites;
        playervolume.FadeIn();
        EXPECT_EQ(Percent(), percent);
        EXPECT_EQ(card.waveWrites, writes + 1);
    }
    const int writes = card.waveWrites;
    playervolume.FadeIn();
    EXPECT_EQ(Percent(), 50);
    EXPECT_EQ(card.waveWrites, writes + 1) << "silence in between would crackle";
    EXPECT_EQ(playervolume.fadeInVolume, 0);
    playervolume.FadeIn();
    EXPECT_EQ(card.waveWrites, writes + 1);
}

TEST_F(Volumes, AFadeWithExponentialChangesEndsWhereItsTwoStepsLead) {
    sysvolume.exponentialVolumeChanges = true;
    sysvolume.volStepping = 50;
    sysvolume.alsoChangeLineInVolume = true;
    SetPercent(64);
    sysvolume.ReadWaveVolume();
    playervolume.fadeInVolume = 65;
    playervolume.FadeIn();
    EXPECT_EQ(Percent(), 64 - 8 + 7);
    EXPECT_EQ(Level(MixerLine::lineIn), std::lround(655.36 * 63)) << "of the last step";
    playervolume.fadeInVolume = 90;
    playervolume.EndFade();
    EXPECT_EQ(Percent(), 90) << "an end is exact, whatever a step is";
    EXPECT_EQ(sysvolume.waveVolume, 90);
    EXPECT_EQ(Level(MixerLine::lineIn), std::lround(655.36 * 90));
    EXPECT_EQ(playervolume.fadeInVolume, 0);
    playervolume.fadeInVolume = 10;
    playervolume.EndFade();
    EXPECT_EQ(Percent(), 90);
}

TEST_F(Volumes, CentreToTheLouderChannel) {
    Level() = 0x8000FFFF;
    sysvolume.CenterWaveBalance();
    EXPECT_EQ(Level(), 0xFFFFFFFFU);
    Level() = 0xFFFF0000;  // silence on one side is no reason for silence on the other
    sysvolume.CenterWaveBalance();
    EXPECT_EQ(Level(), 0xFFFFFFFFU);
    const int writes = card.waveWrites;
    sysvolume.CenterWaveBalance();
    EXPECT_EQ(card.waveWrites, writes);
    Level() = 0x00AB0012;  // fewer than four digits join to another value
    sysvolume.CenterWaveBalance();
    EXPECT_EQ(Level(), 0x0000ABABU);
}

TEST(MixerLines, AreAsTheyWereWhenTheSoundServerIsBack) {
    Mixer mixer;
    Mixer::State& card = *mixer.state;
    clsVolume lines(mixer);
    lines.Open();
    SysVolume sysvolume(mixer, lines);
    sysvolume.SetWavePercent(30);
    lines.SetWaveInMute(true);
    const std::uint32_t level = card.waveLevel;
    card.failing = true;
    EXPECT_FALSE(sysvolume.FollowMixer());
    sysvolume.ChangeWaveVolume(10);
    card.Reconnect();
    card.waveLevel = 0xFFFFFFFF;
    card.lines.erase(MixerLine::cd);
    card.lines[MixerLine::lineIn].range.maximum = 20;
    card.lines[MixerLine::waveOutput].muted = false;
    EXPECT_FALSE(sysvolume.FollowMixer()) << "the first of this run has its start volume, later ones what they had";
    EXPECT_EQ(card.waveLevel, level);
    EXPECT_EQ(sysvolume.waveVolume, 30);
    EXPECT_TRUE(lines.WaveInMute());
    EXPECT_EQ(lines.MaxCDVolume(), 0);
    EXPECT_EQ(lines.MaxLineInVolume(), 20);
    lines.SetLineInVolume(99);
    EXPECT_EQ(card.lines[MixerLine::lineIn].volume, 20U);
}

}  // namespace
}  // namespace zvr
