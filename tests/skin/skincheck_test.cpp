#include "skin/check/skincheck.h"
#include "core/language.h"
#include "platform/log.h"
#include "skin/check/newskin.h"
#include "skin/skin_fixture.h"
#include "skin/skinner.h"
#include "skin/skintable.h"
#include "support/paths.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <tuple>

using namespace zvr;

namespace {

/// A skin of 800x480 that is as it must be, one slip after the other planted into it.
class Slips : public testing::Test {
protected:
    Slips() {
        for (const NewPicture& picture : skin.pictures) {
            folder.Write(picture.file, PngBytes(picture.size.width, picture.size.height));
        }
        folder.Write("broken.png", "no picture");
        folder.Write("spoilt.png", PngBytes(100, 80).insert(33, "spoilt"));
        folder.Write("small.png", PngBytes(75, 76));
        folder.Write("key.png", PngBytes(76, 76));
        folder.Write("high.png", PngBytes(76, 77));
        xml = skin.data;
    }

    /// Replaces the first `from` in the section; gives the line that it stands in.
    int Plant(const std::string& section, const std::string& from, const std::string& to) {
        const auto begin = xml.find("<" + section + ">");
        const auto at = begin == xml.npos ? begin : xml.find(from, begin);
        if (at == xml.npos || at > xml.find("</" + section + ">", begin)) {
            ADD_FAILURE() << section << " has no " << from;
            return 0;
        }
        xml.replace(at, from.size(), to);
        return 1 + static_cast<int>(std::count(xml.begin(), xml.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
    }

    /// What is told of the skin as it stands, "place: reason" each; then it is whole again.
    std::vector<std::string> Told(const std::vector<SkinLanguage>& languages = {}) {
        folder.Write("skindata.xml", xml);
        xml = skin.data;
        report = CheckSkin(folder.path, languages);
        std::vector<std::string> told;
        for (const SkinFinding& finding : report.findings) {
            if (finding.file == skinDataFile) {
                told.push_back(finding.place + ": " + finding.reason);
            }
        }
        return told;
    }

    /// The same with a button more on the radio's screen.
    std::vector<std::string> WithKey(const std::string& command, const std::string& normal,
                                     const std::string& active = "", int x = 0, int y = 0) {
        Plant("radio", "<buttons>",
              "<buttons>" +
                  Tag("k", Tag("posx", std::to_string(x)) + Tag("posy", std::to_string(y)) + Tag("command", command) +
                               Tag("normal-image", normal) + Tag("active-image", active.empty() ? normal : active)));
        return Told();
    }
    /// The same with a label more there, at 10,20 and 200x30 pixels.
    std::vector<std::string> WithLabel(const std::string& text, const std::string& more = "",
                                       const std::vector<SkinLanguage>& languages = {}) {
        Plant(
            "radio", "<labels>",
            "<labels>" + LabelXml(text, more + "<shadow-distance>0</shadow-distance><font-color>#FFFFFF</font-color>"));
        return Told(languages);
    }

    const NewSkin skin = SmallestSkin({800, 480});
    TemporaryFolder folder;
    std::string xml;
    SkinReport report;
};

const std::string black = " is missing: it becomes black";
const std::string noWay = "a driver can't get out of it";

// clang-format off
/// Section, what stands there, what takes its place, what is told of it.
const std::vector<std::tuple<const char*, const char*, const char*, std::vector<std::string>>> slips{
    // What keeps it from loading.
    {"general", "<width>800", "<width>100", {"general: width \"100\" must be pixels, above 100, =GENERAL_WIDTH_NOT_SET (would not load)"}},
    {"about", "1.2", "1.3", {"about/for-app-version: \"1.3\": this program takes \"1.2\" only (would not load)"}},
    {"about", "<for-app-version>1.2</for-app-version>", "",
     {"about/for-app-version: missing: this program takes \"1.2\" only (would not load)"}},
    {"radio", "images/radio-back.png", "broken.png",
     {"radio/key-back: normal-image \"broken.png\" is no picture, =RADIO_BTNPIC_INVALID (would not load)"}},
    {"medialist", "<width>784</width>", "", {"mediaplayer/medialist: width is missing, =MEDIAPLAYER_LISTPOSITION_NOTSET (would not load)"}},
    {"searchtermbox", "<posx>8", "<posx>-8",
     {"mediasearch/searchtermbox: posx \"-8\" must be pixels, at least 0, =TXTBOX_TXTSEARCHTERM_INVALID (would not load)"}},
    {"quickbarfloating", "<width>800", "<width>0.4",
     {"quickbarfloating: width \"0.4\" must be pixels, at least 1, =QBFLOAT_WIDTH_NOTSET (would not load)"}},
    {"messagebox", "<width>560", "<width>0", {"messagebox: width \"0\" must be pixels, above 0, =MSG_SIZE_INVALID (would not load)"}},
    {"messagebox", "<shadow-distance>0", "<shadow-distance>3px",
     {"messagebox/text: shadow-distance \"3px\" is no number, which ends the program (would not load)",
      "messagebox: no label shows **MESSAGEBOXTEXT**: questions come without their text"}},
    // What passes in silence.
    {"gps", "<background-color>#14181B", "<background-color>red", {"gps: background-color \"red\" must be #RRGGBB: it becomes black"}},
    {"gps", "<background-color>#14181B</background-color>", "",
     {"gps: background-color is missing: it becomes black, whatever general says"}},
    {"imglist", "<background-color-alt>#191E22</background-color-alt>", "", {"gallery/imglist: background-color-alt" + black}},
    {"imglist", "<row-height>52", "<row-height>0", {"gallery/imglist: row-height \"0\" must be pixels, above 0: it is passed over"}},
    {"imglist", "<posx>8", "<posx>8px", {"gallery/imglist: posx \"8px\" is no plain number, it is read as 8"}},
    {"imglist", "<font-face>Roboto", "<font-face>Unknown Sans",
     {"gallery/imglist: font-face \"Unknown Sans\" is no typeface of this machine: Standard shows"}},
    {"imglist", "<font-face>Roboto", "<font-face>roboto", {}},
    {"imglist", "<font-face>", "<font-style>Bix</font-style><font-face>",
     {"gallery/imglist: font-style \"Bix\": the letter x means nothing here"}},
    {"namebox", "<align>left", "<align>LEFT", {}},
    {"namebox", "<align>left", "<align>middle", {"playlists/namebox: align \"middle\" must be left, right, center: it counts as center"}},
    {"messagebox", "<align>center", "<align>Center", {"messagebox/text: align \"Center\" must be left, center, right: it counts as left"}},
    {"messagebox", "<align>center", "<charcount>4</charcount><align>center",
     {"messagebox/text: charcount \"4\" must be above 4, at most 50: it is passed over"}},
    {"dash", "</dash>", "<needle><offset>360</offset><length>9998</length></needle></dash>",
     {"gps/dash/needle: offset \"360\" must be degrees, at least 0, below 360: it is passed over"}},
    {"mainmenu", "<labels>", "<user-pic><allow>Yes</allow></user-pic><labels>",
     {"mainmenu/user-pic: allow \"Yes\" must be yes: it counts as no picture"}},
    {"mainmenu", "<labels>", "<user-pic><allow>no</allow></user-pic><labels>", {}},
    {"dvdcontent", "<posx>", "<logo>broken.png</logo><posx>",
     {"dvdplayer/dvdcontent: logo \"broken.png\" is no picture: it is passed over"}},
    {"dvdcontent", "<posx>", "<logo>spoilt.png</logo><posx>",
     {"dvdplayer/dvdcontent: logo \"spoilt.png\" can't be decoded: nothing of it shows"}},
    {"radio", "<posx>8", "<posx>-8", {"radio: no button leads to another screen: " + noWay,
     "radio/key-back: posx \"-8\" must be pixels, at least 0: the button does not appear"}},
    {"radio", "app.goback", "\n   app.goback  \n", {}},
    {"messagebox", "**MESSAGEBOXTEXT**", "A\nB", {"messagebox: no label shows **MESSAGEBOXTEXT**: questions come without their text",
     "messagebox/text: text \"A B\" goes over two lines"}},
    {"messagebox", "<shadow-distance>0", "<shadow-distance>2", {"messagebox/text: shadow-color is missing: there is no shadow"}},
    {"messagebox", "<font-color>#F1F4F6</font-color>", "", {"messagebox/text: font-color is missing: the label has any colour that a former skin gave it"}},
    {"radio", "<buttons>", "<buttens/><buttons>", {"radio: nothing reads the element buttens; is it buttons?"}},
    {"radio", "<buttons>", "<background-color>#000000</background-color><buttons>",
     {"radio: a second background-color: what the first one has counts"}},
    {"dash", "</dash>", "<needles/></dash>", {"gps/dash: nothing reads the element needles; is it dash/needle?"}},
    {"skin", "<general>", "<generell/><radios/><general>",
     {"generell: no screen has this name: the section is not read; is it general?",
      "radios: no screen has this name: the section is not read; is it radio?"}},
    {"radio", "<key-back>", "<gps>", {"radio/gps: bears the name of a section: its children may be taken for that section's"}},
    // Where a knob can't be.
    {"volslider", "<slider-width>44", "<slider-width>784",
     {"mediaplayer/volslider: the knob is as wide as its track: the slider can't be used"}},
    {"volslider", "<slider-width>44</slider-width>", "",
     {"mediaplayer/volslider: lacks slider-width or slider-image: the slider has no knob"}},
    // What locks a driver in, or can't be read.
    {"radio", "app.goback", "radio.show", {"radio: no button leads to another screen: " + noWay}},
    {"radio", "app.goback", "gps.show", {}},
    {"dash", "<height>368", "<height>384", {}},
    {"messagebox", "messagebox.no", "messagebox.yes", {"messagebox: no button has the command messagebox.no: " + noWay}},
    {"smsbox", "smsbox.close", "app.exit", {"smsbox: no button has the command smsbox.close: " + noWay,
     "smsbox/key-close: the smsbox does not take the command \"app.exit\": the button does not appear"}},
    {"imglist", "<row-height>52", "<row-height>28", {"gallery/imglist: a row is 28 pixels high, its text needs 29"}},
    {"imglist", "<row-height>52", "<row-height>29", {}},
    {"namebox", "<height>48", "<height>28", {"playlists/namebox: it is 28 pixels high, its text needs 29"}},
    {"imglist", "<selection-font-color>#FFFFFF", "<selection-font-color>#A06030",
     {"gallery/imglist: selection-font-color can hardly be told from selection-background-color"}},
    {"imglist", "<background-color-alt>#191E22", "<background-color-alt>#E0E0E0",
     {"gallery/imglist: font-color can hardly be told from background-color-alt"}},
    {"messagebox", "<font-color>#F1F4F6", "<font-color>#202428",
     {"messagebox/text: font-color can hardly be told from the screen's background-color"}},
    {"messagebox", "<width>560", "<width>801", {"messagebox: is 801x300, larger than the screen of 800x480"}},
    {"messagebox", "<width>560", "<width>800", {}},
    {"dash", "<width>784", "<width>793", {"gps/dash: reaches out of the screen of 800x480"}},
    {"dash", "<width>784", "<width>792", {}},
    {"dash", "<height>368", "<height>385", {"gps/key-back: lies beneath dash, which covers it"}},
};
// clang-format on

}  // namespace

TEST_F(Slips, EachIsToldAndNothingElse) {
    EXPECT_THAT(Told(), IsEmpty());
    for (const auto& [section, from, to, told] : slips) {
        Plant(section, from, to);
        if (std::string_view(to) == "<gps>") {
            Plant("radio", "</key-back>", "</gps>");
        }
        EXPECT_THAT(Told(), testing::UnorderedElementsAreArray(told)) << section << ": " << to;
        const bool refused = !told.empty() && told[0].ends_with("(would not load)");
        EXPECT_EQ(report.WouldLoad(), !refused) << to;
    }
}

TEST_F(Slips, AreToldWithTheLineOfTheirElement) {
    const int posy = Plant("dash", "<posy>8", "<posy>-8");
    const int command = Plant("mainmenu", "app.exit", "app.exist");
    (void)Told();
    const auto lineOf = [&](const std::string& place) {
        const auto found = std::find_if(report.findings.begin(), report.findings.end(),
                                        [&](const SkinFinding& finding) { return finding.place == place; });
        return found == report.findings.end() ? 0 : found->line;
    };
    EXPECT_EQ(lineOf("gps/dash"), posy);
    EXPECT_EQ(lineOf("mainmenu/key-exit"), command);
    const int dash = Plant("gps", "<dash>", "<dash>");
    Plant("dash", "<posy>8</posy>", "");
    (void)Told();
    EXPECT_EQ(lineOf("gps/dash"), dash) << "what is missing, by the part that lacks it";
    EXPECT_EQ(LineOf(report.findings[0], "skins/s"),
              "skins/s/skindata.xml:" + std::to_string(dash) +
                  ": gps/dash: posy is missing, =GPS_SPD_SIZE_NOTSET (would not load)");
}

TEST_F(Slips, AKeyFitsAFingerAndTheScreen) {
    EXPECT_THAT(WithKey("app.day", "key.png"), IsEmpty());
    EXPECT_THAT(WithKey("app.day", "small.png"), ElementsAre("radio/k: the target is 75x76, a finger needs 76x76"));
    EXPECT_THAT(WithKey("app.day", "key.png", "high.png"),
                ElementsAre("radio/k: another size than normal-image, whose 76x76 count"));
    EXPECT_THAT(WithKey("app.day", "key.png", "", 724), IsEmpty());
    EXPECT_THAT(WithKey("app.day", "key.png", "", 725), ElementsAre("radio/k: reaches out of the screen of 800x480"));
    EXPECT_THAT(WithKey("app.day", "key.png", "", 100, 405), testing::SizeIs(2)) << "and it overlaps the way back";
    EXPECT_THAT(WithKey("", "key.png"), ElementsAre("radio/k: command is empty: the button does not appear"));
}

TEST_F(Slips, OnlyPairsAndAnswersLieOnEachOther) {
    const auto two = [this](const std::string& a, const std::string& b, int shift) {
        Plant("radio", "<buttons>", "<buttons>" + ButtonXml(0, 0, a, "key.png", "key.png"));
        return WithKey(b, "key.png", "", shift);
    };
    EXPECT_THAT(two("mediaplayer.mode.shuffle", "mediaplayer.mode.repeat", 0), IsEmpty());
    EXPECT_THAT(two("app.volumemute", "app.volumemute", 0), IsEmpty());
    EXPECT_THAT(two("mediaplayer.mode.shuffle", "mediaplayer.mode.repeat", 1),
                ElementsAre("radio/b: overlaps k, and they are no pair"));
    EXPECT_THAT(two("gps.show", "mainmenu.show", 75), testing::SizeIs(1));
    EXPECT_THAT(two("gps.show", "mainmenu.show", 76), IsEmpty()) << "they only touch";
    Plant("messagebox", "<posx>192", "<posx>8");  // yes over ok
    EXPECT_THAT(Told(), IsEmpty());
    Plant("messagebox", "<posx>376", "<posx>192");  // no over yes
    EXPECT_THAT(Told(), ElementsAre("messagebox/key-no: overlaps key-yes, and they are no pair"));
}

TEST_F(Slips, OneFaultIsOneLine) {
    Plant("mainmenu", "radio.show", "radio.shwo");
    Plant("mainmenu", "gps.show", "gps.dance");
    Plant("mainmenu", "phone.show", "gps.dance");
    Plant("gps", "app.goback", "mainmenu.glow");
    EXPECT_THAT(Told(),
                UnorderedElementsAre(
                    "mainmenu/key-gps: commands not known to this version: gps.dance (2 times), mainmenu.glow",
                    "mainmenu/key-radio: the command \"radio.shwo\" is not known to this version; is it radio.show?",
                    "gps: no button leads to another screen: a driver can't get out of it"));
    Plant("radio", "radio-back.png", "radio-bach.png");
    Plant("gps", "gps-back.png", "Radio-Back.png");
    Plant("phone", "phone-back.png", "Radio-Back.png");
    EXPECT_THAT(
        Told(),
        UnorderedElementsAre(
            "radio/key-back: there is no file \"images/radio-bach.png\": what names it shows nothing; is it "
            "images/radio-back.png?",
            "phone/key-back: there is no file \"images/Radio-Back.png\" (2 times): what names it shows nothing; "
            "there is \"images/radio-back.png\", and letters count"));
    for (auto at = xml.find("images/"); at != xml.npos; at = xml.find("images/")) {
        xml.replace(at, 7, "image\\");
    }
    const auto told = Told();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr("there is no picture in the folder \"image/\""));
    EXPECT_THAT(told[0], HasSubstr("; is it images/?"));
    EXPECT_THAT(report.findings, testing::SizeIs(1 + 6)) << "the pictures beside the file, and one for their folder";
}

TEST_F(Slips, PicturesThatNobodyNamesAndThoseOfALanguage) {
    const auto files = [this] {
        (void)Told();
        std::vector<std::string> lines;
        for (const SkinFinding& finding : report.findings) {
            if (finding.file.find('/') != std::string::npos) {
                lines.push_back(finding.file + ": " + finding.reason);
            }
        }
        return lines;
    };
    folder.Write("images/left.PNG", PngBytes(3, 3));
    folder.Write("old/a.png", PngBytes(3, 3));
    folder.Write("old/b.jpeg", PngBytes(3, 3));
    EXPECT_THAT(files(), ElementsAre("images/left.PNG: nothing in skindata.xml names it",
                                     "old/a.png: nothing in skindata.xml names any of the 2 pictures of this folder"));
    folder.Write("images/de/gps-back.png", PngBytes(3, 3));
    folder.Write("images/de/radio-back.png", "no picture");
    folder.Write("images/de/dvdplayer-back.png", PngBytes(784, 80));
    folder.Write("images/de/other.png", PngBytes(3, 3));
    std::filesystem::remove_all(folder.path + "/old");
    EXPECT_THAT(files(),
                ElementsAre("images/de/gps-back.png: another size than images/gps-back.png, which it stands in for",
                            "images/de/other.png: nothing in skindata.xml names it",
                            "images/de/radio-back.png: is no picture (would not load in this language)",
                            "images/left.PNG: nothing in skindata.xml names it"));
    EXPECT_EQ(report.ExitCode(), 2);
}

TEST_F(Slips, ALabelHoldsItsLongestTextInEachLanguage) {
    EXPECT_THAT(WithLabel(std::string(25, 'x')), IsEmpty());
    EXPECT_THAT(WithLabel(std::string(26, 'x')),
                ElementsAre("radio/l: \"" + std::string(26, 'x') + "\" is 208 pixels wide, the label is 200"));
    EXPECT_THAT(WithLabel("**TIME_SHORT**", "<font-size>40</font-size>"),
                ElementsAre("radio/l: its text is 64 pixels high, the label is 30",
                            "radio/l: \"12:59 PM\" is 213 pixels wide, the label is 200"));
    EXPECT_THAT(WithLabel("**MEDIATITLE**", "<charcount>26</charcount>"), testing::SizeIs(1));
    EXPECT_THAT(WithLabel("**MEDIATITLE**", "<charcount>25</charcount>"), IsEmpty());
    EXPECT_THAT(WithLabel("**MEDIATITLE**"), IsEmpty());
    EXPECT_THAT(WithLabel("**mediatitle**"),
                ElementsAre("radio/l: the placeholder \"**mediatitle**\" is unknown: the label stays empty; is it "
                            "**MEDIATITLE**?"));
    EXPECT_THAT(WithLabel("**MESSAGEBOXTEXT**"),
                ElementsAre("radio/l: only the messagebox fills **MESSAGEBOXTEXT**: the label stays empty"));
    EXPECT_THAT(WithLabel("MEDIAPLAYER_REDY"),
                ElementsAre("radio/l: MEDIAPLAYER_REDY is no language key: it shows as it stands; is it "
                            "MEDIAPLAYER_READY?"));
    LanguageTable german;
    ASSERT_EQ(german.loadLanguage(std::string(ZVR_SOURCE_DIR) + "/data", "de"), "");
    const auto told = WithLabel("PLAYLISTS_ENTERNEWNAME", "", {{"de", german}});
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr("(de) is "));
    EXPECT_THAT(WithLabel("MEDIAPLAYER_READY", "", {{"de", german}}), IsEmpty());
}

