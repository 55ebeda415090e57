#include "platform/files.h"

#include "platform/common/folderorder.h"
#include "platform/log.h"
#include "platform/text.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace zvr::files {
namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

bool IsTop(int folder) {
    struct stat here {};
    struct stat above {};
    return ::fstat(folder, &here) == 0 && ::fstatat(folder, "..", &above, 0) == 0 && here.st_ino == above.st_ino &&
           here.st_dev == above.st_dev;
}

/// Attribute bits of a folder's entry, or none for a link that leads nowhere.
std::optional<std::uint32_t> AttributesOf(int folder, std::string_view name, unsigned char type) {
    const std::uint32_t hidden = name.starts_with('.') ? attributeHidden : 0;
    if (type != DT_LNK && type != DT_UNKNOWN) {
        return hidden | (type == DT_DIR ? attributeDirectory : 0);
    }
    struct stat own {};
    struct stat found {};
    const std::string path(name);
    if (::fstatat(folder, path.c_str(), &own, AT_SYMLINK_NOFOLLOW) != 0 ||
        ::fstatat(folder, path.c_str(), &found, 0) != 0) {
        return std::nullopt;
    }
    return hidden | (S_ISDIR(found.st_mode) ? attributeDirectory : 0) | (S_ISLNK(own.st_mode) ? attributeLink : 0);
}

/// A folder's entries as they were read, their names in one piece.
class Listing {
public:
    /// False if the folder can't be read to its end.
    bool Read(DIR& folder);
    void SortByName();
    /// Calls `visit` with each; false from it ends that.
    template <typename Visit>
    void ForEach(Visit visit) const {
        for (const Entry& entry : entries) {
            if (!visit(NameOf(entry), entry.type)) {
                return;
            }
        }
    }

private:
    struct Entry {
        std::uint64_t beginning = 0;  ///< of the key: its first bytes that differ, as a number that compares as they do
        std::size_t name = 0;
        std::size_t key = 0;  ///< the name without case, where it differs
        std::uint16_t nameLength = 0;
        std::uint16_t keyLength = 0;
        unsigned char type = DT_UNKNOWN;
    };
    [[nodiscard]] std::string_view NameOf(const Entry& entry) const {
        return std::string_view(names).substr(entry.name, entry.nameLength);
    }
    [[nodiscard]] std::string_view KeyOf(const Entry& entry) const {
        return std::string_view(names).substr(entry.key, entry.keyLength);
    }

    std::vector<Entry> entries;
    std::string names;
};

bool Listing::Read(DIR& folder) {
    while (true) {
        errno = 0;  // the one way to tell the end from a stick that was pulled
        const dirent* const found = ::readdir(&folder);
        if (found == nullptr) {
            return errno == 0;
        }
        const std::string_view name = found->d_name;
        if (name != "." && name != "..") {
            const auto length = static_cast<std::uint16_t>(name.size());
            entries.push_back({0, names.size(), names.size(), length, length, found->d_type});
            names += name;
        }
    }
}

void Listing::SortByName() {
    std::string key;
    for (Entry& entry : entries) {
        const std::string_view name = NameOf(entry);
        if (std::all_of(name.begin(), name.end(), [](char c) { return static_cast<signed char>(c) >= 0; })) {
            key.resize(name.size());
            std::transform(name.begin(), name.end(), key.begin(), text::LowerAscii);
        } else {
            key = text::Lower(name);
        }
        if (key != name) {
            entry.key = names.size();
            entry.keyLength = static_cast<std::uint16_t>(key.size());
            names += key;
        }
    }
    // Mostly all begin alike, and eight bytes behind that tell them apart.
    std::string_view shared = entries.empty() ? std::string_view{} : KeyOf(entries.front());
    for (const Entry& entry : entries) {
        const std::string_view key = KeyOf(entry);
        const auto differ = std::mismatch(shared.begin(), shared.end(), key.begin(), key.end()).first;
        shared = shared.substr(0, static_cast<std::size_t>(differ - shared.begin()));
    }
    for (Entry& entry : entries) {
        entry.beginning = text::Beginning(KeyOf(entry).substr(shared.size()));
    }
    std::sort(entries.begin(), entries.end(), [this](const Entry& a, const Entry& b) {
        if (a.beginning != b.beginning) {
            return a.beginning < b.beginning;
        }
        const int difference = KeyOf(a).compare(KeyOf(b));
        return difference != 0 ? difference < 0 : NameOf(a) < NameOf(b);
    });
}

}  // namespace

