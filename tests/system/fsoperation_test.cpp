#include "system/fsoperation.h"
#include "core/dialogqueue.h"
#include "core/godfather.h"
#include "support/bench.h"
#include "ui/stage.h"

#include <cerrno>

using namespace zvr;

namespace {

using std::chrono_literals::operator""ms;

class FolderCopyTest : public testing::Test {
protected:
    /// The pairs as a text; the folders of the first exist.
    void Start(const std::string& pairs = "") {
        for (const char* name : {"from", "to", "more"}) {
            std::filesystem::create_directories(Folder(name));
        }
        bench.settings = "[general]\nSHOWWARNING=0\nFOLDERCOPYSOURCE1=" + Folder("from") +
                         "\nFOLDERCOPYTARGET1=" + Folder("to") + "/\n" + pairs;
        bench.Start();
    }
    [[nodiscard]] std::string Folder(const std::string& name) const { return bench.folder.path + "/" + name; }
    [[nodiscard]] std::string Open() const {
        const DialogRequest* const open = bench.program->dialogs.Open();
        return open == nullptr ? "" : open->form.name;
    }
    [[nodiscard]] std::string Question() const { return bench.program->godfather.msgBoxCommVar; }
    void Do(const std::string& command) { bench.program->dispatchCommand(command); }
    void WhenOpen(const std::string& form, std::function<void()> act) {
        bench.loop.At(10ms, [this, form, act = std::move(act)] {
            if (Open() == form) {
                act();
            } else {
                WhenOpen(form, act);
            }
        });
    }
    /// Asks for the copy, says yes and acts while its box is open; the copy itself takes no time here.
    void Copy(const std::function<void()>& whileOpen) {
        WhenOpen("messagebox", [&] {
            Do("messagebox.yes");
            WhenOpen("foldercopy", whileOpen);
        });
        Do("app.startfoldercopy");
    }
    /// Posts itself until a file is half copied.
    void WhenHalf(const std::function<void()>& act) {
        bench.platform.loop.Post([this, act] {
            if (bench.folder.Has("to/.zvr-copy.part")) {
                act();
            } else if (Label("lblPercent") != "100%") {
                WhenHalf(act);
            }
        });
    }
    /// The same, in the middle of a file.
    void CopyAndInTheMiddle(const std::function<void()>& act) {
        Form& form = bench.program->fsoperation.form;
        WhenOpen("messagebox", [&] {
            form.onDirty = [this, act, before = form.onDirty](Form& dirty) {
                before(dirty);
                if (!std::exchange(acted, true)) {
                    WhenHalf(act);
                }
            };
            Do("messagebox.yes");
        });
        Do("app.startfoldercopy");
    }
    void TakeReport() {
        WhenOpen("messagebox", [this] {
            report = Question();
            Do("messagebox.ok");
        });
    }
    [[nodiscard]] std::string Label(const char* name) const {
        return bench.program->fsoperation.form.Find(name)->caption;
    }

    Bench bench;
    std::string report;
    bool acted = false;
};

}  // namespace

TEST_F(FolderCopyTest, ThreeLinesWhateverThePairsAre) {
    Start("FOLDERCOPYSOURCE2=" + Folder("nowhere") + "\nFOLDERCOPYTARGET2=" + Folder("to") +
          "\nFOLDERCOPYSOURCE3=" + Folder("from") + "\nFOLDERCOPYTARGET3=" + Folder("nowhere") + "\n");
    bench.folder.Write("from/song", "x");
    bench.AnswerMessages("yes");
    Do("app.startfoldercopy");
    ASSERT_EQ(bench.messages.size(), 2U);
    EXPECT_EQ(bench.messages[0], "Copy the folders now?");
    EXPECT_EQ(bench.messages[1],
              "Result of the folder copy:\n\n1: Copied\n2: Source folder not found\n"
              "3: Target folder not found\n");
    EXPECT_TRUE(bench.folder.Has("to/song"));
    EXPECT_FALSE(std::filesystem::exists(Folder("nowhere")));

    bench.program->godfather.folderCopy = {};
    bench.messages.clear();
    Do("app.startfoldercopy");
    EXPECT_THAT(bench.messages.back(), HasSubstr("1: Not set up\n2: Not set up\n3: Not set up\n"));
    bench.AnswerMessages("no");
    bench.messages.clear();
    Do("app.startfoldercopy");
    EXPECT_EQ(bench.messages.size(), 1U) << "no, and no report";
}

TEST_F(FolderCopyTest, TheBoxStandsForASecondAndACallComesBeforeIt) {
    Start();
    bench.folder.Write("from/A song of mine.mp3", "x");
    bool stood = false;
    Copy([&] {
        bench.loop.At(950ms, [&] {
            stood = Open() == "foldercopy";
            TakeReport();
        });
        bench.loop.At(100ms, [&] {
            EXPECT_EQ(Open(), "messagebox") << "who rings comes first";
            bench.program->dialogs.Refill();
            Do("messagebox.ok");
        });
        EXPECT_EQ(Label("lblPercent"), "100%");
        EXPECT_EQ(Label("lblPair"), "1 of 3");
        EXPECT_EQ(Label("lblName"), "A\u00a0song\u00a0of\u00a0mine.mp3");
        Do("app.startfoldercopy");
        EXPECT_EQ(Open(), "foldercopy") << "asked for twice";
        bench.program->showMessage("a call");
        EXPECT_EQ(Open(), "foldercopy");
        EXPECT_EQ(bench.program->stage.ModalForm(), &bench.program->fsoperation.form);
    });
    EXPECT_TRUE(stood);
    EXPECT_THAT(report, HasSubstr("1: Copied"));
    EXPECT_EQ(bench.program->stage.ModalForm(), nullptr);
}

TEST_F(FolderCopyTest, TheEndOfTheCopyBehindAQuestionWaitsForItsAnswer) {
    Start();
    Copy([&] {
        bench.loop.At(5000ms, [&] {
            EXPECT_EQ(Open(), "messagebox");
            EXPECT_FALSE(bench.program->fsoperation.form.visible) << "it has ended behind it";
            TakeReport();
            Do("messagebox.no");
        });
        EXPECT_EQ(bench.program->showMessage("?", MessageButtons::yesNo), MessageAnswer::no);
    });
    EXPECT_THAT(report, HasSubstr("1: Copied"));
}

TEST_F(FolderCopyTest, TheProgramsEndInTheMiddleLeavesNoHalfFileAndNoReport) {
    Start();
    bench.folder.Write("from/big", std::string(150'000'000, 'x'));
    CopyAndInTheMiddle([&] { bench.platform.screen.onCloseRequest(true); });
    EXPECT_TRUE(bench.loop.quitting);
    EXPECT_TRUE(bench.folder.Has("zvr.ini"));
    bench.program.reset();
    bench.loop.posted.clear();  // as with the loop's end
    EXPECT_TRUE(std::filesystem::is_empty(Folder("to")));
}
