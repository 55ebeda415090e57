#include "skin/check/skincheck.h"
#include "skin/skin_fixture.h"
#include "skin/skinner.h"
#include "support/paths.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

using namespace zvr;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

/// A copy of the skin that ships, one fault after the other planted into it.
class PlantedSkin {
public:
    PlantedSkin() {
        std::filesystem::copy(std::string(ZVR_BINARY_DIR) + "/skins/" + goodSkin, folder.path,
                              std::filesystem::copy_options::recursive);
        xml = folder.ReadFile("skindata.xml");
    }

    /// Replaces the first `from` behind `anchor`; gives the line that it stands in.
    int Plant(const std::string& anchor, const std::string& from, const std::string& to) {
        const auto begin = xml.find(anchor);
        const auto at = begin == xml.npos ? begin : xml.find(from, begin);
        if (at == xml.npos) {
            ADD_FAILURE() << "the skin has no " << from << " behind " << anchor;
            return 0;
        }
        xml.replace(at, from.size(), to);
        return LineOf(at);
    }
    [[nodiscard]] int LineOf(std::size_t at) const {
        return 1 + static_cast<int>(std::count(xml.begin(), xml.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
    }
    int LineOf(const std::string& anchor) const { return LineOf(xml.find(anchor)); }

    SkinReport Checked() {
        folder.Write("skindata.xml", xml);
        return CheckSkin(folder.path);
    }

    TemporaryFolder folder;
    std::string xml;
};

/// Without what later versions will know.
std::vector<std::string> Lines(const SkinReport& report) {
    std::vector<std::string> lines;
    for (const SkinFinding& finding : report.findings) {
        if (finding.reason.find("not known to this version") == std::string::npos) {
            lines.push_back(LineOf(finding, "."));
        }
    }
    return lines;
}

/// "./skindata.xml:12: place: " and then the words somewhere.
auto Tells(int line, const std::string& place, const std::string& words) {
    return Contains(AllOf(HasSubstr("./skindata.xml:" + std::to_string(line) + ": " + place + ": "), HasSubstr(words)));
}

/// The small skin of the tests with something put into one section.
class SmallSkin : public testing::Test {
protected:
    std::vector<std::string> With(const std::string& section, const std::string& xml, const std::string& from = "") {
        std::string whole = skin.Xml();
        const std::string target = from.empty() ? "<" + section + ">" : from;
        const auto at = whole.find(target, whole.find("<" + section + ">"));
        EXPECT_NE(at, whole.npos);
        whole.replace(at, target.size(), from.empty() ? target + xml : xml);
        skin.WriteTo(folder, "s");
        folder.Write("skins/s/skindata.xml", whole);
        folder.Write("skins/s/big.png", PngBytes(100, 80));
        folder.Write("skins/s/broken.png", "no picture");
        report = CheckSkin(folder.path + "/skins/s");
        return Lines(report);
    }

    static std::string Key(int x, int y, const std::string& command, const std::string& active = "big.png") {
        return Tag("buttons", ButtonXml(x, y, command, "big.png", active));
    }

    TestSkin skin;
    TemporaryFolder folder;
    SkinReport report;
};

}  // namespace

TEST(SkinCheck, TheSkinThatShipsIsClean) {
    PlantedSkin skin;
    const SkinReport report = skin.Checked();
    EXPECT_THAT(Lines(report), IsEmpty());
    EXPECT_TRUE(report.WouldLoad());
}

TEST(SkinCheck, TenPlantedFaultsAreNamedWithTheirLines) {
    PlantedSkin skin;
    const int okay = skin.Plant("<messagebox>", "<command>messagebox.ok", "<command>mainmenu.show");
    const int token = skin.Plant("<gps>", "**GPS_ALTITUDE**", "**GPS_HEIGHT**");
    const int shadow = skin.Plant("<radio>", "<shadow-distance>0", "<shadow-distance>abc");
    const int list = skin.Plant("<playlistlist>", "<width>", "<with>");
    skin.Plant("<playlistlist>", "</width>", "</with>");
    const int slider = skin.Plant("<posslider>", "<posy>352", "<posy>-352");
    const int text = skin.Plant("<mediaplayer>", "**WAVEVOLUME**", "The volume of the whole machine");
    const int missing = skin.Plant("<mainmenu>", "images/player-bar-88x76.png", "images/no-such.png");
    const int outside = skin.Plant("<bar-plus>", "<posx>704", "<posx>760");
    const int version = skin.Plant("<about>", "<for-app-version>1.2<", "<for-app-version>1.3<");
    skin.folder.Write("images/leftover.png", PngBytes(10, 10));

    const SkinReport report = skin.Checked();
    const auto lines = Lines(report);
    EXPECT_EQ(report.ExitCode(), 2);
    EXPECT_THAT(lines, Tells(okay, "messagebox/ok", "does not take the command"));
    EXPECT_THAT(lines, Tells(token, "gps/altitude", "**GPS_HEIGHT**"));
    EXPECT_THAT(lines, Tells(shadow, "radio/bar-volume", "\"abc\" is no number"));
    EXPECT_THAT(lines, Tells(list - 3, "playlists/playlistlist", "width is missing, =PLAYLISTS_LISTPOSITION_NOTSET"));
    EXPECT_THAT(lines, Tells(slider, "mediaplayer/posslider", "=MP_POSSLIDERPOS_INVALID"));
    EXPECT_THAT(lines, Tells(text - 5, "mediaplayer/bar-volume", "pixels wide"));
    EXPECT_THAT(lines, Tells(missing, "mainmenu/bar-player", "there is no file"));
    EXPECT_THAT(lines, Tells(outside - 1, "mainmenu/bar-plus", "reaches out of the screen"));
    EXPECT_THAT(lines, Tells(version, "about/for-app-version", "1.3"));
    EXPECT_THAT(lines, Contains("./images/leftover.png:1: image: nothing in skindata.xml names it"));
}

TEST_F(SmallSkin, APictureOfALanguageIsAsLargeAsItsOriginal) {
    folder.Write("skins/s/de/big.png", PngBytes(100, 80));
    EXPECT_THAT(With("gps", Key(0, 0, "app.goback")), Not(Contains(HasSubstr("de/big.png"))));
    folder.Write("skins/s/de/big.png", PngBytes(100, 79));
    folder.Write("skins/s/de/other.png", PngBytes(100, 80));
    auto lines = With("gps", Key(0, 0, "app.goback"));
    EXPECT_THAT(lines, Contains(HasSubstr("de/big.png:1: image: another size than big.png")));
    EXPECT_THAT(lines, Contains(HasSubstr("de/other.png:1: image: nothing in skindata.xml names it")));
    folder.Write("skins/s/de/big.png", "no picture");
    lines = With("gps", Key(0, 0, "app.goback"));
    EXPECT_THAT(lines, Contains(HasSubstr("de/big.png:1: image: is no picture")));
    EXPECT_EQ(report.ExitCode(), 2);
}

TEST_F(SmallSkin, WhatTheLoaderWouldReportHasItsCode) {
    EXPECT_THAT(With("radio", "<background-image>broken.png</background-image>"),
                Contains(HasSubstr("radio: background-image \"broken.png\" is no picture, =RADIO_BGPIC_INVALID")));
    EXPECT_THAT(With("radio", Key(0, 0, "app.goback", "broken.png")),
                Contains(HasSubstr("radio/b: active-image \"broken.png\" is no picture, =RADIO_BTNPIC_INVALID")));
    EXPECT_THAT(With("general", "", "<width>800</width>"), Contains(HasSubstr("=GENERAL_WIDTH_NOT_SET")));
    EXPECT_THAT(With("general", "<width>100</width>"), Contains(HasSubstr("=GENERAL_WIDTH_NOT_SET")));
    EXPECT_THAT(With("quickbarfloating", "<width>0.4</width>"), Contains(HasSubstr("=QBFLOAT_WIDTH_NOTSET")));
    EXPECT_THAT(With("searchtermbox", "<posx>-1</posx>"), Contains(HasSubstr("=TXTBOX_TXTSEARCHTERM_INVALID")));
    EXPECT_THAT(With("posslider", "<slider-image>broken.png</slider-image>"),
                Contains(HasSubstr("=MP_POSSLIDERPIC_INVALID")));
    EXPECT_EQ(report.ExitCode(), 2);
}

TEST_F(SmallSkin, EveryFaultThatTheProgramReportsIsFoundAndNoOther) {
    struct Case {
        const char* section;
        const char* xml;
    };
    const Case cases[] = {{"vis", "<height>0</height>"},
                          {"dvdcontent", "<height>0</height>"},
                          {"dvdcontent", "<logo>broken.png</logo>"},
                          {"dash", "<width>0</width>"},
                          {"preview", "<posx>-1</posx>"},
                          {"smsbox", "<width>0</width>"},
                          {"smsbox", "<height>0</height>"},
                          {"volslider", "<slider-width>0.4</slider-width>"},
                          {"messagebox", "<height>-1</height>"},
                          {"quickbardocked", "<height>x</height>"},
                          {"numberbox", "<height>0</height>"},
                          {"medialist", "<height>0</height>"}};
    Bench bench;
    bench.Start();
    int number = 0;
    for (const auto& [section, xml] : cases) {
        (void)With(section, xml);
        const std::string name = "tried" + std::to_string(++number);
        std::filesystem::copy(folder.path + "/skins/s", bench.folder.path + "/skins/" + name);
        bench.dialogs.critical.clear();
        bench.program->skinner.LoadSkin(name);
        EXPECT_EQ(report.WouldLoad(), bench.dialogs.critical.empty()) << section << xml;
        for (const std::string& told : bench.dialogs.critical) {
            const auto at = told.find("(ErrCode") + 8;
            const std::string code = told.substr(at, told.find(')', at) - at);
            EXPECT_THAT(Lines(report), Contains(HasSubstr(code))) << section << xml;
        }
    }
}

TEST_F(SmallSkin, WhatTheLoaderPassesOverIsAWarning) {
    EXPECT_THAT(With("radio", Tag("buttons", Tag("k", "<posx>0</posx><command>app.goback</command>"))),
                AllOf(Contains(HasSubstr("radio/k: posy is missing")), Contains(HasSubstr("active-image is missing"))));
    EXPECT_THAT(With("radio", Tag("labels", LabelXml("Hi", ""))), Contains(HasSubstr("shadow-distance is missing")));
    EXPECT_EQ(report.ExitCode(), 1);
    EXPECT_THAT(With("radio", Key(0, 0, "app.goback") + "<background-color>red</background-color>"),
                Contains(HasSubstr("becomes black")));
    EXPECT_THAT(With("radio", Tag("labels", LabelXml("**time_short**"))),
                Contains(HasSubstr("written **TIME_SHORT**")));
    EXPECT_THAT(With("radio", Tag("labels", LabelXml("A rather long text that no label of this width holds"))),
                Contains(HasSubstr("pixels wide, the label is 200")));
    EXPECT_THAT(With("posslider", "<slider-width>400</slider-width>"), Contains(HasSubstr("as wide as its track")));
    EXPECT_THAT(With("radio", Key(0, 0, "app.goback", "BIG.png")), Contains(HasSubstr("there is \"big.png\"")));
    EXPECT_THAT(With("radio", Key(0, 0, "app.fly")), testing::Not(Contains(HasSubstr("radio/b"))));
    EXPECT_THAT(report.findings,
                Contains(testing::Field(&SkinFinding::reason, HasSubstr("not known to this version"))));
    EXPECT_THAT(With("radio", Key(0, 0, "app.goback", "normal.png")), Contains(HasSubstr("another size")));
    EXPECT_THAT(With("dash", "<needle><offset>360</offset><length>359.5</length></needle>"),
                Contains(HasSubstr("offset \"360\" must be degrees, at least 0, below 360: it is passed over")));
    EXPECT_THAT(With("medialist", "<row-height>0</row-height>"),
                Contains(HasSubstr("row-height \"0\" must be pixels, above 0: it is passed over")));
    EXPECT_THAT(With("radio", Tag("labels", LabelXml("Hi", "<shadow-distance>2</shadow-distance>"))),
                AllOf(Contains(HasSubstr("no shadow")), Contains(HasSubstr("font-color is missing"))));
    EXPECT_THAT(With("radio", "", "<background-color>#202020</background-color>"),
                Contains(HasSubstr("radio: background-color is missing")));
    EXPECT_THAT(With("radio", "<buttens/>"), Contains(HasSubstr("nothing reads the element buttens")));
}

TEST_F(SmallSkin, OnlyTogglesAndAnswersMayLieOnEachOther) {
    const auto two = [this](const std::string& form, const std::string& a, const std::string& b, int shift) {
        const auto lines = With(form, Tag("buttons", ButtonXml(400, 300, a, "big.png", "big.png") +
                                                         ButtonXml(400 + shift, 300, b, "big.png", "big.png")));
        return std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
            return line.find("overlaps b, and they are no toggle pair") != line.npos;
        });
    };
    EXPECT_FALSE(two("radio", "mediaplayer.mode.shuffle", "mediaplayer.mode.repeat", 0));
    EXPECT_TRUE(two("radio", "mediaplayer.mode.shuffle", "mediaplayer.mode.repeat", 1));
    EXPECT_TRUE(two("radio", "radio.show", "mainmenu.show", 0));
    EXPECT_TRUE(two("radio", "radio.show", "mainmenu.show", 99));
    EXPECT_FALSE(two("radio", "radio.show", "mainmenu.show", 100)) << "they only touch";
    EXPECT_FALSE(two("messagebox", "messagebox.ok", "messagebox.yes", 50));
    EXPECT_TRUE(two("messagebox", "messagebox.no", "messagebox.yes", 50));
}

TEST_F(SmallSkin, FilesThatAreNoSkinAreToldWhere) {
    folder.Write("bad/skindata.xml", "<skin>\n <about>\n </skin>\n");
    EXPECT_THAT(Lines(CheckSkin(folder.path + "/bad")),
                ElementsAre(HasSubstr("skindata.xml:3: skin: can't be read: mismatched tag (would not load)")));
    EXPECT_THAT(Lines(CheckSkin(folder.path + "/nowhere")),
                ElementsAre(HasSubstr("skindata.xml:1: skin: can't be read: there is no such file")));
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
