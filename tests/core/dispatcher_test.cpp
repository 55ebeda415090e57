#include "core/commanddispatcher.h"
#include "core/godfather.h"
#include "core/quickjump.h"
#include "media/gallery.h"
#include "media/mediaplayer.h"
#include "media/mediasearch.h"
#include "phone/phone.h"
#include "platform/platform.h"
#include "support/bench.h"

using namespace zvr;

namespace {

class DispatcherTest : public testing::Test {
protected:
    void Start() {
        bench.Start();
        bench.AnswerMessages();
    }
    void Do(const std::string& command) { bench.program->dispatchCommand(command); }

    Bench bench;
};

}  // namespace

TEST_F(DispatcherTest, UnknownAndInactiveCommandsSayWhyInTheirOwnWords) {
    bench.settings = "[general]\nSHOWWARNING=0\nUSEDMODULES=[gps]\n";
    Start();
    const std::string inactive = bench.program->languageText("GENERAL_INACTIVEMODULE");
    const std::string unknown = bench.program->languageText("GENERAL_UNKNOWNCOMMAND");
    const std::vector<std::pair<std::string, std::string>> cases{
        {"Radio.Show", inactive + "\nradio"},
        {"nonsense.at.all", inactive + "\nnonsense"},
        {"app.foo", unknown + "\n\napp.foo"},
        {"MediaPlayer", unknown + "\n\nmediaplayer"},
        {".mediaplayer", unknown + "\n\n.mediaplayer"},
        {"media.show", unknown + "\n\nmedia.show"},
        {"", unknown + "\n\n"},
        {"mediaplayer.scrollsideways", unknown + "\n\nmediaplayer.scrollsideways"},
        {"mediaplayer.scrollup.", unknown + "\n\nmediaplayer.scrollup."},
    };
    for (const auto& [command, message] : cases) {
        bench.messages.clear();
        Do(command);
        EXPECT_THAT(bench.messages, ElementsAre(message)) << command;
    }
    EXPECT_EQ(bench.Front(), "mainmenu");
}

TEST_F(DispatcherTest, EveryScreenCommandOfTheTableBringsItsFormToTheFront) {
    Start();
    for (const Command& command : Commands()) {
        const std::string name(command.name);
        EXPECT_TRUE(IsKnownCommand(name));
        EXPECT_FALSE(command.description.empty()) << name;
        if (name.ends_with(".show")) {
            Do(name);
            EXPECT_EQ(bench.Front() + ".show", name);
        }
    }
    const Program& program = *bench.program;
    EXPECT_EQ(program.mediasearch.form.focus, program.mediasearch.txtSearchTerm) << "keys go where they are of use";
    EXPECT_EQ(program.gallery.form.focus, program.gallery.imglist);
    EXPECT_TRUE(IsKnownCommand("Gallery.ScrollTop"));
    EXPECT_TRUE(IsKnownCommand("mediasearch.text.q"));
    EXPECT_FALSE(IsKnownCommand("gallery.scroll"));
    EXPECT_THAT(bench.messages, IsEmpty());
    for (const char* command : {"externalapps.applauncher.6", "radio.station.10", "radio.station.-1"}) {
        bench.messages.clear();
        Do(command);
        EXPECT_THAT(bench.messages, Contains(EndsWith(command)));
    }
}

TEST_F(DispatcherTest, GoBackGoesToAndFroBetweenTwoScreens) {
    Start();
    Do("dvdplayer.show");
    Do("radio.show");
    std::vector<std::string> fronts;
    for (int i = 0; i < 3; ++i) {
        Do("app.goback");
        fronts.push_back(bench.Front());
    }
    EXPECT_THAT(fronts, ElementsAre("dvdplayer", "radio", "dvdplayer"));
    bench.program->showMessage("news");
    Do("app.goback");
    EXPECT_EQ(bench.Front(), "radio") << "a message is no screen to go back to";
}

TEST_F(DispatcherTest, FunctionKeysRunTheirCommandAndAScrollCommandWearsOut) {
    bench.settings = "[general]\nSHOWWARNING=0\n[hotkeys]\nF2=MediaPlayer.ScrollUp\nF12=gallery.show\n";
    Start();
    bench.TypeKey(Key::f12, true);
    bench.TypeKey(Key::end);
    EXPECT_EQ(bench.Front(), "mainmenu");
    bench.TypeKey(Key::f12);
    EXPECT_EQ(bench.Front(), "gallery");
    bench.TypeKey(Key::f1);
    EXPECT_THAT(bench.messages, IsEmpty());
    bench.TypeKey(Key::f2);
    EXPECT_THAT(bench.messages, IsEmpty());
    EXPECT_EQ(bench.program->godfather.hotkeyCommands[1], "scrollup");
    bench.TypeKey(Key::f2);
    EXPECT_THAT(bench.messages, ElementsAre(EndsWith("\n\nscrollup")));
}

