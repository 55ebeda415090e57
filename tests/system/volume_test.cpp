#include "system/sysvolume.h"

#include "platform/headless/mediacontrol.h"
#include "platform/headless/mixer.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zvr {
namespace {

/// The volumes over a sound card that the test puts together.
class Volumes : public testing::Test {
protected:
    Volumes() { sysvolume.useWaveVolumeOnly = true; }

    std::uint32_t& Level() { return card.waveLevel; }
    void SetPercent(int percent) {
        const auto level = static_cast<std::uint32_t>(std::nearbyint(655.35 * percent));
        Level() = (level << 16U) + level;
    }
    int Percent() { return static_cast<int>(std::nearbyint((Level() & 0xFFFFU) / 655.35)); }

    EventLoop loop;
    Mixer mixer;
    Mixer::State& card = *mixer.state;
    MediaControl media{loop};
    PlayQueue wmp{loop, media, 1};
    clsVolume lines{mixer};
    SysVolume sysvolume{mixer, lines, wmp};
};

TEST_F(Volumes, ReadAsLouderChannelAndBalance) {
    struct Row {
        std::uint32_t level;
        long volume;
        long balance;
    };
    for (const Row& row : {Row{0xFFFFFFFF, 65535, 0}, Row{0, 0, 0}, Row{0xFFFF7FFF, 65535, -50},
                           Row{0x7FFFFFFF, 65535, 50}, Row{0xFFFF0000, 65535, -100}, Row{0x10001000, 4096, 0},
                           // Digits that are missing at the front shift the halves.
                           Row{0x0000FFFF, 255, 0}, Row{0x08001000, 0x800, -100}, Row{0x0FFF0FFE, 0xFFF, 0},
                           Row{5, 0, 0}, Row{0x1FF, 15, 93}}) {
        Level() = row.level;
        long volume = -1;
        long balance = -1;
        sysvolume.GetWaveVolume(volume, balance);
        SCOPED_TRACE(row.level);
        EXPECT_EQ(volume, row.volume);
        EXPECT_EQ(balance, row.balance);
    }
}

TEST_F(Volumes, StayAsTheyAreWhenTheCardFails) {
    card.failing = true;
    long volume = 11;
    long balance = 12;
    sysvolume.GetWaveVolume(volume, balance);
    EXPECT_EQ(volume, 11);
    EXPECT_EQ(balance, 12);
    EXPECT_EQ(lines.WaveVolume(), 0);
    EXPECT_FALSE(lines.WaveInMute());
    sysvolume.CenterWaveBalance();
    EXPECT_EQ(Level(), 0xFFFFFFFFU);
}

TEST_F(Volumes, AreSetWithABalance) {
    sysvolume.SetWaveVolume(65535, 0);
    EXPECT_EQ(Level(), 0xFFFFFFFFU);
    EXPECT_EQ(sysvolume.waveVolume, 100);
    sysvolume.SetWaveVolume(65535, -50);
    EXPECT_EQ(Level(), 0x8000FFFFU);  // 32767.5 is rounded to the even neighbour
    sysvolume.SetWaveVolume(30000, 25, true);
    EXPECT_EQ(Level(), (30000U << 16U) + 22500U);
    EXPECT_EQ(sysvolume.waveVolume, 100);
}

TEST_F(Volumes, MoveByStepsWithinTheirBounds) {
    SetPercent(50);
    sysvolume.ChangeWaveVolume(10);
    EXPECT_EQ(Percent(), 60);
    EXPECT_EQ(sysvolume.waveVolume, 60);
    sysvolume.ChangeWaveVolume(-25, true);
    EXPECT_EQ(Percent(), 35);
    EXPECT_EQ(sysvolume.waveVolume, 60);
    const int writes = card.waveWrites;
    sysvolume.ChangeWaveVolume(0);
    EXPECT_EQ(card.waveWrites, writes);
    sysvolume.ChangeWaveVolume(1000);
    EXPECT_EQ(Level(), 0xFFFFFFFFU);
    sysvolume.ChangeWaveVolume(-100);
    EXPECT_EQ(Level(), 0U);
    sysvolume.ChangeWaveVolume(-10);
    EXPECT_EQ(Level(), 0U);
    EXPECT_EQ(sysvolume.waveVolume, 0);
}

TEST_F(Volumes, SwapSidesWithEachStepOffCentre) {
    Level() = 0xFFFF7FFF;
    sysvolume.ChangeWaveVolume(1);
    EXPECT_EQ(Level(), 0x8000FFFFU);
    sysvolume.ChangeWaveVolume(1);
    EXPECT_EQ(Level(), 0xFFFF8000U);
}

TEST_F(Volumes, GrowTheStepWithTheLevel) {
    sysvolume.exponentialVolumeChanges = true;
    sysvolume.volStepping = 50;
    SetPercent(0);
    sysvolume.ChangeWaveVolume(50);
    EXPECT_EQ(Percent(), 1);
    SetPercent(81);
    sysvolume.ChangeWaveVolume(50);
    EXPECT_EQ(Percent(), 90);
    SetPercent(64);
    sysvolume.ChangeWaveVolume(-50);
    EXPECT_EQ(Percent(), 56);
    sysvolume.volStepping = 0;
    SetPercent(80);
    sysvolume.ChangeWaveVolume(1);
    EXPECT_EQ(Percent(), 81);
}

TEST_F(Volumes, TakeTheCdAndTheLineInAlong) {
    lines.SetCD_Volume(0);
    lines.SetLineInVolume(0);
    SetPercent(40);
    sysvolume.ChangeWaveVolume(10);
    EXPECT_EQ(lines.CD_Volume(), 0);
    sysvolume.alsoChangeCDVolume = true;
    sysvolume.ChangeWaveVolume(10);
    EXPECT_EQ(lines.CD_Volume(), std::lround(655.36 * 60));
    EXPECT_EQ(lines.LineInVolume(), 0);
    sysvolume.alsoChangeLineInVolume = true;
    sysvolume.ChangeWaveVolume(-35);
    EXPECT_EQ(lines.LineInVolume(), std::lround(655.36 * 25));
}

TEST_F(Volumes, DriveTheWaveOutputOrThePlayer) {
    wmp.SetVolume(50);
    SetPercent(50);
    sysvolume.ChangeMediaVolume(10);
    EXPECT_EQ(Percent(), 60);
    EXPECT_EQ(wmp.Volume(), 50);
    sysvolume.useWaveVolumeOnly = false;
    sysvolume.ChangeMediaVolume(-10);
    EXPECT_EQ(Percent(), 60);
    EXPECT_EQ(wmp.Volume(), 40);
    sysvolume.ChangeMediaVolume(90);
    EXPECT_EQ(wmp.Volume(), 100);
    sysvolume.exponentialVolumeChanges = true;
    sysvolume.volStepping = 100;
    sysvolume.ChangeMediaVolume(-1);
    EXPECT_EQ(wmp.Volume(), 0);
    sysvolume.ChangeMediaVolume(1);
    EXPECT_EQ(wmp.Volume(), 1);
}

TEST_F(Volumes, CentreToTheQuieterChannel) {
    Level() = 0x8000FFFF;
    sysvolume.CenterWaveBalance();
    EXPECT_EQ(Level(), 0x80008000U);
    const int writes = card.waveWrites;
    sysvolume.CenterWaveBalance();
    EXPECT_EQ(card.waveWrites, writes);
    Level() = 0xF0001234;
    sysvolume.CenterWaveBalance();
    EXPECT_EQ(Level(), 0x12341234U);
    Level() = 0x00AB1234;  // fewer than four digits join to another value
    sysvolume.CenterWaveBalance();
    EXPECT_EQ(Level(), 0x0000ABABU);
    sysvolume.CenterWaveBalance();
    EXPECT_EQ(Level(), 0U);
}

TEST_F(Volumes, AreReadAtTheStart) {
    SetPercent(37);
    sysvolume.ReadWaveVolume();
    EXPECT_EQ(sysvolume.waveVolume, 37);
}

TEST(MixerLines, AreFoundOnceAndClampWrites) {
    Mixer mixer;
    Mixer::State& card = *mixer.state;
    card.lines[MixerLine::master].range = {10, 20};
    card.lines[MixerLine::lineIn].hasVolume = false;
    card.lines.erase(MixerLine::cd);
    clsVolume lines(mixer);
    EXPECT_TRUE(lines.mixerFound);
    EXPECT_EQ(lines.foundVolumes, 1U + 2U + 4U + 32U);
    EXPECT_EQ(lines.foundMutes, 1U + 2U + 4U + 8U + 32U);
    lines.SetWaveVolume(99);
    EXPECT_EQ(lines.WaveVolume(), 20);
    lines.SetWaveVolume(-5);
    EXPECT_EQ(lines.WaveVolume(), 10);
    EXPECT_EQ(lines.MinWaveVolume(), 10);
    lines.SetCD_Volume(5);
    lines.SetCD_Mute(true);
    EXPECT_EQ(lines.CD_Volume(), 0);
    EXPECT_EQ(lines.MaxCDVolume(), 0);
    EXPECT_FALSE(lines.CD_Mute());
}

TEST(MixerLines, EachReachTheirOwn) {
    Mixer mixer;
    clsVolume lines(mixer);
    using Set = void (clsVolume::*)(long);
    using Get = long (clsVolume::*)() const;
    using SetMute = void (clsVolume::*)(bool);
    const std::tuple<MixerLine, Set, Get, SetMute> rows[] = {
        {MixerLine::master, &clsVolume::SetWaveVolume, &clsVolume::WaveVolume, &clsVolume::SetWaveMute},
        {MixerLine::microphone, &clsVolume::SetMicroVolume, &clsVolume::MicroVolume, &clsVolume::SetMicroMute},
        {MixerLine::waveOutput, &clsVolume::SetWaveInVolume, &clsVolume::WaveInVolume, &clsVolume::SetWaveInMute},
        {MixerLine::lineIn, &clsVolume::SetLineInVolume, &clsVolume::LineInVolume, &clsVolume::SetLineInMute},
        {MixerLine::cd, &clsVolume::SetCD_Volume, &clsVolume::CD_Volume, &clsVolume::SetCD_Mute},
        {MixerLine::synthesizer, &clsVolume::SetMIDIVolume, &clsVolume::MIDIVolume, &clsVolume::SetMIDIMute}};
    long level = 100;
    for (const auto& [line, set, get, setMute] : rows) {
        (lines.*set)(++level);
        (lines.*setMute)(true);
        EXPECT_EQ(mixer.state->lines[line].volume, level);
        EXPECT_EQ((lines.*get)(), level);
        EXPECT_TRUE(mixer.state->lines[line].muted);
        mixer.state->lines[line].muted = false;
    }
}

TEST(MixerLines, AreNoneWithoutACard) {
    Mixer mixer;
    mixer.state->card = false;
    clsVolume lines(mixer);
    EXPECT_FALSE(lines.mixerFound);
    EXPECT_EQ(lines.foundVolumes + lines.foundMutes, 0U);
    lines.SetWaveVolume(5);
    lines.SetWaveInMute(true);
    EXPECT_EQ(lines.WaveVolume(), 0);
    EXPECT_FALSE(lines.WaveInMute());
}

}  // namespace
}  // namespace zvr
