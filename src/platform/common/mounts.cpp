#include "platform/common/mounts.h"

#include "platform/text.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
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
/// Of the root volume; mounts of the driver's own lie below one of them, see `mountFolders`.
constexpr std::array<std::string_view, 18> systemTree{
    "/usr/", "/etc/",  "/var/", "/opt/",  "/boot/", "/proc/",  "/sys/",   "/dev/",    "/run/",
    "/tmp/", "/snap/", "/bin/", "/sbin/", "/lib/",  "/lib32/", "/lib64/", "/libx32/", "/lost+found/"};

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
    std::string_view source;  ///< a device file, where it is one
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
    if (dash - words.begin() < 6 || words.end() - dash < 3) {
        return std::nullopt;
    }
    return Mount{words[2], words[3], Unescaped(words[4]), *(dash + 1), *(dash + 2)};
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

bool IsFixedVolume(const Mount& mount, const MountFacts& facts) {
    const bool onDisk = mount.source.starts_with("/dev/") || mount.type == "zfs";  // the latter names its own sources
    return onDisk && !Contains(discs, mount.type) && !Contains(remote, mount.type) &&
           !Contains(withoutFiles, mount.type) && mount.type != "fuse" && !mount.type.starts_with("fuse.") &&
           !IsSystemPath(mount.point) && !facts.isRemovable(mount.device) && facts.isFolder(mount.point);
}

/// Calls `visit` with each mount of the list.
template <typename Visit>
void ForEachMount(std::string_view mountInfo, Visit visit) {
    while (!mountInfo.empty()) {
        if (const auto mount = ReadMount(text::TakePiece(mountInfo, '\n'))) {
            visit(*mount);
        }
    }
}

/// By the kernel's flag, or by what it hangs on: a disk on a USB cable does not carry the flag.
bool IsRemovable(std::string_view device) {
    std::error_code error;
    const auto folder = std::filesystem::canonical("/sys/dev/block/" + std::string(device), error);
    if (error) {
        return false;
    }
    for (const auto& place : {folder, folder.parent_path()}) {  // a partition's flag is that of its disk
        std::ifstream flag(place / "removable");
        if (flag.get() == '1') {
            return true;
        }
    }
    const std::string path = folder.string();
    return path.find("/usb") != path.npos || path.find("/mmc_host") != path.npos;
}

}  // namespace

std::vector<Drive> DrivesOfMounts(std::string_view mountInfo, const MountFacts& facts) {
    std::vector<Drive> drives{{"/", DriveType::fixed}};
    ForEachMount(mountInfo, [&](const Mount& mount) {
        const auto type = TypeOf(mount, facts);
        if (!type || mount.point == "/") {
            return;
        }
        const std::string path = mount.point + files::separator;
        // A later mount on the same spot covers the earlier one.
        std::erase_if(drives, [&](const Drive& drive) { return drive.path == path; });
        drives.push_back({path, *type});
    });
    return drives;
}

std::vector<std::string> FixedVolumesOfMounts(std::string_view mountInfo, const MountFacts& facts) {
    std::vector<std::string> volumes{"/"};
    ForEachMount(mountInfo, [&](const Mount& mount) {
        if (mount.point == "/") {
            return;
        }
        std::erase(volumes, mount.point);  // a later mount on the same spot covers the earlier one
        if (IsFixedVolume(mount, facts)) {
            volumes.push_back(mount.point);
        }
    });
    return volumes;
}

bool IsSystemPath(std::string_view path) {
    return IsBelow(systemTree, path) && !IsBelow(mountFolders, path);
}

std::string MountInfo() {
    std::ifstream list("/proc/self/mountinfo");
    return {std::istreambuf_iterator<char>(list), {}};
}

MountFacts FactsOfKernel() {
    return {IsRemovable, [](const std::string& path) { return files::IsFolder(path); }};
}

bool IsRootOf(const std::vector<Drive>& drives, const std::string& path) {
    return std::any_of(drives.begin(), drives.end(),
                       [&](const Drive& drive) { return drive.path == path || drive.path == path + files::separator; });
}

}  // namespace zvr
