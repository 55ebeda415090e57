#include "core/journal.h"
#include "core/godfather.h"
#include "media/dvdplayer.h"
#include "media/playerbench.h"
#include "media/playerstate.h"
#include "system/sysvolume.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <thread>

namespace zvr {
namespace {

const JournalContent withQueue{"[a]\nB=1\n", 5, 40, "x\r\n3\r\n2\r\n", "x\r\ny\r\n"};

JournalContent Moved(JournalContent content, const std::string& settings) {
    content.current = "y\r\n70\r\n3\r\n";
    content.settingsFile = 9;
    content.fadeInVolume = 30;
    content.settings = settings;
    return content;
}

void ExpectSame(const std::optional<JournalContent>& parsed, const JournalContent& content) {
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->settings, content.settings);
    EXPECT_EQ(parsed->settingsFile, content.settingsFile);
    EXPECT_EQ(parsed->fadeInVolume, content.fadeInVolume);
    EXPECT_EQ(parsed->current, content.current);
    EXPECT_EQ(parsed->items, content.items);
}

TEST(JournalText, HoldsAllPartsAndNothingLess) {
    for (const JournalContent& content :
         {withQueue, JournalContent{"", 0, 0, "", ""}, JournalContent{"7\n", 1, 100, "", std::nullopt}}) {
        const std::string text = JournalText(content);
        ExpectSame(ParseJournal(text, ""), content);
        EXPECT_FALSE(ParseJournal(text + "x", ""));
    }
    const std::string whole = JournalText(withQueue);
    const std::size_t settingsAlone = JournalText({withQueue.settings, 5, 40, "", std::nullopt}).size();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(ParseJournal(whole.substr(0, length), "").has_value(), length == settingsAlone) << length;
    }
    EXPECT_FALSE(ParseJournal("zVR journal 2\n1\n51\n0599999999999999999999999\nx", ""));
    EXPECT_FALSE(ParseJournal("zVR journal 2\n1\n5-1\nx", ""));
}

