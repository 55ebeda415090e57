#include "playerbench.h"
#include "skin/skinner.h"

namespace zvr {
namespace {

class Covers : public PlayerBench {
protected:
    void Picture(const std::string& name, int width = 40, int height = 20) {
        bench.folder.Write("music/" + name, PngBytes(width, height));
    }
    /// Starts and plays the file; the path of the picture that shows, empty for none.
    std::string CoverOf(const std::string& name, const std::string& settings = "SHOWCOVERS=1") {
        Open(settings);
        Choose(name);
        return Shown();
    }
    std::string Shown() {
        const PicturePointer picture = Player().imgVis->picture;
        return Player().picVis->visible && Player().imgVis->visible && picture
                   ? picture->Path().substr(MusicFolder().size() + 1)
                   : "";
    }
};

TEST_F(Covers, AnEarlierWordWinsOverALaterOneInAnyOrderOfFiles) {
    Music({"a.mp3"});
    for (const char* name : {"zz-CoVer.jpg", "aa-cover.jpeg", "My FRONT.JPG", "other.jpg"}) {
        Picture(name);
    }
    EXPECT_EQ(CoverOf("a.mp3"), "My FRONT.JPG");
}

/// left, top, width, height of the picture in its area, in pixels.
std::vector<double> PlaceIn(const Control& image) {
    return {image.left / 15, image.top / 15, image.width / 15, image.height / 15};
}

TEST_F(Covers, LargePicturesAreFittedAndSmallOnesCentred) {
    // The area is 200 x 100 pixels.
    const auto placeOf = [this](int width, int height) {
        Picture("front.jpg", width, height);
        Do("mediaplayer.stop");
        Player().ToggleFullscreen(true);
        Player().ToggleFullscreen(false);
        return PlaceIn(*Player().imgVis);
    };
    Music({"a.mp3"});
    Picture("front.jpg", 100, 50);
    ASSERT_EQ(CoverOf("a.mp3"), "front.jpg");
    EXPECT_THAT(PlaceIn(*Player().imgVis), ElementsAre(50, 25, 100, 50));
    EXPECT_EQ(Player().imgVis->Place().x, Player().picVis->Place().x + 50);
    EXPECT_FALSE(Player().imgVis->stretch.get());
    EXPECT_THAT(placeOf(400, 100), ElementsAre(0, 25, 200, 50));
    EXPECT_TRUE(Player().imgVis->stretch.get());
    EXPECT_THAT(placeOf(400, 400), ElementsAre(50, 0, 100, 100));
    EXPECT_THAT(placeOf(100, 200), ElementsAre(75, 0, 50, 100));
}

class Fullscreen : public PlayerBench {
protected:
    void OpenVideo(const std::string& settings = {}) {
        Music({"film.avi", "song.mp3", "other.avi"});
        media.videos = {InMusic("film.avi"), InMusic("other.avi")};
        Open(settings, "USEWAVEVOLUMEONLY=0");
    }
    void Click(double x, double y) {
        const Rect place = Player().video->Place();
        const Rect form = Player().form.Place();
        bench.Tap(Point{form.x + place.x + static_cast<int>(place.width * x),
                        form.y + place.y + static_cast<int>(place.height * y)});
        bench.Advance(Milliseconds{600});
    }
    [[nodiscard]] bool IsFull() { return Player().video->width > 600 * 15; }
};

TEST_F(Fullscreen, TheGridRunsCommands) {
    media.defaultDuration = 6000;
    OpenVideo("USEFULLSCREENCTL=1\nVOLUME=50\nVOLSTEPPING=10\nFADEINAFTERPAUSE=0");
    Choose("film.avi");
    Click(0.1, 0.1);
    ASSERT_TRUE(IsFull()) << "outside of the full screen a click only enters";
    for (const auto& [x, y, volume] :
         {std::tuple{0.204, 0.204, 40}, {0.796, 0.1, 50}, {0.1, 0.1, 40}, {0.9, 0.1, 50}}) {
        Click(x, y);
        EXPECT_EQ(Wmp().Volume(), volume) << "20 percent, rounded, is still the outer field";
    }
    Click(0.22, 0.1);
    EXPECT_TRUE(Wmp().Mute());
    Wmp().SetCurrentPosition(3000);
    Click(0.9, 0.9);
    EXPECT_EQ(Player().currentSkipMode, 1);
    Click(0.1, 0.9);
    EXPECT_EQ(Player().currentSkipMode, -1);
    Click(0.5, 0.9);
    Click(0.5, 0.9);
    EXPECT_EQ(Wmp().CurrentState(), PlayState::paused) << "first out of the skip, then to pause";
    const int item = Wmp().CurrentItem();
    Click(0.9, 0.5);
    EXPECT_EQ(Wmp().CurrentItem(), (item + 1) % 3);
    Click(0.1, 0.5);
    EXPECT_EQ(Wmp().CurrentItem(), item);
    Click(0.5, 0.5);
    EXPECT_FALSE(IsFull());
}

TEST_F(Fullscreen, TheCoverFillsTheScreenAndComesBack) {
    OpenVideo("SHOWCOVERS=1");
    bench.folder.Write("music/front.jpg", PngBytes(1600, 300));
    Choose("song.mp3");
    ASSERT_TRUE(Player().picVis->visible.get());
    const Rect area = Player().picVis->Place();
    const Rect form = Player().form.Place();
    bench.Tap(Point{form.x + area.x + area.width / 2, form.y + area.y + area.height / 2});
    EXPECT_EQ(Player().imgVis->Place().width, 800);
    EXPECT_EQ(Player().form.Controls().back(), Player().imgVis) << "in front of its own box";
    EXPECT_FALSE(Player().medialist->visible.get());
    EXPECT_FALSE(Player().video->visible.get());
    bench.program->skinner.ReloadSkin();
    EXPECT_EQ(Player().imgVis->Place().width, 800) << "another skin leaves it there";
    bench.Tap(Point{form.x + 400, form.y + 10});
    EXPECT_EQ(Player().imgVis->Place().width, 200);
    EXPECT_TRUE(Player().medialist->visible.get());
}

}  // namespace
}  // namespace zvr