TEST_F(Slips, WhatLiesBeneathAnAreaIsCoveredByIt) {
    const std::string look = "<shadow-distance>0</shadow-distance><font-color>#FFFFFF</font-color>";
    const auto withLabel = [&] {
        Plant("gps", "<labels>", "<labels>" + LabelXml("Hi", look));
        return Told();
    };
    EXPECT_THAT(withLabel(), ElementsAre("gps/l: lies beneath dash, which covers it"));
    Plant("dash", "<posy>8", "<posy>39");
    Plant("dash", "<height>368", "<height>330");
    EXPECT_THAT(withLabel(), IsEmpty()) << "the text ends above it, the label's own height doesn't matter";
}

TEST_F(Slips, MoreThanAFormHoldsIsTold) {
    std::string keys;
    for (int i = 0; i < mostElements; ++i) {
        keys += Tag("k",
                    "<posx>0</posx><posy>0</posy><command>app.day</command><normal-image>key.png</normal-image>"
                    "<active-image>key.png</active-image>");
    }
    Plant("radio", "<buttons>", "<buttons>" + keys);
    EXPECT_THAT(Told(), Contains("radio/key-back: more than 2000 buttons: it does not appear"));
}

TEST_F(Slips, FilesThatAreNoSkinAreToldWhere) {
    xml = "<skin>\n <about>\n </skin>\n";
    EXPECT_THAT(Told(), ElementsAre("skin: can't be read: mismatched tag (would not load)"));
    EXPECT_EQ(report.findings[0].line, 3);
    xml = "<skin>\n A&nbsp;B</skin>";
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("undefined entity &nbsp;: write the character itself")));
    report = CheckSkin(folder.path + "/nowhere", {});
    ASSERT_EQ(report.findings.size(), 1U);
    EXPECT_THAT(report.findings[0].reason, HasSubstr("there is no such file"));
}

