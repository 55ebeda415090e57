#include "contract/sound.h"

#include "platform/eventloop.h"

#include <gtest/gtest.h>

namespace zvr {
namespace {

class SoundCard : public testing::Test {
protected:
    void SetUp() override {
        contract::RequireSound();
        contract::PrepareMixer(mixer);
        ASSERT_TRUE(mixer.Open());
        mixer.SetWaveLevel(0xFFFFFFFF);
    }

    /// Half a second for the word of a change outside to arrive.
    bool Soon(const std::function<bool()>& seen) {
        for (int i = 0; i < 50 && !seen(); ++i) {
            loop.Wait(Milliseconds{10});
        }
        return seen();
    }

    EventLoop loop;
    Mixer mixer;
};

TEST_F(SoundCard, KeepsALineWithinItsBounds) {
    const auto range = mixer.VolumeRange(MixerLine::master);
    ASSERT_TRUE(range);
    ASSERT_LT(range->minimum, range->maximum);
    const std::uint32_t middle = range->minimum + (range->maximum - range->minimum) / 2;
    mixer.SetVolume(MixerLine::master, middle);
    EXPECT_EQ(mixer.Volume(MixerLine::master), middle);
    mixer.SetVolume(MixerLine::master, range->maximum + 1000);
    EXPECT_EQ(mixer.Volume(MixerLine::master), range->maximum);
}

TEST_F(SoundCard, DoesWithoutALine) {
    EXPECT_FALSE(mixer.VolumeRange(MixerLine::cd));
    EXPECT_FALSE(mixer.HasMute(MixerLine::cd));
    EXPECT_FALSE(mixer.Volume(MixerLine::cd));
    EXPECT_FALSE(mixer.Mute(MixerLine::cd));
    mixer.SetVolume(MixerLine::cd, 7);
    mixer.SetMute(MixerLine::cd, true);
    EXPECT_FALSE(mixer.Volume(MixerLine::cd));
}

TEST_F(SoundCard, MutesTheWaveOutputAndLeavesItsLevel) {
    ASSERT_TRUE(mixer.HasMute(MixerLine::waveOutput));
    mixer.SetWaveLevel(0x40004000);
    mixer.SetMute(MixerLine::waveOutput, true);
    EXPECT_EQ(mixer.Mute(MixerLine::waveOutput), true);
    EXPECT_EQ(mixer.WaveLevel(), 0x40004000U);
    mixer.SetMute(MixerLine::waveOutput, false);
    EXPECT_EQ(mixer.Mute(MixerLine::waveOutput), false);
}

TEST_F(SoundCard, ReadsBackTheWaveLevelThatWasSet) {
    for (const std::uint32_t level :
         {0xFFFFFFFFU, 0U, 0x12345678U, 0x87654321U, 0x00010001U, 0x0000FFFFU, 0xFFFF0000U, 0x80007FFFU, 0x051E051EU}) {
        mixer.SetWaveLevel(level);
        EXPECT_EQ(mixer.WaveLevel(), level) << std::hex << level;
        loop.Wait(Milliseconds{30});
        EXPECT_EQ(mixer.WaveLevel(), level) << std::hex << level << ", a while later";
    }
}

TEST_F(SoundCard, SeesWhatAnotherProgramSets) {
    mixer.SetWaveLevel(0xC000C000);
    contract::ChangeFromOutside(mixer, 30);
    ASSERT_TRUE(Soon([this] { return mixer.WaveLevel() != 0xC000C000U; }));
    const std::uint32_t level = mixer.WaveLevel().value_or(0);
    EXPECT_NEAR(level & 0xFFFFU, 65535 * 0.3, 400);
    EXPECT_NEAR(level >> 16U, 65535 * 0.3, 400);
    mixer.SetWaveLevel(0x11112222);
    EXPECT_EQ(mixer.WaveLevel(), 0x11112222U);
}

}  // namespace
}  // namespace zvr
