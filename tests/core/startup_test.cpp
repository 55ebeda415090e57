#include "core/askforshutdown.h"
#include "core/dialogqueue.h"
#include "core/godfather.h"
#include "core/mainmenu.h"
#include "core/splash.h"
#include "media/mediaplayer.h"
#include "platform/headless/display.h"
#include "platform/headless/mixer.h"
#include "platform/platform.h"
#include "skin/skinner.h"
#include "support/bench.h"
#include "system/playervolume.h"
#include "system/sysvolume.h"
#include "ui/stage.h"

#include <tuple>

using namespace zvr;

TEST(StartUp, ShowsTheSplashForASecondBeforeAnythingElse) {
    Bench bench;
    bench.platform.instance.state->otherRuns = true;
    bench.dialogs.onShow = [&](const std::string&) { EXPECT_FALSE(bench.program->splash.form.loaded); };
    bench.loop.At(Milliseconds{500},
                  [&] { EXPECT_TRUE(bench.program->splash.form.loaded && bench.program->splash.form.visible); });
    bench.Start();
    EXPECT_THAT(bench.dialogs.critical, ElementsAre("An instance of this application is already running."));
    EXPECT_TRUE(bench.loop.quitting);
    EXPECT_EQ(bench.loop.now, Milliseconds{2000}) << "a start at 1000 plus the splash's second";
    EXPECT_FALSE(bench.folder.Has("restore.bsf")) << "the other instance's files are untouched";
}

TEST(StartUp, AQuestionInTheMiddleOfItIsNotCoveredByTheSplash) {
    Bench bench;
    bench.settings = "[general]\nSHOWWARNING=0\nONAPPEND=reboot\nHIDEWINDOWSTASKBAR=0\nHIDEMOUSECURSOR=1\n";
    bench.platform.desktop.state->taskbarShown = false;
    bench.folder.Write("restore.dat",
                       bench.folder.path + "/zvr.ini\r\n5\r\n2\r\n" + bench.folder.path + "/zvr.ini\r\n");
    bench.loop.At(Milliseconds{1500}, [&] { bench.platform.screen.onCloseRequest(false); });
    bench.loop.At(Milliseconds{1900}, [&] {
        ASSERT_TRUE(bench.program->dialogs.modalBoxOpen());
        EXPECT_FALSE(bench.program->splash.form.loaded);
        EXPECT_TRUE(bench.platform.desktop.state->taskbarShown) << "a killed run had left it hidden";
        EXPECT_TRUE(bench.screen.pointerHidden);
        bench.Tap("messagebox.no");
    });
    bench.Start();
    EXPECT_TRUE(bench.loop.quitting);
}

TEST(StartUp, AMixerThatComesClosesItsMessageOrBringsTheStartVolumeLater) {
    for (const bool duringTheMessage : {true, false}) {
        Bench bench;
        Mixer::State& card = *bench.platform.mixer.state;
        card.card = false;
        bench.settings += duringTheMessage ? "STARTUPVOLUME=0\n" : "STARTUPVOLUME=40\n";
        if (duringTheMessage) {
            bench.dialogs.onShow = [&](const std::string&) { card.Reconnect(); };
        }
        bench.Start();
        EXPECT_THAT(bench.dialogs.plain, ElementsAre("No mixer found!"));
        EXPECT_EQ(bench.dialogs.closedItself, duringTheMessage);
        if (!duringTheMessage) {
            card.Reconnect();
            bench.Advance(Milliseconds{200});
        }
        EXPECT_EQ(bench.program->sysvolume.waveVolume, duringTheMessage ? 0 : 40);
        bench.program->sysvolume.ChangeWaveVolume(10);
        bench.Advance(Milliseconds{200});
        EXPECT_EQ(bench.program->sysvolume.waveVolume, duringTheMessage ? 10 : 50) << "the start is over";
        EXPECT_TRUE(bench.program->mixerLines.mixerFound);
    }
}

