#include "contract/backend.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace zvr {
namespace {

using std::chrono_literals::operator""ms;

constexpr double px = twipsPerPixel;

/// A root with a form in it, and a hand.
class OnScreen : public testing::Test {
protected:
    void SetUp() override {
        screen.SetFrame(false);
        stage.Add(root);
        for (Form* form : {&player, &menu, &box}) {
            stage.Add(*form);
            form->left = 100 * px;
            form->top = 50 * px;
            form->width = 400 * px;
            form->height = 300 * px;
        }
        screen.Open(stage);
        stage.Show(root);
        stage.Front(player);
        loop.Wait(200ms);
    }
    void TearDown() override { screen.Close(); }

    /// A control that writes what happens to it.
    Control& Add(Form& form, ControlKind kind, const std::string& name, Rect place) {
        Control& control = form.Add(kind, name);
        control.Move(place.x * px, place.y * px, place.width * px, place.height * px);
        control.events.onDown = [this, name](Point p) { Note(name + " down", p); };
        control.events.onDrag = [this, name](Point p) { Note(name + " drag", p); };
        control.events.onUp = [this, name](Point p) { Note(name + " up", p); };
        control.events.onClick = [this, name](Point p) { Note(name + " click", p); };
        return control;
    }
    void Note(const std::string& what, Point p) {
        log += what + " " + std::to_string(p.x) + "," + std::to_string(p.y) + "; ";
    }
    std::string Log() { return std::exchange(log, {}); }

