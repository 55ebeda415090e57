#include "core/askforshutdown.h"
#include "core/dialogqueue.h"
#include "core/godfather.h"
#include "core/messagebox.h"
#include "core/quickjump.h"
#include "core/remotecontrol.h"
#include "phone/smsbox.h"
#include "skin/skinner.h"
#include "support/bench.h"
#include "ui/stage.h"

#include <array>

using namespace zvr;

namespace {

/// A dialog of the program: how it is asked for, and how the driver answers it with his choice 0 or 1.
struct Kind {
    const char* name;
    std::string (*ask)(Program&, int slot);  ///< what its caller made of the answer
    void (*answer)(Bench&, int choice);
    std::array<std::string, 2> results;
    const char* form;
};

std::string Word(MessageAnswer answer) {
    return answer == MessageAnswer::yes  ? "yes"
           : answer == MessageAnswer::no ? "no"
           : answer == MessageAnswer::ok ? "ok"
                                         : "none";
}

void TapPlate(Bench& bench, const char* plate, int index) {
    bench.Tap(bench.MiddleOf(*bench.program->stage.ModalForm()->Find(plate, index)));
}

const std::array<Kind, 5> kinds{
    Kind{"news",
         [](Program& p, int slot) { return Word(p.showMessage("news " + std::to_string(slot))); },
         [](Bench& bench, int) { bench.Tap("messagebox.ok"); },
         {"ok", "ok"},
         "messagebox"},
    Kind{"question",
         [](Program& p, int slot) {
             return Word(p.showMessage("question " + std::to_string(slot), MessageButtons::yesNo));
         },
         [](Bench& bench, int choice) { bench.Tap(choice == 0 ? "messagebox.no" : "messagebox.yes"); },
         {"no", "yes"},
         "messagebox"},
    Kind{"quick jump",
         [](Program& p, int) {
             p.quickjump.showQuickJump();
             return p.stage.FrontForm() == nullptr ? std::string("none") : p.stage.FrontForm()->name;
         },
         [](Bench& bench, int choice) {
             bench.program->quickjump.form.Find("sevJumpList")->grid->Select(choice + 1);
             if (choice == 0) {
                 TapPlate(bench, "picOK", 0);
             } else {
                 bench.TypeKey(Key::enter);
             }
         },
         {"radio", "gallery"},
         "quickjump"},
    Kind{"prompt",
         [](Program& p, int) { return std::to_string(static_cast<int>(p.askforshutdown.Ask())); },
         [](Bench& bench, int choice) { TapPlate(bench, "imgAction", choice == 0 ? 2 : 0); },
         {"2", "0"},
         "askforshutdown"},
    Kind{"message writer",
         [](Program& p, int) {
             DialogRequest request{p.smsbox.form, [&p] { p.smsbox.form.CentreIn(p.godfather.form); }};
             return std::string(p.dialogs.Show(request) ? "closed" : "none");
         },
         [](Bench& bench, int) { bench.program->dispatchCommand("smsbox.close"); },
         {"closed", "closed"},
         "smsbox"},
};

std::string OpenForm(const Bench& bench) {
    const Form* const form = bench.program->stage.ModalForm();
    return form == nullptr ? "" : form->name;
}

class DialogsTest : public testing::Test {
protected:
    DialogsTest() {
        bench.settings += "[general]\nSHOWWARNING=0\nQUICKJUMPLIST=Radio;radio.show|Pictures;gallery.show\n";
        bench.platform.power.state->canHibernate = true;
        TestSkin other = bench.skin;
        other.general = "<width>640</width><height>480</height><background-color>#101010</background-color>";
        other.WriteTo(bench.folder, "other");
        bench.Start();
    }

    /// Somebody asks, from the event loop; what he made of it appears in `results` when he goes on.
    void Ask(const Kind& kind, int slot) {
        bench.platform.loop.Post([this, &kind, slot] { results[slot] = kind.ask(*bench.program, slot); });
        bench.Advance(Milliseconds{500});
    }
    void Run(const Kind& kind, int choice) {
        // The finger must not come in from inside of a wait of ours.
        kind.answer(bench, choice);
        bench.Advance(Milliseconds{500});
    }

    Bench bench;
    std::map<int, std::string> results;
};

/// All pairs: the outermost wait of the bench is the test's own, so that both askers stand inside of it.
class PairTest : public DialogsTest {
protected:
    template <typename Test>
    void ForAllPairs(Test test) {
        for (const Kind& first : kinds) {
            for (const Kind& second : kinds) {
                SCOPED_TRACE(std::string(first.name) + ", then " + second.name);
                results.clear();
                test(first, second);
            }
        }
    }
};

}  // namespace

