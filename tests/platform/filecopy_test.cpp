#include "platform/filecopy.h"
#include "support/bench.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <csignal>

using namespace zvr;
namespace fs = std::filesystem;

namespace {

class FileCopyTest : public testing::Test {
protected:
    FileCopyTest() {
        fs::create_directories(source);
        fs::create_directories(target);
    }
    /// The fault.
    int Run(const std::string& from, const std::string& to) {
        FileCopy copy(from, to);
        while (copy.Step()) {
        }
        EXPECT_EQ(copy.BytesDone(), copy.BytesInAll());
        return copy.Fault();
    }
    int Run() { return Run(source, target); }
    /// What lies below the target, folders with a separator at the end.
    [[nodiscard]] std::set<std::string> InTarget() const {
        std::set<std::string> found;
        for (const auto& entry : fs::recursive_directory_iterator(target)) {
            found.insert(entry.path().string().substr(target.size() + 1) + (entry.is_directory() ? "/" : ""));
        }
        return found;
    }
    void Write(const std::string& name, std::string_view content = "new") const { folder.Write(name, content); }

    TemporaryFolder folder;
    const std::string source = folder.path + "/source";
    const std::string target = folder.path + "/target";
};

}  // namespace

TEST_F(FileCopyTest, WhatIsThereStaysAndTheNewOnesAreCopiesOfIt) {
    Write("source/song.mp3");
    Write("source/Album/.cover");
    Write("source/Album/inner/track");
    fs::create_directories(source + "/Empty");
    Write("source/taken");
    Write("target/song.mp3", "old");
    Write("target/Copy of song.mp3", "older");
    Write("target/Album/kept", "old");
    Write("target/taken/is a folder", "old");
    const auto written = fs::file_time_type::clock::now() - std::chrono::hours{1000};
    fs::last_write_time(source + "/song.mp3", written);
    EXPECT_EQ(Run(), 0);
    EXPECT_THAT(InTarget(), testing::UnorderedElementsAre(
                                "song.mp3", "Copy of song.mp3", "Copy (2) of song.mp3", "Album/", "Album/kept",
                                "Copy of Album/", "Copy of Album/.cover", "Copy of Album/inner/",
                                "Copy of Album/inner/track", "Empty/", "taken/", "taken/is a folder", "Copy of taken"));
    EXPECT_EQ(folder.ReadFile("target/song.mp3"), "old");
    EXPECT_EQ(folder.ReadFile("target/Copy (2) of song.mp3"), "new");
    EXPECT_LT(fs::last_write_time(target + "/Copy (2) of song.mp3") - written, std::chrono::seconds{1});
}

TEST_F(FileCopyTest, LinksAreFollowedButNotRoundInCircles) {
    Write("source/Album/track");
    Write("elsewhere/far", "far");
    fs::create_symlink(folder.path + "/elsewhere", source + "/linked");
    fs::create_symlink(folder.path + "/elsewhere/far", source + "/file");
    fs::create_symlink("nowhere", source + "/dangling");
    mkfifo((source + "/pipe").c_str(), 0600);
    EXPECT_EQ(Run(), 0);
    EXPECT_THAT(InTarget(), testing::UnorderedElementsAre("Album/", "Album/track", "linked/", "linked/far", "file"));
    fs::create_symlink("..", source + "/Album/loop");
    fs::remove_all(target + "/Album");
    EXPECT_EQ(Run(), ELOOP);
    EXPECT_EQ(folder.ReadFile("target/Album/track"), "new") << "the rest is copied";
}

TEST_F(FileCopyTest, AFolderIntoItselfAndIntoTheOneAroundIt) {
    Write("source/a");
    Write("source/inside/b");
    EXPECT_EQ(Run(source, source + "/inside"), EINVAL);
    EXPECT_EQ(folder.ReadFile("source/inside/a"), "new");
    EXPECT_FALSE(fs::exists(source + "/inside/inside"));
    EXPECT_EQ(Run(source + "/inside", source), 0);
    EXPECT_EQ(folder.ReadFile("source/Copy of a"), "new");
    EXPECT_EQ(folder.ReadFile("source/b"), "new");
    EXPECT_EQ(Run(source + "/inside", source + "/inside"), 0);
    EXPECT_EQ(folder.ReadFile("source/inside/Copy of b"), "new");
}

