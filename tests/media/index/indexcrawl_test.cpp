#include "media/index/indexcrawl.h"

#include "media/index/mediaindex.h"
#include "media/mediatypes.h"
#include "platform/profile.h"
#include "support/bench.h"

#include <filesystem>

namespace zvr {
namespace {

class Crawl : public ::testing::Test {
protected:
    TemporaryFolder folder;
    IndexWriter writer;
    IndexCounts counts;

    IndexPlan Plan(std::vector<std::string> bases) {
        return {std::move(bases), "mp3;avi", false, [](const std::string&) { return false; }, {}};
    }
    /// The entries of an index of the folders, in its order; what lies below the test's own folder without that.
    std::vector<std::string> Entries(IndexPlan plan) {
        counts = IndexCrawl(std::move(plan), writer).Run();
        const IndexReading reading = MediaIndex::Parse(writer.TakeText());
        std::vector<std::string> entries;
        if (reading.index == nullptr) {
            return entries;
        }
        const std::string_view text = reading.index->SearchedText();
        for (std::size_t at = 0; at < text.size(); at = text.find('\0', at) + 1) {
            const auto place = static_cast<MediaIndex::Place>(at);
            const std::string full = reading.index->Folder(place) + reading.index->Name(place);
            entries.push_back(full.starts_with(folder.path) ? full.substr(folder.path.size()) : full);
        }
        return entries;
    }
};

TEST_F(Crawl, WritesFoldersThatHoldMediaHoweverDeepAndTheirFiles) {
    folder.Write("music/b.mp3", "");
    folder.Write("music/A.AVI", "");
    folder.Write("music/note.txt", "");
    folder.Write("music/.hidden/x.mp3", "");
    folder.Write("music/albums/2001/Song.mp3", "");
    folder.Write("music/empty/readme.txt", "");
    for (const char* year : {"3", "1", "4", "2"}) {
        folder.Write(std::string("music/years/") + year + "/s.mp3", "");
    }
    EXPECT_THAT(Entries(Plan({folder.path + "/music/"})),
                ElementsAre("/music", "/music/A.AVI", "/music/b.mp3", "/music/albums", "/music/albums/2001",
                            "/music/albums/2001/Song.mp3", "/music/years", "/music/years/1", "/music/years/1/s.mp3",
                            "/music/years/2", "/music/years/2/s.mp3", "/music/years/3", "/music/years/3/s.mp3",
                            "/music/years/4", "/music/years/4/s.mp3"));
    EXPECT_EQ(counts.files, 7);
    EXPECT_EQ(counts.folders, 8);
    EXPECT_THAT(Entries(Plan({folder.path + "/music/empty"})), IsEmpty());
    EXPECT_THAT(Entries(Plan({folder.path + "/none"})), IsEmpty());
}

TEST_F(Crawl, AFolderComesOnceAtItsOwnPlaceFirst) {
    folder.Write("music/z/song.mp3", "");
    folder.Write("elsewhere/far.mp3", "");
    std::filesystem::create_directory_symlink("../z", folder.path + "/music/z/again");
    std::filesystem::create_directory_symlink("z", folder.path + "/music/alias");
    std::filesystem::create_directory_symlink("..", folder.path + "/music/up");
    std::filesystem::create_directory_symlink("nowhere", folder.path + "/music/dead");
    EXPECT_THAT(Entries(Plan({folder.path + "/music", folder.path + "/music/z"})),
                ElementsAre("/music", "/music/z", "/music/z/song.mp3", "/music/up", "/music/up/elsewhere",
                            "/music/up/elsewhere/far.mp3"));
}

TEST_F(Crawl, LeavesOutWhatTheIndexCantHoldAndTellsHowMuch) {
    folder.Write("music/two\r\nlines.mp3", "");
    folder.Write("music/latin\xE4.mp3", "");
    folder.Write("music/fine\n.mp3", "");
    EXPECT_THAT(Entries(Plan({folder.path + "/music"})), ElementsAre("/music", "/music/fine\n.mp3"));
    EXPECT_EQ(counts.namesLeftOut, 2);
}

TEST_F(Crawl, LeavesOutFoldersBeyondTheLast) {
    folder.Write("music/a/1.mp3", "");
    folder.Write("music/b/2.mp3", "");
    folder.Write("music/b/3.mp3", "");
    for (int i = 0; i < 32'767 - 3; ++i) {
        ASSERT_EQ(writer.AddFolder("/x/"), i);
    }
    // The base's parent, the base and the first folder have the last three places.
    EXPECT_THAT(Entries(Plan({folder.path + "/music"})), ElementsAre("/music", "/music/a", "/music/a/1.mp3"));
    EXPECT_EQ(counts.foldersBeyond, 1);
    EXPECT_EQ(counts.filesBeyond, 2);
}

TEST_F(Crawl, LooksIntoTheSystemsFoldersOnlyWhenAskedTo) {
    folder.Write("usr/share/game.mp3", "");
    folder.Write("home/me.mp3", "");
    IndexPlan plan = Plan({folder.path});
    plan.isSystem = [this](const std::string& path) { return path.starts_with(folder.path + "/usr"); };
    IndexPlan asked = plan;
    asked.bases = {folder.path + "/usr/share"};
    EXPECT_THAT(Entries(plan), ElementsAre("", "/home", "/home/me.mp3"));
    EXPECT_THAT(Entries(asked), ElementsAre("/usr/share", "/usr/share/game.mp3"));
    // A link means what it leads to: everything, or what somebody has put there.
    std::filesystem::create_directory_symlink("..", folder.path + "/home/everything");
    asked.bases = {folder.path + "/home"};
    EXPECT_THAT(Entries(asked), ElementsAre("/home", "/home/me.mp3"));
    std::filesystem::create_directory_symlink("../usr/share", folder.path + "/home/shared");
    EXPECT_THAT(Entries(asked), ElementsAre("/home", "/home/me.mp3", "/home/shared", "/home/shared/game.mp3"));
    plan.staysOnBases = true;
    plan.bases = asked.bases;
    EXPECT_THAT(Entries(plan), ElementsAre("/home", "/home/me.mp3"));
}

TEST(MediaExtensions, AreThoseOfTheSettingsWhereTheyCanBeUsed) {
    EXPECT_EQ(MediaExtensions(Profile::Parse("")), "mp3;wav;wma;mid;avi;mpeg;mpg;wmv");
    EXPECT_EQ(MediaExtensions(Profile::Parse("[MediaPlayer]\nFileExtensionsAudio=OGG;flac\nFILEEXTENSIONSVIDEO=a.b\n")),
              "ogg;flac;avi;mpeg;mpg;wmv");
}

}  // namespace
}  // namespace zvr
