#include "media/mediaplayer.h"
#include "platform/headless/drives.h"
#include "platform/log.h"
#include "support/bench.h"

using namespace zvr;

namespace {

/// What the driver isn't told is in the log, with the file that it is about.
class SilentFailures : public testing::Test {
protected:
    Bench bench;
    const std::uint64_t before = Log::LastNumber();

    void ExpectLine(const std::string& file, const std::string& cause) {
        EXPECT_THAT(Log::Lines(), Contains(AllOf(HasSubstr(bench.folder.path + file), HasSubstr(cause))));
        EXPECT_TRUE(bench.dialogs.plain.empty());
        EXPECT_TRUE(bench.messages.empty());
    }
};

}  // namespace

TEST_F(SilentFailures, OfTheStart) {
    bench.folder.Write("lang/de.ini", "[strings]\nSPLASH_LOADING=Lade\n");
    bench.folder.Write("restore.dat", "too short");
    bench.folder.Write("restore.bsf", "no ramp");
    bench.skin.extra["radio"] = "<background-image>gone.png</background-image>";
    bench.folder.Write("journal.dat", "zVR journal 2\n99");
    bench.settings +=
        "[general]\nUSEDLANGUAGE=de\n[mainmenu]\nSHOWUSERPIC=1\nUSERPIC=" + bench.folder.path + "/me.png\n";
    bench.Start();
    ExpectLine("/lang/de.ini", "the English ones stand in");
    ExpectLine("/restore.dat", "holds no queue");
    ExpectLine("/restore.bsf", "no brightness");
    ExpectLine("/skins/Dark&Silver 800x600/gone.png", "1 are not there");
    ExpectLine("/journal.dat", "no whole journal");
}

TEST_F(SilentFailures, OfListsAndDrives) {
    bench.Start();
    bench.program->mediaplayer.ReadDirectory(bench.folder.path + "/gone");
    ExpectLine("/gone", "No such file");
    bench.program->mediaplayer.currentPlaylistFile = bench.folder.path + "/gone.m3u";
    bench.program->mediaplayer.DisplayPlaylistFilesInList();
    ExpectLine("/gone.m3u", "isn't there");
}
