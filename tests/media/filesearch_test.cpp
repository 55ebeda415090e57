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
    EXPECT_TRUE(ExtensionMatches("x.ÄÖ", "äö"));
    EXPECT_TRUE(ExtensionMatches("a.tar.gz", "tar.gz"));
    EXPECT_FALSE(ExtensionMatches("amp3", "mp3"));
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

TEST(Scanning, ARingOfLinksHasAnEnd) {
    namespace fs = std::filesystem;
    const TemporaryFolder folder;
    folder.Write("one/a.mp3", "");
    folder.Write("two/.secret/b.mp3", "");
    fs::create_directory_symlink(folder.path, folder.path + "/one/up");
    fs::create_directory_symlink(folder.path + "/one", folder.path + "/two/across");
    EventLoop loop;
    Drives drives;
    std::vector<FileEntry> entries;
    FileSearch(loop, drives).Scan(folder.path, true, false, "mp3", entries);
    EXPECT_EQ(entries.size(), 2U) << "a hidden folder has no row, but what lies in it is media all the same";
}

}  // namespace
}  // namespace zvr
