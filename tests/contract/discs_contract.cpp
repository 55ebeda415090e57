#include "contract/sound.h"
#include "platform/discs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>

namespace zvr {
namespace {

using std::chrono_literals::operator""s;
namespace fs = std::filesystem;

constexpr int seconds = 2;  // of a track

/// A folder with images of discs: "a cd #1.cue" of three tones, and what is no disc.
class DiscImages : public testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(folder / "film/Video_ts");
        fs::create_directories(folder / "music");
        std::ofstream sound(folder / "a cd.bin", std::ios::binary);
        for (int i = 0; i < 3 * seconds * 44100; ++i) {
            const auto level = static_cast<std::int16_t>(8000 * std::sin(i * 0.07));
            const char bytes[4] = {static_cast<char>(level & 255), static_cast<char>(level >> 8),
                                   static_cast<char>(level & 255), static_cast<char>(level >> 8)};
            sound.write(bytes, 4);
        }
        std::ofstream(folder / "a cd #1.cue")
            << "FILE \"a cd.bin\" BINARY\r\n"
               "  TRACK 01 AUDIO\r\n    INDEX 01 00:00:00\r\n"
               "  TRACK 02 AUDIO\r\n    INDEX 00 00:01:50\r\n    INDEX 01 00:02:00\r\n"
               "  TRACK 03 AUDIO\r\n    INDEX 01 00:04:00\r\n";
        std::ofstream(folder / "lost.cue") << "FILE gone.bin BINARY\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n";
        std::ofstream(folder / "junk.iso") << std::string(50000, 'x');
    }
    void TearDown() override { fs::remove_all(folder); }

    Disc Look(const std::string& name) {
        std::optional<Disc> found;
        discs.Look((folder / name).string(), [&](const Disc& disc) { found = disc; });
        EXPECT_FALSE(found) << "it answered before the loop had a turn";
        for (int i = 0; i < 1000 && !found; ++i) {
            loop.Wait(Milliseconds{10});
        }
        EXPECT_TRUE(found) << name;
        return found.value_or(Disc{});
    }

    const fs::path folder = fs::temp_directory_path() / ("zvr-discs-" + std::to_string(std::random_device{}()));
    EventLoop loop;
    Discs discs{loop};
};

TEST_F(DiscImages, AreToldApart) {
    EXPECT_EQ(Look("film").kind, DiscKind::video);
    for (const char* name : {"music", "lost.cue", "junk.iso", "missing", "missing.cue"}) {
        EXPECT_EQ(Look(name).kind, DiscKind::none) << name;
    }
    const Disc disc = Look("a cd #1.cue");
    ASSERT_EQ(disc.kind, DiscKind::audio);
    ASSERT_EQ(disc.tracks.size(), 3U);
    for (const DiscTrack& track : disc.tracks) {
        EXPECT_NEAR(track.seconds, seconds, 0.01);
    }
    EXPECT_EQ(disc.tracks[2].Name(), "Track 3");
    const auto again = TrackOf(disc.tracks[2].Address());
    ASSERT_TRUE(again) << disc.tracks[2].Address();
    EXPECT_EQ(again->disc, (folder / "a cd #1.cue").string());
    EXPECT_EQ(again->number, 3);
}

TEST_F(DiscImages, TheLastOfSeveralCallsGetsTheAnswer) {
    std::string answers;
    const auto look = [&](const char* name, const std::string& asker) {
        discs.Look((folder / name).string(),
                   [&answers, asker](const Disc& disc) { answers += asker + (disc.tracks.empty() ? "- " : "+ "); });
    };
    look("film", "first");
    look("film", "second");
    look("a cd #1.cue", "third");
    look("a cd #1.cue", "fourth");
    loop.Wait(5s);
    EXPECT_EQ(answers, "fourth+ ");
    EXPECT_EQ(Look("film").kind, DiscKind::video);
}

TEST_F(DiscImages, PlayTrackByTrackFromTheirVeryBeginning) {
    contract::RequireSound();
    const Disc disc = Look("a cd #1.cue");
    ASSERT_EQ(disc.tracks.size(), 3U);
    MediaControl media{loop};
    bool ended = false;
    media.onEnded = [&] { ended = true; };
    const std::string address = disc.tracks[1].Address();
    contract::TellLength(media, address, seconds);
    for (const int from : {0, 1}) {
        ended = false;
        media.Open(address);
        media.SetPosition(from);
        const Milliseconds begin = loop.Monotonic();
        media.Play();
        for (int i = 0; i < 1000 && !ended; ++i) {
            loop.Wait(Milliseconds{10});
            EXPECT_EQ(media.Title(), "Track 2");
        }
        ASSERT_TRUE(ended);
        EXPECT_NEAR(media.Duration(), seconds, 0.1);
        const double played = std::chrono::duration<double>(loop.Monotonic() - begin).count();
        // The end is told a moment before it is heard.
        EXPECT_GT(played, seconds - from - 0.2);
        EXPECT_LT(played, seconds - from + 0.8);
    }
}

}  // namespace
}  // namespace zvr
