#include "ui/stage.h"
#include "platform/headless/eventloop.h"
#include "platform/headless/screen.h"

#include <gtest/gtest.h>

using namespace zvr;

namespace {

constexpr double twips = twipsPerPixel;

/// A root of 800 x 600 with two forms on top of each other.
class StageTest : public testing::Test {
protected:
    StageTest() {
        root.width = 800 * twips;
        root.height = 600 * twips;
        stage.Add(root);
        stage.Show(root);
        for (Form* form : {&lower, &upper}) {
            form->left = 0;
            form->onActivate = [this, form] { activations.push_back(form->name); };
            stage.Add(*form);
        }
        screen.Open(stage);
    }

    Control& AddButton(Form& form, int x, int y, int width = 100, int height = 50) {
        Control& button = form.Add(ControlKind::picture, "button");
        button.Move(x * twips, y * twips, width * twips, height * twips);
        button.events.onDown = [this](Point) { log += "d"; };
        button.events.onDrag = [this](Point p) { log += p.x < 0 || p.x > 100 ? "o" : "i"; };
        button.events.onUp = [this](Point) { log += "u"; };
        button.events.onClick = [this](Point) { log += "c"; };
        return button;
    }

    Control& AddList(int rows) {
        Control& list = lower.Add(ControlKind::grid, "list");
        list.Move(0, 100 * twips, 300 * twips, 200 * twips);
        GridLook look;
        look.rowHeight = 40;
        list.grid->SetLook(look);
        for (int i = 0; i < rows; ++i) {
            list.grid->AddRow("row " + std::to_string(i + 1), i);
        }
        list.events.onClick = [this](Point) { log += "1"; };
        list.events.onDoubleClick = [this] { log += "2"; };
        stage.Front(lower, &list);
        return list;
    }

    void Tap(Point p) {
        stage.PointerDown(root, p);
        stage.PointerUp(root, p);
    }

    EventLoop loop;
    Screen screen{loop};
    Stage stage{loop};
    Form root{"root", FormRole::root};
    Form lower{"lower"};
    Form upper{"upper"};
    std::string log;
    std::vector<std::string> activations;
};

}  // namespace

TEST_F(StageTest, ATouchReachesTheTopmostButtonAndClicksOnlyInside) {
    stage.Front(lower);
    stage.Front(upper);
    stage.Hide(upper);
    AddButton(lower, 0, 0);
    Control& front = AddButton(lower, 50, 0);
    bool frontHit = false;
    front.events.onDown = [&](Point p) {
        frontHit = true;
        EXPECT_EQ(p.x, 10);
    };
    Tap({60, 10});
    EXPECT_TRUE(frontHit);
    EXPECT_EQ(log, "uc");

    log.clear();
    stage.PointerDown(root, {10, 10});
    stage.PointerMove(root, {300, 300});
    stage.PointerMove(root, {20, 10});
    stage.PointerMove(root, {-300, 10});
    stage.PointerUp(root, {300, 300});
    stage.PointerMove(root, {10, 10});
    EXPECT_EQ(log, "doiou");

    log.clear();
    lower.SendToBack(front);
    Tap({60, 10});
    EXPECT_EQ(log, "duc");
}

TEST_F(StageTest, ALabelOnAButtonLetsTheTouchThroughAndAKnobGivesItToItsTrack) {
    stage.Front(lower);
    Control& track = AddButton(lower, 100, 100, 200, 40);
    Control& knob = lower.Add(ControlKind::picture, "knob");
    knob.container = &track;
    knob.Move(50 * twips, 0, 40 * twips, 40 * twips);
    Control& label = lower.Add(ControlKind::label, "label");
    label.Move(100 * twips, 100 * twips, 200 * twips, 40 * twips);
    int pressedAt = -1;
    track.events.onDown = [&](Point p) { pressedAt = p.x; };
    Tap({160, 110});
    EXPECT_EQ(pressedAt, 60);
    track.visible = false;
    pressedAt = -1;
    Tap({160, 110});
    EXPECT_EQ(pressedAt, -1) << "a knob shows and feels nothing without its track";
}

