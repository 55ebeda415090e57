#include "skin/skinner.h"
#include "apps/quickbars.h"
#include "core/commanddispatcher.h"
#include "core/godfather.h"
#include "core/mainmenu.h"
#include "media/gallery.h"
#include "phone/phone.h"
#include "phone/smsbox.h"
#include "platform/log.h"
#include "platform/platform.h"
#include "radiogps/gps.h"
#include "radiogps/radio.h"
#include "skin/check/skincheck.h"
#include "skin/skin_fixture.h"
#include "ui/stage.h"

#include <array>
#include <filesystem>

using namespace zvr;

namespace {

const std::string image = "<background-image>broken.png</background-image>";

/// Code, section, what goes and what comes in its place; where nothing goes, at the front of the section.
const std::vector<std::array<std::string, 4>> faultCases{
    {"=GENERAL_WIDTH_NOT_SET", "general", "<width>800", "<width>100"},
    {"=GENERAL_HEIGHT_NOT_SET", "general", "<height>600</height>", ""},
    {"=GENERAL_BGPIC_INVALID", "general", "", image},
    {"=RADIO_BGPIC_INVALID", "radio", "", image},
    {"=QUICKBARFLOATING_BGPIC_INVALID", "quickbarfloating", "", image},
    {"=GALLERY_BTNPIC_INVALID", "gallery", "",
     "<buttons>" + ButtonXml(0, 0, "mainmenu.show", "normal.png", "broken.png") + "</buttons>"},
    {"=SMSBOX_BTNPIC_INVALID", "smsbox", "", "<buttons>" + ButtonXml(0, 0, "smsbox.send", "broken.png") + "</buttons>"},
    {"=MEDIAPLAYER_LISTPOSITION_NOTSET", "mediaplayer", "<posx>10</posx>", ""},
    {"=PHONE_LISTPOSITION_NOTSET", "phone", "<height>200</height>", ""},
    {"=PLAYLISTS_LISTPOSITION_INVALID", "playlists", "<width>300", "<width>0"},
    {"=EXTERNALAPPS_LISTPOSITION_INVALID", "externalapps", "<posy>10", "<posy>-1"},
    {"=GALLERY_LISTPOSITION_INVALID", "gallery", "<height>200", "<height>0"},
    {"=MEDIASEARCH_LISTPOSITION_INVALID", "mediasearch", "<width>300", "<width>none"},
    {"=TXTBOX_NUMBERBOX_NOTSET", "phone", "<posx>400</posx>", ""},
    {"=TXTBOX_TXTSEARCHTERM_NOTSET", "mediasearch", "<height>40</height>", ""},
    {"=TXTBOX_TXTCURRENTPLAYLISTNAME_INVALID", "playlists", "<posx>400", "<posx>-400"},
    {"=TXTBOX_SMSNUMBERBOX_INVALID", "smsbox", "<height>40", "<height>-1"},
    {"=TXTBOX_SMSTEXTBOX_INVALID", "smsbox", "<posy>50</posy><width>300", "<posy>50</posy><width>0"},
    {"=WMP_POS_NOTSET", "mediaplayer", "<posy>300</posy>", ""},
    {"=WMP_POS_INVALID", "mediaplayer", "<height>100", "<height>0"},
    {"=MP_POSSLIDERPOS_NOTSET", "mediaplayer", "<width>400</width>", ""},
    {"=MP_POSSLIDERPOS_INVALID", "mediaplayer", "<width>400", "<width>0"},
    {"=MP_POSSLIDERBG_INVALID", "mediaplayer", "<posslider>", "<posslider>" + image},
    {"=MP_POSSLIDERPIC_INVALID", "mediaplayer", "<slider-image>knob.png", "<slider-image>broken.png"},
    {"=MP_VOLSLIDERPOS_NOTSET", "mediaplayer", "<width>240</width>", ""},
    {"=MP_VOLSLIDERPOS_INVALID", "mediaplayer", "<width>240", "<width>-240"},
    {"=MP_VOLSLIDERBG_INVALID", "mediaplayer", "<volslider>", "<volslider>" + image},
    {"=MP_VOLSLIDERPIC_INVALID", "mediaplayer", "<volslider>", "<volslider><slider-image>broken.png</slider-image>"},
    {"=GL_PREVPOS_NOTSET", "gallery", "<preview><posx>10</posx>", "<preview>"},
    {"=GL_PREVIEWPOS_INVALID", "gallery", "<preview><posx>10", "<preview><posx>-10"},
    {"=GL_PREVBG_INVALID", "gallery", "<preview>", "<preview>" + image},
    {"=GL_FULLBG_INVALID", "gallery", "</preview>", "</preview>" + Tag("fullscreen", image)},
    {"=DVD_POS_NOTSET", "dvdplayer", "<posx>10</posx>", ""},
    {"=DVD_POS_INVALID", "dvdplayer", "<width>300", "<width>0"},
    {"=QBDOCK_HEIGHT_NOTSET", "quickbardocked", "<height>80", "<height>0.5"},
    {"=QBFLOAT_WIDTH_NOTSET", "quickbarfloating", "<width>200</width>", ""},
    {"=QBFLOAT_HEIGHT_NOTSET", "quickbarfloating", "<height>100", "<height>-1"},
    {"=SMS_SIZE_NOTSET", "smsbox", "<width>500</width>", ""},
    {"=SMS_SIZE_INVALID", "smsbox", "<width>500", "<width>0"},
    {"=GPS_SPD_SIZE_NOTSET", "gps", "<height>200</height>", ""},
    {"=GPS_SPD_SIZE_INVALID", "gps", "<posy>10", "<posy>-10"},
    {"=GPS_SPDBG_INVALID", "gps", "<dash>", "<dash>" + image},
    {"=GL_NDLBG_INVALID", "gps", "<dash>", "<dash>" + Tag("needle", image)},
    {"=MSG_SIZE_NOTSET", "messagebox", "<height>300</height>", ""},
    {"=MSG_SIZE_INVALID", "messagebox", "<height>300", "<height>-300"},
};

}  // namespace

