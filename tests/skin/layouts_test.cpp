#include "core/mainmenu.h"
#include "media/dvdplayer.h"
#include "media/mediaplayer.h"
#include "radiogps/gps.h"
#include "skin/skin_fixture.h"

#include <array>

using namespace zvr;

namespace {

using LayoutsTest = SkinTest;

constexpr const char* noKnob = "error";

}  // namespace

TEST_F(LayoutsTest, ASlidersKnob) {
    MediaPlayer& mediaplayer = Running().mediaplayer;
    EXPECT_EQ(mediaplayer.picPosSlider->Tag(), "");
    EXPECT_EQ(mediaplayer.picPosSlider->width, 40 * twips);
    EXPECT_EQ(mediaplayer.picPosSlider->height, 40 * twips);
    const std::array<std::string, 3> rows[] = {{"399", "knob.png", ""},     {"400", "knob.png", noKnob},
                                               {"0.4", "knob.png", noKnob}, {"0.6", "knob.png", ""},
                                               {"40", "", noKnob},          {"40", "gone.png", noKnob}};
    for (const auto& [width, picture, tag] : rows) {
        ForgetEdits();
        Replace("mediaplayer", "<slider-width>40", "<slider-width>" + width);
        Replace("mediaplayer", "<slider-image>knob.png", "<slider-image>" + picture);
        LoadTried();
        EXPECT_THAT(Reported(), IsEmpty()) << width;
        EXPECT_EQ(mediaplayer.picPosSlider->Tag(), tag) << width << picture;
        EXPECT_EQ(mediaplayer.picVolSlider->Tag(), "");
    }
}

TEST_F(LayoutsTest, ABrokenSliderPictureEndsThePlayersLayoutAPlaceDoesNot) {
    MediaPlayer& mediaplayer = Running().mediaplayer;
    Replace("mediaplayer", "<volslider><posx>450", "<volslider><posx>460");
    Replace("mediaplayer", "<slider-image>knob.png", "<slider-image>broken.png");
    LoadTried();
    EXPECT_EQ(mediaplayer.picPosSlider->Tag(), noKnob);
    EXPECT_EQ(mediaplayer.picVolume->Place().x, 450);
    ForgetEdits();
    Replace("mediaplayer", "<volslider><posx>450", "<volslider><posx>460");
    Replace("mediaplayer", "<width>400", "<width>-1");
    LoadTried();
    EXPECT_EQ(mediaplayer.picVolume->Place().x, 460);
    EXPECT_EQ(mediaplayer.picPosition->Place().width, 400) << "as it was";
}

TEST_F(LayoutsTest, TheDvdLogoSitsInTheTopRightCornerOrNowhere) {
    DvdPlayer& dvdplayer = Running().dvdplayer;
    Replace("dvdplayer", "<dvdcontent>", "<dvdcontent><logo>small.png</logo>");
    Replace("dvdplayer", "<height>200", "<height>0");
    LoadTried();
    EXPECT_EQ(dvdplayer.dvdheight, 0);
    EXPECT_EQ(dvdplayer.dvdwidth, 300 * 15);
    EXPECT_EQ(dvdplayer.dvdclickcatcherimg->VisiblePlace(), (Rect{280, 10, 30, 20}));
    EXPECT_GT(Depth(*dvdplayer.dvdclickcatcher), Depth(*dvdplayer.dvd));
    ForgetEdits();
    Replace("dvdplayer", "<dvdcontent>", "<dvdcontent><logo>broken.png</logo>");
    LoadTried();
    EXPECT_THAT(Reported(), IsEmpty());
    EXPECT_FALSE(dvdplayer.dvdclickcatcher->visible);
}

TEST_F(LayoutsTest, TheNeedleTakesOnlyNumbersInRange) {
    Gps& gps = Running().gps;
    const auto load = [&](const char* length, const char* center, const char* offset, const char* stepping) {
        ForgetEdits();
        Replace("gps", "<dash>",
                "<dash>" + Tag("needle", Tag("length", length) + Tag("center-size", center) + Tag("offset", offset) +
                                             Tag("stepping", stepping)));
        LoadTried();
    };
    load("80", "10.6", "359.5", "500");
    EXPECT_EQ(gps.speedoNeedleLength, 80);
    EXPECT_EQ(gps.speedoNeedleCenter, 11);
    EXPECT_EQ(gps.speedoOffset, 359.5);
    EXPECT_EQ(gps.speedoStepping, 0.5);
    EXPECT_EQ(gps.picNeedle->width, gps.picSpeedo[0]->width.get());
    load("9999", "0", "360", "-1");
    load("0", "9999", "-0.1", "9999");
    EXPECT_THAT(Reported(), IsEmpty());
    EXPECT_EQ(gps.speedoNeedleLength, 80);
    EXPECT_EQ(gps.speedoOffset, 359.5);
}

TEST_F(LayoutsTest, TheUsersPictureIsAllowedByExactlyYes) {
    MainMenu& mainmenu = Running().mainmenu;
    mainmenu.showUserPic = true;
    mainmenu.userPic = bench.folder.Write("me.png", PngBytes(40, 20));
    const auto shown = [&](const std::string& allow) {
        ForgetEdits();
        Insert("mainmenu", Tag("user-pic", Tag("allow", allow) + "<center-x>100.5</center-x><center-y>50</center-y>"));
        LoadTried();
        return mainmenu.form.Find("imgUserPic")->visible.get();
    };
    EXPECT_TRUE(shown("yes"));
    EXPECT_EQ(mainmenu.form.Find("imgUserPic")->Place(), (Rect{80, 40, 40, 20}));
    EXPECT_NE(mainmenu.form.Find("imgUserPic")->picture.get(), nullptr);
    EXPECT_FALSE(shown("Yes"));
    EXPECT_FALSE(shown(""));
}
