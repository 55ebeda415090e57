#include "media/filesearch.h"

#include "platform/headless/drives.h"
#include "platform/headless/eventloop.h"
#include "platform/text.h"
#include "support/bench.h"

#include <filesystem>
#include <random>

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
}

TEST(DisplayOrder, AgreesWithTheComparisonOfTexts) {
    std::mt19937 random(3);
    const std::vector<std::string> pieces = {"a", "B", "ä", "ß", " ", "-", "10", "9", ".mp3", "Z", "\xFF"};
    for (const std::string begin : {"", "An Artist of Long Name - "}) {
        std::vector<FileEntry> entries(300, {"/x/", begin, 0});
        for (FileEntry& entry : entries) {
            for (auto count = random() % 20; count > 0; --count) {
                entry.name += pieces[random() % pieces.size()];
            }
        }
        std::vector<std::string> sorted;
        for (const std::int32_t i : DisplayOrder(entries, false)) {
            sorted.push_back(entries[static_cast<std::size_t>(i)].name);
        }
        EXPECT_TRUE(std::is_sorted(sorted.begin(), sorted.end(), [](const std::string& a, const std::string& b) {
            return text::CompareWithoutCase(a, b) < 0;
        }));
        ASSERT_EQ(sorted.size(), entries.size());
    }
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

TEST_F(Scanning, TakesWhatIsAskedForAndNothingHidden) {
    folder.Write("a.mp3", "");
    folder.Write("b.txt", "");
    folder.Write(".hidden.mp3", "");
    folder.Write("sub/c.mp3", "");
    folder.Write(".secret/d.mp3", "");
    EXPECT_THAT(Scan(false, true), UnorderedElementsAre("..", "sub", "a.mp3"));
    EXPECT_THAT(Scan(false, false), UnorderedElementsAre("a.mp3"));
    // A hidden folder has no row, but what lies in it is media all the same.
    EXPECT_THAT(Scan(true, false), UnorderedElementsAre("a.mp3", "sub/c.mp3", ".secret/d.mp3"));
}

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
