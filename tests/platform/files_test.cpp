#include "platform/files.h"
#include "platform/common/folderorder.h"

#include "support/bench.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <random>
#include <thread>

using namespace zvr;
namespace fs = std::filesystem;

namespace {

std::map<std::string, std::uint32_t> Listed(const std::string& folder) {
    std::map<std::string, std::uint32_t> listed;
    EXPECT_TRUE(files::Enumerate(folder, [&](const files::Found& found) {
        EXPECT_TRUE(listed.emplace(found.name, found.attributes).second) << found.name << " came twice";
        return true;
    }));
    return listed;
}

mode_t ModeOf(const std::string& path) {
    struct stat found {};
    return ::stat(path.c_str(), &found) == 0 ? found.st_mode & 07777U : 0;
}

/// A content that tells whether all of it is there: its letter, as often as that letter says, and an end.
std::string WholeContent(char letter) {
    return std::string(static_cast<std::size_t>(letter - 'a' + 1) * 20'000, letter) + "end";
}

bool IsWhole(const std::string& content) {
    return !content.empty() && content[0] >= 'a' && content[0] <= 'z' && content == WholeContent(content[0]);
}

pid_t StartWriter(const std::string& path, char first) {
    const pid_t child = ::fork();
    if (child == 0) {
        for (char letter = first;; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
            if (!files::WriteAtomic(path, WholeContent(letter)).empty()) {
                ::_exit(1);
            }
        }
    }
    return child;
}

/// True if it ran to the last.
bool Kill(pid_t child) {
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status);
}

}  // namespace

TEST(Files, TellsFilesFromFolders) {
    const TemporaryFolder folder;
    const std::string file = folder.Write("a.txt", "x");
    const std::string hidden = folder.Write(".hidden/.b", "x");
    fs::create_symlink(folder.path, folder.path + "/toFolder");
    fs::create_symlink("nowhere", folder.path + "/dangling");
    EXPECT_TRUE(files::Exists(file));
    EXPECT_FALSE(files::IsFolder(file));
    EXPECT_TRUE(files::IsFolder(folder.path));
    EXPECT_FALSE(files::Exists(folder.path));
    EXPECT_TRUE(files::IsFolder(folder.path + "/toFolder"));
    EXPECT_FALSE(files::Exists(folder.path + "/dangling"));
    EXPECT_FALSE(files::Exists(""));

    EXPECT_EQ(files::Attributes(file), 0U);
    EXPECT_EQ(files::Attributes(hidden), files::attributeHidden);
    EXPECT_EQ(files::Attributes(folder.path + "/.hidden/"), files::attributeHidden | files::attributeDirectory);
    EXPECT_EQ(files::Attributes(folder.path + "/.."), files::attributeDirectory);
    EXPECT_EQ(files::Attributes("/"), files::attributeDirectory);
    EXPECT_EQ(files::Attributes(folder.path + "/none"), std::nullopt);
    EXPECT_EQ(files::Attributes(folder.path + "/dangling"), std::nullopt);
}

TEST(Files, ReadsWholeFilesUpToALimit) {
    const TemporaryFolder folder;
    const std::string bytes("\0\xFF\r\n", 4);
    EXPECT_EQ(files::Read(folder.Write("bytes", bytes)), bytes);
    EXPECT_EQ(files::Read(folder.Write("empty", "")), "");
    EXPECT_EQ(files::Read(folder.path + "/bytes", 4), bytes);
    EXPECT_EQ(files::Read(folder.path + "/bytes", 3), std::nullopt);
    EXPECT_EQ(files::Read(folder.path), std::nullopt);
    EXPECT_EQ(files::Read(folder.path + "/none"), std::nullopt);
    EXPECT_GT(files::Read("/proc/self/status").value_or("").size(), 100U) << "a file that reports no size";
    EXPECT_EQ(files::Read("/proc/self/status", 100), std::nullopt);
    ASSERT_EQ(::mkfifo((folder.path + "/pipe").c_str(), 0600), 0);
    EXPECT_EQ(files::Read(folder.path + "/pipe"), std::nullopt) << "and it doesn't wait for a writer";
    EXPECT_NE(files::Append(folder.path + "/pipe", "x"), "");
}

TEST(Files, WriteAtomicReplacesTheFileAndLeavesNothingBeside) {
    const TemporaryFolder folder;
    const std::string path = folder.path + "/zvr.ini";
    EXPECT_EQ(files::WriteAtomic(path, "first"), "");
    EXPECT_EQ(files::WriteAtomic(path, ""), "");
    EXPECT_EQ(folder.ReadFile("zvr.ini"), "");
    EXPECT_EQ(files::WriteAtomic(path, "second"), "");
    EXPECT_EQ(folder.ReadFile("zvr.ini"), "second");
    folder.Write(".zvr.ini.new", "half of a save that a power cut ended, and longer than the next");
    EXPECT_EQ(files::WriteAtomic(path, "third"), "");
    EXPECT_EQ(folder.ReadFile("zvr.ini"), "third");
    EXPECT_THAT(Listed(folder.path), ElementsAre(testing::Key(".."), testing::Key("zvr.ini")));

    EXPECT_NE(files::WriteAtomic(folder.path + "/none/zvr.ini", "x"), "");
    EXPECT_NE(files::WriteAtomic(folder.path, "x"), "");
    EXPECT_NE(files::WriteAtomic("/dev/null", "x"), "") << "a device must not become a file";
    const std::string longest(255, 'n');
    EXPECT_EQ(files::WriteAtomic(folder.path + "/" + longest, "x"), "");
    EXPECT_EQ(folder.ReadFile(longest), "x");
}

