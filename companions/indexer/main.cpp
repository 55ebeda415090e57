// indexer: writes the media index that zVR searches. zVR starts it; by hand it works as well.

#include "media/index/indexcrawl.h"
#include "media/index/indexformat.h"
#include "media/mediatypes.h"
#include "platform/common/mounts.h"
#include "platform/log.h"
#include "platform/profile.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr int exitUsage = 1;
constexpr int exitNotRead = 2;
constexpr int exitNotWritten = 3;

constexpr const char* allFixedVolumes = "*";

constexpr const char* usage =
    "Usage: indexer 347 BASE\n"
    "Writes zvrmedia.dat, the index of all media in the folder BASE, beside this program. BASE \"*\" stands for all\n"
    "fixed volumes and your home. What counts as media is said in zvr.ini, also beside this program.\n"
    "Exit: 0 written, 1 wrong call, 2 BASE can't be read, 3 the index can't be written; then the old one stays.\n";

int Fail(int exitCode, const std::string& why) {
    std::fprintf(stderr, "indexer: %s\n", why.c_str());
    return exitCode;
}

/// Music and touches come first, on the processor as on the disk.
void TakeLowestPriority() {
    constexpr int processes = 1;
    constexpr int idleClass = 3 << 13;
    setpriority(PRIO_PROCESS, 0, 19);
    syscall(SYS_ioprio_set, processes, 0, idleClass);
}

/// BASE as it was meant: a caller without quotes has it cut at its blanks.
std::string Joined(const std::vector<std::string>& words, std::size_t first) {
    std::string text = words[first];
    for (std::size_t i = first + 1; i < words.size(); ++i) {
        text += " " + words[i];
    }
    return text;
}

/// The folder as the player would name it, which tells by its name what is playing: no "//", no "/./".
std::string Plain(const std::string& folder) {
    const std::string plain = std::filesystem::path(folder).lexically_normal().string();
    const bool isSame = plain.starts_with('/') && zvr::files::IdentityOf(plain) == zvr::files::IdentityOf(folder);
    return isSame ? plain : zvr::files::RealPath(folder);
}

std::vector<std::string> BasesOf(const std::string& base) {
    if (base != allFixedVolumes) {
        return {Plain(base)};
    }
    std::vector<std::string> bases = zvr::FixedVolumesOfMounts(zvr::MountInfo(), zvr::FactsOfKernel());
    if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') {
        bases.emplace_back(home);
    }
    return bases;
}

/// Tells a watcher every second where it is.
class Progress {
public:
    void Tell(const std::string& folder) {
        const auto now = std::chrono::steady_clock::now();
        if (watched && now - told >= std::chrono::seconds(1)) {
            std::fprintf(stderr, "indexer: in %s\n", folder.c_str());
            told = now;
        }
    }

private:
    const bool watched = isatty(STDERR_FILENO) != 0;
    std::chrono::steady_clock::time_point told = std::chrono::steady_clock::now();
};

void TellWhatIsMissing(const zvr::IndexCounts& counts) {
    const auto tell = [](long count, const char* what) {
        if (count > 0) {
            std::fprintf(stderr, "indexer: %ld %s\n", count, what);
        }
    };
    tell(counts.foldersUnread, "folders could not be read, or not to their end");
    tell(counts.namesLeftOut, "names left out: the index can't hold line ends in a name, nor names that are no UTF-8");
    tell(counts.foldersBeyond, "folders left out: the index has no room for more folders");
    tell(counts.filesBeyond, "files left out with them");
}

/// What would leave an empty index in the place of a good one; empty if nothing does.
std::string FaultOf(const std::string& folder) {
    if (!zvr::files::IsFolder(folder) || !zvr::files::Enumerate(folder, [](const auto&) { return false; })) {
        return "is no folder that can be read";
    }
    return zvr::IndexWriter::CanHold(folder) ? "" : "has a name that the index can't hold";
}

int Build(const std::string& base, const std::string& folder) {
    const std::vector<std::string> bases = BasesOf(base);
    const std::string fault = base == allFixedVolumes ? "" : FaultOf(bases.front());
    if (!fault.empty()) {
        return Fail(exitNotRead, base + " " + fault);
    }
    Progress progress;
    zvr::IndexWriter writer;
    zvr::IndexCrawl crawl({bases, zvr::MediaExtensions(zvr::Profile::Load(folder + "zvr.ini")), base == allFixedVolumes,
                           zvr::IsSystemPath, [&progress](const std::string& path) { progress.Tell(path); }},
                          writer);
    const zvr::IndexCounts counts = crawl.Run();
    if (!counts.baseThatWent.empty()) {
        return Fail(exitNotRead, counts.baseThatWent + " has gone meanwhile; the old index stays");
    }
    const std::string file = folder + std::string(zvr::indexFileName);
    if (const auto error = zvr::files::WriteAtomic(file, writer.TakeText()); !error.empty()) {
        return Fail(exitNotWritten, file + " can't be written: " + error);
    }
    TellWhatIsMissing(counts);
    std::fprintf(stderr, "indexer: %ld files in %ld folders\n", counts.files, counts.folders);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 1 && (words[0] == "--help" || words[0] == "-h")) {
        std::fputs(usage, stdout);
        return 0;
    }
    // A first word that nobody types by mistake: a double click shall start no search through all disks.
    if (words.size() < 2 || words[0] != "347" || Joined(words, 1).empty()) {
        std::fputs(usage, stderr);
        return exitUsage;
    }
    zvr::Log::UseStandardError(true);
    TakeLowestPriority();
    const std::string program = zvr::files::RealPath("/proc/self/exe");
    return Build(Joined(words, 1), zvr::files::FolderOf(program));
}
