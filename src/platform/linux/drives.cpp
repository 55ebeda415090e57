#include "platform/common/mounts.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace zvr {
namespace {

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

bool IsFolder(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_directory(path, error);
}

}  // namespace

struct Drives::State {};

Drives::Drives() = default;
Drives::~Drives() = default;

std::vector<Drive> Drives::List() const {
    std::ifstream list("/proc/self/mountinfo");
    const std::string text{std::istreambuf_iterator<char>(list), {}};
    return DrivesOfMounts(text, {IsRemovable, IsFolder});
}

bool Drives::IsRoot(const std::string& path) const {
    return path == "/" || IsRootOf(List(), path);
}

}  // namespace zvr