TEST_F(PairTest, EachAskerGetsHisOwnAnswerInTheOrderOfAsking) {
    ForAllPairs([this](const Kind& first, const Kind& second) {
        for (const int choice : {0, 1}) {
            results.clear();
            bench.program->dispatchCommand("mainmenu.show");
            bench.loop.At(Milliseconds{100}, [&] { Ask(second, 2); });
            bench.loop.At(Milliseconds{700}, [&] {
                EXPECT_EQ(OpenForm(bench), first.form);
                Run(first, choice);
                EXPECT_EQ(OpenForm(bench), second.form) << "comes up by itself";
                Run(second, 1 - choice);
                EXPECT_EQ(OpenForm(bench), "");
            });
            Ask(first, 1);
            bench.Advance(Milliseconds{3000});
            EXPECT_EQ(results[1], first.results[choice]);
            EXPECT_EQ(results[2], second.results[1 - choice]);
        }
    });
}

TEST_F(PairTest, ASkinThatChangesMeanwhileFillsAndPlacesTheOpenDialogAnew) {
    const std::string usual = bench.program->skinner.loadedSkin;
    ForAllPairs([&, this](const Kind& first, const Kind& second) {
        bench.program->dispatchCommand("mainmenu.show");
        bench.loop.At(Milliseconds{100}, [&] { Ask(second, 2); });
        bench.loop.At(Milliseconds{700}, [&] {
            for (const auto& [kind, skin] : {std::pair{&first, std::string("other")}, std::pair{&second, usual}}) {
                const std::string before = SceneOf(*bench.program->stage.ModalForm());
                bench.program->skinner.LoadSkin(skin);
                EXPECT_EQ(OpenForm(bench), kind->form);
                EXPECT_EQ(SceneOf(*bench.program->stage.ModalForm()), before);
                Run(*kind, 1);
            }
        });
        Ask(first, 1);
        bench.Advance(Milliseconds{3000});
        EXPECT_EQ(results[1], first.results[1]);
        EXPECT_EQ(results[2], second.results[1]);
    });
}

TEST(DialogsAtTheEnd, AllWaitsReturnAndNobodyActsAndAllIsSavedOnce) {
    for (const Kind& first : kinds) {
        for (const Kind& second : kinds) {
            SCOPED_TRACE(std::string(first.name) + ", then " + second.name);
            Bench bench;
            bench.settings = "[general]\nSHOWWARNING=0\nQUICKJUMPLIST=Radio;radio.show\n[mediaplayer]\nSKIPSECONDS=7\n";
            bench.Start();
            std::map<int, std::string> results;
            const auto ask = [&](const Kind& kind, int slot) {
                bench.platform.loop.Post([&, slot] { results[slot] = kind.ask(*bench.program, slot); });
                bench.Advance(Milliseconds{300});
            };
            bench.loop.At(Milliseconds{100}, [&] { ask(second, 2); });
            bench.loop.At(Milliseconds{500}, [&] {
                bench.platform.screen.onCloseRequest(true);
                bench.folder.Write("zvr.ini", "written after the end");
            });
            ask(first, 1);
            bench.Advance(Milliseconds{3000});
            EXPECT_TRUE(bench.loop.quitting);
            EXPECT_EQ(results.size(), 2U) << "both askers have come back";
            for (const auto& [slot, result] : results) {
                EXPECT_THAT(result, testing::AnyOf("none", "255"));
            }
            EXPECT_EQ(bench.folder.ReadFile("zvr.ini"), "written after the end");
            EXPECT_EQ(bench.platform.power.state->reboots, 0);
            EXPECT_EQ(kinds[4].ask(*bench.program, 3), "none") << "nobody is left to ask";
        }
    }
}

TEST_F(DialogsTest, EqualNewsFoldAndQuestionsDoNot) {
    const auto said = [&](const std::string& text, MessageButtons buttons) {
        bench.platform.loop.Post([&, text, buttons] { results[2] = Word(bench.program->showMessage(text, buttons)); });
        bench.Advance(Milliseconds{50});
    };
    bench.loop.At(Milliseconds{100}, [&] {
        said("news 1", MessageButtons::ok);
        EXPECT_EQ(results[2], "ok") << "went on at once";
        said("news 1", MessageButtons::yesNo);
    });
    bench.loop.At(Milliseconds{700}, [&] {
        Run(kinds[0], 0);
        EXPECT_EQ(OpenForm(bench), "messagebox") << "the question waited";
        Run(kinds[1], 1);
        EXPECT_EQ(OpenForm(bench), "");
    });
    Ask(kinds[0], 1);
    bench.Advance(Milliseconds{2000});
    EXPECT_EQ(results[2], "yes");
}

