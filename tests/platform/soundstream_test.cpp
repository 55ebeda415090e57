#include "platform/common/soundstream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>

namespace zvr {
namespace {

constexpr int rate = 1000;  // a frame a millisecond
constexpr std::int64_t millisecond = 1000;

/// A stream, the engine that fills it and the device that empties it.
class Stream : public testing::Test {
protected:
    /// Frames of one level, or of levels that count on.
    void Write(std::size_t count, std::int16_t level, std::int64_t due = 0, std::int16_t step = 0) {
        std::vector<SoundFrame> frames(count);
        for (SoundFrame& frame : frames) {
            frame = {level, static_cast<std::int16_t>(-level)};
            level = static_cast<std::int16_t>(level + step);
        }
        stream.Write(frames, due);
    }
    std::vector<int> Take(std::size_t count, std::int64_t heard = 0) {
        std::vector<SoundFrame> frames;
        stream.Take(count, heard, frames);
        std::vector<int> levels;
        for (const SoundFrame& frame : frames) {
            EXPECT_EQ(frame.right, -frame.left);
            levels.push_back(frame.left);
        }
        return levels;
    }
    static int LargestStep(const std::vector<int>& levels) {
        int largest = 0;
        for (std::size_t i = 1; i < levels.size(); ++i) {
            largest = std::max(largest, std::abs(levels[i] - levels[i - 1]));
        }
        return largest;
    }
    static std::vector<int> Counting(int from, std::size_t count) {
        std::vector<int> levels(count);
        std::iota(levels.begin(), levels.end(), from);
        return levels;
    }

    SoundStream stream{rate};
};

TEST_F(Stream, GivesAgainWhatNobodyHeard) {
    for (int second = 0; second < 20; ++second) {  // what was taken long ago is gone, and nobody asks for it
        Write(1000, static_cast<std::int16_t>(second * 1000), 0, 1);
        Take(1000);
    }
    stream.TakeBack(150);
    ASSERT_EQ(stream.Waiting(), 150U);
    const std::vector<int> again = Take(150);
    EXPECT_LT(again.front(), 19'850 / 4) << "it comes back without a click";
    EXPECT_EQ(std::vector<int>(again.begin() + 20, again.end()), Counting(19'870, 130));
    stream.TakeBack(5000);
    EXPECT_LE(stream.Waiting(), 5000U);
}

TEST_F(Stream, GoesOverIntoAnotherPlaceWithoutAClick) {
    Write(1000, 8000);
    std::vector<int> heard = Take(500);
    stream.Drop();
    EXPECT_EQ(stream.Waiting(), 0U);
    const auto add = [&heard](const std::vector<int>& more) { heard.insert(heard.end(), more.begin(), more.end()); };
    add(Take(5));
    Write(1000, -8000);
    add(Take(500));
    EXPECT_LE(LargestStep(heard), 8000 / 7);
    EXPECT_EQ(heard.back(), -8000);
    EXPECT_LT(std::count_if(heard.begin(), heard.end(), [](int level) { return std::abs(level) < 4000; }), 20);
}

/// Hours of a device whose clock is wrong by as much as the worst crystals are.
class Drift : public Stream, public testing::WithParamInterface<std::tuple<bool, double>> {};

TEST_P(Drift, InHoursNeitherRunsDryNorHeapsUpNorLeavesThePicture) {
    const auto [picture, drift] = GetParam();
    if (picture) {
        stream.SetKeepsTime();
    }
    constexpr int hours = 12;
    constexpr std::size_t block = 100;
    constexpr std::size_t ahead = 1000;  // the engine reads a second ahead
    Write(ahead, 0);
    std::size_t written = ahead;
    for (double now = 0.3; now < hours * 3600; now += static_cast<double>(block) / rate / (1 + drift)) {
        for (; static_cast<double>(written) < now * rate + ahead; written += block) {
            Write(block, 0, static_cast<std::int64_t>(written) * millisecond);
        }
        const std::size_t before = stream.Waiting();
        ASSERT_EQ(Take(block, static_cast<std::int64_t>(now * 1'000'000)).size(), block) << "at " << now << " s";
        const std::size_t taken = before - stream.Waiting();
        if (now > 10) {
            ASSERT_LE(taken, block + 1) << "nothing jumps";
            ASSERT_GE(taken, block - 1);
            const double late = now * rate - static_cast<double>(written - stream.Waiting());
            ASSERT_LE(picture ? std::abs(late) : 0, 130) << "at " << now << " s";
        }
        ASSERT_LT(stream.Waiting(), 4 * ahead);
    }
}

INSTANTIATE_TEST_SUITE_P(Clocks, Drift, testing::Combine(testing::Bool(), testing::Values(-100e-6, 100e-6, 0.0)));

}  // namespace
}  // namespace zvr
