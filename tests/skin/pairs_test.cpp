#include "skin/pairs.h"
#include "core/godfather.h"
#include "core/mainmenu.h"
#include "media/gallery.h"
#include "media/mediaplayer.h"
#include "platform/headless/mixer.h"
#include "skin/skin_fixture.h"
#include "system/clsvolume.h"
#include "system/sysvolume.h"

using namespace zvr;

namespace {

struct PairCase {
    const char* off;
    const char* on;
    void (*set)(Program&, bool on);  ///< as something outside of any command does
};

const PairCase pairCases[] = {
    {"mediaplayer.play", "mediaplayer.pause",
     [](Program& p, bool on) { on ? p.mediaplayer.wmp.Play() : p.mediaplayer.wmp.Stop(); }},
    {"mediaplayer.mode.shuffle", "mediaplayer.mode.repeat",
     [](Program& p, bool on) { p.mediaplayer.wmp.SetMode("shuffle", on); }},
    {"mediaplayer.volumemute", "mediaplayer.volumemute", [](Program& p, bool on) { p.mediaplayer.wmp.SetMute(on); }},
    {"app.volumemute", "app.volumemute", [](Program& p, bool on) { p.mixerLines.SetWaveInMute(on); }},
    {"mediaplayer.add2playlist", "mediaplayer.removefromplaylist",
     [](Program& p, bool on) { p.mediaplayer.showingPlaylist = on; }},
    {"gallery.slideshowon", "gallery.slideshowoff",
     [](Program& p, bool on) { on ? p.gallery.tmrSlideshow.Start() : p.gallery.tmrSlideshow.Stop(); }},
    {"app.night", "app.day", [](Program& p, bool on) { p.godfather.brightnessIsDay = !on; }},
};

/// Each pair on a spot of its own, on two screens: the one that is lit comes first in the skin.
class PairsTest : public SkinTest {
protected:
    void SetUp() override {
        for (const char* screen : {"mainmenu", "mediaplayer"}) {
            int y = 0;
            for (const PairCase& pair : pairCases) {
                bench.skin.buttons[screen].push_back({600, y, pair.on});
                bench.skin.buttons[screen].push_back({600, y, pair.off});
                y += 60;
            }
        }
        bench.Start();
        bench.program->sysvolume.useWaveVolumeOnly = false;
        bench.program->mediaplayer.wmp.AppendItem("/x/a.mp3");
        bench.skin.WriteTo(bench.folder, "again");
    }

    /// Of the pair number `i` the button that stands first in the skin lies on top, on both screens.
    bool FirstIsOnTop(std::size_t i) {
        const Point spot{605, static_cast<int>(i) * 60 + 5};
        const bool onMenu = bench.program->mainmenu.form.ControlAt(spot)->index % 2 == 1;
        EXPECT_EQ(bench.program->mediaplayer.form.ControlAt(spot)->index % 2 == 1, onMenu);
        return onMenu;
    }
};

}  // namespace

TEST_F(PairsTest, FollowWhatHappensOutsideWithTheNextTickAndStandAfterALoad) {
    for (std::size_t i = 0; i < std::size(pairCases); ++i) {
        const PairCase& pair = pairCases[i];
        EXPECT_FALSE(FirstIsOnTop(i)) << pair.off;
        pair.set(*bench.program, true);
        bench.Advance(Milliseconds{100});
        EXPECT_TRUE(FirstIsOnTop(i)) << pair.on;
    }
    bench.program->skinner.LoadSkin("again");
    for (std::size_t i = 0; i < std::size(pairCases); ++i) {
        EXPECT_TRUE(FirstIsOnTop(i)) << pairCases[i].on << " after a load";
        pairCases[i].set(*bench.program, false);
        bench.Advance(Milliseconds{100});
        EXPECT_FALSE(FirstIsOnTop(i)) << pairCases[i].off;
    }
}

TEST_F(PairsTest, ATouchShowsTheOtherButtonAtOnceAndBringsItBack) {
    for (const std::size_t i : {0, 1, 2, 3, 6}) {
        for (const bool on : {true, false}) {
            bench.Tap(Point{620, static_cast<int>(i) * 60 + 20});
            EXPECT_EQ(FirstIsOnTop(i), on) << pairCases[i].off;
        }
    }
}
