#include "core/mainmenu.h"
#include "core/messagebox.h"
#include "media/gallery.h"
#include "media/mediasearch.h"
#include "media/playlists.h"
#include "phone/phone.h"
#include "phone/smsbox.h"
#include "radiogps/radio.h"
#include "skin/skin_fixture.h"
#include "skin/skinner.h"

using namespace zvr;

namespace {

class ElementsTest : public SkinTest {
protected:
    void Buttons(const std::string& form, const std::string& xml) { Insert(form, Tag("buttons", xml)); }
    void Labels(const std::string& xml) { Insert("gallery", Tag("labels", xml)); }
    const Form& Gallery() { return Running().gallery.form; }
    const Control& Label(int index) { return *Gallery().Find("albl", index); }
};

std::string Shadow(const std::string& distance) {
    return Tag("shadow-distance", distance);
}

}  // namespace

TEST_F(ElementsTest, AButtonNeedsEveryPartAndTheNextOneTakesItsNumber) {
    const std::string whole = ButtonXml(3, 4, "radio.show");
    const auto without = [&whole](const std::string& element) {
        std::string xml = whole;
        const auto begin = xml.find("<" + element + ">");
        return xml.erase(begin, xml.find("</" + element + ">") + element.size() + 3 - begin);
    };
    std::string faulty;
    for (const char* element : {"posx", "posy", "command", "normal-image", "active-image"}) {
        faulty += without(element);
    }
    faulty += ButtonXml(-1, 0, "a.b") + ButtonXml(0, -1, "a.b") + ButtonXml(0, 0, "") + ButtonXml(0, 0, "a.b", "") +
              ButtonXml(0, 0, "a.b", "gone.png") + ButtonXml(0, 0, "a.b", "normal.png", "gone.png") +
              ButtonXml(0, 0, "a.b", "images");
    Buttons("gallery", faulty + whole + ButtonXml(3, 4, "gps.show", "small.png"));
    LoadTried();
    EXPECT_THAT(Reported(), IsEmpty());
    EXPECT_THAT(Commands(Gallery()), ElementsAre("radio.show", "gps.show"));
    const Control& first = *Gallery().Find("abutton", 1);
    const Control& second = *Gallery().Find("abutton", 2);
    EXPECT_EQ(first.Place(), (Rect{3, 4, 100, 50}));
    EXPECT_EQ(second.Place(), (Rect{3, 4, 30, 20})) << "as large as its resting picture";
    EXPECT_LT(Depth(first), Depth(second));
    EXPECT_LT(Depth(second), Depth(*Running().gallery.imglist)) << "a list covers what lies below it";
}

TEST_F(ElementsTest, TheTwoBoxesTakeNoOtherCommandsThanTheirOwn) {
    const std::string all = ButtonXml(0, 0, "mainmenu.show") + ButtonXml(0, 0, "messagebox.ok") +
                            ButtonXml(0, 0, "smsbox.send") + ButtonXml(0, 0, "externalapps.onscreenkeyboard") +
                            ButtonXml(0, 0, "MessageBox.Yes") + ButtonXml(0, 0, "messagebox.no") +
                            ButtonXml(0, 0, "mainmenu.show", "broken.png");
    Buttons("messagebox", all);
    Buttons("smsbox", all);
    LoadTried();
    EXPECT_THAT(Commands(Running().messagebox.form), ElementsAre("messagebox.ok", "messagebox.no"));
    EXPECT_THAT(Commands(Running().smsbox.form), ElementsAre("smsbox.send", "externalapps.onscreenkeyboard"));
    EXPECT_THAT(Reported(), IsEmpty()) << "the picture of a refused button is nobody's";
}

TEST_F(ElementsTest, ALabelNeedsItsPlaceItsTextAndItsShadowDistance) {
    const std::string good = LabelXml("A B");
    const auto edited = [&good](const std::string& from, const std::string& to) {
        std::string xml = good;
        return xml.replace(xml.find(from), from.size(), to);
    };
    Labels(edited("<posx>10</posx>", "") + edited("<height>30</height>", "") + edited(Shadow("0"), "") +
           edited("<text>A B</text>", "") + edited("A B", "") + edited("<posy>20", "<posy>-1") +
           edited("<width>200", "<width>-200") + edited(">0<", ">-1<") + good + edited("<width>200", "<width>0") +
           edited("<posx>10", "<posx>10.5px"));
    LoadTried();
    ASSERT_EQ(Shown(Gallery(), "albl").size(), 3U);
    EXPECT_EQ(Label(1).caption.get(),
              "A\xC2\xA0"
              "B");
    EXPECT_EQ(Label(1).Tag(), "");
    EXPECT_EQ(Label(1).font.get(), Font{});
    EXPECT_EQ(Label(1).align.get(), Align::center);
    EXPECT_EQ(Label(2).width, 0.0);
    EXPECT_EQ(Label(3).left, 10.5 * twips);
}

TEST_F(ElementsTest, TheLookOfALabel) {
    Labels(LabelXml("a", Shadow("0") +
                             "<font-face>Roboto</font-face><font-size>20.5</font-size><font-style>xBU</font-style>"
                             "<font-color>#010203</font-color><align>right</align>") +
           LabelXml("b", Shadow("0") + "<font-color>red</font-color><align>Center</align><font-style>is</font-style>") +
           LabelXml("c", Shadow("0") + "<font-size>-3</font-size>"));
    LoadTried();
    EXPECT_EQ(Label(1).font.get(), (Font{"Roboto", 20.5, true, false, true, false}));
    EXPECT_EQ(Label(1).foreColor, RgbColor(1, 2, 3));
    EXPECT_EQ(Label(1).align.get(), Align::right);
    EXPECT_EQ(Label(2).foreColor, 0U);
    EXPECT_EQ(Label(2).align.get(), Align::left) << "capitals are another word";
    EXPECT_EQ(Label(2).font.get(), (Font{"Arial", 12, false, true, false, true}));
    EXPECT_EQ(Label(3).font->points, 12);

    ForgetEdits();
    Labels(LabelXml("a"));
    LoadTried();
    EXPECT_EQ(Label(1).foreColor, RgbColor(1, 2, 3)) << "without a colour it keeps the one it has";
    EXPECT_EQ(Label(1).font.get(), Font{}) << "without a style none is left";
}

