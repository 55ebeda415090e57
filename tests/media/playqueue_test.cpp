#include "media/playqueue.h"

#include "platform/headless/eventloop.h"
#include "platform/headless/mediacontrol.h"
#include "support/bench.h"

#include <filesystem>
#include <numeric>
#include <set>

namespace zvr {
namespace {

using std::chrono_literals::operator""ms;

/// A queue over a player that plays nothing, in virtual time. Items last 60 seconds and open in 40 ms.
class Queue : public testing::Test {
protected:
    void Fill(int count) {
        for (int i = 0; i < count; ++i) {
            wmp.AppendItem("/music/" + std::to_string(i) + ".mp3");
        }
    }
    void Advance(Milliseconds duration) { loop.state->Advance(duration); }
    /// Plays what plays to its end, and a little of what follows.
    int AfterThisItem() {
        Advance(60'050ms);
        return wmp.CurrentItem();
    }

    /// This item and those that so many steps lead to.
    std::set<int> ItemsOf(int steps) {
        std::set<int> items{wmp.CurrentItem()};
        for (int i = 0; i < steps; ++i) {
            wmp.Next();
            items.insert(wmp.CurrentItem());
        }
        return items;
    }

    EventLoop loop;
    MediaControl media{loop};
    PlayQueue wmp{loop, media, 7};
    MediaControl::State& player = *media.state;
};

TEST_F(Queue, StepsWhilePlayingPausedAndStopped) {
    Fill(3);
    wmp.Play();
    wmp.Next();
    Advance(100ms);
    EXPECT_EQ(wmp.CurrentItem(), 1);
    EXPECT_EQ(media.CurrentState(), PlayState::playing);
    wmp.Previous();
    wmp.Previous();
    EXPECT_EQ(wmp.CurrentItem(), 2);

    wmp.Pause();
    wmp.Next();
    Advance(100ms);
    EXPECT_EQ(wmp.CurrentState(), PlayState::playing);
    EXPECT_EQ(media.CurrentState(), PlayState::playing);

    wmp.Stop();
    wmp.Next();
    Advance(100ms);
    EXPECT_EQ(wmp.CurrentItem(), 1);
    EXPECT_EQ(wmp.CurrentState(), PlayState::stopped);
    EXPECT_EQ(media.CurrentState(), PlayState::stopped);
    wmp.NewPlaylist();
    Fill(3);
    wmp.Previous();
    EXPECT_EQ(wmp.CurrentItem(), 2);
}

TEST_F(Queue, ShowsTitleAndTimesOfTheItem) {
    player.titles["/music/1.mp3"] = "Second song";
    player.durations["/music/1.mp3"] = 3754;
    Fill(2);
    EXPECT_EQ(wmp.Item(1).name, "1");
    EXPECT_EQ(wmp.Item(1).DurationString(), "00:00");
    wmp.SetCurrentItem(1);
    EXPECT_EQ(wmp.CurrentMedia()->sourceURL, "/music/1.mp3");
    Advance(10ms);
    EXPECT_EQ(wmp.CurrentMedia()->name, "Second song");
    EXPECT_EQ(wmp.CurrentMedia()->DurationString(), "1:02:34");
    EXPECT_EQ(wmp.CurrentPositionString(), "");
    wmp.Play();
    Advance(100ms);
    EXPECT_EQ(wmp.CurrentPositionString(), "00:00");
    wmp.SetCurrentPosition(3599.9);
    EXPECT_EQ(wmp.CurrentPositionString(), "59:59");
    wmp.SetCurrentPosition(9999);
    EXPECT_EQ(wmp.CurrentPositionString(), "1:02:34");
    wmp.SetCurrentPosition(-1);
    EXPECT_EQ(wmp.CurrentPosition(), 0);
    EXPECT_EQ(wmp.CurrentPositionString(), "00:00");
}

TEST_F(Queue, PassesOverWhatCannotBePlayedInTheDirectionOfTheStep) {
    Fill(5);
    player.broken = {"/music/1.mp3", "/music/2.mp3"};
    wmp.Play();
    Advance(100ms);
    wmp.Next();
    Advance(200ms);
    EXPECT_EQ(wmp.CurrentItem(), 3);
    wmp.Previous();
    Advance(200ms);
    EXPECT_EQ(wmp.CurrentItem(), 0);
    EXPECT_EQ(media.CurrentState(), PlayState::playing);
    Advance(60'300ms);
    EXPECT_EQ(wmp.CurrentItem(), 3) << "an end is followed by what comes next";
    wmp.SetCurrentItem(2);
    Advance(100ms);
    EXPECT_EQ(wmp.CurrentItem(), 3);
}

TEST_F(Queue, WaitsForAStickThatWasPulledAndGoesOnWhereItWas) {
    const TemporaryFolder place;
    const std::string stick = place.path + "/stick";
    int told = -1;
    wmp.onMediaChange = [&] { told = wmp.CurrentItem(); };
    for (const bool shuffled : {false, true}) {
        for (const int count : {3, 20'000}) {
            place.Write("stick/1.mp3", "");
            wmp.NewPlaylist();
            wmp.SetMode("shuffle", shuffled);
            for (int i = 0; i < count; ++i) {
                wmp.AppendItem(stick + "/" + std::to_string(i) + ".mp3");
            }
            wmp.SetCurrentItem(1);
            wmp.Play();
            Advance(20'040ms);
            std::filesystem::remove_all(stick);
            player.opened.clear();
            player.Pull();
            for (int tries = 1; tries <= 2; ++tries) {  // the second one of a driver who sees no stick yet
                Advance(10'000ms);
                EXPECT_LE(player.opened.size(), 5U * tries);
                EXPECT_EQ(wmp.CurrentState(), PlayState::stopped);
                EXPECT_EQ(wmp.CurrentItem(), 1);
                EXPECT_EQ(told, 1);
                EXPECT_NEAR(wmp.CurrentPosition(), 20, 0.1);
                wmp.Play();
            }
            Advance(10'000ms);
            place.Write("stick/1.mp3", "");
            player.everythingBroken = false;
            wmp.Play();
            Advance(1040ms);
            EXPECT_EQ(wmp.CurrentItem(), 1);
            EXPECT_EQ(media.CurrentState(), PlayState::playing);
            EXPECT_NEAR(wmp.CurrentPosition(), 21, 0.1);
            const int played = wmp.CurrentItem();
            wmp.Next();
            EXPECT_NE(wmp.CurrentItem(), played);
            EXPECT_EQ(wmp.CurrentPosition(), 0);
        }
    }
}

TEST_F(Queue, TellsBrokenItemsFromThoseThatAreGone) {
    const TemporaryFolder place;
    for (int i = 0; i < 8; ++i) {
        wmp.AppendItem((i % 4 == 3 ? place.path : "/gone") + "/" + std::to_string(i) + ".mp3");
        player.broken.insert(wmp.Item(i).sourceURL);
    }
    wmp.AppendItem("/gone/but/playable.mp3");
    wmp.Play();
    Advance(1000ms);
    EXPECT_EQ(wmp.CurrentItem(), 8) << "one folder is there: each item gets its turn";
    EXPECT_EQ(media.CurrentState(), PlayState::playing);
    wmp.Stop();
    EXPECT_EQ(wmp.CurrentPosition(), 0);
}

TEST_F(Queue, ShufflesWithoutRepeatsRoundAfterRound) {
    Fill(40);
    wmp.SetCurrentItem(0);
    wmp.SetMode("shuffle", true);
    EXPECT_TRUE(wmp.GetMode("shuffle"));
    wmp.Play();
    std::vector<int> played{0};
    for (int i = 1; i < 3 * 40; ++i) {
        played.push_back(AfterThisItem());
    }
    for (int round = 0; round < 3; ++round) {
        const std::set<int> different(played.begin() + 40 * round, played.begin() + 40 * (round + 1));
        EXPECT_EQ(different.size(), 40U) << "round " << round;
    }
    EXPECT_NE(played[39], played[40]);
    EXPECT_NE(played[79], played[80]);
    int inOrder = 0;
    for (std::size_t i = 1; i < played.size(); ++i) {
        inOrder += played[i] == (played[i - 1] + 1) % 40 ? 1 : 0;
    }
    EXPECT_LT(inOrder, 15);

    for (std::size_t i = played.size() - 1; i-- > 85;) {
        wmp.Previous();
        EXPECT_EQ(wmp.CurrentItem(), played[i]);
    }
    wmp.Next();
    EXPECT_EQ(wmp.CurrentItem(), played[86]);
}

TEST_F(Queue, AdmitsItemsThatComeLaterIntoTheShuffle) {
    Fill(3);
    wmp.SetMode("shuffle", true);
    wmp.Play();
    Fill(5);
    EXPECT_EQ(ItemsOf(7).size(), 8U);
    wmp.SetMode("shuffle", false);
    EXPECT_FALSE(wmp.GetMode("shuffle") || wmp.GetMode("loop"));
    const int here = wmp.CurrentItem();
    wmp.Next();
    EXPECT_EQ(wmp.CurrentItem(), (here + 1) % 8);
    wmp.SetMode("shuffle", true);
    EXPECT_EQ(ItemsOf(7).size(), 8U) << "a new round";
}

TEST_F(Queue, GoesBackBeforeTheBeginningOfAShuffle) {
    Fill(4);
    wmp.SetMode("shuffle", true);
    wmp.SetCurrentItem(2);
    wmp.Play();
    wmp.Previous();
    const int before = wmp.CurrentItem();
    EXPECT_NE(before, 2);
    wmp.Next();
    EXPECT_EQ(wmp.CurrentItem(), 2);
    std::set<int> round = ItemsOf(2);
    round.insert(before);
    EXPECT_EQ(round.size(), 4U);
}

TEST(QueueEnds, WithANoticeUnderWay) {
    EventLoop loop;
    MediaControl media(loop);
    int notices = 0;
    {
        PlayQueue wmp(loop, media, 1);
        wmp.onMediaChange = [&] { ++notices; };
        wmp.AppendItem("/music/a.mp3");
        wmp.Play();
    }
    loop.state->Advance(100'000ms);
    EXPECT_EQ(notices, 0);
}

}  // namespace
}  // namespace zvr
