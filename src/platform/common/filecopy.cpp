#include "platform/filecopy.h"

#include "platform/common/copysource.h"
#include "platform/log.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <map>
#include <utility>
#include <vector>

namespace zvr {
namespace {

constexpr std::chrono::milliseconds stepTime{20};
constexpr off_t chunk = 4 << 20;
constexpr std::uint64_t mostInAStep = 16 << 20;
/// So far behind the writing its end on the disk is waited for: else a whole file would be on its way there at once.
constexpr off_t onTheWay = 16 << 20;
/// Where files lie until all of them is on the disk. A killed copy leaves it behind, and the next copy to there takes
/// it away.
constexpr const char* halfFolder = ".zvr-copy.part";
/// Small files are waited for together: a disk takes as long for one as for hundreds.
constexpr std::size_t mostTogether = 256;
constexpr std::uint64_t mostBytesTogether = 8 << 20;
/// So few are waited for one by one, and not with whatever else is on its way to the disk.
constexpr std::size_t fewTogether = 8;

class Descriptor {
public:
    explicit Descriptor(int number = -1) : number(number) {}
    ~Descriptor() { Close(); }
    Descriptor(Descriptor&& other) noexcept : number(other.number) { other.number = -1; }
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number, other.number);
        return *this;
    }
    int Close() {
        const int result = number >= 0 ? close(number) : 0;
        number = -1;
        return result;
    }
    [[nodiscard]] int operator*() const { return number; }
    [[nodiscard]] bool IsOpen() const { return number >= 0; }

private:
    int number;
};

/// Of one file: the next file of a disk that is full or gone fares no better.
bool IsOfTheDisk(int error) {
    return error == ENOSPC || error == EDQUOT || error == EIO || error == EROFS || error == ENODEV || error == ENXIO ||
           error == ENOTCONN || error == ESTALE;
}

/// The thread's own: music and the screen go first.
void GoBehindTheOthers() {
    constexpr int ofThisThread = 1;
    constexpr int idle = 3 << 13;
    syscall(SYS_ioprio_set, ofThisThread, 0, idle);
}

/// A file system in a program of its own says that it has written what it still holds.
bool IsProgram(int folder) {
    constexpr decltype(statfs::f_type) program = 0x65735546;
    struct statfs about {};
    return fstatfs(folder, &about) != 0 || about.f_type == program;
}

int SyncFile(const std::string& path) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return file.IsOpen() && fdatasync(*file) == 0 ? 0 : errno;
}

std::string CopyName(const std::string& name, int number) {
    return number == 1 ? "Copy of " + name : "Copy (" + std::to_string(number) + ") of " + name;
}

}  // namespace

struct FileCopy::State {
    std::string from;  ///< with a separator at the end, and so is `to`
    std::string to;
    CopySource source;
    bool begun = false;
    bool over = false;
    int fault = 0;
    std::size_t next = 0;  ///< entry to begin
    std::string name;
    std::uint64_t bytesDone = 0;
    std::string leftOut;                         ///< a folder that can't be made, with a separator; empty for none
    std::map<std::string, std::string> renamed;  ///< folders below the target by those below the source

    // The file at hand.
    Descriptor reading;
    Descriptor writing;
    std::string finalName;  ///< below the target, as wanted
    std::string half;
    off_t offset = 0;
    std::uint64_t bytesBefore = 0;  ///< done when it began
    bool byHand = false;            ///< the kernel can't copy between these two

    /// A file that is copied, and not known to be on the disk.
    struct Written {
        std::string half;
        std::string finalName;
    };
    std::vector<Written> written;
    std::uint64_t bytesWritten = 0;  ///< of them
    Descriptor halves;               ///< the folder of all that is half

    void Begin();
    void Next();
    void MakeFolder(const CopySource::Entry& entry);
    void OpenFile(const CopySource::Entry& entry);
    void CopyPiece();
    bool FindData(off_t& begin, off_t& end);
    ssize_t CopyBytes(off_t length);
    void FinishFile();
    [[nodiscard]] bool SyncTogether() const;
    void GiveNames();
    void End();
    void DropFile(int error);
    void Note(int error, const std::string& path);
    [[nodiscard]] std::string Target(const std::string& path) const;
    void RemoveHalves() const;
};

FileCopy::FileCopy(std::string from, std::string to) : state(std::make_unique<State>()) {
    state->from = std::move(from) + "/";
    state->to = std::move(to) + "/";
}

FileCopy::~FileCopy() {
    Break();
}

