#include "contract/sound.h"
#include "platform/discs.h"
#include "support/temporaryfolder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zvr {
namespace {

constexpr int seconds = 2;  // of a track

/// A folder with images of discs: "a cd #1.cue" of three tones, and what is no disc.
class DiscImages : public testing::Test {
protected:
    DiscImages() {
        std::string sound;
        for (int i = 0; i < 3 * seconds * 44100; ++i) {
            const auto level = static_cast<std::int16_t>(8000 * std::sin(i * 0.07));
            const char bytes[2] = {static_cast<char>(level & 255), static_cast<char>(level >> 8)};
            sound.append(bytes, 2).append(bytes, 2);
        }
        folder.Write("a cd.bin", sound);
        folder.Write("a cd #1.cue",
                     "FILE \"a cd.bin\" BINARY\r\n"
                     "  TRACK 01 AUDIO\r\n    INDEX 01 00:00:00\r\n"
                     "  TRACK 02 AUDIO\r\n    INDEX 00 00:01:50\r\n    INDEX 01 00:02:00\r\n"
                     "  TRACK 03 AUDIO\r\n    INDEX 01 00:04:00\r\n");
        folder.Write("lost.cue", "FILE gone.bin BINARY\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n");
        folder.Write("junk.iso", std::string(50000, 'x'));
        std::filesystem::create_directories(folder.path + "/film/Video_ts");
        std::filesystem::create_directories(folder.path + "/music");
    }

    Disc Look(const std::string& name) {
        std::optional<Disc> found;
        discs.Look(folder.path + "/" + name, [&](const Disc& disc) { found = disc; });
        EXPECT_FALSE(found) << "it answered before the loop had a turn";
        EXPECT_TRUE(loop.WaitUntil(name, [&] { return found.has_value(); }));
        return found.value_or(Disc{});
    }

    const TemporaryFolder folder;
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
    EXPECT_EQ(again->disc, folder.path + "/a cd #1.cue");
    EXPECT_EQ(again->number, 3);
}

TEST_F(DiscImages, TheLastOfSeveralCallsGetsTheAnswer) {
    std::string answers;
    const auto look = [&](const char* name, const std::string& asker) {
        discs.Look(folder.path + "/" + name,
                   [&answers, asker](const Disc& disc) { answers += asker + (disc.tracks.empty() ? "- " : "+ "); });
    };
    look("film", "first");
    look("film", "second");
    look("a cd #1.cue", "third");
    look("a cd #1.cue", "fourth");
    EXPECT_TRUE(loop.WaitUntil("an answer", [&answers] { return !answers.empty(); }));
    EXPECT_EQ(Look("film").kind, DiscKind::video);
    EXPECT_EQ(answers, "fourth+ ");
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
        media.Play();
        ASSERT_TRUE(loop.WaitUntil("the sound", [&media] { return media.CurrentState() == PlayState::playing; }));
        const Milliseconds begin = loop.Monotonic();
        ASSERT_TRUE(loop.WaitUntil("the end", [&ended] { return ended; }));
        EXPECT_EQ(media.Title(), "Track 2");
        EXPECT_NEAR(media.Duration(), seconds, 0.1);
        const double played = std::chrono::duration<double>(loop.Monotonic() - begin).count();
        // The end is told a moment before it is heard.
        EXPECT_GT(played, seconds - from - 0.2);
        EXPECT_LT(played, seconds - from + 0.8);
    }
}

}  // namespace
}  // namespace zvr