TEST_F(FileCopyTest, HolesStayHolesAndABrokenOffCopyLeavesNothing) {
    const std::string big = source + "/big";
    Write("source/big", "begin");
    constexpr off_t size = 6'000'000'000;
    ASSERT_EQ(truncate(big.c_str(), size), 0);
    const int end = open(big.c_str(), O_WRONLY);
    ASSERT_EQ(pwrite(end, "middle", 6, size / 2), 6);
    close(end);
    ASSERT_EQ(Run(), 0);
    struct stat about {};
    ASSERT_EQ(stat((target + "/big").c_str(), &about), 0);
    EXPECT_EQ(about.st_size, size);
    EXPECT_LT(about.st_blocks, 1000);
    char read[7] = {};
    const int copied = open((target + "/big").c_str(), O_RDONLY);
    EXPECT_EQ(pread(copied, read, 6, size / 2), 6);
    close(copied);
    EXPECT_STREQ(read, "middle");

    Write("source/big", std::string(40'000'000, 'x'));
    Write("target/.zvr-copy.part/3", "left by a copy that was killed");
    fs::remove(target + "/big");
    {
        FileCopy copy(source, target);
        EXPECT_TRUE(copy.Step());
        EXPECT_TRUE(copy.Step());
        EXPECT_LT(copy.BytesDone(), copy.BytesInAll());
        EXPECT_THAT(InTarget(), testing::UnorderedElementsAre(".zvr-copy.part/", ".zvr-copy.part/1"))
            << "no half file by its name";
    }
    EXPECT_THAT(InTarget(), testing::IsEmpty());
}

TEST_F(FileCopyTest, SmallFilesGetTheirNamesTogether) {
    constexpr int files = 300;
    for (int i = 0; i < files; ++i) {
        Write("source/" + std::to_string(i), "x");
    }
    std::size_t before = 0;
    {
        FileCopy copy(source, target);
        while (copy.Step()) {
            std::set<std::string> named = InTarget();
            std::erase_if(named, [](const std::string& name) { return name.starts_with(".zvr-copy.part/"); });
            EXPECT_TRUE(named.size() == before || named.size() >= before + 256) << named.size();
            before = named.size();
        }
    }
    EXPECT_EQ(InTarget().size(), files);
    fs::remove_all(target);
    fs::create_directories(target);
    Write("mine/letter");
    fs::create_directory_symlink(folder.path + "/mine", target + "/.zvr-copy.part");
    Write("target/17", "old");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(InTarget().size(), files + 1);
    EXPECT_EQ(folder.ReadFile("target/Copy of 17"), "x");
    EXPECT_TRUE(folder.Has("mine/letter")) << "a link goes, not what it leads to";
}

TEST_F(FileCopyTest, AFileThatFailsIsLeftOutAndTheOthersAreCopied) {
    Write("source/a", "a");
    Write("source/b", std::string(3'000'000, 'b'));
    Write("source/c", "c");
    Write("source/long/" + std::string(250, 'n'), "x");
    Write("target/long/kept", "old");
    Write("target/" + std::string(250, 'm'), "old");
    Write("source/" + std::string(250, 'm'), "no room for \"Copy of \"");
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{1'000'000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const int fault = Run();
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, ignored);
    EXPECT_TRUE(fault == EFBIG || fault == ENAMETOOLONG) << fault;
    EXPECT_EQ(folder.ReadFile("target/a"), "a");
    EXPECT_EQ(folder.ReadFile("target/c"), "c");
    EXPECT_EQ(folder.ReadFile("target/Copy of long/" + std::string(250, 'n')), "x");
    EXPECT_FALSE(fs::exists(target + "/b"));
    EXPECT_FALSE(fs::exists(target + "/.zvr-copy.part"));
}

TEST_F(FileCopyTest, ASourceThatGoesAwayInTheMiddleIsAFault) {
    for (int i = 0; i < 200; ++i) {
        Write("source/" + std::to_string(i), "x");
    }
    FileCopy copy(source, target);
    EXPECT_TRUE(copy.Step());
    fs::remove_all(source);
    while (copy.Step()) {
    }
    EXPECT_EQ(copy.Fault(), ENOENT);
    EXPECT_EQ(Run("/nowhere", target), ENOENT);
}
