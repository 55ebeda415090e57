// How each screen of two of the skins that ship is laid out, as text: tests/skin/scenes/SKIN/SCREEN.txt, a control a
// line. One description draws all sizes, by day and by night: the narrowest and the widest show each change of it. The
// program's own dialogs too, which take their colours from the skin.
// To write them anew after a wanted one:
//   ZVR_WRITE_SCENES=1 build/zvr_tests --gtest_filter='*Scenes*'

#include "core/splash.h"
#include "skin/check/samples.h"
#include "skin/skin_fixture.h"
#include "skin/skinner.h"
#include "support/paths.h"
#include "ui/stage.h"

#include <cstdlib>
#include <fstream>

using namespace zvr;
namespace fs = std::filesystem;

namespace {

const fs::path drawn = fs::path(ZVR_BINARY_DIR) / "skins";
const fs::path kept = fs::path(ZVR_SOURCE_DIR) / "tests/skin/scenes";

std::string Content(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

class Scenes : public testing::TestWithParam<std::string> {};

TEST_P(Scenes, AreLaidOutAsKept) {
    const std::string& skin = GetParam();
    Bench bench;
    fs::create_directories(bench.folder.path + "/skins");
    fs::copy(drawn / skin, bench.folder.path + "/skins/" + skin, fs::copy_options::recursive);
    bench.folder.Write("stick/song.mp3", "one file: how a folder orders its files is the file system's");
    bench.settings = "[general]\nSHOWWARNING=0\nONAPPEND=ask\nUSEDSKIN=" + skin +
                     "\nFOLDERCOPYSOURCE1=" + bench.folder.path + "/stick\nFOLDERCOPYTARGET1=" + bench.folder.path +
                     "\n";
    const auto expectAsKept = [&](const Form& form) {
        const fs::path file = kept / skin / (form.name + ".txt");
        if (std::getenv("ZVR_WRITE_SCENES") != nullptr) {
            fs::create_directories(file.parent_path());
            std::ofstream(file, std::ios::binary) << SceneOf(form);
        }
        EXPECT_EQ(FirstDifference(Content(file), SceneOf(form)), "") << file;
    };
    bench.screen.size = skin.find("800x480") == skin.npos ? Size{1280, 800} : Size{800, 480};
    bench.loop.At(Milliseconds{900}, [&] { expectAsKept(bench.program->splash.form); });
    bench.Start();
    ASSERT_EQ(bench.program->skinner.loadedSkin, skin);
    FillWithSamples(*bench.program, {});
    for (const Form* form : bench.program->ModuleForms()) {
        expectAsKept(*form);
    }
    for (const char* dialog : {"app.showquickjumpmenu", "app.exit"}) {
        bench.loop.At(Milliseconds{100}, [&] {
            expectAsKept(*bench.program->stage.ModalForm());
            bench.TypeKey(Key::escape);
        });
        bench.program->dispatchCommand(dialog);
    }
    const auto answer = [&](const char* key) { return [&, key] { bench.program->dispatchCommand(key); }; };
    bench.loop.At(Milliseconds{100}, answer("messagebox.yes"));
    bench.loop.At(Milliseconds{300}, [&] { expectAsKept(*bench.program->stage.ModalForm()); });
    bench.loop.At(Milliseconds{5000}, answer("messagebox.ok"));
    bench.program->dispatchCommand("app.startfoldercopy");
}
INSTANTIATE_TEST_SUITE_P(Skin, Scenes, testing::Values("Dark&Silver 800x480", "Dark&Silver 1280x800 Night"));