TEST(SkinCheck, TheSkinsThatShipLackNothing) {
    for (const auto& skin : std::filesystem::directory_iterator(std::string(ZVR_BINARY_DIR) + "/skins")) {
        LanguageTable german;
        ASSERT_EQ(german.loadLanguage(std::string(ZVR_SOURCE_DIR) + "/data", "de"), "");
        for (const SkinFinding& finding : CheckSkin(skin.path(), {{"de", german}}).findings) {
            // What later versions will know, and widths, which need the typefaces.
            EXPECT_THAT(finding.reason,
                        testing::AnyOf(StartsWith("commands not known to this version"), HasSubstr(" pixels wide")))
                << finding.place;
        }
    }
}

// With ZVR_WRITE_REFERENCE=1 in the environment it puts the tables into the guide.
TEST(SkinReference, TheGuideHasWhatTheTablesHave) {
    const std::string path = std::string(ZVR_SOURCE_DIR) + "/docs/skins.md";
    const std::string text = files::Read(path).value_or("");
    const std::string begin = "<!-- skincheck --reference -->\n";
    const auto from = text.find(begin);
    const auto to = text.find("<!-- end of the reference -->");
    ASSERT_LT(from, to);
    ASSERT_NE(to, text.npos);
    if (std::getenv("ZVR_WRITE_REFERENCE") != nullptr) {
        std::ofstream(path) << text.substr(0, from) << begin << SkinReference() << text.substr(to);
        return;
    }
    EXPECT_EQ(FirstDifference(SkinReference(), text.substr(from + begin.size(), to - from - begin.size())), "")
        << "ZVR_WRITE_REFERENCE=1 writes it anew";
}