TEST(StartUp, CommandLine) {
    const std::vector<std::tuple<std::vector<std::string>, bool, bool, bool>> cases{
        {{}, true, false, false},
        {{"-WINDOW"}, true, true, false},
        {{"-window", "-Config"}, true, true, true},
        {{"-window -config"}, true, true, true},
        {{"-foo"}, false, false, false},
        {{"-window", "-foo"}, false, true, false},
        {{"-window  -config"}, false, true, false},
        {{""}, false, false, false},
    };
    for (const auto& [arguments, runs, window, config] : cases) {
        Bench bench;
        bench.arguments = arguments;
        bench.dialogs.onShow = [&](const std::string&) { EXPECT_FALSE(bench.program->splash.form.loaded); };
        bench.Start();
        SCOPED_TRACE(arguments.empty() ? "no arguments" : arguments.front());
        EXPECT_EQ(bench.loop.quitting, !runs);
        EXPECT_EQ(bench.program->godfather.windowMode, window);
        EXPECT_EQ(bench.program->godfather.justShowConfig, config);
        EXPECT_EQ(bench.screen.frame, runs && window);
        EXPECT_EQ(bench.program->mainmenu.form.visible, runs && !config);
        EXPECT_EQ(bench.dialogs.critical.size(), runs ? 0U : 1U);
        if (!runs) {
            EXPECT_EQ(bench.dialogs.critical.front(), "Illegal program call. Please check your commandline options.");
            EXPECT_EQ(bench.program->godfather.modules.currentlyUsedModules, "");
        }
    }
}

TEST(StartUp, TheFirstStartTakesTheSkinThatFitsTheScreen) {
    const std::vector<std::tuple<Size, const char*, const char*, const char*>> rows{
        {{1024, 600}, "", "Dark&Silver 1024x600", "Dark&Silver 1024x600 Night"},
        {{1366, 768}, "", "Dark&Silver 1024x600", "Dark&Silver 1024x600 Night"},
        {{800, 480}, "", "Dark&Silver 800x480", "Dark&Silver 800x600"},
        {{640, 480}, "", "Dark&Silver 800x600", "Dark&Silver 800x600"},
        {{1024, 600}, "USEDSKIN=\n", "Dark&Silver 800x600", "Dark&Silver 800x600"},
        {{1024, 600}, "USEDSKIN=Dark&Silver 800x480\n", "Dark&Silver 800x480", "Dark&Silver 800x600"},
        {{1024, 600}, "USEDNIGHTSKIN=Dark&Silver 800x480\n", "Dark&Silver 1024x600", "Dark&Silver 800x480"},
    };
    for (const auto& [size, settings, day, night] : rows) {
        Bench bench;
        for (const char* name :
             {"1024x600", "1024x600 Night", "800x480", "x600", "0x480", "99999999999999x1", "1000x", "600x600.old"}) {
            bench.skin.WriteTo(bench.folder, std::string("Dark&Silver ") + name);
        }
        bench.folder.Write("skins/Dark&Silver 1000x590/readme", "no skin");
        bench.settings = std::string("[general]\nSHOWWARNING=0\n") + settings;
        bench.screen.size = size;
        bench.Start();
        SCOPED_TRACE(std::to_string(size.width) + " " + settings);
        EXPECT_EQ(bench.program->skinner.loadedSkin, day);
        EXPECT_EQ(bench.program->godfather.usedNightSkin, night);
    }
}

TEST(ModuleSet, RemovingAModuleLeavesAWordThatOnlyContainsPartOfIt) {
    ModuleSet modules;
    modules.usedModules = "[gps][phone]phone[smsbox]";
    modules.removeModule("phone");
    EXPECT_EQ(modules.usedModules, "[gps][smsbox]");
    modules.addModule("smsb");
    EXPECT_EQ(modules.usedModules, "[gps][smsbox]") << "a fragment counts as contained";
    modules.addModule("radio");
    EXPECT_EQ(modules.usedModules, "[gps][smsbox][radio]");
}

TEST(StartUp, AnIncompleteEnglishFileEndsTheProgramAndNamesTheKey) {
    Bench bench;
    bench.folder.Write("lang/en.ini", "[strings]\nEXTERNALAPPS_ALREADYRUNNING=x\n");
    bench.Start();
    EXPECT_TRUE(bench.loop.quitting);
    ASSERT_EQ(bench.dialogs.critical.size(), 1U);
    EXPECT_THAT(bench.dialogs.critical[0], HasSubstr("Missing key: EXTERNALAPPS_COULDNOTRUN"));
}