TEST_F(DispatcherTest, ScrollCommandsMoveTheRowAndStopAtTheEnds) {
    Start();
    Control& list = *bench.program->phone.phonebooklist;  // 5 rows of 40 on 200 pixels
    for (int i = 0; i < 12; ++i) {
        list.grid->AddRow(std::to_string(i), i);
    }
    const auto row = [&](const std::string& word) {
        Do("phone." + word);
        return list.grid->Row();
    };
    EXPECT_EQ(row("scrollup"), 0) << "no row, nothing to move";
    EXPECT_EQ(row("scrolldown"), 1);
    EXPECT_EQ(row("scrollup"), 1);
    EXPECT_EQ(row("scrollpagedown"), 6);
    EXPECT_EQ(list.grid->Top(), 2) << "the row has come into view";
    EXPECT_EQ(row("scrollpagedown"), 11);
    EXPECT_EQ(row("scrollpagedown"), 12);
    EXPECT_EQ(row("scrolldown"), 12);
    EXPECT_EQ(row("scrollpageup"), 7);
    EXPECT_EQ(row("scrollpageup"), 2);
    EXPECT_EQ(row("scrollpageup"), 1);
    EXPECT_EQ(row("scrollbottom"), 12);
    EXPECT_EQ(row("scrollup"), 11);
    EXPECT_EQ(row("scrolltop"), 1);
}

TEST_F(DispatcherTest, AKeyAfterTheFingerBeginsWithWhatIsInSight) {
    Start();
    Do("phone.show");  // the first visit asks for the book anew, and empties the list
    Grid& list = *bench.program->phone.phonebooklist->grid;  // 5 rows of 40 on 200 pixels
    for (int i = 0; i < 50; ++i) {
        list.AddRow(std::to_string(i), i);
    }
    const auto after = [&](int selected, int pixels, const char* word) {
        list.Select(selected);
        list.SetScrollOffset(pixels);
        Do(std::string("phone.") + word);
        return list.Row();
    };
    EXPECT_EQ(after(1, 810, "scrolldown"), 22) << "the first whole one";
    EXPECT_EQ(list.ScrollOffset(), 810) << "the list stays where the finger has put it";
    EXPECT_EQ(after(1, 810, "scrollpagedown"), 22);
    EXPECT_EQ(after(1, 810, "scrollup"), 25) << "the last whole one";
    EXPECT_EQ(after(50, 810, "scrollpageup"), 25);
    EXPECT_EQ(after(50, 810, "scrolltop"), 1);
    EXPECT_EQ(after(21, 815, "scrolldown"), 22) << "most of it still shows";
    EXPECT_EQ(after(26, 815, "scrolldown"), 22) << "most of it is hidden";
    list.Select(1);
    list.SetScrollOffset(810);
    bench.program->stage.Front(bench.program->phone.form, bench.program->phone.phonebooklist);
    bench.TypeKey(Key::down);
    EXPECT_EQ(list.Row(), 22);
    bench.TypeKey(Key::down);
    EXPECT_EQ(list.Row(), 23);
}

TEST_F(DispatcherTest, LettersAreTypedIntoTheSearchBox) {
    bench.folder.Write("zvrmedia.dat", "ZVRIDX100\r\n");
    Start();
    Do("mediasearch.show");
    bench.Advance(Milliseconds{10});
    Control& box = *bench.program->mediasearch.txtSearchTerm;
    Do("mediasearch.text.Abc");
    Do("mediasearch.text.\u00C4");
    Do("mediasearch.text. ");
    EXPECT_EQ(box.text->text, "a\u00E4 ");
    EXPECT_EQ(box.text->selectionStart, 3);
    box.SetText("h\u00E4user", 1, 2);
    Do("mediasearch.text.o");
    EXPECT_EQ(box.text->text, "hoser");
    EXPECT_EQ(box.text->selectionStart, 2);
    Do("mediasearch.text.clear");
    EXPECT_EQ(box.text->text, "");
    EXPECT_THAT(bench.messages, IsEmpty());
    Do("mediasearch.text.");
    Do("mediasearch.text.\x01");
    EXPECT_EQ(bench.messages.size(), 2U);
}

TEST_F(DispatcherTest, QuickJumpRunsThePickAfterTheDialogHasGone) {
    bench.settings =
        "[general]\nSHOWWARNING=0\nQUICKJUMPLIST=Music;mediaplayer.show|Places;gallery.show|Bad|Music;x.y\n";
    Start();
    QuickJump& quickjump = bench.program->quickjump;
    bench.loop.At(Milliseconds{400}, [&] {
        Control* const list = quickjump.form.Find("sevJumpList");
        EXPECT_EQ(list->grid->RowCount(), 2);
        bench.TypeKey(Key::enter);
        EXPECT_TRUE(quickjump.form.visible) << "no row is selected yet";
        Point second = bench.MiddleOf(*list);
        second.y += 40;
        bench.DoubleTap(second);
    });
    Do("app.showquickjumpmenu");
    EXPECT_EQ(bench.Front(), "gallery");
    bench.loop.At(Milliseconds{100}, [&] { bench.TypeKey(Key::escape); });
    Do("app.showquickjumpmenu");
    EXPECT_EQ(bench.Front(), "gallery");
    bench.loop.At(Milliseconds{400}, [&] {
        bench.Tap(bench.MiddleOf(*quickjump.form.Find("sevJumpList")));
        EXPECT_TRUE(quickjump.form.visible) << "one tap selects";
        bench.program->godfather.singleClickListSelect = true;
        bench.Advance(Milliseconds{600});
        Point first = bench.MiddleOf(*quickjump.form.Find("sevJumpList"));
        first.y -= 40;
        bench.Tap(first);
    });
    Do("app.showquickjumpmenu");
    EXPECT_EQ(bench.Front(), "mediaplayer");
    bench.program->godfather.quickJumpList.clear();
    Do("app.showquickjumpmenu");
    EXPECT_THAT(bench.messages, ElementsAre(bench.program->languageText("QUICKJUMP_EMPTYLIST")));
}