TEST(Files, AFullDiskKeepsTheOldFile) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("zvr.ini", "old");
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit little{1000, 1000};
        ::setrlimit(RLIMIT_FSIZE, &little);
        const std::string much(5000, 'x');
        ::_exit(files::WriteAtomic(path, much).empty() || files::Append(path, much).empty() ? 1 : 0);
    }
    int status = 1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0) << "the failure has to be told";
    EXPECT_EQ(folder.ReadFile("zvr.ini"), "old");
    EXPECT_EQ(Listed(folder.path).size(), 2U);
}

TEST(Files, WriteAtomicKeepsModeAndLinks) {
    const TemporaryFolder folder;
    const std::string file = folder.Write("real/zvr.ini", "old");
    ASSERT_EQ(::chmod(file.c_str(), 0604), 0);
    fs::create_symlink("real/zvr.ini", folder.path + "/link");
    fs::create_symlink("link", folder.path + "/linkToLink");
    EXPECT_EQ(files::WriteAtomic(folder.path + "/linkToLink", "new"), "");
    EXPECT_EQ(folder.ReadFile("real/zvr.ini"), "new");
    EXPECT_EQ(ModeOf(file), 0604U);
    EXPECT_TRUE(fs::is_symlink(folder.path + "/link"));
    EXPECT_TRUE(fs::is_symlink(folder.path + "/linkToLink"));

    fs::create_symlink("real/made.ini", folder.path + "/dangling");
    EXPECT_EQ(files::WriteAtomic(folder.path + "/dangling", "made"), "");
    EXPECT_EQ(folder.ReadFile("real/made.ini"), "made");
    fs::create_symlink("loop", folder.path + "/loop");
    EXPECT_NE(files::WriteAtomic(folder.path + "/loop", "x"), "");
}

TEST(Files, AKillAtAnyMomentOfASaveLeavesAWholeFile) {
    const TemporaryFolder folder;
    const std::string path = folder.path + "/zvr.ini";
    ASSERT_EQ(files::WriteAtomic(path, WholeContent('a')), "");
    std::mt19937 random(1);
    int cutShort = 0;
    int changes = 0;
    std::string before;
    // A busy machine starts the writer late: then more rounds, with longer lives.
    const auto enough = [&] { return cutShort > 10 && changes > 10; };
    for (int round = 0; round < 250 || (round < 1000 && !enough()); ++round) {
        const pid_t writer = StartWriter(path, static_cast<char>('a' + round % 26));
        ASSERT_GT(writer, 0);
        std::this_thread::sleep_for(std::chrono::microseconds(300 + random() % (round < 250 ? 3000 : 30000)));
        ASSERT_TRUE(Kill(writer)) << "a save failed";
        const std::string content = folder.ReadFile("zvr.ini");
        ASSERT_TRUE(IsWhole(content)) << "round " << round << ": " << content.size() << " bytes";
        cutShort += folder.Has(".zvr.ini.new") ? 1 : 0;
        changes += content != before ? 1 : 0;
        before = content;
    }
    EXPECT_GT(cutShort, 10) << "the kills have to hit saves in their midst";
    EXPECT_GT(changes, 10);
    EXPECT_EQ(files::WriteAtomic(path, "last"), "");
    EXPECT_EQ(Listed(folder.path).size(), 2U) << "what was cut short doesn't pile up";
}

TEST(Files, AppendsRemovesAndRenames) {
    const TemporaryFolder folder;
    const std::string list = folder.path + "/list.m3u";
    EXPECT_EQ(files::Append(list, "a\n"), "");
    EXPECT_EQ(files::Append(list, "b\n"), "");
    EXPECT_EQ(folder.ReadFile("list.m3u"), "a\nb\n");
    EXPECT_NE(files::Append(folder.path, "x"), "");
    EXPECT_EQ(files::Rename(list, folder.path + "/other.m3u"), "");
    EXPECT_FALSE(folder.Has("list.m3u"));
    EXPECT_NE(files::Rename(list, folder.path + "/third.m3u"), "");
    EXPECT_EQ(files::Remove(folder.path + "/other.m3u"), "");
    EXPECT_EQ(files::Remove(list), "No such file or directory");

    EXPECT_EQ(files::MakeFolder(folder.path + "/x/y/z/"), "");
    EXPECT_EQ(files::MakeFolder(folder.path + "/x/y"), "");
    EXPECT_TRUE(files::IsFolder(folder.path + "/x/y/z"));
    EXPECT_NE(files::Remove(folder.path + "/x/y/z"), "") << "folders aren't removed by mistake";
    folder.Write("file", "");
    EXPECT_NE(files::MakeFolder(folder.path + "/file"), "");
    EXPECT_NE(files::MakeFolder(folder.path + "/file/below"), "");
}

