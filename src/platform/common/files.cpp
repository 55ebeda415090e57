#include "platform/files.h"

#include "platform/log.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>

namespace zvr::files {
namespace {

ErrorText LastError() {
    return std::strerror(errno);
}

/// Notes in the log what was not done to which file, and why.
ErrorText Failed(std::string_view what, const std::string& path, ErrorText error) {
    Log::Warning("{} is not {}: {}", path, what, error);
    return error;
}

/// An open file or folder.
class Descriptor {
public:
    explicit Descriptor(int number) : number(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    explicit operator bool() const { return number >= 0; }
    [[nodiscard]] int Number() const { return number; }
    void Close() {
        if (number >= 0) {
            ::close(number);
            number = -1;
        }
    }

private:
    int number;
};

int Open(const std::string& path, int flags) {
    constexpr mode_t everybodyButMask = 0666;
    // Without waiting: a named pipe under a file's name must not stop the program.
    return ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, everybodyButMask);
}

std::optional<struct stat> Look(const std::string& path) {
    struct stat found {};
    return ::stat(path.c_str(), &found) == 0 ? std::optional(found) : std::nullopt;
}

bool WriteWhole(int descriptor, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = ::write(descriptor, content.data(), content.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        content.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
    }
    return true;
}

/// As it is opened: "." for a name alone, without a trailing separator.
std::string FolderAround(const std::string& path) {
    const std::size_t slash = path.rfind(separator);
    if (slash == path.npos) {
        return ".";
    }
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string NameOf(const std::string& path) {
    const std::size_t slash = path.rfind(separator);
    return slash == path.npos ? path : path.substr(slash + 1);
}

/// Where the path leads when its last part is a link, even to a file that doesn't exist yet. Empty for links that
/// lead round in a circle.
std::string FollowLinks(std::string path) {
    constexpr int longestChain = 40;
    std::array<char, PATH_MAX> target{};
    for (int links = 0; links < longestChain; ++links) {
        const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
        if (length <= 0) {
            return path;
        }
        const std::string to(target.data(), static_cast<std::size_t>(length));
        path = to.starts_with(separator) ? to : FolderAround(path) + separator + to;
    }
    return {};
}

/// Opens the one temporary file of a target and holds it alone. A fixed name: what a power cut leaves is used
/// again by the next save and doesn't pile up.
int OpenTemporary(const std::string& path) {
    while (true) {
        const int descriptor = Open(path, O_RDWR | O_CREAT | O_NOFOLLOW);
        if (descriptor < 0) {
            return -1;
        }
        while (::flock(descriptor, LOCK_EX) != 0 && errno == EINTR) {
        }
        struct stat mine {};
        const std::optional<struct stat> present = Look(path);
        if (::fstat(descriptor, &mine) == 0 && present && present->st_ino == mine.st_ino &&
            present->st_dev == mine.st_dev) {
            return descriptor;
        }
        ::close(descriptor);  // another writer has just renamed it into its place
    }
}

ErrorText SyncFolder(const std::string& folder) {
    const Descriptor directory(Open(folder, O_RDONLY | O_DIRECTORY));
    // Some file systems can't sync a folder; then there is nothing more to do.
    return directory && ::fsync(directory.Number()) != 0 && errno != EINVAL ? LastError() : ErrorText{};
}

void TakeOverOwnerAndMode(int descriptor, const struct stat& from) {
    // A file system without owners refuses; the content counts for more.
    if (::fchown(descriptor, from.st_uid, from.st_gid) != 0) {
        errno = 0;
    }
    if (::fchmod(descriptor, from.st_mode & 07777U) != 0) {
        errno = 0;
    }
}

}  // namespace

bool Exists(const std::string& path) {
    const auto found = Look(path);
    return found && !S_ISDIR(found->st_mode);
}

bool IsFolder(const std::string& path) {
    const auto found = Look(path);
    return found && S_ISDIR(found->st_mode);
}

std::optional<std::uint32_t> Attributes(const std::string& path) {
    const auto found = Look(path);
    if (!found) {
        return std::nullopt;
    }
    std::string name = path;
    while (name.size() > 1 && name.back() == separator) {
        name.pop_back();
    }
    name = NameOf(name);
    const bool hidden = name.starts_with('.') && name != "." && name != "..";
    return (hidden ? attributeHidden : 0) | (S_ISDIR(found->st_mode) ? attributeDirectory : 0);
}

std::optional<LocalTime> Modified(const std::string& path) {
    const auto found = Look(path);
    std::tm local{};
    if (!found || ::localtime_r(&found->st_mtim.tv_sec, &local) == nullptr) {
        return std::nullopt;
    }
    return LocalTime{(found->st_mtim.tv_sec + local.tm_gmtoff) * 1000 + found->st_mtim.tv_nsec / 1'000'000};
}

std::optional<Identity> IdentityOf(const std::string& path) {
    const auto found = Look(path);
    return found ? std::optional(Identity{found->st_dev, found->st_ino}) : std::nullopt;
}

std::optional<std::string> Read(const std::string& path, std::size_t limit) {
    ErrorText fault;
    return Read(path, limit, fault);
}

std::optional<std::string> Read(const std::string& path, std::size_t limit, ErrorText& fault) {
    fault.clear();
    const auto unreadable = [&](int error) {
        fault = Failed("read", path, std::strerror(error));
        return std::nullopt;
    };
    const Descriptor file(Open(path, O_RDONLY));
    struct stat found {};
    if (!file && (errno == ENOENT || errno == ENOTDIR)) {
        return std::nullopt;
    }
    if (!file || ::fstat(file.Number(), &found) != 0) {
        return unreadable(errno);
    }
    if (!S_ISREG(found.st_mode) || static_cast<std::uint64_t>(found.st_size) > limit) {
        return unreadable(S_ISREG(found.st_mode) ? EFBIG : S_ISDIR(found.st_mode) ? EISDIR : EINVAL);
    }
    // The size is only a hint: files of the kernel report 0, and a file may grow meanwhile.
    std::string content;
    std::size_t filled = 0;
    content.resize(static_cast<std::size_t>(found.st_size) + 1);
    while (true) {
        const ssize_t count = ::read(file.Number(), content.data() + filled, content.size() - filled);
        if (count < 0 && errno != EINTR) {
            return unreadable(errno);
        }
        if (count == 0) {
            break;
        }
        filled += count > 0 ? static_cast<std::size_t>(count) : 0;
        if (filled > limit) {
            return unreadable(EFBIG);
        }
        if (filled == content.size()) {
            content.resize(content.size() * 2 + 4096);
        }
    }
    content.resize(filled);
    return content;
}

static ErrorText WriteInPlace(const std::string& path, std::string_view content) {
    constexpr std::size_t longestName = 240;  // leaves room in the 255 bytes of a file system
    const std::string target = FollowLinks(path);
    if (target.empty()) {
        return std::strerror(path.empty() ? ENOENT : ELOOP);
    }
    const std::string folder = FolderAround(target);
    const auto old = Look(target);
    if (old && !S_ISREG(old->st_mode)) {
        return std::strerror(S_ISDIR(old->st_mode) ? EISDIR : EINVAL);
    }
    const std::string temporary = folder + separator + "." + NameOf(target).substr(0, longestName) + ".new";
    Descriptor file(OpenTemporary(temporary));
    if (!file) {
        return LastError();
    }
    const auto giveUp = [&] {
        ErrorText error = LastError();
        ::unlink(temporary.c_str());
        return error;
    };
    if (old) {
        TakeOverOwnerAndMode(file.Number(), *old);
    }
    if (::ftruncate(file.Number(), 0) != 0 || !WriteWhole(file.Number(), content) || ::fsync(file.Number()) != 0 ||
        ::rename(temporary.c_str(), target.c_str()) != 0) {
        return giveUp();
    }
    file.Close();
    return SyncFolder(folder);
}

ErrorText WriteAtomic(const std::string& path, std::string_view content) {
    ErrorText error = WriteInPlace(path, content);
    return error.empty() ? error : Failed("written", path, std::move(error));
}

ErrorText Append(const std::string& path, std::string_view content) {
    if (!Look(path)) {
        return WriteAtomic(path, content);
    }
    // Replacing a file asks for no right to write to it; adding to it does.
    if (const Descriptor file(Open(path, O_WRONLY | O_APPEND)); !file) {
        return Failed("written", path, LastError());
    }
    std::optional<std::string> old = Read(path);
    return old ? WriteAtomic(path, old->append(content)) : std::strerror(EFBIG);
}

ErrorText Remove(const std::string& path) {
    if (::unlink(path.c_str()) != 0) {
        return errno == ENOENT ? LastError() : Failed("removed", path, LastError());
    }
    (void)SyncFolder(FolderAround(path));  // it is gone by now, whatever the disk says
    return {};
}

ErrorText Rename(const std::string& from, const std::string& to) {
    if (::rename(from.c_str(), to.c_str()) != 0) {
        return Failed("renamed", from, LastError());
    }
    (void)SyncFolder(FolderAround(to));  // it has the new name by now, whatever the disk says
    return {};
}

ErrorText MakeFolder(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (!error && !IsFolder(path)) {
        return std::strerror(ENOTDIR);
    }
    return error ? error.message() : ErrorText{};
}

}  // namespace zvr::files