TEST_F(ElementsTest, AShadowNeedsADistanceAndAColor) {
    const std::string color = "<shadow-color>#0000FF</shadow-color><font-color>#FF0000</font-color>";
    Labels(LabelXml("none", Shadow("0") + color) + LabelXml("no color", Shadow("3")) +
           LabelXml("**TIME_SHORT**", Shadow(" 2.5 ") + color) +
           LabelXml("black", Shadow("1") + "<shadow-color>blue</shadow-color>"));
    LoadTried();
    ASSERT_EQ(Shown(Gallery(), "albl").size(), 6U);
    const Control& label = Label(3);
    const Control& shadow = Label(4);
    EXPECT_EQ(shadow.left - label.left, 2.5 * twips);
    EXPECT_EQ(shadow.top - label.top, 2.5 * twips);
    EXPECT_EQ(shadow.width, label.width.get());
    EXPECT_EQ(label.foreColor, RgbColor(255, 0, 0));
    EXPECT_EQ(shadow.foreColor, RgbColor(0, 0, 255));
    EXPECT_EQ(Depth(shadow) + 1, Depth(label)) << "right behind its label, in front of the one before";
    EXPECT_LT(Depth(Label(2)), Depth(shadow));
    EXPECT_EQ(Label(6).foreColor, 0U);
    bench.Advance(Milliseconds{100});
    EXPECT_NE(label.caption.get(), "");
    EXPECT_EQ(shadow.caption.get(), label.caption.get());
}

TEST_F(ElementsTest, AShadowDistanceThatIsNoNumberEndsTheProgram) {
    for (const char* text : {"", " ", "abc", "3px", "1,5", "--1", "1e999", "inf", "nan", "+", "0x10"}) {
        EXPECT_FALSE(IsStrictNumber(text)) << text;
    }
    for (const char* text : {"0", " 3 ", "-1", "+2", ".5", "1.5", "1e1"}) {
        EXPECT_TRUE(IsStrictNumber(text)) << text;
    }
    // Even of a label that would be left out.
    Labels(LabelXml("a", Shadow("3px") + "<posx>-1</posx>"));
    Replace("mainmenu", "<mainmenu>", "<mainmenu><background-image>broken.png</background-image>");
    LoadTried();
    EXPECT_TRUE(bench.loop.quitting);
    EXPECT_EQ(bench.loop.exitCode, 1);
    EXPECT_EQ(bench.dialogs.critical.size(), 1U) << "and nothing after it";
    EXPECT_EQ(Running().skinner.loadedSkin, goodSkin);
}

TEST_F(ElementsTest, AListTakesItsLookAndAMissingColorIsBlack) {
    const std::string look =
        "<font-face>Roboto</font-face><font-size>20</font-size><font-style>B</font-style><row-height>30.5</row-height>"
        "<font-color>#000001</font-color><background-color>#000002</background-color>"
        "<selection-font-color>#000003</selection-font-color>"
        "<selection-background-color>#000004</selection-background-color>";
    Replace("gallery", "<imglist>", "<imglist>" + look);
    LoadTried();
    Control& list = *Running().gallery.imglist;
    EXPECT_EQ(list.Place(), (Rect{10, 10, 300, 200}));
    const GridLook expected{30, RgbColor(0, 0, 1), RgbColor(0, 0, 2), 0, RgbColor(0, 0, 3), RgbColor(0, 0, 4)};
    EXPECT_EQ(list.grid->Look(), expected);
    EXPECT_EQ(list.font.get(), (Font{"Roboto", 20, true}));

    ForgetEdits();
    Replace("gallery", "<width>300", "<width>200");
    Replace("gallery", "<row-height>40", "<row-height>0");
    LoadTried();
    EXPECT_EQ(list.Place().width, 200);
    EXPECT_EQ(list.grid->Look().rowHeight, 30);
    EXPECT_EQ(list.font.get(), (Font{"Roboto", 20, true})) << "bold stays once it is set";
}

TEST_F(ElementsTest, ATextBoxMayHaveNoHeightAndIsCentredUnlessToldOtherwise) {
    Replace("phone", "<height>40", "<height>0");
    Replace("phone", "<numberbox>", "<numberbox><align>RIGHT</align>");
    Replace("mediasearch", "<searchtermbox>", "<searchtermbox><align>Left</align><font-style>bI</font-style>");
    Replace("playlists", "<namebox>", "<namebox><align>middle</align>");
    LoadTried();
    EXPECT_THAT(Reported(), IsEmpty());
    const Control& number = *Running().phone.numberbox;
    EXPECT_EQ(number.Place(), (Rect{400, 10, 300, 0}));
    EXPECT_EQ(number.align.get(), Align::right);
    const Control& term = *Running().mediasearch.txtSearchTerm;
    EXPECT_EQ(term.align.get(), Align::left);
    EXPECT_TRUE(term.font->bold && term.font->italic);
    EXPECT_EQ(Running().playlists.txtCurrentPlaylistName->align.get(), Align::center);
}
