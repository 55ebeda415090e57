#include "core/endofprogram.h"
#include "core/godfather.h"
#include "core/journal.h"
#include "media/playerbench.h"
#include "platform/headless/display.h"

using namespace zvr;

namespace {

using std::chrono_literals::operator""ms;

/// How the end was asked for, by what the settings say.
struct Ending {
    const char* onAppEnd;
    const char* way;     ///< "exit", "close" or "session"
    const char* answer;  ///< to the question, "ok" where none is expected
    bool canHibernate;
    std::size_t messages;
    int hibernations;
    int reboots;
    bool ends;
};

class PowerTest : public PlayerBench {
protected:
    Power& power = bench.platform.power;

    void OpenPlaying(const std::string& general = {}) {
        Music({"a.mp3"});
        media.defaultDuration = 3000;
        Open("FADEINONSTART=1\n", general);
        Choose("a.mp3");
        bench.Advance(500ms);
    }
    void ClockJumps(Milliseconds gap) {
        LocalTime time = bench.platform.loop.Now();
        time.milliseconds += gap.count();
        bench.loop.SetWallClock(time);
    }
    [[nodiscard]] int BrightnessWrites() const { return bench.platform.display.state->writes; }
};

}  // namespace

TEST(Ends, EachSettingByEachWay) {
    for (const Ending& ending : {
             Ending{"donothing", "exit", "ok", true, 0, 0, 0, true},
             Ending{"donothing", "close", "ok", true, 0, 0, 0, true},
             Ending{"donothing", "session", "ok", true, 0, 0, 0, true},
             Ending{"hibernate", "exit", "yes", true, 1, 1, 0, false},
             Ending{"hibernate", "exit", "no", true, 1, 0, 0, true},
             Ending{"hibernate", "exit", "yes", false, 2, 0, 0, false},
             Ending{"hibernate", "close", "yes", true, 1, 1, 0, false},
             Ending{"hibernate", "close", "no", true, 1, 0, 0, true},
             Ending{"hibernate", "session", "ok", true, 0, 0, 0, true},
             Ending{"reboot", "exit", "yes", true, 1, 0, 1, false},
             Ending{"reboot", "exit", "no", true, 1, 0, 0, true},
             Ending{"reboot", "close", "yes", true, 1, 0, 1, false},
             Ending{"reboot", "session", "ok", true, 0, 0, 0, true},
             Ending{"ask", "close", "ok", true, 0, 0, 0, true},
             Ending{"ask", "session", "ok", true, 0, 0, 0, true},
         }) {
        SCOPED_TRACE(std::string(ending.onAppEnd) + ", " + ending.way + ", " + ending.answer);
        Bench bench;
        bench.settings = std::string("[general]\nSHOWWARNING=0\nONAPPEND=") + ending.onAppEnd + "\n";
        bench.platform.power.state->canHibernate = ending.canHibernate;
        bench.Start();
        std::filesystem::remove(bench.folder.path + "/zvr.ini");
        bench.AnswerMessages(ending.answer);
        if (std::string(ending.way) == "exit") {
            bench.program->dispatchCommand("app.exit");
        } else {
            bench.platform.screen.onCloseRequest(std::string(ending.way) == "session");
        }
        bench.Advance(2000ms);
        EXPECT_EQ(bench.messages.size(), ending.messages);
        EXPECT_EQ(bench.platform.power.state->hibernations, ending.hibernations);
        EXPECT_EQ(bench.platform.power.state->reboots, ending.reboots);
        EXPECT_EQ(bench.loop.quitting, ending.ends);
        EXPECT_EQ(bench.folder.Has("zvr.ini"), ending.ends || ending.reboots > 0) << "saved before";
        if (!ending.ends) {
            bench.AnswerMessages("no");
            bench.program->dispatchCommand("app.exit");
            EXPECT_TRUE(bench.loop.quitting) << "it can be asked again";
        }
    }
}

