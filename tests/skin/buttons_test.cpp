#include "skin/buttons.h"
#include "core/godfather.h"
#include "core/mainmenu.h"
#include "skin/skin_fixture.h"
#include "skin/skinner.h"
#include "system/sysvolume.h"
#include "ui/stage.h"

using namespace zvr;

namespace {

class ButtonsTest : public SkinTest {
protected:
    void SetUp() override {
        bench.settings = "[general]\nSHOWWARNING=0\nVOLSTEPPING=5\n";
        bench.skin.buttons["mainmenu"] = {{0, 0, "app.volumedown"}, {200, 0, "app.day"}, {400, 0, "App.VolumeDown"}};
        bench.Start();
        volume = bench.program->sysvolume.waveVolume;
        stepping = bench.program->sysvolume.volStepping;
        ASSERT_GT(stepping, 0);
    }

    Control& Button(int index) { return *bench.program->mainmenu.form.Find("abutton", index); }
    bool Pressed(int index) { return Button(index).picture.get() == Button(index).activePicture; }
    int Steps() const { return (volume - bench.program->sysvolume.waveVolume) / stepping; }
    /// "app.day" leaves a mark each time it runs.
    int Runs() {
        const bool ran = bench.program->godfather.brightnessIsDay;
        bench.program->godfather.brightnessIsDay = false;
        runs += ran ? 1 : 0;
        return runs;
    }

    int volume = 0;
    int stepping = 0;
    int runs = -1;  ///< the start ran it once
};

}  // namespace

TEST_F(ButtonsTest, AVolumeButtonActsAtOnceAndRepeatsUntilTheFingerLifts) {
    bench.Press("app.volumedown");
    EXPECT_EQ(Steps(), 1);
    EXPECT_TRUE(Pressed(1));
    bench.Advance(Milliseconds{1200});
    EXPECT_EQ(Steps(), 3);
    bench.Release();
    EXPECT_FALSE(Pressed(1));
    bench.Advance(Milliseconds{2000});
    EXPECT_EQ(Steps(), 3) << "the lift itself adds none, and the repeat has ended";
}

TEST_F(ButtonsTest, TheRepeatGoesOnWhenTheFingerSlidesOff) {
    bench.Press("app.volumedown");
    bench.Move({300, 300});
    EXPECT_FALSE(Pressed(1));
    bench.Advance(Milliseconds{600});
    EXPECT_EQ(Steps(), 2);
    bench.Up({300, 300});
    bench.Advance(Milliseconds{600});
    EXPECT_EQ(Steps(), 2);
}

TEST_F(ButtonsTest, OnlyTheExactWordRepeats) {
    bench.Press("App.VolumeDown");
    bench.Advance(Milliseconds{1200});
    EXPECT_EQ(Steps(), 0);
    bench.Release();
    EXPECT_EQ(Steps(), 1) << "any other spelling is a plain button";
}

TEST_F(ButtonsTest, APlainButtonActsOnTheLiftInsideAndADoubleTapIsTwo) {
    EXPECT_EQ(Runs(), 0);
    bench.Press("app.day");
    EXPECT_TRUE(Pressed(2));
    EXPECT_EQ(Runs(), 0);
    bench.Release();
    EXPECT_EQ(Runs(), 1);
    bench.Press("app.day");
    bench.Release();
    EXPECT_EQ(Runs(), 2);
    bench.Press("app.day");
    bench.Move({250, 51});
    EXPECT_FALSE(Pressed(2));
    bench.Move({250, 50});
    EXPECT_TRUE(Pressed(2)) << "the edge itself still belongs to it";
    bench.Up({250, 55});
    EXPECT_EQ(Runs(), 2) << "a lift outside is none";
    EXPECT_FALSE(Pressed(2));
}

TEST_F(ButtonsTest, NoButtonStaysPressed) {
    bench.Press("app.volumedown");
    Button(2).picture = Button(2).activePicture;
    bench.program->stage.PointerCancel();
    EXPECT_FALSE(Pressed(1) || Pressed(2));
    EXPECT_FALSE(bench.program->godfather.tmrRepetitiveExecute.Enabled());
    Button(2).picture = Button(2).activePicture;
    bench.Move({300, 300});
    EXPECT_FALSE(Pressed(2)) << "a pointer over the bare form releases too";
}