TEST(Files, EnumerateNamesEachEntryAndWhatLinksPointAt) {
    const TemporaryFolder folder;
    folder.Write("song.mp3", "");
    folder.Write(".hidden", "");
    folder.Write("..odd", "");
    folder.Write("sub/deep.mp3", "");
    folder.Write("odd \xE4 name", "");
    fs::create_symlink("sub", folder.path + "/toFolder");
    fs::create_symlink("song.mp3", folder.path + "/.toFile");
    fs::create_symlink("nowhere", folder.path + "/dangling");
    const std::map<std::string, std::uint32_t> wanted = {{"..", 16},        {"song.mp3", 0},     {".hidden", 2},
                                                         {"..odd", 2},      {"sub", 16},         {"toFolder", 1040},
                                                         {".toFile", 1026}, {"odd \xE4 name", 0}};
    EXPECT_EQ(Listed(folder.path), wanted);
    EXPECT_EQ(Listed(folder.path + "/"), wanted);

    EXPECT_FALSE(files::Enumerate(folder.path + "/none", [](const files::Found&) { return true; }));
    EXPECT_FALSE(files::Enumerate(folder.path + "/song.mp3", [](const files::Found&) { return true; }));
    for (const char* root : {"/", "//", "/."}) {
        EXPECT_EQ(Listed(root).count(".."), 0U) << root;
    }
}

TEST(Files, EnumerateGoesByNameWhereTheFileSystemHasNoOrder) {
    const TemporaryFolder folder;
    for (const char* name :
         {"track 10", "track 9", "b", "A", "C", "c", "B", "Track 1", "\u00D6l", "\u00E4h", "\u00F6k", "a"}) {
        folder.Write(name, "");
    }
    std::vector<std::string> names;
    files::Enumerate(folder.path, [&](const files::Found& found) {
        names.emplace_back(found.name);
        return true;
    });
    EXPECT_EQ(names, (std::vector<std::string>{"..", "A", "a", "B", "b", "C", "c", "Track 1", "track 10", "track 9",
                                               "\u00E4h", "\u00F6k", "\u00D6l"}));
    EXPECT_TRUE(files::OrderHasMeaning(0x4D44)) << "FAT: as they were copied";
    EXPECT_FALSE(files::OrderHasMeaning(0xEF53));
}

TEST(Files, EnumerateBeginsAboveAndEndsWhenTold) {
    const TemporaryFolder folder;
    for (int i = 0; i < 50; ++i) {
        folder.Write(std::to_string(i), "");
    }
    std::vector<std::string> visited;
    EXPECT_TRUE(files::Enumerate(folder.path, [&](const files::Found& found) {
        visited.emplace_back(found.name);
        // A visitor may look at folders itself: touches get through while a folder is read.
        EXPECT_EQ(Listed(folder.path).size(), 51U);
        return visited.size() < 5;
    }));
    EXPECT_EQ(visited.size(), 5U);
    EXPECT_EQ(visited[0], "..");
}

TEST(Files, FindsTheUsersFolders) {
    const TemporaryFolder home;
    const Environment homeVariable("HOME", home.path);
    const Environment config("XDG_CONFIG_HOME", "");
    EXPECT_EQ(files::DocumentsFolder(), home.path) << "nothing is there yet";
    fs::create_directories(home.path + "/Documents");
    fs::create_directories(home.path + "/Dokumente \"neu\"");
    fs::create_directories(home.path + "/Klang");
    EXPECT_EQ(files::DocumentsFolder(), home.path + "/Documents");

    home.Write(".config/user-dirs.dirs",
               "# XDG_MUSIC_DIR=\"$HOME/wrong\"\nXDG_DOCUMENTS_DIR=\"$HOME/Dokumente \\\"neu\\\"/\"\n"
               "  XDG_MUSIC_DIR=\"" +
                   home.path + "/Klang\"\nXDG_PICTURES_DIR=\"$HOME/gone\"\nXDG_PICTURES_DIR=relative\n");
    EXPECT_EQ(files::DocumentsFolder(), home.path + "/Dokumente \"neu\"");
    EXPECT_EQ(files::MusicFolder(), home.path + "/Klang");
    EXPECT_EQ(files::PicturesFolder(), home.path) << "the one named is gone";

    home.Write("elsewhere/user-dirs.dirs", "XDG_MUSIC_DIR=\"$HOME\"\nXDG_DOCUMENTS_DIR=\"$HOMELESS\"\n");
    const Environment other("XDG_CONFIG_HOME", home.path + "/elsewhere");
    EXPECT_EQ(files::MusicFolder(), home.path);
    EXPECT_EQ(files::DocumentsFolder(), home.path + "/Documents");
}
