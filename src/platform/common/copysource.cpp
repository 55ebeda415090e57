#include "platform/common/copysource.h"

#include <dirent.h>
#include <sys/stat.h>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

namespace zvr {
namespace {

constexpr std::size_t mostEntries = 1'000'000;  ///< links may multiply what lies behind them
constexpr std::size_t deepest = 100;

struct Identity {
    dev_t device = 0;
    ino_t number = 0;
    friend bool operator==(const Identity&, const Identity&) = default;
};

class Walk {
public:
    Walk(std::string root, const std::string& target) : root(std::move(root)) {
        struct stat about {};
        if (stat(target.c_str(), &about) == 0) {
            forbidden = {about.st_dev, about.st_ino};
        }
    }

    CopySource Run() {
        struct stat about {};
        if (stat(root.c_str(), &about) != 0) {
            Note(errno);
        } else {
            above.push_back({about.st_dev, about.st_ino});
            Folder("");
        }
        return std::move(source);
    }

private:
    void Note(int error) {
        if (source.fault == 0) {
            source.fault = error;
        }
    }

    void Folder(const std::string& path) {
        const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir((root + path).c_str()), closedir);
        if (folder == nullptr) {
            Note(errno);
            return;
        }
        errno = 0;
        while (const dirent* const entry = readdir(folder.get())) {
            if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0) {
                Entry(path + entry->d_name);
            }
            errno = 0;
        }
        if (errno != 0) {
            Note(errno);
        }
    }

    void Entry(const std::string& path) {
        struct stat about {};
        if (stat((root + path).c_str(), &about) != 0) {
            if (errno != ENOENT) {  // that would be a link that leads nowhere
                Note(errno);
            }
            return;
        }
        if (source.entries.size() >= mostEntries) {
            Note(E2BIG);
        } else if (S_ISREG(about.st_mode)) {
            const auto bytes = static_cast<std::uint64_t>(about.st_size);
            source.entries.push_back({path, bytes, false});
            source.bytes += bytes;
            source.onDisk += std::min<std::uint64_t>(bytes, static_cast<std::uint64_t>(about.st_blocks) * 512);
        } else if (S_ISDIR(about.st_mode)) {
            Enter(path, {about.st_dev, about.st_ino});
        }
    }

    void Enter(const std::string& path, Identity identity) {
        if (identity == forbidden) {
            Note(EINVAL);
        } else if (above.size() >= deepest || std::find(above.begin(), above.end(), identity) != above.end()) {
            Note(ELOOP);
        } else {
            source.entries.push_back({path, 0, true});
            above.push_back(identity);
            Folder(path + "/");
            above.pop_back();
        }
    }

    const std::string root;
    Identity forbidden;
    std::vector<Identity> above;  ///< the folders on the way to the one at hand
    CopySource source;
};

}  // namespace

CopySource LookThrough(const std::string& folder, const std::string& target) {
    return Walk(folder, target).Run();
}

}  // namespace zvr