TEST_F(DialogsTest, TenThousandCommandsBehindABoxAreRefusedBeyondTheBound) {
    auto& answers = bench.platform.server.state->answers[1];
    bench.loop.At(Milliseconds{100}, [&] {
        for (int i = 0; i < 10'000; ++i) {
            bench.platform.server.onLine(1, "do app.nonsense" + std::to_string(i));
        }
        for (const char* wheel : {"do mediaplayer.volumedown", "do mediaplayer.volumedown"}) {
            bench.platform.server.onLine(1, wheel);
        }
    });
    bench.loop.At(Milliseconds{3000}, [&] {
        ASSERT_EQ(answers.size(), 10'002U);
        EXPECT_EQ(answers.back(), R"({"ok":true})") << "a wheel's key works all the same";
        const auto refused = [](const std::string& answer) {
            return answer == R"({"error":"too many dialogs wait for the driver"})";
        };
        EXPECT_EQ(std::count_if(answers.begin(), answers.end(), refused), 10'000 - 31);
        EXPECT_EQ(Word(bench.program->showMessage("one more")), "none");
        bench.AnswerMessages();
    });
    bench.program->showMessage("open");
    bench.Advance(Milliseconds{3000});
    EXPECT_EQ(bench.messages.size(), 32U);
    EXPECT_EQ(bench.messages[1], bench.program->languageText("GENERAL_UNKNOWNCOMMAND") + "\n\napp.nonsense0");
    bench.messages.clear();
    bench.platform.server.onLine(1, "do app.nonsense");
    bench.Advance(Milliseconds{100});
    EXPECT_EQ(bench.messages.size(), 1U) << "and it goes on as before";
}

TEST_F(DialogsTest, CommandsFromOutsideWorkBehindADialogAndAnswersToAnotherOneDoNothing) {
    bench.loop.At(Milliseconds{100}, [&] {
        for (const char* command : {"do messagebox.yes", "do smsbox.close", "do radio.show"}) {
            bench.platform.server.onLine(1, command);
        }
        bench.Advance(Milliseconds{50});
        EXPECT_EQ(OpenForm(bench), "quickjump");
        EXPECT_EQ(bench.Front(), "radio");
        bench.TypeKey(Key::escape);
    });
    bench.program->dispatchCommand("app.showquickjumpmenu");
    EXPECT_EQ(OpenForm(bench), "");
}

TEST_F(DialogsTest, TheSecondOfTwoQuickTapsDoesNotAnswerTheNextDialog) {
    bench.loop.At(Milliseconds{100}, [&] { Ask(kinds[0], 2); });
    bench.loop.At(Milliseconds{700}, [&] {
        const Point ok = bench.MiddleOf(*bench.ButtonOf("messagebox.ok"));
        bench.Tap(ok);
        bench.Advance(Milliseconds{150});
        bench.Tap(ok);
        EXPECT_EQ(OpenForm(bench), "messagebox");
        EXPECT_EQ(bench.LabelText(bench.program->messagebox.form, "**MESSAGEBOXTEXT**"), "news 2");
        bench.Advance(Milliseconds{300});
        bench.Tap(ok);
        EXPECT_EQ(OpenForm(bench), "");
    });
    Ask(kinds[0], 1);
    bench.Advance(Milliseconds{2000});
    EXPECT_EQ(OpenForm(bench), "");
}

TEST_F(DialogsTest, AMessageWhileASkinHasNoFaceForItIsAskedPlainly) {
    TestSkin faulty = bench.skin;
    faulty.extra["radio"] = "<background-image>broken.png</background-image>";
    faulty.WriteTo(bench.folder, "faulty");
    bench.folder.Write("skins/faulty/broken.png", "no picture");
    std::string answer;
    bench.dialogs.yes = true;
    bench.dialogs.onShow = [&](const std::string& text) {
        if (text.find("BGPIC") != std::string::npos) {  // the load stands still behind the box of its fault
            bench.platform.loop.Post([&] { answer = kinds[1].ask(*bench.program, 1); });
            bench.Advance(Milliseconds{300});
        }
    };
    bench.program->skinner.LoadSkin("faulty");
    EXPECT_THAT(bench.dialogs.asked, ElementsAre("question 1"));
    EXPECT_EQ(answer, "yes");

    bench.skin.buttons["messagebox"].clear();
    bench.skin.WriteTo(bench.folder, "mute");
    bench.program->skinner.LoadSkin("mute");
    EXPECT_EQ(bench.program->showMessage("news"), MessageAnswer::ok) << "a skin without an answer key";
    EXPECT_THAT(bench.dialogs.plain, ElementsAre("news"));

    bench.skin.buttons["messagebox"] = {{20, 200, "messagebox.yes"}};
    bench.skin.WriteTo(bench.folder, "yes-man");
    bench.program->skinner.LoadSkin("yes-man");
    EXPECT_EQ(bench.program->showMessage("no?", MessageButtons::yesNo), MessageAnswer::yes);
    EXPECT_THAT(bench.dialogs.asked, ElementsAre("question 1", "no?")) << "half of a choice is none";
}
