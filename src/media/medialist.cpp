#include "core/commanddispatcher.h"
#include "core/godfather.h"
#include "core/program.h"
#include "media/mediaplayer.h"
#include "platform/platform.h"
#include "skin/skinner.h"

#include <algorithm>
#include <utility>

namespace zvr {
namespace {

constexpr const char* root = "/";

/// Without a trailing separator, and without a trailing "." behind one; the root of all stays "/".
std::string WithoutEnding(std::string path) {
    if (path.ends_with(files::separator)) {
        path.pop_back();
    }
    if (path.ends_with("/.")) {
        path.resize(path.size() - 2);
    }
    return path.empty() ? root : path;
}

/// What stands before the last separator; "/" at the top. `path` has no trailing separator.
std::string ParentOf(const std::string& path) {
    const std::size_t separator = path.rfind(files::separator);
    return separator == 0 || separator == path.npos ? root : path.substr(0, separator);
}

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

void MediaPlayer::ReadDirectory(std::string path) {
    if (std::exchange(scanning, true)) {
        return;
    }
    directoryWasRead = true;
    if (std::exchange(showingPlaylist, false)) {
        medialist->grid->Clear();  // rows of the playlist mean nothing from here on
    }
    path = WithoutEnding(std::move(path));
    bool empty = true;
    while (empty) {
        filesearch.abort = false;
        // Apart from the entries that the rows stand for: the driver can choose one of those while the scan runs.
        std::vector<FileEntry> found;
        filesearch.Scan(path, false, true, fileExtensionsAudio + ";" + fileExtensionsVideo, found);
        if (program.platform.drives.IsRoot(path)) {
            filesearch.AppendDrives(found);
        }
        directoryEntries = std::move(found);
        currentFolder = path;
        empty = DisplayDirectoryFilesInList();
        if (path == root || path.find(files::separator) == path.npos || program.platform.loop.IsQuitting()) {
            break;
        }
        // The list is never left blank while a folder above can be shown.
        path = ParentOf(path);
    }
    scanning = false;
}

bool MediaPlayer::DisplayDirectoryFilesInList() {
    showingPlaylist = false;
    program.skinner.pairs.Refresh(program);
    Grid& grid = *medialist->grid;
    grid.SetRedraw(false);
    grid.Clear();
    const bool empty = directoryEntries.empty();
    if (!empty) {
        const auto order = DisplayOrder(directoryEntries, !program.godfather.postSortDirectoryListings);
        grid.Reserve(order.size());
        AddDirectoryRows(order);
        AddDriveRows(order);
        grid.Select(1);
        MarkPlayingFile(false, true);
    }
    grid.SetRedraw(true);
    return empty;
}

void MediaPlayer::AddDirectoryRows(const std::vector<std::int32_t>& order) {
    const bool bold = medialist->font.get().bold;
    for (const bool folders : {true, false}) {
        for (const std::int32_t index : order) {
            const FileEntry& entry = directoryEntries[static_cast<std::size_t>(index)];
            if (entry.IsFolder() == folders && !entry.IsDrive()) {
                medialist->grid->AddRow(entry.name, index, folders ? ListIcon::folder : FileIcon(entry), bold);
            }
        }
    }
}

void MediaPlayer::AddDriveRows(const std::vector<std::int32_t>& order) {
    const bool bold = medialist->font.get().bold;
    std::vector<Drive> drives;
    for (const std::int32_t index : order) {
        const FileEntry& entry = directoryEntries[static_cast<std::size_t>(index)];
        if (entry.IsDrive()) {
            if (drives.empty()) {
                drives = program.platform.drives.List();
            }
            medialist->grid->AddRow(entry.path, index, DriveIcon(drives, entry.path), bold);
        }
    }
}

ListIcon MediaPlayer::FileIcon(const FileEntry& entry) const {
    return ExtensionMatches(entry.name, fileExtensionsAudio) ? ListIcon::audio : ListIcon::video;
}

const FileEntry* MediaPlayer::SelectedEntry() const {
    const int row = medialist->grid->Row();
    if (row == 0) {
        return nullptr;
    }
    const auto index = static_cast<std::size_t>(medialist->grid->RowAt(row).data);
    const std::vector<FileEntry>& entries = showingPlaylist ? playlistEntries : directoryEntries;
    return index < entries.size() ? &entries[index] : nullptr;
}

void MediaPlayer::MarkPlayingFile(bool restoring, bool scrolling) {
    const MediaItem* const media = wmp.CurrentMedia();
    if (media == nullptr) {
        return;
    }
    Grid& grid = *medialist->grid;
    for (int row = 1; row <= grid.RowCount(); ++row) {
        const GridRow& record = grid.RowAt(row);
        const FileEntry& entry = directoryEntries[static_cast<std::size_t>(record.data)];
        if (entry.HasFullName(media->sourceURL)) {
            grid.SetIcon(row, ListIcon::playing);
            if (scrolling) {
                grid.Select(row);
                const int half = grid.VisibleRows() / 2;
                if (row > half) {
                    grid.SetTop(row - half);
                }
            }
        } else if (restoring && record.icon == ListIcon::playing) {
            grid.SetIcon(row, FileIcon(entry));
        }
    }
}

void MediaPlayer::SwitchListMode() {
    if (!showingPlaylist) {
        DisplayPlaylistFilesInList();
    } else if (directoryWasRead) {
        DisplayDirectoryFilesInList();
    } else {
        ReadDirectory(currentFolder.empty() ? audioFolder : currentFolder);
    }
}

void MediaPlayer::PlaySelectedFile() {
    const FileEntry* const selected = SelectedEntry();
    if (selected == nullptr) {
        return;
    }
    const FileEntry chosen = *selected;  // the arrays may change under it
    medialist->grid->SetRedraw(false);
    if (showingPlaylist) {
        DriverActed();
        PlayFromPlaylist(chosen);
    } else if (chosen.IsFolder() || chosen.IsDrive()) {
        EnterFolder(chosen);
    } else if (IsPlaylistName(chosen.name)) {
        DriverActed();
        GiveVideoWindow();
        wmp.SetURL(chosen.FullName());
        wmp.Play();
    } else {
        DriverActed();
        PlayFromDirectory(chosen);
    }
    medialist->grid->SetRedraw(true);
    form.focus = medialist;
}

void MediaPlayer::EnterFolder(const FileEntry& entry) {
    if (entry.name != "..") {
        ReadDirectory(entry.FullName());
        return;
    }
    const std::string folder = WithoutEnding(entry.path);
    const std::string left = folder.substr(folder.rfind(files::separator) + 1);
    ReadDirectory(ParentOf(folder));
    Grid& grid = *medialist->grid;
    if (const int row = grid.FindText(left); row > 0 && !left.empty()) {
        grid.Select(row + 2);  // so that a little of what follows shows too
        grid.Select(row);
    }
}

void MediaPlayer::PlayFromDirectory(const FileEntry& chosen) {
    const std::string fullName = chosen.FullName();
    int start = -1;
    wmp.NewPlaylist();
    for (const FileEntry& entry : directoryEntries) {
        if (entry.IsFolder() || entry.IsDrive()) {
            continue;
        }
        wmp.AppendItem(entry.FullName());
        if (entry.HasFullName(fullName)) {
            start = wmp.Count() - 1;
        }
    }
    StartAt(start);
}

void MediaPlayer::StartAt(int queueIndex) {
    GiveVideoWindow();
    wmp.SetCurrentItem(queueIndex);
    PerformPlay();
    picPosSlider->left = 0;
}

}  // namespace zvr
