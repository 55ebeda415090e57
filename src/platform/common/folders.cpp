#include "platform/files.h"

#include "platform/log.h"
#include "platform/text.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
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
std::optional<std::uint32_t> AttributesOf(int folder, const dirent& entry) {
    const std::uint32_t hidden = entry.d_name[0] == '.' ? attributeHidden : 0;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) {
        return hidden | (entry.d_type == DT_DIR ? attributeDirectory : 0);
    }
    struct stat found {};
    if (::fstatat(folder, entry.d_name, &found, 0) != 0) {
        return std::nullopt;
    }
    return hidden | (S_ISDIR(found.st_mode) ? attributeDirectory : 0);
}

}  // namespace

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
    while (true) {
        errno = 0;  // the one way to tell the end from a stick that was pulled
        const dirent* const entry = ::readdir(open.get());
        if (entry == nullptr) {
            return errno == 0 || failed();
        }
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..") {
            continue;
        }
        const auto attributes = AttributesOf(descriptor, *entry);
        if (attributes && !visit({name, *attributes})) {
            return true;
        }
    }
}

std::string RealPath(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
    return real == nullptr ? std::string{} : real.get();
}

namespace {

std::string HomeFolder() {
    const char* home = std::getenv("HOME");
    return home != nullptr && *home != '\0' ? home : "/";
}

std::string WithoutTrailingSeparator(std::string path) {
    while (path.size() > 1 && path.back() == separator) {
        path.pop_back();
    }
    return path;
}

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
    const char* configured = std::getenv("XDG_CONFIG_HOME");
    const std::string config =
        configured != nullptr && *configured == separator ? configured : HomeFolder() + "/.config";
    const std::string list = Read(config + "/user-dirs.dirs", 1U << 20U).value_or("");
    std::string folder;
    for (const std::string_view line : text::Lines(list)) {
        const std::string named = FolderOfLine(line, name);
        folder = named.empty() ? folder : named;
    }
    if (folder.empty() || !IsFolder(folder)) {
        folder = WithoutTrailingSeparator(HomeFolder()) + separator + usual;
    }
    return IsFolder(folder) ? folder : WithoutTrailingSeparator(HomeFolder());
}

}  // namespace

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
