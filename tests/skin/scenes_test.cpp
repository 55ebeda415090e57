// How each screen of each skin that ships is laid out, as text: tests/skin/scenes/SKIN/SCREEN.txt, a control a line.
// A change of layout shows in review as a change of these files. To write them anew after a wanted change:
//   ZVR_WRITE_SCENES=1 build/zvr_tests --gtest_filter='Scenes*'

#include "skin/check/samples.h"
#include "skin/skin_fixture.h"
#include "skin/skinner.h"

#include <cstdlib>
#include <fstream>
#include <set>

using namespace zvr;
namespace fs = std::filesystem;

namespace {

const fs::path drawn = fs::path(ZVR_BINARY_DIR) / "skins";
const fs::path kept = fs::path(ZVR_SOURCE_DIR) / "tests/skin/scenes";

std::set<std::string> FoldersIn(const fs::path& folder) {
    std::set<std::string> names;
    std::error_code none;
    for (const auto& entry : fs::directory_iterator(folder, none)) {
        names.insert(entry.path().filename().string());
    }
    return names;
}

std::string Content(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

TEST(Scenes, ScreensOfTheSkinsThatShipAreLaidOutAsKept) {
    const bool rewrite = std::getenv("ZVR_WRITE_SCENES") != nullptr;
    if (rewrite) {
        fs::remove_all(kept);
    }
    const auto skins = FoldersIn(drawn);
    ASSERT_EQ(skins.size(), 8U) << "four sizes by day and by night";
    for (const std::string& skin : skins) {
        Bench bench;
        fs::create_directories(bench.folder.path + "/skins");
        fs::copy(drawn / skin, bench.folder.path + "/skins/" + skin, fs::copy_options::recursive);
        bench.settings = "[general]\nSHOWWARNING=0\nUSEDSKIN=" + skin + "\n";
        bench.Start();
        ASSERT_EQ(bench.program->skinner.loadedSkin, skin);
        FillWithSamples(*bench.program);
        std::set<std::string> files;
        for (const Form* form : bench.program->ModuleForms()) {
            const fs::path file = kept / skin / (form->name + ".txt");
            files.insert(file.filename().string());
            if (rewrite) {
                fs::create_directories(file.parent_path());
                std::ofstream(file, std::ios::binary) << SceneOf(*form);
            }
            EXPECT_EQ(SceneOf(*form), Content(file)) << file;
        }
        EXPECT_EQ(FoldersIn(kept / skin), files);
    }
    EXPECT_EQ(FoldersIn(kept), skins);
}