bool OrderHasMeaning(std::uint64_t fileSystemType) {
    // What burned a disc or filled a card put the files into an order; others keep them by hash or by chance.
    constexpr std::array<std::uint64_t, 4> ordered{0x4D44, 0x2011BAB0, 0x9660,
                                                   0x15013346};  // FAT, exFAT, ISO 9660, UDF
    return std::find(ordered.begin(), ordered.end(), fileSystemType) != ordered.end();
}

bool Enumerate(const std::string& folder, const std::function<bool(const Found&)>& visit) {
    const std::unique_ptr<DIR, CloseFolder> open(::opendir(folder.c_str()));
    const auto failed = [&folder] {
        Log::Warning("the folder {} is not read: {}", folder, std::strerror(errno));
        return false;
    };
    if (open == nullptr) {
        return failed();
    }
    const int descriptor = ::dirfd(open.get());
    if (!IsTop(descriptor) && !visit({"..", attributeDirectory})) {
        return true;
    }
    Listing listing;
    const bool whole = listing.Read(*open) || failed();
    struct statfs system {};
    if (::fstatfs(descriptor, &system) != 0 || !OrderHasMeaning(static_cast<std::uint64_t>(system.f_type))) {
        listing.SortByName();
    }
    listing.ForEach([&](std::string_view name, unsigned char type) {
        const auto attributes = AttributesOf(descriptor, name, type);
        return !attributes || visit({name, *attributes});
    });
    return whole;
}

std::string RealPath(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
    return real == nullptr ? std::string{} : real.get();
}

namespace {

std::string WithoutTrailingSeparator(std::string path) {
    while (path.size() > 1 && path.back() == separator) {
        path.pop_back();
    }
    return path;
}

}  // namespace

std::string HomeFolder() {
    const char* home = std::getenv("HOME");
    return home != nullptr && *home != '\0' ? WithoutTrailingSeparator(home) : "/";
}

namespace {

/// The value of a line such as XDG_MUSIC_DIR="$HOME/Music"; empty if it isn't one of that name.
std::string FolderOfLine(std::string_view line, std::string_view name) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (!line.starts_with(name) || !line.substr(name.size()).starts_with("=\"")) {
        return {};
    }
    line.remove_prefix(name.size() + 2);
    std::string value;
    for (std::size_t i = 0; i < line.size() && line[i] != '"'; ++i) {
        if (line[i] == '\\' && i + 1 < line.size()) {
            ++i;
        }
        value += line[i];
    }
    constexpr std::string_view home = "$HOME";
    if (value.starts_with(home) && (value.size() == home.size() || value[home.size()] == separator)) {
        value.replace(0, home.size(), HomeFolder());
    }
    return value.starts_with(separator) ? WithoutTrailingSeparator(value) : std::string{};
}

/// The folder as the desktop's list of user folders names it; without an entry the usual one, and the home folder
/// where that doesn't exist either.
std::string UserFolder(std::string_view name, const std::string& usual) {
    const std::string list = Read(ConfigFolder() + "/user-dirs.dirs", 1U << 20U).value_or("");
    std::string folder;
    for (const std::string_view line : text::Lines(list)) {
        const std::string named = FolderOfLine(line, name);
        folder = named.empty() ? folder : named;
    }
    if (folder.empty() || !IsFolder(folder)) {
        folder = HomeFolder() + separator + usual;
    }
    return IsFolder(folder) ? folder : HomeFolder();
}

}  // namespace

std::string ConfigFolder() {
    const char* configured = std::getenv("XDG_CONFIG_HOME");
    return WithoutTrailingSeparator(configured != nullptr && *configured == separator ? configured
                                                                                      : HomeFolder() + "/.config");
}

std::string DocumentsFolder() {
    return UserFolder("XDG_DOCUMENTS_DIR", "Documents");
}

std::string PicturesFolder() {
    return UserFolder("XDG_PICTURES_DIR", "Pictures");
}

std::string MusicFolder() {
    return UserFolder("XDG_MUSIC_DIR", "Music");
}

}  // namespace zvr::files
