#include "skin/check/newskin.h"
#include "skin/check/skincheck.h"
#include "skin/skin_fixture.h"

using namespace zvr;

TEST_F(SkinTest, ANewSkinLoadsLocksNobodyInAndLeavesNothingToTell) {
    Program& program = Running();
    for (const Size screen : {smallestScreen, Size{800, 480}, Size{1280, 800}, largestScreen}) {
        const std::string name = "new" + std::to_string(screen.width);
        const NewSkin skin = SmallestSkin(screen);
        bench.folder.Write("skins/" + name + "/skindata.xml", skin.data);
        for (const NewPicture& picture : skin.pictures) {
            bench.folder.Write("skins/" + name + "/" + picture.file, PngBytes(picture.size.width, picture.size.height));
        }
        program.skinner.LoadSkin(name);
        EXPECT_EQ(program.skinner.loadedSkin, name);
        EXPECT_THAT(bench.dialogs.critical, IsEmpty());
        std::vector<std::string> told;
        for (const SkinFinding& finding : CheckSkin(bench.folder.path + "/skins/" + name, {}).findings) {
            told.push_back(LineOf(finding, name));
        }
        EXPECT_THAT(told, IsEmpty()) << skin.data;
    }
}
