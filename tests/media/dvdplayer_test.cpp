#include "media/dvdplayer.h"

#include "platform/headless/discs.h"
#include "platform/headless/dvdcontrol.h"
#include "playerbench.h"

namespace zvr {
namespace {

using std::chrono_literals::operator""s;

class DvdForm : public PlayerBench {
protected:
    void Visit(const std::string& settings = "DRIVELETTER=d:\n") {
        bench.folder.Write("devices.ini", "[drives]\nd=" + bench.folder.path + "/film\n");
        Music({"a.mp3", "b.mp3"});
        Open("[dvdplayer]\n" + settings);
        Do("dvdplayer.show");
    }
    [[nodiscard]] DvdControl::State& Disc() { return *bench.platform.dvd.state; }
    [[nodiscard]] DvdPlayer& Form() { return bench.program->dvdplayer; }
};

TEST_F(DvdForm, WithoutADriveItSaysSoAndChangesNothing) {
    Visit("");
    Do("mediaplayer.show");
    Choose("a.mp3");
    Do("dvdplayer.play");
    EXPECT_THAT(bench.messages, ElementsAre(Text("DVDPLAYER_NODRIVESELECTED")));
    EXPECT_EQ(Wmp().CurrentState(), PlayState::playing);
    EXPECT_THAT(Disc().asked, IsEmpty());
}

TEST_F(DvdForm, TheQueueWaitsStoppedAtItsPlaceWhileTheDiscPlays) {
    Visit();
    Do("mediaplayer.show");
    Choose("b.mp3");
    bench.Advance(10s);
    Do("dvdplayer.play");
    bench.Advance(1s);
    EXPECT_EQ(Disc().path, bench.folder.path + "/film");
    EXPECT_EQ(Queue().size(), 2U);
    EXPECT_EQ(Playing(), InMusic("b.mp3"));
    EXPECT_NEAR(Wmp().CurrentPosition(), 10, 1);
    EXPECT_NE(Wmp().CurrentState(), PlayState::playing);
    Wmp().NewPlaylist();
    Do("dvdplayer.play");  // it runs: this is about its speed alone
    EXPECT_EQ(Wmp().Count(), 0);
    EXPECT_THAT(Disc().asked, ElementsAre("play", "play"));
    Do("mediaplayer.play");
    EXPECT_EQ(bench.platform.dvd.PlayState(), DvdState::paused) << "the two don't sound at once";
    Do("dvdplayer.play");
    Choose("b.mp3");
    EXPECT_EQ(bench.platform.dvd.PlayState(), DvdState::paused) << "nor where a song is chosen";
    Do("dvdplayer.play");
    Player().PlayAlone(InMusic("b.mp3"));
    EXPECT_EQ(bench.platform.dvd.PlayState(), DvdState::paused) << "or found";
}

TEST_F(DvdForm, ADiscThatIsNotThereLeavesTheQueue) {
    Visit();
    Do("mediaplayer.show");
    Choose("a.mp3");
    Disc().error = "no medium";
    Do("dvdplayer.play");
    EXPECT_THAT(bench.messages, ElementsAre("no medium"));
    EXPECT_EQ(Queue().size(), 2U);
    Disc().error.clear();
    Do("dvdplayer.play");
    EXPECT_EQ(bench.platform.dvd.PlayState(), DvdState::running);
}

TEST_F(DvdForm, FullscreenIsForARunningDiscAndEjectingWhereItIsAllowed) {
    Visit();
    const Rect place = Form().dvd->Place();
    Form().ToggleFullscreen(false);
    EXPECT_EQ(Form().dvd->Place(), place);
    Do("dvdplayer.play");
    Form().ToggleFullscreen(false);
    EXPECT_EQ(Form().dvd->Place(), (Rect{0, 0, 800, 600}));
    const Rect mark = Form().dvdclickcatcher->Place();
    EXPECT_EQ(mark.x + mark.width, 800);
    Disc().asked.clear();
    Do("dvdplayer.zoomin");
    Do("dvdplayer.zoomout");
    EXPECT_THAT(Disc().asked, ElementsAre("zoom in", "zoom out"));
    Do("dvdplayer.pause");
    EXPECT_EQ(bench.platform.dvd.PlayState(), DvdState::paused);
    Do("dvdplayer.menu");
    EXPECT_EQ(bench.platform.dvd.PlayState(), DvdState::running);
    Do("dvdplayer.stop");
    Form().ToggleFullscreen(false);
    EXPECT_EQ(Form().dvd->Place(), place);
    bench.Tap(bench.MiddleOf(*Form().dvd));
    EXPECT_EQ(Disc().asked.back(), "touch");
    Do("dvdplayer.eject");
    Form().ejectIsAllowed = false;
    Do("dvdplayer.eject");
    EXPECT_THAT(bench.platform.discs.state->ejected, ElementsAre(bench.folder.path + "/film"));
}

}  // namespace
}  // namespace zvr
