#include "media/journal.h"

#include "media/playerstate.h"
#include "playerbench.h"

#include <thread>

namespace zvr {
namespace {

TEST(JournalText, HoldsBothPartsAndNothingLess) {
    for (const JournalContent& content :
         {JournalContent{"[a]\nB=1\n", "x\r\n3\r\n"}, JournalContent{"", ""}, JournalContent{"7\n", std::nullopt}}) {
        const std::string text = JournalText(content);
        const auto parsed = ParseJournal(text);
        ASSERT_TRUE(parsed) << text;
        EXPECT_EQ(parsed->settings, content.settings);
        EXPECT_EQ(parsed->playerState, content.playerState);
        EXPECT_FALSE(ParseJournal(text + "x"));
    }
    const std::string whole = JournalText({"[a]\nB=1\n", "x\r\n3\r\n"});
    const std::size_t secondPart = JournalText({"[a]\nB=1\n", std::nullopt}).size();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(ParseJournal(whole.substr(0, length)).has_value(), length == secondPart) << length;
    }
    EXPECT_FALSE(ParseJournal("zVR journal 1\n99999999999999999999999\nx"));
    EXPECT_FALSE(ParseJournal("zVR journal 1\n-1\nx"));
}

class JournalOfARun : public PlayerBench {
protected:
    void OpenThree(const std::string& general = {}) {
        Music({"a.mp3", "b.mp3", "c.mp3"});
        Open({}, "USEWAVEVOLUMEONLY=0\n" + general);
    }
    /// The power goes, and comes back.
    void CutPower() {
        bench.Restart();
        bench.Advance(Milliseconds{1500});
    }
    /// The journal of this moment; waits for what is on its way to it.
    [[nodiscard]] std::optional<JournalContent> OnDisk() {
        for (int i = 0; i < 1000 && !Player().journal.IsIdle(); ++i) {
            std::this_thread::sleep_for(Milliseconds{5});  // for the disk
            bench.Advance(Milliseconds{10});
        }
        return ParseJournal(bench.folder.ReadFile("journal.dat"));
    }
};

TEST_F(JournalOfARun, APowerCutCostsAtMostTenSeconds) {
    OpenThree();
    Choose("b.mp3");
    Wmp().SetCurrentPosition(20);
    Player().dispRemain = true;
    bench.Advance(Milliseconds{10'500});
    ASSERT_TRUE(OnDisk());
    CutPower();
    EXPECT_EQ(Playing(), InMusic("b.mp3"));
    EXPECT_EQ(Wmp().CurrentState(), PlayState::playing);
    EXPECT_NEAR(Wmp().CurrentPosition(), 30, 10);
    EXPECT_GE(Wmp().CurrentPosition(), 20);
    EXPECT_TRUE(Player().dispRemain) << "the settings too are those of the cut";
    EXPECT_FALSE(bench.folder.Has("restore.dat"));
}

TEST_F(JournalOfARun, ChangeOfItemPauseAndStopAreOnDiskAtOnce) {
    OpenThree();
    Choose("b.mp3");
    const auto line = [this](std::size_t number) {
        const auto content = OnDisk();
        return content && content->playerState ? StateLines(*content->playerState)[number] : "";
    };
    EXPECT_EQ(line(0), InMusic("b.mp3"));
    EXPECT_EQ(line(2), "3");
    Do("mediaplayer.pause");
    EXPECT_EQ(line(2), "2");
    Do("mediaplayer.play");
    Do("mediaplayer.stop");
    EXPECT_EQ(line(2), "1");
    Do("mediaplayer.next");
    bench.Advance(Milliseconds{1});
    EXPECT_EQ(line(0), Playing());
}

TEST_F(JournalOfARun, NothingIsWrittenWhileNothingChanges) {
    OpenThree();
    Choose("b.mp3");
    Do("mediaplayer.stop");
    ASSERT_TRUE(OnDisk());
    bench.Advance(Milliseconds{11'000});
    ASSERT_TRUE(OnDisk());
    const std::uint64_t before = Player().journal.bytesWritten;
    bench.Advance(Milliseconds{600'000});
    EXPECT_EQ(Player().journal.bytesWritten, before);
}

TEST_F(JournalOfARun, AnOrderlyEndLeavesNone) {
    OpenThree();
    Choose("b.mp3");
    EXPECT_TRUE(OnDisk());
    bench.program->UnloadRoot(true);
    EXPECT_FALSE(bench.folder.Has("journal.dat"));
    EXPECT_TRUE(bench.folder.Has("restore.dat"));
}

TEST_F(JournalOfARun, WithoutTheSettingOnlyTheSettingsAreKept) {
    OpenThree("SAVEMEDIAPLAYERSTATE=0");
    Choose("b.mp3");
    const auto content = OnDisk();
    ASSERT_TRUE(content);
    EXPECT_FALSE(content->playerState);
    EXPECT_NE(content->settings.find("SAVEMEDIAPLAYERSTATE=0"), std::string::npos);
    CutPower();
    EXPECT_EQ(Wmp().Count(), 0);
}

TEST_F(JournalOfARun, AnEmptyQueueLeavesTheLastStateForTheNextStart) {
    OpenThree();
    bench.folder.Write("restore.dat", "\r\n\r\n\r\n" + InMusic("c.mp3") + "\r\n");
    ASSERT_TRUE(OnDisk());
    CutPower();
    EXPECT_EQ(Playing(), InMusic("c.mp3"));
}

TEST_F(JournalOfARun, AStartUsesItUp) {
    bench.folder.Write("journal.dat", JournalText({"[mediaplayer]\nVOLSTEPPING=7\n", "state"}));
    bench.folder.Write("restore.dat", "older");
    bench.arguments = {"-config"};  // shows the options alone, so no new journal follows
    bench.Start();
    EXPECT_FALSE(bench.folder.Has("journal.dat"));
    EXPECT_EQ(bench.folder.ReadFile("restore.dat"), "state");
    EXPECT_EQ(bench.program->sysvolume.volStepping, 7);
}

TEST_F(JournalOfARun, ABrokenJournalIsThrownAway) {
    Music({"a.mp3"});
    bench.folder.Write("journal.dat", "zVR journal 1\n5\nab");
    Open("VOLSTEPPING=7");
    EXPECT_EQ(bench.program->sysvolume.volStepping, 7);
    EXPECT_TRUE(OnDisk());
}

}  // namespace
}  // namespace zvr