TEST(JournalText, AnUpdateCountsForItsOwnJournalAlone) {
    const std::string journal = JournalText(withQueue);
    for (const char* settings : {"[a]\nB=1\n", "[a]\nB=2\n"}) {
        const JournalContent now = Moved(withQueue, settings);
        const std::string update = JournalUpdateText(Fingerprint(journal), withQueue, now);
        EXPECT_EQ(update.find(settings) != update.npos, now.settings != withQueue.settings);
        ExpectSame(ParseJournal(journal, update), now);
        JournalContent other = withQueue;
        *other.items += "z\r\n";
        ExpectSame(ParseJournal(JournalText(other), update), other);
        ExpectSame(ParseJournal(journal, update.substr(0, update.size() - 1)), withQueue);
        EXPECT_FALSE(ParseJournal(update, update));
    }
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
        for (int i = 0; i < 1000 && !bench.program->journal.IsIdle(); ++i) {
            std::this_thread::sleep_for(Milliseconds{5});  // for the disk
            bench.Advance(Milliseconds{10});
        }
        return ParseJournal(bench.folder.ReadFile("journal.dat"), bench.folder.ReadFile("journal-update.dat"));
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

TEST_F(JournalOfARun, WhatTheDriverDoesIsOnDiskAtOnce) {
    OpenThree();
    media.defaultDuration = 200;
    Choose("b.mp3");
    const auto line = [this](std::size_t number) {
        const auto content = OnDisk();
        return content && content->items ? StateLines(content->current)[number] : "";
    };
    EXPECT_EQ(line(0), InMusic("b.mp3"));
    EXPECT_EQ(line(2), "3");
    Do("mediaplayer.pause");
    EXPECT_EQ(line(2), "2");
    EXPECT_EQ(OnDisk()->fadeInVolume, 100) << "where it climbs to once it plays on";
    Do("mediaplayer.play");
    EXPECT_EQ(line(2), "3");
    Player().picPosition->events.onDown({200, 5});
    EXPECT_EQ(line(1), "100") << "a press on the position";
    Do("mediaplayer.ffwd");
    bench.Advance(Milliseconds{4500});
    ASSERT_EQ(Player().currentSkipMode, 1);
    EXPECT_EQ(line(1), "100") << "a skip is not at its end yet";
    bench.Advance(Milliseconds{900});
    ASSERT_EQ(Player().currentSkipMode, 0);
    EXPECT_EQ(line(1), "199") << "the end of a skip";
    bench.program->dvdplayer.driveLetter = "d:";
    Do("dvdplayer.play");
    EXPECT_EQ(line(2) + line(0), "1" + InMusic("b.mp3")) << "a cut during a film is no reason to begin with the song";
    Do("mediaplayer.play");
    Do("mediaplayer.stop");
    EXPECT_EQ(line(2), "1");
    Do("mediaplayer.next");
    bench.Advance(Milliseconds{1});
    EXPECT_EQ(line(0), Playing());
}

TEST_F(JournalOfARun, WhatComesDuringASlowWriteFollowsHalfASecondLater) {
    OpenThree();
    ASSERT_TRUE(OnDisk());
    // A writer waits for the lock of the new file.
    const std::string file = bench.folder.Write(".journal.dat.new", "");
    const int lock = open(file.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    Choose("b.mp3");
    Do("mediaplayer.pause");
    close(lock);
    const auto wish = [this] {
        bench.program->journal.Flush();
        const auto content =
            ParseJournal(bench.folder.ReadFile("journal.dat"), bench.folder.ReadFile("journal-update.dat"));
        return content && content->items ? StateLines(content->current)[2] : "";
    };
    EXPECT_EQ(wish(), "3");
    bench.Advance(Milliseconds{400});
    EXPECT_EQ(wish(), "3");
    bench.Advance(Milliseconds{100});
    EXPECT_EQ(wish(), "2");
    EXPECT_TRUE(bench.program->journal.IsIdle());
}

TEST_F(JournalOfARun, WhatAFullCardRefusedIsWrittenWithTheNext) {
    OpenThree();
    ASSERT_TRUE(OnDisk());
    const std::string inTheWay = bench.folder.path + "/.journal.dat.new";
    std::filesystem::create_directory(inTheWay);
    Choose("b.mp3");
    ASSERT_TRUE(OnDisk());
    std::filesystem::remove(inTheWay);
    Wmp().SetVolume(60);
    Do("mediaplayer.pause");
    EXPECT_EQ(StateLines(OnDisk()->current)[2], "2");
    Do("mediaplayer.play");
    ASSERT_TRUE(OnDisk());
    CutPower();
    EXPECT_EQ(Volume().fadeInVolume, 60) << "in silence, on the way up";
}

TEST_F(JournalOfARun, AnOrderlyEndLeavesNone) {
    OpenThree();
    Choose("b.mp3");
    EXPECT_TRUE(OnDisk());
    bench.program->UnloadRoot(true);
    EXPECT_FALSE(bench.folder.Has("journal.dat"));
    EXPECT_FALSE(bench.folder.Has("journal-update.dat"));
    EXPECT_TRUE(bench.folder.Has("restore.dat"));
    bench.Restart();
    bench.Advance(Milliseconds{1500});
    bench.program->godfather.saveMediaplayerState = false;
    bench.program->UnloadRoot(true);
    EXPECT_FALSE(bench.folder.Has("restore.dat")) << "as the settings say";
}

TEST_F(JournalOfARun, ALongQueueIsWrittenOnce) {
    constexpr int items = 1000;
    for (int i = 0; i < items; ++i) {
        bench.folder.Write("music/" + std::to_string(i) + " - A Name of Usual Length.mp3", "");
    }
    Open();
    Choose("7 - A Name of Usual Length.mp3");
    ASSERT_TRUE(OnDisk());
    const std::uint64_t before = bench.program->journal.bytesWritten;
    for (int i = 0; i < 60; ++i) {
        bench.Advance(Milliseconds{10'000});
        ASSERT_TRUE(OnDisk());
    }
    EXPECT_GE(bench.program->journal.filesWritten, 60U);
    EXPECT_LT(bench.program->journal.bytesWritten - before, 20'000U);
    Do("mediaplayer.pause");
    ASSERT_TRUE(OnDisk());
    const std::uint64_t files = bench.program->journal.filesWritten;
    bench.Advance(Milliseconds{20'000});
    EXPECT_EQ(bench.program->journal.filesWritten, files) << "nothing is new";
}

TEST_F(JournalOfARun, ACutBetweenItsTwoFilesMixesNoQueues) {
    OpenThree();
    Choose("b.mp3");
    ASSERT_TRUE(OnDisk());
    bench.Advance(Milliseconds{10'500});
    ASSERT_TRUE(OnDisk());
    const std::string update = bench.folder.ReadFile("journal-update.dat");
    ASSERT_NE(update, "");
    Wmp().NewPlaylist();
    Wmp().AppendItem(InMusic("c.mp3"));
    bench.Advance(Milliseconds{10'500});
    ASSERT_EQ(OnDisk()->items, InMusic("c.mp3") + "\r\n");
    bench.folder.Write("journal-update.dat", update);
    CutPower();
    EXPECT_THAT(Queue(), testing::ElementsAre(InMusic("c.mp3")));
    EXPECT_EQ(Wmp().CurrentPosition(), 0);
}

TEST_F(JournalOfARun, AStartUsesItUp) {
    bench.folder.Write("journal.dat",
                       JournalText({"[mediaplayer]\nVOLSTEPPING=7\n", Fingerprint(bench.settings), 0, "st", "ate"}));
    bench.arguments = {"-config"};  // shows the options alone, so no new journal follows
    std::filesystem::create_directory(bench.folder.path + "/restore.dat");
    bench.Start();
    EXPECT_TRUE(bench.folder.Has("journal.dat")) << "what can't be written yet is not lost";
    std::filesystem::remove(bench.folder.path + "/restore.dat");
    bench.folder.Write("restore.dat", "older");
    bench.Restart();
    EXPECT_FALSE(bench.folder.Has("journal.dat"));
    EXPECT_EQ(bench.folder.ReadFile("restore.dat"), "state");
    EXPECT_EQ(bench.program->sysvolume.volStepping, 7);
}

TEST_F(JournalOfARun, AnEditOfTheSettingsAfterTheCutStands) {
    OpenThree("SHOWCOVERS=0\n");
    Choose("b.mp3");
    Player().dispRemain = true;
    ASSERT_TRUE(OnDisk());
    bench.folder.Write("zvr.ini", bench.settings + "[mediaplayer]\nVOLSTEPPING=7\n");
    CutPower();
    EXPECT_EQ(bench.program->sysvolume.volStepping, 7);
    EXPECT_FALSE(Player().dispRemain);
    EXPECT_EQ(Playing(), InMusic("b.mp3")) << "the queue is no part of the settings";

    Player().dispRemain = true;
    bench.Advance(Milliseconds{10'500});
    ASSERT_TRUE(OnDisk());
    CutPower();
    EXPECT_TRUE(Player().dispRemain) << "an edit that the run before knew counts as its own";
}

TEST_F(JournalOfARun, SettingsThatWereThrownAwayStayAway) {
    OpenThree();
    bench.program->sysvolume.volStepping = 7;
    bench.Advance(Milliseconds{10'500});
    ASSERT_TRUE(OnDisk());
    ASSERT_EQ(files::Remove(bench.folder.path + "/zvr.ini"), "");
    bench.settings.clear();
    CutPower();
    EXPECT_EQ(bench.program->sysvolume.volStepping, 10);
}

}  // namespace
}  // namespace zvr