bool FileCopy::Step() {
    if (!state->begun) {
        state->begun = true;
        state->Begin();
        return !state->over;
    }
    const auto end = std::chrono::steady_clock::now() + stepTime;
    const std::uint64_t before = state->bytesDone;
    while (!state->over && state->bytesDone - before < mostInAStep && std::chrono::steady_clock::now() < end) {
        if (state->writing.IsOpen()) {
            state->CopyPiece();
        } else {
            state->Next();
        }
    }
    if (state->over) {
        state->End();
    }
    return !state->over;
}

void FileCopy::Break() {
    state->over = true;
    state->writing.Close();
    if (state->halves.IsOpen()) {
        state->RemoveHalves();
        state->halves.Close();
    }
}

int FileCopy::Fault() const {
    return state->fault;
}

const std::string& FileCopy::Name() const {
    return state->name;
}

std::uint64_t FileCopy::BytesDone() const {
    return state->bytesDone;
}

std::uint64_t FileCopy::BytesInAll() const {
    return state->source.bytes;
}

void FileCopy::State::Begin() {
    GoBehindTheOthers();
    RemoveHalves();
    source = LookThrough(from, to);
    if (source.fault != 0) {
        Note(source.fault, from);
    }
    struct statvfs space {};
    if (statvfs(to.c_str(), &space) == 0 && space.f_blocks > 0 &&
        source.onDisk > static_cast<std::uint64_t>(space.f_bavail) * space.f_frsize) {
        Note(ENOSPC, to);
    }
    const std::string folder = to + halfFolder;
    if (!over && mkdir(folder.c_str(), 0777) == 0) {
        halves = Descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }
    if (!over && !halves.IsOpen()) {
        Note(errno, folder);
        over = true;
    }
}

void FileCopy::State::RemoveHalves() const {
    std::error_code error;
    std::filesystem::remove_all(to + halfFolder, error);
}

void FileCopy::State::End() {
    GiveNames();
    if (halves.IsOpen()) {
        RemoveHalves();
        syncfs(*halves);  // the new names
        halves.Close();
    }
}

void FileCopy::State::Next() {
    if (next == source.entries.size()) {
        over = true;
        return;
    }
    const CopySource::Entry& entry = source.entries[next++];
    if (!leftOut.empty() && entry.path.starts_with(leftOut)) {
        bytesDone += entry.bytes;
    } else if (entry.isFolder) {
        MakeFolder(entry);
    } else {
        OpenFile(entry);
    }
}

/// Where an entry of the source goes: below a folder that had to be called otherwise, if one was.
std::string FileCopy::State::Target(const std::string& path) const {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) {
        return path;
    }
    const auto folder = renamed.find(path.substr(0, slash));
    return (folder == renamed.end() ? path.substr(0, slash) : folder->second) + path.substr(slash);
}

namespace {

/// Asks for one name after the other until one is free: `take` gives 0 or an error, EEXIST for the next.
template <typename Take>
int TakeFreeName(std::string& path, const Take& take) {
    const std::size_t begin = path.rfind('/') + 1;
    const std::string folder = path.substr(0, begin);
    const std::string name = path.substr(begin);
    int error = take(path);
    for (int number = 1; error == EEXIST && number < 10'000; ++number) {
        path = folder + CopyName(name, number);
        error = take(path);
    }
    return error;
}

/// Not over what is there. Where the file system can't promise that, a look has to do.
int RenameToFree(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return 0;
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return errno;
    }
    struct stat about {};
    if (lstat(to.c_str(), &about) == 0) {
        return EEXIST;
    }
    return rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

}  // namespace

void FileCopy::State::MakeFolder(const CopySource::Entry& entry) {
    const std::string wanted = Target(entry.path);
    std::string path = to + wanted;
    const int error =
        TakeFreeName(path, [](const std::string& name) { return mkdir(name.c_str(), 0777) == 0 ? 0 : errno; });
    if (error != 0) {
        leftOut = entry.path + "/";
        Note(error, path);
    }
    if (const std::string made = path.substr(to.size()); made != entry.path) {
        renamed[entry.path] = made;
    }
}

