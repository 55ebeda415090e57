#include "platform/common/mounts.h"

#include "platform/text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace zvr {
namespace {

constexpr std::array<std::string_view, 2> discs{"iso9660", "udf"};
constexpr std::array<std::string_view, 10> remote{"nfs",        "nfs4",        "cifs",  "smb3",        "smbfs",
                                                  "fuse.sshfs", "fuse.rclone", "davfs", "fuse.davfs2", "9p"};
constexpr std::array<std::string_view, 12> withoutFiles{"tmpfs",   "ramfs",    "devtmpfs", "proc",
                                                        "sysfs",   "cgroup",   "cgroup2",  "autofs",
                                                        "overlay", "squashfs", "nsfs",     "fuse.portal"};
constexpr std::array<std::string_view, 3> mountFolders{"/media/", "/run/media/", "/mnt/"};
constexpr std::array<std::string_view, 4> systemFolders{"/boot/", "/snap/", "/var/lib/", "/dev/"};

template <std::size_t size>
bool Contains(const std::array<std::string_view, size>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

template <std::size_t size>
bool IsBelow(const std::array<std::string_view, size>& folders, std::string_view path) {
    return std::any_of(folders.begin(), folders.end(), [&](std::string_view folder) {
        return path.starts_with(folder) || path == folder.substr(0, folder.size() - 1);
    });
}

struct Mount {
    std::string_view device;  ///< "major:minor"
    std::string_view root;    ///< the part of its file system that is mounted
    std::string point;
    std::string_view type;
};

/// The list writes blanks and the like as a backslash and three octal digits.
std::string Unescaped(std::string_view text) {
    std::string result;
    const auto digit = [&](std::size_t i) { return i < text.size() && text[i] >= '0' && text[i] <= '7'; };
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && digit(i + 1) && digit(i + 2) && digit(i + 3)) {
            result += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 + (text[i + 3] - '0'));
            i += 3;
        } else {
            result += text[i];
        }
    }
    return result;
}

/// "36 35 8:1 / /media/stick rw,noatime shared:1 - vfat /dev/sda1 rw": the number of words before "-" varies.
std::optional<Mount> ReadMount(std::string_view line) {
    const auto words = text::Words(line);
    const auto dash = std::find(words.begin(), words.end(), "-");
    if (dash - words.begin() < 6 || words.end() - dash < 2) {
        return std::nullopt;
    }
    return Mount{words[2], words[3], Unescaped(words[4]), *(dash + 1)};
}

std::optional<DriveType> TypeOf(const Mount& mount, const MountFacts& facts) {
    if (mount.point == "/") {
        return DriveType::fixed;
    }
    if (IsBelow(systemFolders, mount.point) || Contains(withoutFiles, mount.type)) {
        return std::nullopt;
    }
    if (Contains(remote, mount.type)) {
        return DriveType::network;  // not looked into: a machine that is gone would hold us up
    }
    const bool disc = Contains(discs, mount.type);
    if ((!disc && !IsBelow(mountFolders, mount.point)) || (mount.root != "/" && !facts.isFolder(mount.point))) {
        return std::nullopt;
    }
    if (disc) {
        return DriveType::optical;
    }
    return facts.isRemovable(mount.device) ? DriveType::removable : DriveType::fixed;
}

}  // namespace

std::vector<Drive> DrivesOfMounts(std::string_view mountInfo, const MountFacts& facts) {
    std::vector<Drive> drives{{"/", DriveType::fixed}};
    while (!mountInfo.empty()) {
        const auto mount = ReadMount(text::TakePiece(mountInfo, '\n'));
        const auto type = mount ? TypeOf(*mount, facts) : std::nullopt;
        if (!type || mount->point == "/") {
            continue;
        }
        const std::string path = mount->point + files::separator;
        // A later mount on the same spot covers the earlier one.
        std::erase_if(drives, [&](const Drive& drive) { return drive.path == path; });
        drives.push_back({path, *type});
    }
    return drives;
}

bool IsRootOf(const std::vector<Drive>& drives, const std::string& path) {
    return std::any_of(drives.begin(), drives.end(),
                       [&](const Drive& drive) { return drive.path == path || drive.path == path + files::separator; });
}

}  // namespace zvr
