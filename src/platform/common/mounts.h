#pragma once

#include "platform/files.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// What the kernel's device files say of a mount.
struct MountFacts {
    std::function<bool(std::string_view device)> isRemovable;  ///< "8:1": a stick, a card, a disk on a cable
    std::function<bool(const std::string& path)> isFolder;     ///< files can be mounted upon, too
};

/// The volumes that a driver can browse, out of the kernel's list of mounts (/proc/self/mountinfo): "/" first, then
/// what is mounted where people mount things, discs, and folders of other machines.
[[nodiscard]] std::vector<Drive> DrivesOfMounts(std::string_view mountInfo, const MountFacts& facts);

/// Mount points of this machine's own disks, "/" first, also those that no list of drives shows (/home); no stick, no
/// disc, no other machine, nothing that is no disk, none of the system's own. Without trailing separators.
[[nodiscard]] std::vector<std::string> FixedVolumesOfMounts(std::string_view mountInfo, const MountFacts& facts);

/// `path` lies in a folder of the system, where nobody keeps files of his own: /usr, /var and the like. Absolute.
[[nodiscard]] bool IsSystemPath(std::string_view path);

/// The kernel's list, now.
[[nodiscard]] std::string MountInfo();
[[nodiscard]] MountFacts FactsOfKernel();

/// `path` is the mount point of one of them, with or without the trailing separator.
[[nodiscard]] bool IsRootOf(const std::vector<Drive>& drives, const std::string& path);

}  // namespace zvr
