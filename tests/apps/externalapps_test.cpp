#include "apps/externalapps.h"
#include "apps/quickbars.h"
#include "core/godfather.h"
#include "core/messagebox.h"
#include "media/mediasearch.h"
#include "options/options.h"
#include "platform/headless/processes.h"
#include "support/bench.h"
#include "ui/stage.h"

using namespace zvr;

namespace {

using std::chrono_literals::operator""ms;

class OtherPrograms : public testing::Test {
protected:
    Bench bench;
    Processes::State& processes = *bench.platform.processes.state;

    void Start(const std::string& list =
                   "Notes\t/usr/bin/notes -a\tdocked\tmaximized\r\n"
                   "Map\tmap\tfloating\tnormal\r\n"
                   "Old\told\tdocked\r\n") {
        bench.folder.Write("externalapps.dat", list);
        bench.skin.extra["quickbardocked"] = "<height>80</height>";
        bench.skin.extra["quickbarfloating"] = "<width>300</width><height>180</height>";
        bench.Start();
        bench.AnswerMessages();
    }
    ExternalApps& Apps() { return bench.program->externalapps; }
    void Do(const std::string& command) { bench.program->dispatchCommand(command); }
    /// The driver's next act, so long from now: what starts a program waits for its end.
    void Then(Milliseconds delay, std::function<void()> act) { bench.loop.At(delay, std::move(act)); }
    void Choose(int row) {
        Apps().applist->grid->Select(row);
        Do("externalapps.listselect");
    }
    ProcessId IdOf(const std::string& commandLine) {
        for (const auto& [id, program] : processes.running) {
            if (program.commandLine == commandLine) {
                return id;
            }
        }
        return 0;
    }
    void End(const std::string& commandLine) { processes.End(IdOf(commandLine)); }
    [[nodiscard]] bool MainFormShows() { return bench.program->godfather.form.visible; }
    [[nodiscard]] std::string Bars() {
        const QuickBars& bars = bench.program->quickbars;
        return std::string(bars.docked.visible ? "docked" : "") + (bars.floating.visible ? "floating" : "");
    }
};

TEST_F(OtherPrograms, TheirListIsReadAsItIsWritten) {
    Start(
        "Notes\t/usr/bin/notes -a\tdocked\tmaximized\r\n\r\nNo\tcommand\r\nToo\tmany\tdocked\tnormal\tfields\r\n"
        "Notes\tagain\tfloating\tnormal\r\nMap\tmap\tfloating\tnormal\nOld\told\tdocked\r\nOdd\todd\tFloating\tNormal");
    const std::string known =
        "Notes\t/usr/bin/notes -a\tdocked\tmaximized\r\nMap\tmap\tfloating\tnormal\r\n"
        "Old\told\tdocked\tmaximized\r\nOdd\todd\tdocked\tmaximized\r\n";
    EXPECT_EQ(Apps().applist->grid->RowCount(), 4);
    EXPECT_EQ(Apps().applist->grid->Row(), 1);
    bench.program->externalappsctl.SaveAppList();
    EXPECT_EQ(bench.folder.ReadFile("externalapps.dat"), known);
    EXPECT_FALSE(bench.folder.Has("externalapps.dat.bad"));
    std::filesystem::resize_file(bench.folder.path + "/externalapps.dat", 65U << 20U);
    bench.program->externalappsctl.LoadAppList();
    bench.program->externalappsctl.SaveAppList();
    EXPECT_THAT(bench.folder.ReadFile("externalapps.dat.bad"), StartsWith(known)) << "what can't be read is kept";
}

TEST_F(OtherPrograms, ABarStandsWhereTheyRunAndTheMainFormComesBackAfterTheLast) {
    Start();
    // The second one is started from the first one's bar, ends last, and its wait is the inner one.
    Then(1000ms, [&] {
        EXPECT_FALSE(MainFormShows());
        EXPECT_EQ(Bars(), "docked");
        EXPECT_TRUE(bench.program->quickbars.docked.reservesTop);
        EXPECT_EQ(bench.program->quickbars.docked.Place(), (Rect{0, 0, 800, 80}));
        bench.screen.size = {1000, 600};
        bench.program->quickbars.Refit();
        EXPECT_EQ(bench.program->quickbars.docked.Place().width, 1000);
        bench.screen.size = {800, 600};
        EXPECT_EQ(processes.running[IdOf("/usr/bin/notes -a")].how.folder, "/usr/bin");
        EXPECT_EQ(processes.running[IdOf("/usr/bin/notes -a")].how.state, StartState::maximized);
        Do("externalapps.backtomainmenu");
        EXPECT_TRUE(MainFormShows());
        Do("externalapps.switchtorunningapp");
        EXPECT_FALSE(MainFormShows());
        Do("externalapps.backtomainmenu");
        EXPECT_EQ(Bars(), "");
        EXPECT_FALSE(bench.program->quickbars.docked.reservesTop);
        EXPECT_EQ(bench.Front(), "mainmenu");
        Choose(2);
    });
    Then(2000ms, [&] {
        EXPECT_EQ(Bars(), "floating");
        EXPECT_EQ(bench.program->quickbars.floating.Place(), (Rect{800 - 300 - 50, 600 - 180 - 100, 300, 180}));
        EXPECT_LT(std::max(bench.program->quickbars.floating.alpha, bench.program->quickbars.docked.alpha), 255);
        EXPECT_EQ(processes.running[IdOf("map")].how.state, StartState::normal);
        End("/usr/bin/notes -a");
    });
    Then(3000ms, [&] {
        EXPECT_EQ(Apps().noOfRunningPrograms, 2) << "its wait is below the other's";
        EXPECT_FALSE(MainFormShows());
        bench.program->quickbars.floating.onPress();
        EXPECT_EQ(bench.screen.dragged, &bench.program->quickbars.floating);
        bench.program->quickbars.floating.left = Twips(17);
        End("map");
    });
    Choose(1);
    EXPECT_EQ(Apps().noOfRunningPrograms, 0);
    EXPECT_TRUE(MainFormShows());
    EXPECT_EQ(Bars(), "");
    EXPECT_EQ(bench.Front(), "externalapps");
    EXPECT_EQ(Apps().floatingWindowX, 17);
    Then(100ms, [&] { End("map"); });
    Choose(2);
    EXPECT_EQ(Bars(), "");
    EXPECT_EQ(Apps().runningPrograms.size(), 2U) << "free slots are used again";
}

TEST_F(OtherPrograms, AChangeOfMindOnTheWayBackCountsAndTheOptionsLieUnderNoBar) {
    bench.settings = "[general]\nSHOWWARNING=0\n[externalapps]\nFLOATINGWINDOWX=790\nFLOATINGWINDOWY=590\n";
    Start();
    Then(100ms, [&] {
        EXPECT_EQ(bench.program->quickbars.floating.Place(), (Rect{500, 420, 300, 180})) << "the screen was larger";
        Do("externalapps.backtomainmenu");
    });
    Then(200ms, [&] { Do("externalapps.switchtorunningapp"); });
    Then(1000ms, [&] {
        EXPECT_EQ(Bars(), "floating");
        EXPECT_FALSE(MainFormShows());
        Do("app.options");
        EXPECT_EQ(Bars(), "");
        bench.program->options.Cancel();
        EXPECT_TRUE(MainFormShows());
        End("map");
    });
    Choose(2);
}

TEST_F(OtherPrograms, TaskSwitchGoesRoundAndSkipsWhatHasNoWindow) {
    Start("A\ta\tdocked\nB\tb\tdocked\nC\tc\tfloating\n");
    std::vector<std::string> seen;
    const auto switched = [&] {
        Do("externalapps.taskswitch");
        seen.push_back(processes.running[processes.activated].commandLine);
    };
    Then(100ms, [&] { Choose(2); });
    Then(200ms, [&] { Choose(3); });
    Then(300ms, [&] {
        switched();
        switched();
        switched();
        processes.running[IdOf("a")].hasWindow = false;
        switched();
        switched();
        Do("externalapps.switchtorunningapp");
        EXPECT_EQ(processes.activated, IdOf("c")) << "the last slot";
        Choose(2);
        EXPECT_EQ(processes.activated, IdOf("b")) << "runs already";
        EXPECT_EQ(processes.started.size(), 3U);
        EXPECT_EQ(Bars(), "dockedfloating") << "the other bar stays as it is";
    });
    Then(350ms, [&] {
        End("b");  // both are still in the table, their waits have not returned
        processes.running[IdOf("a")].hasWindow = true;
        End("c");
        Do("externalapps.switchtorunningapp");
    });
    Then(400ms, [&] {
        EXPECT_EQ(processes.activated, IdOf("a")) << "the only one that lives";
        End("a");
    });
    Choose(1);
    EXPECT_THAT(seen, ElementsAre("a", "b", "c", "b", "c"));
    Do("externalapps.switchtorunningapp");
    EXPECT_THAT(bench.messages, ElementsAre(bench.program->languageText("EXTERNALAPPS_NORUNNINGAPP")));
}

TEST_F(OtherPrograms, OneThatCantStartIsToldOverTheHiddenMainForm) {
    Start();
    processes.missing["map"] = true;
    Then(10ms, [&] {
        EXPECT_EQ(bench.program->stage.ModalForm(), &bench.program->messagebox.form);
        EXPECT_TRUE(MainFormShows()) << "a message needs a window to lie in";
    });
    Choose(2);
    EXPECT_FALSE(MainFormShows()) << "the bar is the way back";
    EXPECT_EQ(Bars(), "floating");
    Do("externalapps.navigation");
    Do("externalapps.applauncher.2");
    Apps().appLauncherCommands[1] = "map";
    Do("externalapps.applauncher.2");
    const auto text = [this](const char* key) { return bench.program->languageText(key); };
    EXPECT_THAT(bench.messages,
                ElementsAre(text("EXTERNALAPPS_COULDNOTRUN"), text("EXTERNALAPPS_COULDNOTRUN"),
                            text("OPT_APPLAUNCHER_NOCOMMAND"), text("OPT_APPLAUNCHER_COULDNOTLAUNCH") + " \n\nmap"));
    Do("externalapps.backtomainmenu");
    EXPECT_TRUE(MainFormShows());
    EXPECT_EQ(Apps().noOfRunningPrograms, 0);
}

TEST_F(OtherPrograms, TheNavigationAndTheKeyboardAreStartedOnce) {
    bench.settings =
        "[general]\nSHOWWARNING=0\n[externalapps]\nNAVIEXE=/opt/nav/nav -x\nNAVIQUICKBAR=floating\nOSKEXE=keys\n";
    Start();
    Then(10ms, [&] {
        Do("externalapps.navigation");
        Do("mediasearch.show");
        Form& search = bench.program->mediasearch.form;
        search.focus = bench.program->mediasearch.resultlist;
        Do("externalapps.onscreenkeyboard");
        EXPECT_EQ(search.focus, bench.program->mediasearch.txtSearchTerm) << "what it types has to go somewhere";
        Do("mainmenu.show");
        Do("externalapps.onscreenkeyboard");
        EXPECT_THAT(processes.started, ElementsAre("/opt/nav/nav -x", "keys"));
        EXPECT_EQ(Bars(), "floating");
        EXPECT_EQ(processes.activated, IdOf("keys"));
        End("keys");
        Do("externalapps.onscreenkeyboard");
        EXPECT_EQ(processes.started.size(), 3U);
        End("/opt/nav/nav -x");
    });
    Do("externalapps.navigation");
    EXPECT_EQ(bench.Front(), "mainmenu");
}

TEST_F(OtherPrograms, TheEndUnderThemKeepsTheBarsPlace) {
    Start();
    Then(50ms, [&] {
        bench.program->quickbars.floating.left = Twips(33);
        bench.program->quickbars.floating.top = Twips(44);
        bench.program->UnloadRoot(true);
    });
    Choose(2);
    EXPECT_TRUE(bench.loop.quitting);
    EXPECT_FALSE(processes.running.empty()) << "it runs on";
    EXPECT_THAT(bench.folder.ReadFile("zvr.ini"), HasSubstr("FLOATINGWINDOWX=33"));
}

}  // namespace
