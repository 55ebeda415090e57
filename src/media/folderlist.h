#pragma once

#include "media/filesearch.h"
#include "platform/files.h"
#include "ui/grid.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

// What the lists of folders have in common. A folder is named without a trailing separator, "/" is the root of all.

/// A folder as it was meant: without a trailing separator, and without a trailing "." behind one.
[[nodiscard]] std::string FolderNamed(std::string path);
/// "/" at the top.
[[nodiscard]] std::string ParentOf(const std::string& folder);

/// What a folder holds, in the order of the scan; drives too where it is the root of one.
struct FolderContent {
    std::string folder;
    std::vector<FileEntry> entries;
};
/// Of the folder, or of the nearest one above it that holds anything, so that no list stays blank. Runs events.
[[nodiscard]] FolderContent ReadFolderOrAbove(FileSearch& filesearch, const EventLoop& loop, const Drives& drives,
                                              const std::string& path, std::string_view extensions);

/// Adds rows in that order: folders, then files, then drives. A row's data is the number of its entry.
void AddFolderRows(Grid& grid, const std::vector<FileEntry>& entries, bool keepScanOrder, bool bold,
                   const Drives& drives, const std::function<ListIcon(const FileEntry&)>& iconOfFile);

/// Selects the row of the folder that was just left, and so that a little of what follows shows too.
void SelectFolderLeft(Grid& grid, std::string_view name);

}  // namespace zvr