TEST_F(SkinTest, AFaultIsReportedOnceLoggedAsTheCheckTellsItAndTheFormerSkinStaysInForce) {
    for (const auto& [code, section, from, to] : faultCases) {
        ForgetEdits();
        from.empty() ? Insert(section, to) : Replace(section, from, to);
        Running().godfather.usedSkin = "something else";
        const auto logged = Log::LastNumber();
        const std::string name = LoadTried();
        EXPECT_THAT(Reported(), ElementsAre(code));
        EXPECT_EQ(Running().skinner.loadedSkin, goodSkin) << code;
        EXPECT_EQ(Running().godfather.usedSkin, goodSkin) << code;
        EXPECT_FALSE(bench.loop.quitting);
        std::vector<std::string> told;
        for (SkinFinding finding : CheckSkin(bench.folder.path + "/skins/" + name, {}).findings) {
            if (finding.keepsFromLoading) {
                finding.reason.resize(finding.reason.rfind(" (would not load)"));
                told.push_back(LineOf(finding, name));
            }
        }
        ASSERT_THAT(told, ElementsAre(HasSubstr(code)));
        EXPECT_THAT(Log::News(logged), Contains(HasSubstr(told[0])));
    }
}

TEST_F(SkinTest, AnUnreadableFileOrAnotherVersionIsSaidInWords) {
    const std::string version = "<for-app-version>1.2</for-app-version>";
    const auto versioned = [&](const std::string& instead) {
        std::string xml = tried.Xml();
        return xml.replace(xml.find(version), version.size(), instead);
    };
    const auto written = [&](const std::string& value) { return versioned(Tag("for-app-version", value)); };
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", "SKINNING_CONFIGFILEERROR"},
        {"<skin><about>", "SKINNING_CONFIGFILEERROR"},
        {versioned(""), "SKINNING_NOVERSIONINFO"},
        {written(""), "SKINNING_NOVERSIONINFO"},
        {written("1.20"), "SKINNING_WRONGVERSION"},
        {written("1.02"), "SKINNING_WRONGVERSION"},
        {written("1.2.3"), "SKINNING_WRONGVERSION"},
        {written("1.2"), ""},
    };
    Program& program = Running();
    for (const auto& [xml, key] : cases) {
        const std::string name = "version" + std::to_string(&xml - &cases[0].first);
        Write(name, xml);
        bench.dialogs.critical.clear();
        program.skinner.LoadSkin(name);
        if (key.empty()) {
            EXPECT_THAT(bench.dialogs.critical, IsEmpty());
            EXPECT_EQ(program.skinner.loadedSkin, name);
        } else {
            ASSERT_FALSE(bench.dialogs.critical.empty()) << xml;
            EXPECT_THAT(bench.dialogs.critical[0], StartsWith(program.languageText(key))) << xml;
        }
    }
    program.skinner.LoadSkin("no such folder");
    EXPECT_THAT(bench.dialogs.critical.at(0), HasSubstr(program.languageText("SKINNING_CONFIGFILEERROR")));
}