void FileCopy::State::OpenFile(const CopySource::Entry& entry) {
    name = entry.path.substr(entry.path.rfind('/') + 1);
    finalName = Target(entry.path);
    bytesBefore = bytesDone;
    offset = 0;
    byHand = false;
    reading = Descriptor(open((from + entry.path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat about {};
    if (!reading.IsOpen() || fstat(*reading, &about) != 0) {
        DropFile(errno);
        return;
    }
    half = to + halfFolder + "/" + std::to_string(next);
    writing = Descriptor(open(half.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, (about.st_mode & 0777) | 0600));
    if (!writing.IsOpen()) {
        DropFile(errno);
    }
}

/// The next piece that is no hole, from `begin` on. False behind the last one; `end` is the file's then.
bool FileCopy::State::FindData(off_t& begin, off_t& end) {
    struct stat about {};
    fstat(*reading, &about);
    end = about.st_size;
    const off_t data = lseek(*reading, begin, SEEK_DATA);
    if (data < 0) {
        return errno != ENXIO && begin < end;  // no such question here: all of it is data
    }
    begin = data;
    if (const off_t hole = lseek(*reading, data, SEEK_HOLE); hole >= 0) {
        end = hole;
    }
    return begin < end;
}

void FileCopy::State::CopyPiece() {
    off_t end = 0;
    if (!FindData(offset, end)) {
        if (ftruncate(*writing, end) != 0) {
            DropFile(errno);
        } else {
            FinishFile();
        }
        return;
    }
    const ssize_t copied = CopyBytes(std::min(chunk, end - offset));
    if (copied <= 0) {
        DropFile(copied < 0 ? errno : EIO);
        return;
    }
    if (copied == chunk) {
        sync_file_range(*writing, offset, copied, SYNC_FILE_RANGE_WRITE);
    }
    if (offset >= onTheWay) {
        sync_file_range(*writing, offset - onTheWay, chunk,
                        SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER);
    }
    offset += copied;
    bytesDone = bytesBefore + static_cast<std::uint64_t>(offset);
}

/// From `offset` on. Negative with errno, 0 where the file has become shorter.
ssize_t FileCopy::State::CopyBytes(off_t length) {
    if (!byHand) {
        off_t in = offset;
        off_t out = offset;
        const ssize_t copied = copy_file_range(*reading, &in, *writing, &out, static_cast<std::size_t>(length), 0);
        if (copied > 0 || (copied < 0 && (IsOfTheDisk(errno) || errno == EFBIG))) {
            return copied;
        }
        byHand = true;  // another file system, or one that only says what it can't
    }
    std::vector<char> buffer(std::min<std::size_t>(static_cast<std::size_t>(length), 1 << 20));
    const ssize_t got = pread(*reading, buffer.data(), buffer.size(), offset);
    for (ssize_t done = 0; done < got;) {
        const ssize_t put = pwrite(*writing, buffer.data() + done, static_cast<std::size_t>(got - done), offset + done);
        if (put < 0) {
            return -1;
        }
        done += put;
    }
    return got;
}

void FileCopy::State::FinishFile() {
    struct stat about {};
    if (fstat(*reading, &about) == 0) {
        const timespec times[2] = {about.st_atim, about.st_mtim};
        futimens(*writing, times);
    }
    if (writing.Close() != 0) {
        DropFile(errno);
        return;
    }
    reading.Close();
    written.push_back({half, finalName});
    bytesWritten += static_cast<std::uint64_t>(offset);
    bytesDone = bytesBefore + source.entries[next - 1].bytes;
    if (written.size() == mostTogether || bytesWritten >= mostBytesTogether) {
        GiveNames();
    }
}

bool FileCopy::State::SyncTogether() const {
    return written.size() > fewTogether && !IsProgram(*halves) && syncfs(*halves) == 0;
}

/// To what is whole on the disk, and to nothing else.
void FileCopy::State::GiveNames() {
    const bool allAreSafe = SyncTogether();
    bytesWritten = 0;
    for (const Written& file : std::exchange(written, {})) {
        std::string path = to + file.finalName;
        int error = allAreSafe ? 0 : SyncFile(file.half);
        if (error == 0) {
            error = TakeFreeName(path, [&file](const std::string& free) { return RenameToFree(file.half, free); });
        }
        if (error != 0) {
            unlink(file.half.c_str());
            Note(error, path);
        }
    }
}

void FileCopy::State::DropFile(int error) {
    reading.Close();
    if (writing.IsOpen()) {
        writing.Close();
        unlink(half.c_str());
    }
    bytesDone = bytesBefore + source.entries[next - 1].bytes;
    Note(error, from + source.entries[next - 1].path);
}

void FileCopy::State::Note(int error, const std::string& path) {
    if (fault == 0) {
        fault = error;
        Log::Warning("{} is not copied: {}", path, std::strerror(error));
    }
    over = over || IsOfTheDisk(error);
}

}  // namespace zvr
