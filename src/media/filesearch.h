#pragma once

#include "platform/files.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// One file or folder of a scan. The full name is always `path` followed by `name`.
struct FileEntry {
    std::string path;  ///< folder with trailing separator; of a drive its root
    std::string name;  ///< without folder; "." marks a drive
    std::uint32_t attributes = 0;

    [[nodiscard]] bool IsFolder() const { return (attributes & files::attributeDirectory) != 0; }
    [[nodiscard]] bool IsDrive() const { return name == "."; }
    [[nodiscard]] std::string FullName() const { return path + name; }
};

/// Scans folders for media.
class FileSearch {
public:
    /// `yield` is called at the start of a scan and for each entry, so that touches get through.
    explicit FileSearch(std::function<void()> yield) : yield(std::move(yield)) {}

    bool abort = false;  ///< set by whoever wants a running scan to end

    /// Appends to `entries`, in the file system's order. `extensions` is ";" separated, without dots.
    void Scan(const std::string& folder, bool recurse, bool includeFolders, std::string_view extensions,
              std::vector<FileEntry>& entries);

private:
    std::function<void()> yield;
};

/// The name ends in a dot and one of the ";" separated extensions, in any case, with something before it.
[[nodiscard]] bool ExtensionMatches(std::string_view fileName, std::string_view extensions);

/// Indices into `entries` in the order of display: as scanned, or by name without case with ".." first.
[[nodiscard]] std::vector<std::int32_t> DisplayOrder(const std::vector<FileEntry>& entries, bool keepScanOrder);

}  // namespace zvr
