#include "platform/linux/paint.h"
#include "platform/linux/picture.h"
#include "platform/linux/screen.h"
#include "radiogps/dash.h"
#include "support/temporaryfolder.h"

#include <gtest/gtest.h>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <csignal>

namespace zvr {
namespace {

using std::chrono_literals::operator""ms;

constexpr double px = twipsPerPixel;

/// Counts what the toolkit paints.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QObject* target) : target(target) { qApp->installEventFilter(this); }
    int paints = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        paints += watched == target && event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    QObject* target;
};

class Painted : public testing::Test {
protected:
    void SetUp() override {
        screen.SetFrame(false);
        stage.Add(root);
        root.backColor = RgbColor(0, 0, 80);
        for (Form* form : {&player, &menu, &box}) {
            stage.Add(*form);
            form->backColor = RgbColor(40, 90, 40);
        }
        player.background = MakePicture("background", 800, 600, false);
        screen.Open(stage);
        stage.Show(root);
        stage.Front(player);
        loop.Wait(200ms);
    }
    void TearDown() override { screen.Close(); }

    PicturePointer MakePicture(const std::string& name, int width, int height, bool clear) const {
        QImage image(width, height, QImage::Format_ARGB32);
        image.fill(clear ? QColor(200, 30, 30, 120) : QColor(30, 30, 60));
        QPainter painter(&image);
        for (int i = 0; i < width; i += 7) {
            painter.setPen(QColor(i % 256, 255 - i % 256, 90));
            painter.drawLine(i, 0, width - i, height);
        }
        painter.end();
        const std::string path = folder.path + "/" + name + ".png";
        EXPECT_TRUE(image.save(QString::fromStdString(path)));
        return LoadPicture(path);
    }

    Control& Add(Form& form, ControlKind kind, Rect place) {
        Control& control = form.Add(kind, "control");
        control.Move(place.x * px, place.y * px, place.width * px, place.height * px);
        return control;
    }

    QWidget& RootWidget() { return *screen.state->RootView()->widget; }

    /// What stands on the screen, against the same forms painted afresh.
    void ExpectScreenIsUpToDate(const char* after) {
        loop.Wait(100ms);
        const QImage shown = QGuiApplication::primaryScreen()
                                 ->grabWindow(RootWidget().winId())
                                 .toImage()
                                 .convertToFormat(QImage::Format_RGB32);
        const QImage fresh = RootWidget().grab().toImage().convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(shown.size(), fresh.size());
        if (shown != fresh) {
            shown.save("/tmp/zvr-shown.png");
            fresh.save("/tmp/zvr-fresh.png");
            ADD_FAILURE() << "remains on the screen after: " << after << " (see /tmp/zvr-shown.png and zvr-fresh.png)";
        }
    }