    EventLoop loop;
    Screen screen{loop};
    Stage stage{loop};
    Form root{"root", FormRole::root};
    Form player{"player"};
    Form menu{"menu"};
    Form box{"box"};
    contract::Hand hand{loop, screen, stage};
    std::string log;
};

TEST_F(OnScreen, TouchesArriveInPixelsOfTheControl) {
    Control& button = Add(player, ControlKind::image, "button", {20, 30, 80, 40});
    button.stretch = true;
    hand.Tap({100 + 25, 50 + 36});
    EXPECT_EQ(Log(), "button down 5,6; button up 5,6; button click 5,6; ");
    hand.Press({100 + 25, 50 + 36});
    hand.Drag({100 + 10, 50 + 36});
    hand.Lift({100 + 10, 50 + 36});
    EXPECT_EQ(Log(), "button down 5,6; button drag -10,6; button up -10,6; ") << "lifted outside: no click";
    hand.Tap({100 + 300, 50 + 200});
    EXPECT_EQ(Log(), "");
    hand.Tap({100 + 25, 50 + 36});
    hand.Tap({100 + 25, 50 + 36});
    EXPECT_EQ(Log(),
              "button down 5,6; button up 5,6; button click 5,6; button down 5,6; button up 5,6; button click 5,6; ")
        << "a double tap is two taps";
}

TEST_F(OnScreen, ListsBoxesAndVideosAreTouchedLikeButtons) {
    Control& list = Add(player, ControlKind::grid, "list", {0, 0, 200, 100});
    GridLook look;
    look.rowHeight = 20;
    list.grid->SetLook(look);
    for (int row = 1; row <= 50; ++row) {
        list.grid->AddRow("row", row);
    }
    Add(player, ControlKind::video, "video", {0, 100, 200, 100});
    Control& bar = Add(player, ControlKind::picture, "bar", {0, 200, 200, 50});
    Control& knob = player.Add(ControlKind::image, "knob");
    knob.container = &bar;
    knob.stretch = true;
    knob.Move(10 * px, 0, 20 * px, 50 * px);
    loop.Wait(50ms);
    hand.Tap({110, 50 + 45});
    EXPECT_EQ(list.grid->Row(), 3);
    EXPECT_EQ(Log(), "list down 10,45; list up 10,45; list click 10,45; ");
    hand.Press({110, 50 + 90});
    hand.Drag({110, 50 + 60});
    hand.Drag({110, 50 + 30});
    loop.Wait(200ms);
    hand.Lift({110, 50 + 30});
    EXPECT_EQ(list.grid->ScrollOffset(), 60);
    EXPECT_EQ(list.grid->Row(), 3) << "a drag is no tap";
    Log();
    hand.Tap({107, 50 + 103});
    EXPECT_EQ(Log(), "video down 7,3; video up 7,3; video click 7,3; ");
    hand.Tap({115, 50 + 210});
    EXPECT_EQ(Log(), "bar down 15,10; bar up 15,10; bar click 15,10; ") << "through the knob";
}

TEST_F(OnScreen, AnOpenDialogIsDeafToTheRest) {
    Add(player, ControlKind::image, "below", {0, 0, 100, 100}).stretch = true;
    Control& text = Add(player, ControlKind::textBox, "text", {0, 120, 100, 30});
    text.SetText("abc", 3);
    box.left = 300 * px;
    box.width = 100 * px;
    Control& ok = Add(box, ControlKind::image, "ok", {0, 0, 50, 50});
    ok.stretch = true;
    ok.events.onClick = [this](Point) { stage.CloseModal(box); };
    stage.ShowModal(box);
    loop.Wait(100ms);
    hand.Tap({110, 60});
    hand.Tap({110, 50 + 130});
    hand.Strike(Key::f3);
    hand.Tap({310, 60});
    EXPECT_EQ(Log(), "ok down 10,10; ok up 10,10; ");
    EXPECT_NE(player.focus, &text);
    EXPECT_EQ(text.text->selectionStart, 3) << "not even the caret moves";
    hand.Tap({110, 60});
    EXPECT_EQ(Log(), "below down 10,10; below up 10,10; below click 10,10; ");
}

TEST_F(OnScreen, ControlsOfAShownFormCanBeRemovedAndRebuilt) {
    for (int i = 0; i < 3; ++i) {
        Control& list = Add(player, ControlKind::grid, "list", {0, 0, 200, 200});
        for (int row = 0; row < 50; ++row) {
            list.grid->AddRow("row", row);
        }
        Control& text = Add(player, ControlKind::textBox, "text", {0, 220, 200, 30});
        Add(player, ControlKind::video, "video", {220, 0, 100, 100});
        stage.Front(player, &text);
        loop.Wait(50ms);
        hand.Type(text, "abc");
        hand.Press({110, 60});
        // In the middle of a press, with the keys in the box, and without a turn of the loop for the screen.
        player.RemoveControls();
        hand.Drag({110, 160});
        hand.Lift({110, 160});
    }
    Control& key = Add(player, ControlKind::image, "key", {0, 0, 100, 100});
    key.stretch = true;
    loop.Wait(50ms);
    hand.Tap({110, 60});
    EXPECT_EQ(Log(),
              "list down 10,10; list down 10,10; list down 10,10; key down 10,10; key up 10,10; key click 10,10; ");
}

TEST_F(OnScreen, KeysGoToTheFrontFormUnlessItsTextBoxUsesThem) {
    std::vector<Key> keys;
    player.onKeyDown = [&keys](const KeyEvent& event) { keys.push_back(event.key); };
    menu.onKeyDown = [](const KeyEvent&) { ADD_FAILURE() << "not in front"; };
    hand.Strike(Key::f5);
    hand.Strike(Key::escape);
    EXPECT_EQ(keys, (std::vector{Key::f5, Key::escape}));
    keys.clear();
    Control& text = Add(player, ControlKind::textBox, "text", {0, 0, 200, 30});
    loop.Wait(50ms);
    stage.Front(player, &text);
    loop.Wait(50ms);
    hand.Type(text, "abc");
    hand.Strike(Key::f12);
    hand.Strike(Key::enter);
    hand.Strike(Key::escape);
    hand.Strike(Key::down);
    EXPECT_EQ(keys, (std::vector{Key::f12, Key::enter, Key::escape, Key::down}));
    EXPECT_EQ(text.text->text, "abc");
}

TEST_F(OnScreen, ATextBoxAndItsControlHoldTheSameText) {
    Control& text = Add(player, ControlKind::textBox, "text", {0, 0, 300, 30});
    std::string changes;
    text.events.onChange = [&] { changes += text.text->text + "|"; };
    text.SetText("gr\u00fcn \U0001F697", 6);
    stage.Front(player, &text);
    loop.Wait(50ms);
    EXPECT_EQ(hand.ShownText(text), "gr\u00fcn \U0001F697");
    EXPECT_EQ(changes, "") << "only the user's changes are told";
    hand.Type(text, "\u00e4");
    EXPECT_EQ(changes, "gr\u00fcn \U0001F697\u00e4|");
    EXPECT_EQ(text.text->selectionStart, 7) << "in characters, not in bytes or units";
    // The program changes what was typed, as a search that takes capitals only.
    text.events.onChange = [&] { text.SetText("FIXED", 5); };
    hand.Type(text, "x");
    EXPECT_EQ(hand.ShownText(text), "FIXED");
    hand.Type(text, "y");
    EXPECT_EQ(hand.ShownText(text), "FIXED");
}

TEST_F(OnScreen, AMultilineBoxKeepsLineEndsAndNonBreakingSpaces) {
    Control& text = player.Add(ControlKind::textBox, "sms");
    text.text->multiline = true;
    text.Move(0, 0, 300 * px, 100 * px);
    text.SetText("one\ntwo\u00a0three", 13);
    stage.Front(player, &text);
    loop.Wait(50ms);
    hand.Type(text, "!");
    EXPECT_EQ(text.text->text, "one\ntwo\u00a0three!");
}

TEST_F(OnScreen, OnlyVideosHaveAWindow) {
    Control& video = Add(menu, ControlKind::video, "video", {0, 0, 100, 100});
    Control& list = Add(menu, ControlKind::grid, "list", {0, 0, 100, 100});
    const std::uintptr_t hidden = screen.WindowOf(video);
    EXPECT_NE(hidden, 0U) << "a player may be given it before the form shows";
    EXPECT_EQ(screen.WindowOf(list), 0U);
    stage.Front(menu);
    loop.Wait(50ms);
    EXPECT_EQ(screen.WindowOf(video), hidden) << "the player keeps drawing into it";
}

TEST_F(OnScreen, RootStateIsRemembered) {
    int resizes = 0;
    root.onResize = [&] { ++resizes; };
    EXPECT_EQ(screen.RootState(), WindowState::normal);
    screen.SetRootState(WindowState::maximized);
    EXPECT_EQ(screen.RootState(), WindowState::maximized);
    EXPECT_EQ(resizes, 1);
    screen.SetRootState(WindowState::maximized);
    EXPECT_EQ(resizes, 1);
}

}  // namespace
}  // namespace zvr
