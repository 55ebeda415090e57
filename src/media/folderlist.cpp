#include "media/folderlist.h"

#include <algorithm>
#include <utility>

namespace zvr {
namespace {

constexpr const char* root = "/";

ListIcon DriveIcon(const std::vector<Drive>& drives, const std::string& path) {
    const auto drive = std::find_if(drives.begin(), drives.end(), [&path](const Drive& d) { return d.path == path; });
    if (drive == drives.end()) {
        return ListIcon::network;
    }
    switch (drive->type) {
        case DriveType::removable:
            return ListIcon::removable;
        case DriveType::fixed:
            return ListIcon::fixed;
        case DriveType::optical:
            return ListIcon::cdrom;
        case DriveType::network:
            break;
    }
    return ListIcon::network;
}

}  // namespace

std::string FolderNamed(std::string path) {
    if (path.ends_with(files::separator)) {
        path.pop_back();
    }
    if (path.ends_with("/.")) {
        path.resize(path.size() - 2);
    }
    return path.empty() ? root : path;
}

std::string ParentOf(const std::string& folder) {
    const std::size_t separator = folder.rfind(files::separator);
    return separator == 0 || separator == folder.npos ? root : folder.substr(0, separator);
}

FolderContent ReadFolderOrAbove(FileSearch& filesearch, const EventLoop& loop, const Drives& drives,
                                const std::string& path, std::string_view extensions) {
    FolderContent content{FolderNamed(path), {}};
    while (true) {
        filesearch.abort = false;
        filesearch.Scan(content.folder, false, true, extensions, content.entries);
        if (drives.IsRoot(content.folder)) {
            filesearch.AppendDrives(content.entries);
        }
        const bool isTop = content.folder.find(files::separator) == content.folder.npos || content.folder == root;
        if (!content.entries.empty() || isTop || loop.IsQuitting()) {
            return content;
        }
        content.folder = ParentOf(content.folder);
    }
}

void AddFolderRows(Grid& grid, const std::vector<FileEntry>& entries, bool keepScanOrder, bool bold,
                   const Drives& drives, const std::function<ListIcon(const FileEntry&)>& iconOfFile) {
    const auto order = DisplayOrder(entries, keepScanOrder);
    grid.Reserve(order.size());
    for (const bool folders : {true, false}) {
        for (const std::int32_t index : order) {
            const FileEntry& entry = entries[static_cast<std::size_t>(index)];
            if (entry.IsFolder() == folders && !entry.IsDrive()) {
                grid.AddRow(entry.name, index, folders ? ListIcon::folder : iconOfFile(entry), bold);
            }
        }
    }
    std::vector<Drive> mounted;
    for (const std::int32_t index : order) {
        const FileEntry& entry = entries[static_cast<std::size_t>(index)];
        if (entry.IsDrive()) {
            if (mounted.empty()) {
                mounted = drives.List();
            }
            grid.AddRow(entry.path, index, DriveIcon(mounted, entry.path), bold);
        }
    }
}

void SelectFolderLeft(Grid& grid, std::string_view name) {
    if (const int row = grid.FindText(name); row > 0 && !name.empty()) {
        grid.Select(row + 2);
        grid.Select(row);
    }
}

}  // namespace zvr