    const TemporaryFolder folder;
    EventLoop loop;
    Screen screen{loop};
    Stage stage{loop};
    Form root{"root", FormRole::root};
    Form player{"player"};
    Form menu{"menu"};
    Form box{"box"};
};

TEST_F(Painted, NothingRemainsOfWhatChanged) {
    Control& label = Add(player, ControlKind::label, {20, 20, 200, 30});
    label.caption = "first";
    label.foreColor = RgbColor(255, 255, 255);
    Control& button = Add(player, ControlKind::image, {250, 20, 0, 0});
    button.picture = MakePicture("button", 90, 60, true);
    Control& bar = Add(player, ControlKind::picture, {20, 300, 300, 40});
    bar.backColor = RgbColor(90, 90, 90);
    Control& knob = Add(player, ControlKind::image, {-10, -10, 0, 0});
    knob.container = &bar;
    knob.picture = button.picture;
    Control& list = Add(player, ControlKind::grid, {20, 100, 300, 150});
    for (int row = 0; row < 100; ++row) {
        list.grid->AddRow("row " + std::to_string(row), row, static_cast<ListIcon>(row % 16), row % 3 == 0);
    }
    ExpectScreenIsUpToDate("the controls came");
    label.caption = "a second text that is longer";
    label.Move(30 * px, 40 * px, 250 * px, 30 * px);
    ExpectScreenIsUpToDate("a label moved");
    button.Move(240 * px, 35 * px, 0, 0);
    button.picture = MakePicture("small", 30, 20, false);
    ExpectScreenIsUpToDate("a smaller picture");
    bar.Move(60 * px, 320 * px, 200 * px, 40 * px);
    ExpectScreenIsUpToDate("a box moved with what lies in it");
    knob.left = 100 * px;
    ExpectScreenIsUpToDate("what lies in the box moved");
    player.SendToBack(button);
    player.BringToFront(label);
    ExpectScreenIsUpToDate("the order changed");
    list.grid->SetScrollOffset(333);
    list.grid->Select(20);
    ExpectScreenIsUpToDate("a list scrolled");
    list.Move(300 * px, 250 * px, 200 * px, 100 * px);
    bar.visible = false;
    ExpectScreenIsUpToDate("a list moved and a box went");
    player.background = nullptr;
    player.left = 50 * px;
    player.top = 30 * px;
    ExpectScreenIsUpToDate("the form moved");
}

TEST_F(Painted, AFormThatComesBackShowsWhatChangedBehindIt) {
    Control& label = Add(player, ControlKind::label, {20, 20, 200, 30});
    label.foreColor = RgbColor(255, 255, 255);
    label.caption = "before";
    stage.Front(menu);
    loop.Wait(50ms);
    PaintCounter counter(screen.state->ViewOf(player)->widget);
    label.caption = "changed behind";
    loop.Wait(50ms);
    EXPECT_EQ(counter.paints, 0) << "nobody sees it";
    stage.Front(player);
    ExpectScreenIsUpToDate("coming back");
    EXPECT_EQ(counter.paints, 2) << "on the screen, and for the comparison";
    box.width = 200 * px;
    box.height = 100 * px;
    box.backColor = RgbColor(200, 0, 0);
    stage.Front(box);
    label.caption = "beside the small form";
    ExpectScreenIsUpToDate("a small form in front");
    stage.Hide(box);
    ExpectScreenIsUpToDate("the small form went");
}

TEST_F(Painted, NothingNewCostsNoPaint) {
    Control& label = Add(player, ControlKind::label, {20, 20, 200, 30});
    label.caption = "12:00";
    loop.Wait(100ms);
    PaintCounter counter(screen.state->ViewOf(player)->widget);
    label.caption = "12:00";
    label.visible = true;
    loop.Wait(100ms);
    EXPECT_EQ(counter.paints, 0);
    for (int i = 0; i < 100; ++i) {
        label.caption = "12:01 " + std::to_string(i);
    }
    loop.Wait(100ms);
    EXPECT_EQ(counter.paints, 1) << "once a turn of the loop";
}

TEST_F(Painted, PicturesOfScreensLeftLongAgoAreReleased) {
    std::vector<std::unique_ptr<Form>> forms;
    for (int i = 0; i < 6; ++i) {
        forms.push_back(std::make_unique<Form>("form" + std::to_string(i)));
        stage.Add(*forms.back());
        forms.back()->background = MakePicture("background" + std::to_string(i), 800, 600, false);
        stage.Front(*forms.back());
        loop.Wait(50ms);
    }
    const auto decoded = [&forms] {
        return std::count_if(forms.begin(), forms.end(),
                             [](const auto& form) { return !form->background.get()->state->decoded.isNull(); });
    };
    EXPECT_EQ(decoded(), 2) << "the one in front, and one to go back to";
    screen.state->ReleaseLeft();
    EXPECT_EQ(decoded(), 1);
    EXPECT_FALSE(forms.back()->background.get()->state->decoded.isNull());
    stage.Front(*forms.front());
    loop.Wait(50ms);
    for (const auto& form : forms) {
        stage.Remove(*form);
    }
    forms.clear();
    screen.state->ReleaseLeft();  // as its timer might, before the screen has heard of it
    loop.Wait(50ms);
    ExpectScreenIsUpToDate("the forms went");
}

TEST_F(Painted, AVideoGoesWithItsFormAndLeavesRoomForWhatIsBeforeIt) {
    Control& video = Add(player, ControlKind::video, {40, 40, 200, 100});
    loop.Wait(50ms);
    const QWindow* const window = screen.state->ViewOf(player)->WidgetFor(video).windowHandle();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->geometry(), QRect(40, 40, 200, 100));
    player.left = 100 * px;
    player.top = 20 * px;
    loop.Wait(50ms);
    EXPECT_EQ(window->geometry(), QRect(140, 60, 200, 100));
    box.left = 140 * px;
    box.top = 60 * px;
    box.width = 100 * px;
    box.height = 50 * px;
    stage.Front(box);
    loop.Wait(50ms);
    EXPECT_EQ(window->mask(), QRegion(0, 0, 200, 100) - QRegion(0, 0, 100, 50));
    stage.Hide(box);
    loop.Wait(50ms);
    EXPECT_TRUE(window->mask().isEmpty()) << "all of it shows";
}

TEST_F(Painted, TheMachinesEndIsAQuestionFromTheLoop) {
    std::string log;
    screen.onCloseRequest = [&](bool sessionEnds) { log += sessionEnds ? "session " : "window "; };
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        raise(signal);
        EXPECT_EQ(log, "") << "not inside of the signal";
        loop.Wait(30ms);
        EXPECT_EQ(std::exchange(log, {}), "session ");
    }
    RootWidget().close();
    loop.Wait(30ms);
    EXPECT_EQ(log, "window ");
    EXPECT_TRUE(RootWidget().isVisible()) << "the program decides";
}

TEST_F(Painted, ANeedleIsWhatXorAndXorMakeOfTwoPicturesAndAMask) {
    constexpr int side = 300;
    Control& dial = Add(player, ControlKind::picture, {31, 4, side, side});
    dial.picture = MakePicture("dial", side, side, false);
    const PicturePointer colours = MakePicture("colours", side + 9, side, false);
    const QImage over = ImageOf(*colours).convertToFormat(QImage::Format_RGB32);
    for (int degrees = 15; degrees < 375; degrees += 30) {
        QImage expected = ImageOf(*dial.picture.get()).convertToFormat(QImage::Format_RGB32);
        QImage mask(side, side, QImage::Format_RGB32);
        mask.fill(Qt::white);
        dial.inlay = Inlay{colours, 0, NeedleRuns({{150, 150}, 130, 8, 40, double(degrees)}, {side, side})};
        for (const Rect& run : dial.inlay->shape) {
            QPainter(&mask).fillRect(ToQRect(run), Qt::black);
        }
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const QRgb color = over.pixel(x, y);
                expected.setPixel(x, y, 0xFF000000U | (((expected.pixel(x, y) ^ color) & mask.pixel(x, y)) ^ color));
            }
        }
        ExpectScreenIsUpToDate("a turn of the needle");
        const QImage shown = RootWidget().grab({31, 4, side, side}).toImage();
        EXPECT_EQ(shown.convertToFormat(QImage::Format_RGB32), expected) << degrees << " degrees";
    }
}

}  // namespace
}  // namespace zvr
