#include "core/mainmenu.h"
#include "media/dvdplayer.h"
#include "media/mediaplayer.h"
#include "radiogps/gps.h"
#include "skin/skin_fixture.h"

using namespace zvr;

namespace {

using LayoutsTest = SkinTest;

constexpr const char* noKnob = "error";

}  // namespace

TEST_F(LayoutsTest, ASlidersKnob) {
    MediaPlayer& mediaplayer = Running().mediaplayer;
    EXPECT_EQ(mediaplayer.picPosition->Place(), (Rect{0, 450, 400, 40}));
    EXPECT_EQ(mediaplayer.picPosSlider->Tag(), "");
    EXPECT_EQ(mediaplayer.picPosSlider->width, 40 * twips);
    EXPECT_EQ(mediaplayer.picPosSlider->height, 40 * twips);
    struct Case {
        std::string from;
        std::string to;
        std::string tag;
        bool hasPicture;
    };
    const std::string width = "<slider-width>40";
    for (const auto& [from, to, tag, hasPicture] : std::vector<Case>{
             {width, "<slider-width>399", "", true},
             {width, "<slider-width>400", noKnob, true},
             {width, "<slider-width>0.4", noKnob, false},
             {width, "<slider-width>0.6", "", true},
             {"<slider-image>knob.png", "<slider-image>", noKnob, false},
             {"<slider-image>knob.png", "<slider-image>gone.png", noKnob, false},
         }) {
        ForgetEdits();
        Replace("mediaplayer", from, to);
        LoadTried();
        EXPECT_THAT(Reported(), IsEmpty()) << to;
        EXPECT_EQ(mediaplayer.picPosSlider->Tag(), tag) << to;
        EXPECT_EQ(mediaplayer.picVolSlider->Tag(), "") << to;
        EXPECT_EQ(mediaplayer.picPosSlider->picture.get() != nullptr, hasPicture) << to;
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
    for (const char* logo : {"broken.png", "gone.png", ""}) {
        ForgetEdits();
        Replace("dvdplayer", "<dvdcontent>", "<dvdcontent>" + Tag("logo", logo));
        LoadTried();
        EXPECT_THAT(Reported(), IsEmpty()) << logo;
        EXPECT_FALSE(dvdplayer.dvdclickcatcher->visible) << logo;
    }
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
    EXPECT_EQ(gps.speedoNeedleCenter, 11);
    EXPECT_EQ(gps.speedoOffset, 359.5);
    EXPECT_EQ(gps.speedoStepping, 0.5);
    load("9998", "1", "0", "9998");
    EXPECT_EQ(gps.speedoNeedleLength, 9998);
    EXPECT_EQ(gps.speedoOffset, 0);
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