TEST(StartUp, NightByTheClockLoadsTheNightSkin) {
    for (const int hour : {6, 12, 21}) {
        Bench bench;
        const bool ownSkin = hour == 21;  // of the night
        bench.settings =
            "[general]\nSHOWWARNING=0\nAUTOSWITCHDAYNIGHT=1\nUSEDNIGHTSKIN=Night\nSWITCHTODAY=0700\nSWITCHTONIGHT="
            "2100\n"
            "USENIGHTSKIN=" +
            std::to_string(ownSkin) + "\n";
        bench.skin.WriteTo(bench.folder, "Night");
        LocalTime time = bench.platform.loop.Now();
        time.milliseconds += -time.milliseconds % 86'400'000 + hour * 3'600'000;
        if (hour == 21) {
            bench.platform.display.state->ramp.reset();
        }
        bench.loop.SetWallClock(time);
        bench.Start();
        EXPECT_EQ(bench.program->skinner.loadedSkin, ownSkin ? "Night" : bench.program->godfather.usedSkin) << hour;
        EXPECT_EQ(bench.program->godfather.currentBrightness, hour == 12 ? 1 : 4);
        EXPECT_EQ(bench.program->godfather.brightnessIsDay, hour == 12);
        EXPECT_EQ(bench.screen.dim > 0, hour == 21) << "a display without gamma";
    }
}

TEST(End, SavesTidiesUpAndEnds) {
    Bench bench;
    bench.Start();
    EXPECT_EQ(bench.folder.Has("restore.bsf"), bench.platform.display.Ramp().has_value());
    bench.program->dispatchCommand("app.exit");
    EXPECT_TRUE(bench.loop.quitting);
    EXPECT_EQ(bench.loop.exitCode, 0);
    EXPECT_FALSE(bench.folder.Has("restore.bsf"));
    EXPECT_TRUE(bench.platform.desktop.state->taskbarShown);
    EXPECT_THAT(bench.folder.ReadFile("zvr.ini"), HasSubstr("SKIPSECONDS=5"));
    bench.program.reset();
    EXPECT_FALSE(bench.platform.server.state->listening || bench.platform.screen.onCloseRequest ||
                 bench.platform.screen.onSaveRequest || bench.platform.power.onSleep || bench.platform.power.onWake ||
                 bench.platform.power.onShutdown)
        << "what is told now reaches nobody who is gone";
    bench.Restart();
    EXPECT_EQ(bench.Front(), "mainmenu");
}

TEST(End, TheShutdownPromptActsOnTheChoiceAndTheGreyTwinIsDeaf) {
    Bench bench;
    bench.settings = "[general]\nSHOWWARNING=0\nONAPPEND=ask\n";
    bench.Start();
    const auto plate = [&](int action) {
        Control* const control = bench.program->askforshutdown.form.Find("imgAction", action);
        return control == nullptr ? Point{-1, -1} : bench.MiddleOf(*control);
    };
    bench.loop.At(Milliseconds{100}, [&] {
        EXPECT_FALSE(bench.program->askforshutdown.form.Find("imgAction", 1)->visible);
        bench.Tap(plate(3));
        EXPECT_EQ(bench.program->stage.ModalForm(), &bench.program->askforshutdown.form);
        bench.TypeKey(Key::escape);
    });
    bench.program->dispatchCommand("app.exit");
    EXPECT_FALSE(bench.loop.quitting);
    bench.program->mediaplayer.wmp.AppendItem("/music/a.mp3");
    bench.program->playervolume.fadeInVolume = 90;
    bench.loop.At(Milliseconds{100}, [&] { bench.Tap(plate(2)); });
    bench.program->dispatchCommand("app.exit");
    EXPECT_EQ(bench.platform.power.state->reboots, 1);
    EXPECT_TRUE(bench.folder.Has("restore.dat"));
    EXPECT_EQ(bench.program->playervolume.fadeInVolume, 0) << "the volume kept is the one it was going to";
    bench.platform.power.state->canHibernate = true;
    bench.loop.At(Milliseconds{100}, [&] { bench.Tap(plate(1)); });
    bench.program->dispatchCommand("app.exit");
    EXPECT_EQ(bench.platform.power.state->hibernations, 1);
    bench.loop.At(Milliseconds{100}, [&] { bench.Tap(plate(0)); });
    bench.program->dispatchCommand("app.exit");
    EXPECT_TRUE(bench.loop.quitting);
}

TEST(StartUp, WarnsTheDriverOnTopOfTheFirstScreen) {
    Bench bench;
    bench.settings = "";
    bench.AnswerMessages();
    bench.Start();
    bench.Advance(Milliseconds{500});
    EXPECT_THAT(bench.messages, ElementsAre(bench.program->languageText("GENERAL_WARNING")));
    EXPECT_EQ(bench.Front(), "mainmenu");
    EXPECT_TRUE(bench.program->isModuleActive("quickbardocked"));
    EXPECT_FALSE(bench.program->splash.form.loaded);
    EXPECT_FALSE(bench.platform.desktop.state->taskbarShown || bench.screen.frame);
}
