#pragma once

#include "platform/eventloop.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// Plain work with files and folders. Paths are UTF-8 (any bytes are carried through), with '/' between names.
namespace files {

inline constexpr char separator = '/';

/// What stands in front of a path's name, with the separator; empty for a name alone.
[[nodiscard]] inline std::string FolderOf(const std::string& path) {
    return path.substr(0, path.rfind(separator) + 1);
}

/// Attribute bits of an entry.
inline constexpr std::uint32_t attributeHidden = 2;
inline constexpr std::uint32_t attributeDirectory = 16;
inline constexpr std::uint32_t attributeLink = 1024;  ///< told by Enumerate alone, beside those of what it points at

[[nodiscard]] bool Exists(const std::string& path);  ///< a file that is no folder
[[nodiscard]] bool IsFolder(const std::string& path);
/// Attribute bits, or none if the path can't be looked at.
[[nodiscard]] std::optional<std::uint32_t> Attributes(const std::string& path);

/// When the file was written last, by the clock on the wall then; none if it can't be looked at.
[[nodiscard]] std::optional<LocalTime> Modified(const std::string& path);

/// Tells a file or folder from any other, however many links lead to it, for as long as it exists.
struct Identity {
    std::uint64_t device = 0;  ///< the volume
    std::uint64_t number = 0;
    friend bool operator==(const Identity&, const Identity&) = default;
};
[[nodiscard]] std::optional<Identity> IdentityOf(const std::string& path);

// Whatever fails in here leaves a line in the log, but for files that aren't there.

/// Empty on success, else the system's error text.
using ErrorText = std::string;

/// The whole file, or none if it can't be read or is larger than `limit` bytes.
[[nodiscard]] std::optional<std::string> Read(const std::string& path, std::size_t limit = 64U << 20U);
/// The same. `fault`: why a file that is there wasn't read, else empty.
[[nodiscard]] std::optional<std::string> Read(const std::string& path, std::size_t limit, ErrorText& fault);

/// A power cut leaves the old file or the new one whole: temporary file, fsync, rename, fsync of the folder.
/// Keeps the file's mode, and a link in its place keeps pointing at it.
[[nodiscard]] ErrorText WriteAtomic(const std::string& path, std::string_view content);
/// Makes the file. As safe as WriteAtomic: all of `content` is there after a power cut, or nothing of it.
[[nodiscard]] ErrorText Append(const std::string& path, std::string_view content);
/// A file or a link, no folder. It doesn't come back by a power cut.
[[nodiscard]] ErrorText Remove(const std::string& path);
/// The old name doesn't come back by a power cut.
[[nodiscard]] ErrorText Rename(const std::string& from, const std::string& to);
[[nodiscard]] ErrorText MakeFolder(const std::string& path);  ///< with its parents; an existing one is fine

struct Found {
    std::string_view name;  ///< good until the visitor returns
    std::uint32_t attributes = 0;
};
/// Calls `visit` for each entry, ".." first unless `folder` is "/", "." never; false from `visit` ends it. On cards and
/// discs in their order, else by name without case: other file systems have no order that means anything. Links count
/// as what they point at, and one that leads nowhere is left out. False if the folder can't be read to its end.
bool Enumerate(const std::string& folder, const std::function<bool(const Found&)>& visit);

/// The absolute path with every link followed; empty if it leads nowhere.
[[nodiscard]] std::string RealPath(const std::string& path);

[[nodiscard]] std::string HomeFolder();  ///< the user's, without a trailing separator; these too:
[[nodiscard]] std::string DocumentsFolder();
[[nodiscard]] std::string PicturesFolder();
[[nodiscard]] std::string MusicFolder();
[[nodiscard]] std::string ConfigFolder();  ///< of the user's settings, which may not exist; likewise

}  // namespace files

enum class DriveType { removable, fixed, optical, network };

struct Drive {
    std::string path;  ///< mount point with a trailing separator: "/", "/media/stick/"
    DriveType type = DriveType::fixed;
};

/// The mounted volumes that a driver can browse.
class Drives {
public:
    Drives();
    ~Drives();
    [[nodiscard]] std::vector<Drive> List() const;             ///< "/" first, then in the order of mounting
    [[nodiscard]] bool IsRoot(const std::string& path) const;  ///< the mount point of a drive of the list

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