TEST_F(StageTest, ListsSelectOnTapAndTellTheSecondTapOfARow) {
    Control& list = AddList(10);
    lower.focus = nullptr;
    Tap({10, 100 + 45});
    EXPECT_EQ(lower.focus, &list);
    EXPECT_EQ(list.grid->Row(), 2);
    Tap({10, 100 + 45});
    EXPECT_EQ(log, "12");
    log.clear();
    Tap({10, 100 + 45});
    EXPECT_EQ(log, "1") << "a third tap begins anew";
    loop.state->Advance(Milliseconds{900});
    Tap({10, 100 + 45});
    Tap({10, 100 + 85});
    EXPECT_EQ(log, "111") << "slow taps and taps on two rows are single ones";
}

TEST_F(StageTest, ADragScrollsTheListAndIsNeverATap) {
    Control& list = AddList(100);
    list.grid->Select(1);
    stage.PointerDown(root, {10, 250});
    for (int y = 245; y >= 150; y -= 5) {
        loop.state->Advance(Milliseconds{10});
        stage.PointerMove(root, {10, y});
    }
    EXPECT_EQ(list.grid->ScrollOffset(), 100);
    stage.PointerUp(root, {10, 150});
    EXPECT_EQ(log, "");
    EXPECT_EQ(list.grid->Row(), 1);
    loop.state->Advance(Milliseconds{160});
    EXPECT_EQ(list.grid->ScrollOffset(), 163);
    loop.state->Advance(Milliseconds{1840});
    const int glided = list.grid->ScrollOffset();
    EXPECT_EQ(glided, 229) << "it glides on";
    loop.state->Advance(Milliseconds{2000});
    EXPECT_EQ(list.grid->ScrollOffset(), glided) << "and comes to rest";
    stage.PointerDown(root, {10, 250});
    stage.PointerMove(root, {10, 244});
    stage.PointerUp(root, {10, 244});
    EXPECT_EQ(log, "1") << "a trembling finger still taps";
    stage.PointerDown(root, {10, 250});
    stage.PointerMove(root, {10, 210});
    loop.state->Advance(Milliseconds{100});
    stage.PointerUp(root, {10, 210});
    loop.state->Advance(Milliseconds{500});
    EXPECT_EQ(list.grid->ScrollOffset(), glided + 40) << "a finger that rested before it lifted flings nothing";
    stage.PointerDown(root, {10, 250});
    loop.state->Advance(Milliseconds{10});
    stage.PointerMove(root, {10, 230});
    stage.PointerUp(root, {10, 230});
    loop.state->Advance(Milliseconds{2000});
    EXPECT_EQ(list.grid->ScrollOffset(), 603) << "as fast as this finger, not as the one before it";
}