TEST_F(PowerTest, BeforeTheMachineSleepsOrTheSessionAsksWhatPlaysIsOnDisk) {
    OpenPlaying();
    Player().dispRemain = true;
    int place = 1234;
    for (const auto& told : {power.onSleep, bench.platform.screen.onSaveRequest}) {
        Wmp().SetCurrentPosition(++place);
        told();
        const auto saved =
            ParseJournal(bench.folder.ReadFile("journal.dat"), bench.folder.ReadFile("journal-update.dat"));
        ASSERT_TRUE(saved);
        EXPECT_THAT(saved->current, testing::HasSubstr("\r\n" + std::to_string(place) + "\r\n"));
        EXPECT_THAT(saved->settings, testing::HasSubstr("DISPLAYREMAIN=1"));
    }
}

TEST_F(PowerTest, WhoeverNoticesFirstTheWakeUpIsOne) {
    OpenPlaying("AUTOSWITCHDAYNIGHT=0\n");
    const auto sleeps = [&](bool told, Milliseconds gap, Milliseconds toldAfter) {
        const int before = BrightnessWrites();
        power.onSleep();
        ClockJumps(gap);
        bench.Advance(toldAfter);
        if (told) {
            power.onWake();
        }
        bench.Advance(1800ms);
        EXPECT_EQ(bench.program->godfather.tmrHibernateResume.Enabled(), toldAfter < 500ms) << "after two seconds";
        bench.Advance(6000ms);
        return BrightnessWrites() - before;
    };
    EXPECT_EQ(sleeps(false, 3'600'000ms, 50ms), 1) << "the service died in its sleep";
    EXPECT_EQ(sleeps(true, 3'600'000ms, 0ms), 1) << "the service first";
    EXPECT_EQ(sleeps(true, 3'600'000ms, 150ms), 1) << "the tick first";
    EXPECT_EQ(sleeps(true, 3'600'000ms, 3000ms), 1) << "the service long after";
    EXPECT_EQ(sleeps(true, 1000ms, 50ms), 1) << "too short for the tick";
    power.onWake();
    EXPECT_FALSE(bench.program->godfather.tmrHibernateResume.Enabled()) << "of nothing";
    EXPECT_EQ(Volume().fadeInVolume, Volume().Percent()) << "armed, with nothing to climb";
    Do("mediaplayer.pause");
    EXPECT_EQ(sleeps(true, 1000ms, 50ms), 1);
    EXPECT_EQ(Wmp().CurrentState(), PlayState::paused);
}

TEST_F(PowerTest, AMachineThatGoesDownInTheMiddleOfAQuestionSavesOnceAndAsksNothing) {
    Music({"a.mp3"});
    bench.settings = "[general]\nSHOWWARNING=0\nONAPPEND=reboot\n[mediaplayer]\nAUDIOFOLDER=" + MusicFolder() + "\n";
    bench.Start();
    bench.program->dispatchCommand("mediaplayer.show");
    Choose("a.mp3");
    bool refused = false;
    bench.loop.At(100ms, [&] {
        bench.program->dispatchCommand("app.exit");
        refused = true;
    });
    bench.loop.At(200ms, [&] {
        EXPECT_TRUE(refused) << "it is asked already";
        power.onShutdown();
        bench.folder.Write("zvr.ini", "written after the end");
        power.onShutdown();
    });
    bench.program->dispatchCommand("app.exit");
    EXPECT_TRUE(bench.loop.quitting);
    EXPECT_NE(bench.platform.media.CurrentState(), PlayState::playing);
    EXPECT_TRUE(bench.folder.Has("restore.dat"));
    EXPECT_EQ(bench.folder.ReadFile("zvr.ini"), "written after the end");
    EXPECT_EQ(bench.platform.power.state->reboots, 0);
}

TEST_F(PowerTest, SleepAtTheSplashIsHarmless) {
    bench.loop.At(500ms, [&] {
        power.onSleep();
        power.onWake();
        power.onShutdown();
        EXPECT_TRUE(bench.loop.quitting);
    });
    bench.Start();
    EXPECT_FALSE(bench.program->godfather.form.loaded);
}
