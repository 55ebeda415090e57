#pragma once

#include "media/mediatypes.h"
#include "platform/eventloop.h"
#include "platform/files.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// One file, folder or drive of a scan. The full name is always `path` followed by `name`.
struct FileEntry {
    std::string path;  ///< folder with trailing separator; of a drive its root
    std::string name;  ///< without folder; "." marks a drive
    std::uint32_t attributes = 0;

    [[nodiscard]] bool IsFolder() const { return (attributes & files::attributeDirectory) != 0; }
    [[nodiscard]] bool IsDrive() const { return name == "."; }
    [[nodiscard]] std::string FullName() const { return path + name; }
    [[nodiscard]] bool HasFullName(std::string_view fullName) const;  ///< compares without joining
};

/// Scans folders for media. One object serves all lists: who starts a scan for a list clears `abort` first.
class FileSearch {
public:
    /// Both outlive this object.
    FileSearch(EventLoop& loop, const Drives& drives) : loop(loop), drives(drives) {}

    bool abort = false;  ///< set by whoever wants a running scan to end

    /// Appends to `entries`, in the file system's order and depth first; nothing from a folder that can't be read.
    /// `extensions` is ";" separated, without dots. Hidden entries never count, and ".." does not in the root of a
    /// drive. Runs events.
    void Scan(const std::string& folder, bool recurse, bool includeFolders, std::string_view extensions,
              std::vector<FileEntry>& entries);
    /// One entry for each drive, `path` being its root.
    void AppendDrives(std::vector<FileEntry>& entries) const;

private:
    void Yield();
    bool ScanOne(const std::string& folder, bool recurse, bool includeFolders, std::string_view extensions,
                 std::vector<FileEntry>& entries, std::vector<std::string>& subfolders);

    EventLoop& loop;
    const Drives& drives;
};

/// Indices into `entries` in the order of display: as scanned, or by name without case with ".." first.
[[nodiscard]] std::vector<std::int32_t> DisplayOrder(const std::vector<FileEntry>& entries, bool keepScanOrder);

}  // namespace zvr