TEST_F(SkinTest, ABadSkinAtTheFirstStartEndsTheProgramAfterOneBox) {
    bench.skin.version = "9.9";
    bench.skin.general = "<width>1</width>";
    bench.platform.desktop.state->taskbarShown = false;
    bench.Start();
    EXPECT_EQ(bench.dialogs.critical.size(), 1U);
    EXPECT_TRUE(bench.loop.quitting);
    EXPECT_EQ(bench.loop.exitCode, 1);
    EXPECT_TRUE(bench.platform.desktop.state->taskbarShown);
    EXPECT_EQ(bench.Front(), "");
    EXPECT_EQ(bench.program->skinner.loadedSkin, "");
}

TEST_F(SkinTest, AfterABadSkinTheFormsShowItUntilAThirdOneIsLoaded) {
    bench.skin.buttons["mainmenu"] = {{0, 0, "radio.show"}, {0, 100, "gps.show"}};
    Program& program = Running();
    tried.version = "1.1";
    tried.buttons["mainmenu"] = {{5, 5, "phone.show"}};
    Replace("dvdplayer", "<posx>10</posx>", "");
    LoadTried();
    EXPECT_THAT(Reported(), ElementsAre(HasSubstr(program.languageText("SKINNING_WRONGVERSION")), "=DVD_POS_NOTSET"));
    EXPECT_THAT(Commands(program.mainmenu.form), ElementsAre("phone.show"));
    EXPECT_EQ(program.mainmenu.form.Find("abutton", 1)->left, 5 * twips);

    program.skinner.LoadSkin(goodSkin);
    EXPECT_THAT(Commands(program.mainmenu.form), ElementsAre("phone.show")) << "it counts as loaded";

    bench.skin.WriteTo(bench.folder, "third");
    program.skinner.LoadSkin("third");
    EXPECT_EQ(program.skinner.loadedSkin, "third");
    EXPECT_THAT(Commands(program.mainmenu.form), ElementsAre("radio.show", "gps.show"));
}

TEST_F(SkinTest, ASkinThatIsLoadedBehindAnOpenBoxWins) {
    Program& program = Running();
    Write("other", tried.Xml());
    Replace("mainmenu", "<mainmenu>", "<mainmenu><background-image>broken.png</background-image>");
    Replace("radio", "<radio>",
            "<radio><buttons>" + ButtonXml(0, 0, "x", "broken.png") + ButtonXml(1, 1, "y") + "</buttons>");
    bench.dialogs.onShow = [&program](const std::string&) { program.skinner.LoadSkin("other"); };
    LoadTried();
    EXPECT_THAT(Reported(), ElementsAre("=RADIO_BTNPIC_INVALID"));
    EXPECT_EQ(program.skinner.loadedSkin, "other");
}

TEST(SkinColor, IsSixDigitsOrBlack) {
    EXPECT_EQ(ParseSkinColor("#123456"), 0x563412U);
    EXPECT_EQ(ParseSkinColor("#abcdef"), ParseSkinColor("#ABCDEF"));
    EXPECT_EQ(ParseSkinColor("#ff0000"), RgbColor(255, 0, 0));
    for (const char* text :
         {"", "#12345", "123456", "#1234567", "#12345g", "# 12345", "#-12345", "#+12345", " #123456", "#0x1234"}) {
        EXPECT_EQ(ParseSkinColor(text), 0U) << text;
    }
}

