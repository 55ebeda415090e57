#include "media/filesearch.h"

#include "platform/headless/drives.h"
#include "platform/headless/eventloop.h"
#include "support/bench.h"

#include <filesystem>

namespace zvr {
namespace {

TEST(ExtensionMatches, LooksAtTheEndWithoutCase) {
    EXPECT_TRUE(ExtensionMatches("a.mp3", "mp3;wav"));
    EXPECT_TRUE(ExtensionMatches("a.b.WAV", "mp3;wav"));
    EXPECT_TRUE(ExtensionMatches(".mp3", "mp3"));
    EXPECT_TRUE(ExtensionMatches("x.ÄÖ", "äö"));
    EXPECT_TRUE(ExtensionMatches("a.tar.gz", "tar.gz"));
    EXPECT_FALSE(ExtensionMatches("amp3", "mp3"));
    EXPECT_FALSE(ExtensionMatches("mp3", "mp3"));
    EXPECT_FALSE(ExtensionMatches("a.mp3x", "mp3"));
    EXPECT_FALSE(ExtensionMatches("tar.gz", "tar.gz"));
    EXPECT_FALSE(ExtensionMatches("a.mp3", ""));
}

std::vector<FileEntry> Named(std::initializer_list<const char*> names) {
    std::vector<FileEntry> entries;
    for (const char* name : names) {
        entries.push_back({"/x/", name, 0});
    }
    return entries;
}

TEST(DisplayOrder, EqualNamesStandInTheOrderOfTheirNumbersAsTexts) {
    const auto entries = Named({"x", "x", "x", "x", "x", "x", "x", "x", "x", "X", "x"});
    EXPECT_THAT(DisplayOrder(entries, false), ElementsAre(0, 1, 10, 2, 3, 4, 5, 6, 7, 8, 9));
    EXPECT_THAT(DisplayOrder(Named({"Zappa", "b", "ärzte", "An", "a", "Är", "10", "9"}), false),
                ElementsAre(6, 7, 4, 3, 5, 2, 1, 0));
}

class Scanning : public ::testing::Test {
protected:
    EventLoop loop;
    Drives drives;
    FileSearch search{loop, drives};
    TemporaryFolder folder;

    std::vector<std::string> Scan(bool recurse, bool includeFolders) {
        std::vector<FileEntry> entries;
        search.Scan(folder.path, recurse, includeFolders, "mp3", entries);
        std::vector<std::string> names;
        for (const FileEntry& entry : entries) {
            names.push_back(entry.FullName().substr(folder.path.size() + 1));
        }
        return names;
    }
};

TEST_F(Scanning, ARingOfLinksHasAnEnd) {
    folder.Write("one/a.mp3", "");
    folder.Write("two/b.mp3", "");
    namespace fs = std::filesystem;
    fs::create_directory_symlink(folder.path, folder.path + "/one/up");
    fs::create_directory_symlink(folder.path + "/one", folder.path + "/two/across");
    // Which of its two names a folder is found by depends on the file system's order.
    EXPECT_EQ(Scan(true, false).size(), 2U);
}

}  // namespace
}  // namespace zvr
