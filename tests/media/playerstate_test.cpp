#include "media/playerstate.h"
#include "core/endofprogram.h"
#include "core/godfather.h"
#include "playerbench.h"
#include "system/sysvolume.h"

namespace zvr {
namespace {

class PlayerState : public PlayerBench {
protected:
    void OpenThree(const std::string& player = {}) {
        Music({"a.mp3", "b.mp3", "c.mp3"});
        Open(player, "USEWAVEVOLUMEONLY=0");
    }
    /// As the ignition does, by the orderly way.
    void EndAndRestart() {
        bench.program->UnloadRoot(true);
        bench.Restart();
        bench.Advance(Milliseconds{1500});
    }
    [[nodiscard]] std::string StateFile() { return bench.folder.ReadFile("restore.dat"); }
    void Restore(std::initializer_list<std::string> lines) {
        std::string text;
        for (const std::string& line : lines) {
            text += line + "\r\n";
        }
        bench.folder.Write("restore.dat", text);
        Player().PerformMediaplayerStateRestore();
    }
};

TEST_F(PlayerState, APlayingSongGoesOnWhereItWasAfterTheNextStart) {
    OpenThree("VOLUME=80");
    Choose("b.mp3");
    const std::vector<std::string> queue = Queue();
    Wmp().SetCurrentPosition(30);
    EndAndRestart();
    EXPECT_EQ(Queue(), queue);
    EXPECT_EQ(Playing(), InMusic("b.mp3"));
    EXPECT_EQ(Wmp().CurrentState(), PlayState::playing);
    EXPECT_NEAR(Wmp().CurrentPosition(), 31, 2);
    EXPECT_FALSE(Wmp().Mute());
    EXPECT_FALSE(bench.folder.Has("restore.dat")) << "used up";
    EXPECT_GT(Volume().fadeInVolume, 0) << "it fades in to the volume of before";
    EXPECT_LT(Wmp().Volume(), 80);
    bench.Advance(Milliseconds{9000});
    EXPECT_EQ(Wmp().Volume(), 80);
}

TEST_F(PlayerState, NothingIsHeardWhileItIsRestored) {
    OpenThree();
    bool heard = false;
    for (int i = 0; i < 1000; i += 50) {
        bench.loop.At(Milliseconds{i}, [this, &heard] { heard = heard || (!media.muted && media.volume > 0); });
    }
    Restore({InMusic("a.mp3"), "10", "1", InMusic("a.mp3")});
    EXPECT_FALSE(heard);
    EXPECT_FALSE(media.muted);
}

TEST_F(PlayerState, OddStatesOfTheFile) {
    OpenThree();
    const std::string a = InMusic("a.mp3");
    const std::string b = InMusic("b.mp3");
    Restore({b, "999", "1", a, b});
    EXPECT_EQ(Playing(), b);
    EXPECT_DOUBLE_EQ(Wmp().CurrentPosition(), 0) << "beyond the end: from the beginning";
    Restore({a, "5", "1", a, b, a});
    EXPECT_EQ(Wmp().CurrentItem(), 2) << "of equal items the last";
    Restore({"", "", "", b, a});
    EXPECT_EQ(Wmp().CurrentItem(), 0) << "without a current item the first";
    Restore({b, "5", "1", "", a, "", b, ""});
    EXPECT_THAT(Queue(), ElementsAre(a, b));
    EXPECT_FALSE(bench.folder.Has("restore.dat"));
}

TEST_F(PlayerState, AMissingFileLeavesTheQueueStoppedAndTheStateForTheNextStart) {
    OpenThree();
    const std::string gone = "/no/such/stick/x.mp3";
    Restore({gone, "5", "3", InMusic("a.mp3"), gone});
    EXPECT_THAT(Queue(), ElementsAre(InMusic("a.mp3"), gone));
    EXPECT_EQ(Wmp().CurrentState(), PlayState::undefined);
    EXPECT_TRUE(bench.folder.Has("restore.dat"));
    Restore({"a", "b"});
    EXPECT_EQ(StateFile(), "a\r\nb\r\n") << "too short to be one";
}

TEST_F(PlayerState, AnItemThatIsBrokenByNowOrShorterThanTheOpeningBringsOnNoOther) {
    OpenThree();
    const std::string a = InMusic("a.mp3");
    const std::string b = InMusic("b.mp3");
    media.broken = {a};
    media.durations[b] = 0.5;
    for (const std::string& current : {a, b}) {
        Restore({current, "0", "2", a, b, InMusic("c.mp3")});
        EXPECT_EQ(Playing(), current);
        EXPECT_EQ(Wmp().CurrentState(), PlayState::stopped);
        EXPECT_FALSE(bench.folder.Has("restore.dat"));
        Do("mediaplayer.play");
        bench.Advance(Milliseconds{1500});
        EXPECT_EQ(Playing(), InMusic("c.mp3")) << "from here on the queue goes on as ever";
        Do("mediaplayer.stop");
    }
}

TEST_F(PlayerState, AChoiceDuringTheRestoreWins) {
    OpenThree();
    for (const char* chosen : {"a.mp3", "b.mp3"}) {  // the second stands where the restored one does
        bench.loop.At(Milliseconds{500}, [&] { Choose(chosen); });
        Restore({InMusic("b.mp3"), "5", "2", InMusic("a.mp3"), InMusic("b.mp3")});
        EXPECT_EQ(Playing(), InMusic(chosen));
        EXPECT_EQ(Wmp().CurrentState(), PlayState::playing);
        EXPECT_LT(Wmp().CurrentPosition(), 2);
        EXPECT_FALSE(Wmp().Mute());
    }
}

TEST_F(PlayerState, AnEndInTheMiddleOfAFadePutsTheVolumeWhereItWasGoing) {
    OpenThree();
    for (const bool waveOnly : {false, true}) {
        bench.program->sysvolume.useWaveVolumeOnly = waveOnly;
        Volume().fadeInVolume = 0;
        Volume().Set(80);
        Do("mediaplayer.show");
        Choose("a.mp3");
        EndAndRestart();
        for (int i = 0; i < 3; ++i) {
            bench.Advance(Milliseconds{100});
            ASSERT_LT(Volume().Percent(), 75);
            EndAndRestart();
        }
        EXPECT_EQ(Volume().fadeInVolume, 80) << waveOnly;
        bench.Advance(Milliseconds{9000});
        EXPECT_EQ(Volume().Percent(), 80) << waveOnly;
    }
}

TEST_F(PlayerState, AnEndOrAPowerCutWhileItIsRestoredKeepsThePlace) {
    OpenThree();
    media.defaultDuration = 900;
    Choose("b.mp3");
    Wmp().SetCurrentPosition(600);
    bench.program->UnloadRoot(true);
    const std::string state = StateFile();
    for (const bool orderly : {true, false}) {
        bench.loop.At(Milliseconds{1500}, [&] {
            ASSERT_TRUE(Wmp().Mute()) << "in the silent second";
            if (orderly) {
                bench.program->UnloadRoot(true);
            }
            EXPECT_EQ(StateFile(), state) << orderly;
        });
        bench.Restart();
    }
    ASSERT_NEAR(Wmp().CurrentPosition(), 600, 3);
    // The same while a disc gives the queue back.
    Player().PerformMediaplayerStateSaveToMemory();
    bench.loop.At(Milliseconds{500}, [this] { bench.program->UnloadRoot(true); });
    Player().PerformMediaplayerStateRestoreFromMemory();
    EXPECT_EQ(StateLines(StateFile())[1], StateLines(state)[1]);
}

}  // namespace
}  // namespace zvr