TEST_F(StageTest, ATouchThatStopsAGlidingListDoesOnlyThat) {
    Control& list = AddList(100);
    const auto fling = [&] {
        stage.PointerDown(root, {10, 250});
        for (int y = 240; y >= 110; y -= 10) {
            loop.state->Advance(Milliseconds{5});
            stage.PointerMove(root, {10, y});
        }
        stage.PointerMove(root, {10, 110});  // twice in one millisecond
        stage.PointerUp(root, {10, 110});
        loop.state->Advance(Milliseconds{50});
    };
    fling();
    const std::int64_t gliding = list.grid->ScrollOffset();
    Tap({10, 150});
    loop.state->Advance(Milliseconds{50});
    EXPECT_EQ(list.grid->ScrollOffset(), gliding);
    EXPECT_EQ(log, "");
    EXPECT_EQ(list.grid->Row(), 0);
    Tap({10, 150});
    EXPECT_EQ(log, "1") << "the list stands";
    log.clear();
    fling();
    AddButton(lower, 400, 0);
    Tap({410, 10});
    EXPECT_EQ(log, "duc") << "a key beside the list is meant";
    fling();
    list.grid->SetScrollOffset(40'000);
    loop.state->Advance(Milliseconds{20});
    log.clear();
    Tap({10, 150});
    EXPECT_EQ(log, "1") << "it has come to its end";
    list.grid->SetScrollOffset(0);
    fling();
    lower.RemoveControls();
    EXPECT_TRUE(lower.dirtyControls.empty() && lower.dirty && lower.focus == nullptr && lower.Find("list") == nullptr);
    loop.state->Advance(Milliseconds{500});  // what glided is gone
    Control& box = lower.Add(ControlKind::textBox, "box");
    box.Move(0, 0, 100 * twips, 50 * twips);
    Tap({10, 10});
    EXPECT_EQ(lower.focus, &box);
    box.events.onChange = [this] { log += "t"; };
    log.clear();
    for (const char* typed : {"a", "a", "ab"}) {
        stage.TextEdited(box, typed, 1, 0);
    }
    EXPECT_EQ(log, "tt") << "a caret that moves is no change of the text";
    for (const auto& change :
         {std::function([&] { box.SetText("other"); }), std::function([&] { box.SetReadOnly(true); })}) {
        box.dirty = false;
        change();
        EXPECT_TRUE(box.dirty);
    }
    bool bare = false;
    lower.onPress = [&] { bare = true; };
    lower.onRelease = [&] { EXPECT_TRUE(std::exchange(bare, false)); };
    Tap({410, 10});
    EXPECT_FALSE(bare);
}

TEST_F(StageTest, DescribedRowsTakeThePlaceOfTheOthersAndFewerOfThemLoseTheSelection) {
    Control& list = AddList(10);
    Grid& grid = *list.grid;
    const auto describe = [&grid](int rows) {
        grid.SetRows(rows, [](int row) { return GridRow{"described " + std::to_string(row), row, {}, false}; });
    };
    grid.Select(9);
    list.dirty = false;
    describe(20);
    EXPECT_TRUE(list.dirty);
    EXPECT_EQ(grid.Row(), 9);
    EXPECT_EQ(grid.RowCount(), 20);
    EXPECT_EQ(grid.RowAt(15).text, "described 15");
    describe(20);
    EXPECT_EQ(grid.Row(), 9) << "as many as before are the same rows";
    describe(8);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(grid.ScrollOffset(), 0);
    EXPECT_EQ(grid.RowAtPixel(8 * 40), 0);
    grid.SetScrollOffset(100);
    grid.SetLook({30});
    EXPECT_EQ(grid.ScrollOffset(), 40) << "no further than to the last row";
}

TEST_F(StageTest, WhatChangesIsPaintedAndNothingElse) {
    Control& list = AddList(50);
    Control& button = AddButton(lower, 0, 0);
    Control& box = lower.Add(ControlKind::textBox, "box");
    AddButton(lower, 200, 0);
    const std::pair<Control&, std::function<void()>> changes[] = {
        {list, [&] { list.grid->AddRow("another", 0); }},
        {list, [&] { list.grid->SetIcon(1, ListIcon::home); }},
        {list, [&] { list.grid->Clear(); }},
        {list, [&] { list.grid->SetRows(50, [](int) { return GridRow(); }); }},
        {list, [&] { list.grid->SetScrollOffset(40); }},
        {list, [&] { list.grid->SetNotice("nothing is found"); }},
        {list, [&] { list.grid->SetLook({}); }},
        {list, [&] { list.grid->Select(9); }},
        {list,
         [&] {
             list.grid->SetRedraw(false);
             list.grid->Clear();
             EXPECT_TRUE(lower.dirtyControls.empty()) << "more is to come";
             list.grid->SetRedraw(true);
         }},
        {button, [&] { lower.SendToBack(button); }},
        {button, [&] { button.left = 300 * twips; }},
        {button, [&] { lower.BringToFront(button); }},
        {button, [&] { lower.PlaceBehind(button, box); }},
        {box, [&] { box.SetText("ab", 1, 0); }},
    };
    for (const auto& [control, change] : changes) {
        loop.state->Advance(Milliseconds{50});
        ASSERT_TRUE(lower.dirtyControls.empty());
        change();
        EXPECT_EQ(lower.dirtyControls, std::vector<Control*>{&control}) << control.name;
    }
    EXPECT_EQ(box.text->selectionLength, 0);
    box.SetText("abc", 1, 9);
    EXPECT_EQ(box.text->selectionLength, 2);
    box.SetText("abc", 1, 1);
    box.TakeBack();
    EXPECT_EQ(box.text->text, "ac");
    lower.dirty = false;
    AddButton(lower, 300, 300);
    EXPECT_TRUE(lower.dirty);
    loop.state->Advance(Milliseconds{50});
    list.grid->SetRedraw(true);
    button.MarkMoved();
    EXPECT_TRUE(lower.dirtyControls.empty());
    stage.onChange = [this] { log += "painted "; };
    Form another{"another"};
    for (const auto& change :
         {std::function([&] { stage.Hide(lower); }), std::function([&] { stage.Add(another); }),
          std::function([&] { stage.Show(another); }), std::function([&] { stage.ShowModal(another); }),
          std::function([&] { lower.MarkDirty(); }), std::function([&] { stage.Remove(another); })}) {
        stage.Painted();
        log.clear();
        change();
        EXPECT_EQ(log, "painted ");
    }
    stage.Painted();
    log.clear();
    another.MarkDirty();
    EXPECT_EQ(log, "") << "it is the stage's no more";
}

TEST_F(StageTest, WhatIsRemovedIsForgottenAndNothingBesideIt) {
    stage.onControlsGone = [this](const Form& form) { log += form.name + " "; };
    stage.Front(lower);
    AddButton(lower, 0, 0);
    for (Form* const form : {&upper, &lower}) {
        stage.PointerDown(root, {10, 10});
        form->RemoveControls();
        stage.PointerUp(root, {10, 10});
    }
    EXPECT_EQ(log, "dupper ucdlower ");
    stage.ShowModal(upper);
    stage.Remove(upper);
    EXPECT_EQ(stage.ModalForm(), nullptr);
    EXPECT_EQ(stage.Forms().size(), 2U);
    log.clear();
    upper.RemoveControls();
    EXPECT_EQ(log, "") << "it is the stage's no more";
}

TEST_F(StageTest, RowsThatHaveJustComeAreDeafAndTheSecondTapOfAPairIsNotTheirs) {
    Control& list = AddList(10);
    const auto replace = [&] {
        list.grid->Clear();
        for (int i = 0; i < 10; ++i) {
            list.grid->AddRow("other", i);
        }
    };
    const auto after = [&](int milliseconds, Point p) {
        loop.state->Advance(Milliseconds{milliseconds});
        log.clear();
        Tap(p);
        return log;
    };
    Tap({10, 145});
    loop.state->Advance(Milliseconds{10});
    replace();
    EXPECT_EQ(after(299, {10, 145}), "");
    EXPECT_EQ(list.grid->Row(), 0);
    EXPECT_EQ(after(1, {10, 145}), "1");
    EXPECT_EQ(after(100, {10, 145}), "2");

    EXPECT_EQ(after(1000, {10, 145}), "1");
    replace();
    EXPECT_EQ(after(400, {10, 145}), "") << "the second of a pair that began on other rows";
    EXPECT_EQ(after(10, {10, 145}), "1");
    replace();
    EXPECT_EQ(after(400, {10, 245}), "1") << "elsewhere it is a tap of its own";

    loop.state->Advance(Milliseconds{1000});
    stage.PointerDown(root, {10, 145});
    loop.state->Advance(Milliseconds{10});
    replace();
    log.clear();
    stage.PointerUp(root, {10, 145});
    EXPECT_EQ(log, "") << "the rows changed under the finger";
}

TEST_F(StageTest, ATallListEndsAtItsLastRow) {
    Control& list = AddList(0);
    GridLook look;
    look.rowHeight = 10'000;
    list.grid->SetLook(look);
    for (int i = 0; i < 300'000; ++i) {
        list.grid->AddRow("", i);
    }
    list.grid->Select(300'000);
    EXPECT_EQ(list.grid->Top(), 300'000);
    EXPECT_EQ(list.grid->VisibleRows(), 1);
    EXPECT_EQ(list.grid->RowAtPixel(199), 300'000);
    list.grid->SetTop(299'999);
    EXPECT_EQ(list.grid->ScrollOffset(), 2'999'980'000);
}

TEST_F(StageTest, KeysMoveTheRowOfTheFocusedListAndOthersReachTheForm) {
    Control& list = AddList(20);
    std::vector<Key> seen;
    lower.onKeyDown = [&](const KeyEvent& key) { seen.push_back(key.key); };
    stage.KeyDown(root, {Key::enter, false});
    EXPECT_EQ(seen, std::vector<Key>{Key::enter}) << "no row to choose";
    seen.clear();
    for (const Key key : {Key::down, Key::down, Key::pageDown, Key::up, Key::end, Key::pageUp, Key::f3}) {
        stage.KeyDown(root, {key, false});
    }
    EXPECT_EQ(list.grid->Row(), 15);
    stage.KeyDown(root, {Key::up, false});
    EXPECT_EQ(list.grid->Row(), 14);
    stage.KeyDown(root, {Key::home, false});
    EXPECT_EQ(list.grid->Row(), 1);
    stage.KeyDown(root, {Key::enter, false});
    EXPECT_EQ(log, "12");
    stage.KeyDown(root, {Key::pageDown, false});
    EXPECT_EQ(list.grid->Row(), 6);
    list.grid->SetScrollOffset(400);
    stage.KeyDown(root, {Key::down, false});
    EXPECT_EQ(list.grid->Row(), 11) << "the first in sight";
    list.grid->SetScrollOffset(0);
    stage.KeyDown(root, {Key::up, false});
    EXPECT_EQ(list.grid->Row(), 5) << "the last";
    EXPECT_EQ(seen, std::vector<Key>{Key::f3});
}

TEST_F(StageTest, AModalFormTakesAllTouchesAndAFormShownMeanwhileComesUpBehind) {
    Form box{"box"};
    box.width = 100 * twips;
    box.height = 100 * twips;
    box.visible = true;
    stage.Add(box);
    EXPECT_FALSE(box.visible);
    stage.ShowModal(box);
    stage.CloseModal(box);
    EXPECT_EQ(stage.ActiveForm(), nullptr) << "there was none before";
    stage.Front(lower);
    AddButton(lower, 200, 200);
    activations.clear();
    stage.PointerDown(root, {210, 210});
    stage.ShowModal(box);
    stage.PointerUp(root, {210, 210});
    EXPECT_EQ(std::exchange(log, {}), "du") << "no click: something came between";
    stage.CloseModal(box);
    EXPECT_EQ(stage.ActiveForm(), &lower);
    EXPECT_TRUE(activations.empty()) << "it was there all the while";
    stage.ShowModal(box);
    Tap({210, 210});
    stage.Front(upper);
    EXPECT_EQ(stage.ActiveForm(), &box);
    Form question{"question"};
    stage.Add(question);
    stage.ShowModal(question);
    stage.CloseModal(question);
    EXPECT_TRUE(activations.empty());
    stage.CloseModal(box);
    EXPECT_EQ(log, "");
    EXPECT_EQ(activations, std::vector<std::string>{"upper"});
    stage.Hide(upper);
    stage.Front(upper);
    EXPECT_EQ(activations.size(), 2U) << "hidden and shown again is a visit";
    stage.Hide(root);
    stage.ShowModal(box);
    EXPECT_TRUE(root.visible) << "lent to the dialog";
    stage.Show(upper);
    stage.CloseModal(box);
    EXPECT_FALSE(root.visible);
    for (const bool comes : {true, false}) {
        stage.ShowModal(box);
        comes ? stage.Show(root) : stage.Hide(root);
        EXPECT_TRUE(root.visible);
        stage.CloseModal(box);
        EXPECT_EQ(root.visible, comes) << "as was asked for meanwhile";
    }
    stage.Remove(question);
    stage.Remove(box);
}
