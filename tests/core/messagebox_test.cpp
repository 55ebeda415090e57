#include "core/messagebox.h"
#include "core/godfather.h"
#include "core/mainmenu.h"
#include "platform/platform.h"
#include "support/bench.h"

using namespace zvr;

namespace {

class MessageBoxTest : public testing::Test {
protected:
    MessageBoxTest() { bench.Start(); }

    MessageAnswer AskWithKey(MessageButtons buttons, Key key) {
        bench.loop.At(Milliseconds{200}, [this, key] { bench.TypeKey(key); });
        return bench.program->showMessage("text", buttons);
    }

    Bench bench;
};

}  // namespace

TEST_F(MessageBoxTest, ShowsTheButtonsOfTheQuestionInTheMiddleAndTakesTheTap) {
    bench.loop.At(Milliseconds{100}, [&] {
        EXPECT_EQ(bench.program->messagebox.form.Place(), (Rect{150, 150, 500, 300}));
        EXPECT_EQ(bench.ButtonOf("messagebox.ok"), nullptr);
        EXPECT_EQ(bench.LabelText(bench.program->messagebox.form, "**MESSAGEBOXTEXT**"), "Really?\twith a tab");
        bench.Tap("messagebox.yes");
    });
    EXPECT_EQ(bench.program->showMessage("Really?\twith a tab", MessageButtons::yesNo), MessageAnswer::yes);
    bench.loop.At(Milliseconds{100}, [&] {
        EXPECT_EQ(bench.ButtonOf("messagebox.yes"), nullptr);
        EXPECT_EQ(bench.ButtonOf("messagebox.no"), nullptr);
        bench.Tap("messagebox.ok");
    });
    EXPECT_EQ(bench.program->showMessage("News"), MessageAnswer::ok);
    EXPECT_FALSE(bench.program->messagebox.form.visible);
    EXPECT_EQ(bench.program->godfather.msgBoxCommVar, "ok");
}

TEST_F(MessageBoxTest, KeysAnswer) {
    EXPECT_EQ(AskWithKey(MessageButtons::yesNo, Key::enter), MessageAnswer::yes);
    EXPECT_EQ(AskWithKey(MessageButtons::yesNo, Key::escape), MessageAnswer::no);
    EXPECT_EQ(AskWithKey(MessageButtons::ok, Key::enter), MessageAnswer::ok);
    EXPECT_EQ(AskWithKey(MessageButtons::ok, Key::escape), MessageAnswer::ok);
    bench.program->godfather.hotkeyCommands[4] = "radio.show";
    bench.loop.At(Milliseconds{100}, [&] { bench.TypeKey(Key::f5); });
    AskWithKey(MessageButtons::ok, Key::escape);
    EXPECT_EQ(bench.Front(), "mainmenu") << "function keys are for the screens";
}

TEST_F(MessageBoxTest, StaysInTheMiddleOfARootThatChangesItsSize) {
    bench.loop.At(Milliseconds{100}, [&] {
        bench.screen.SetRootSize({1000, 800});
        EXPECT_EQ(bench.program->messagebox.form.Place(), (Rect{250, 250, 500, 300}));
        EXPECT_EQ(bench.program->mainmenu.form.Place().x, 100);
        for (const WindowState state : {WindowState::minimized, WindowState::maximized}) {
            bench.platform.screen.SetRootState(state);
            EXPECT_EQ(bench.platform.desktop.state->taskbarShown, state == WindowState::minimized);
        }
        bench.Tap("messagebox.ok");
    });
    bench.program->showMessage("News");
}