TEST_F(SkinTest, TheFirstGeneralSizesAllScreensButTheBarsAndLendsItsPictureButNoColor) {
    tried.general =
        "<width>101</width><height>600.5</height><background-image>normal.png</background-image>"
        "<background-color>#101010</background-color></general><general><width>99</width>";
    Insert("quickbardocked", "<background-color>#010203</background-color>");
    Replace("gps", "<background-color>#202020</background-color>", "");
    Insert("radio", "<background-image>small.png</background-image>");
    Insert("phone", "<background-image>gone.png</background-image>");
    LoadTried();
    Program& program = Running();
    EXPECT_THAT(Reported(), IsEmpty());
    EXPECT_EQ(program.mainmenu.form.width, 101 * twips);
    EXPECT_EQ(program.gallery.form.height, 9008.0) << "9007.5 goes to the even neighbour";
    EXPECT_EQ(program.quickbars.docked.height, 80 * twips);
    EXPECT_NE(program.quickbars.floating.width, 101 * twips);
    EXPECT_EQ(program.quickbars.docked.backColor, RgbColor(1, 2, 3));
    EXPECT_EQ(program.gps.form.backColor, 0U);
    const auto widthBehind = [](const Form& form) { return form.background.get()->PixelSize().width; };
    EXPECT_EQ(widthBehind(program.mainmenu.form), 100);
    EXPECT_EQ(widthBehind(program.radio.form), 30);
    EXPECT_EQ(widthBehind(program.phone.form), 100);
}

TEST_F(SkinTest, AChangeKeepsTheScreenInFrontAndCentresAll) {
    Program& program = Running();
    for (const char* screen : {"radio.show", "gps.show"}) {
        program.dispatchCommand(screen);
    }
    const std::string older = program.commanddispatcher.olderModule;
    tried.general = "<width>700</width><height>2000</height>";
    LoadTried();
    EXPECT_EQ(bench.Front(), "gps");
    EXPECT_FALSE(program.radio.form.visible) << "what lay behind is hidden";
    EXPECT_EQ(program.gps.form.left, 50 * twips);
    EXPECT_EQ(program.gps.form.top, 0.0) << "taller than the root";
    EXPECT_EQ(program.commanddispatcher.olderModule, older);
    program.dispatchCommand("gps.show");
    EXPECT_EQ(program.commanddispatcher.olderModule, older) << "still the same visit";
}

TEST_F(SkinTest, AChangeToAndFroLeavesNoStrayControl) {
    const Form& menu = Running().mainmenu.form;
    tried.buttons["mainmenu"] = {{0, 0, "radio.show"}, {0, 60, "gps.show"}, {0, 120, "phone.show"}};
    tried.labels["mainmenu"] = {"one", "**TIME_SHORT**", "**MEDIATITLE**"};
    Write("rich", tried.Xml());
    tried.buttons["mainmenu"] = {{7, 7, "gallery.show"}};
    tried.labels["mainmenu"] = {"**DATE_LONG**"};
    Write("plain", tried.Xml());
    Running().skinner.LoadSkin("rich");
    const std::size_t controls = menu.Controls().size();
    Running().skinner.LoadSkin("plain");
    bench.Advance(Milliseconds{100});
    EXPECT_THAT(Commands(menu), ElementsAre("gallery.show"));
    EXPECT_EQ(Shown(menu, "albl").size(), 1U);
    EXPECT_EQ(menu.Find("albl", 2)->caption.get(), "") << "no placeholder of a former skin";
    Running().skinner.LoadSkin("rich");
    EXPECT_EQ(menu.Controls().size(), controls);
    EXPECT_EQ(Commands(menu).size(), 3U);
    EXPECT_LT(Depth(*menu.Find("abutton", 1)), Depth(*menu.Find("abutton", 2)));
}

TEST_F(SkinTest, ModulesThatAreNotInUseAreNotRead) {
    bench.settings = "[general]\nSHOWWARNING=0\nUSEDMODULES=\n";
    for (const char* section : {"phone", "dvdplayer", "gallery", "gps", "externalapps", "mediasearch", "smsbox"}) {
        Replace(section, "<posx>", "<posx>-1");
    }
    Insert("radio", "<background-image>broken.png</background-image>");
    Replace("quickbardocked", "<height>80</height>", "");
    LoadTried();
    EXPECT_THAT(Reported(), IsEmpty());
    EXPECT_EQ(Running().radio.form.background.get(), nullptr);
}
