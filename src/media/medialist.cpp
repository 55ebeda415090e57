#include "core/commanddispatcher.h"
#include "core/godfather.h"
#include "core/program.h"
#include "media/folderlist.h"
#include "media/mediaplayer.h"
#include "platform/platform.h"
#include "skin/skinner.h"

#include <algorithm>
#include <utility>

namespace zvr {

void MediaPlayer::ReadDirectory(const std::string& path) {
    if (std::exchange(scanning, true)) {
        return;
    }
    directoryWasRead = true;
    if (std::exchange(showingPlaylist, false)) {
        medialist->grid->Clear();  // rows of the playlist mean nothing from here on
    }
    // Apart from the entries that the rows stand for: the driver can choose one of those while the scan runs.
    FolderContent content = ReadFolderOrAbove(filesearch, program.platform.loop, program.platform.drives, path,
                                              fileExtensionsAudio + ";" + fileExtensionsVideo);
    directoryEntries = std::move(content.entries);
    currentFolder = std::move(content.folder);
    DisplayDirectoryFilesInList();
    scanning = false;
}

void MediaPlayer::DisplayDirectoryFilesInList() {
    showingPlaylist = false;
    program.skinner.pairs.Refresh(program);
    Grid& grid = *medialist->grid;
    grid.SetRedraw(false);
    grid.Clear();
    if (!directoryEntries.empty()) {
        AddFolderRows(grid, directoryEntries, !program.godfather.postSortDirectoryListings, medialist->font.get().bold,
                      program.platform.drives, [this](const FileEntry& entry) { return FileIcon(entry); });
        grid.Select(1);
        MarkPlayingFile(false, true);
    }
    grid.SetRedraw(true);
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
    const bool isFolder = !showingPlaylist && (chosen.IsFolder() || chosen.IsDrive());
    medialist->grid->SetRedraw(false);
    if (showingPlaylist) {
        PlayFromPlaylist(chosen);
    } else if (isFolder) {
        EnterFolder(chosen);
    } else if (IsPlaylistName(chosen.name)) {
        PlayAlone(chosen.FullName());
    } else {
        PlayFromDirectory(chosen);
    }
    medialist->grid->SetRedraw(true);
    form.focus = medialist;
}

void MediaPlayer::PlayAlone(const std::string& file) {
    DriverWantsSound();
    GiveVideoWindow();
    wmp.SetURL(file);
    wmp.Play();
}

void MediaPlayer::EnterFolder(const FileEntry& entry) {
    if (entry.name != "..") {
        ReadDirectory(entry.FullName());
        return;
    }
    const std::string folder = FolderNamed(entry.path);
    ReadDirectory(ParentOf(folder));
    SelectFolderLeft(*medialist->grid, folder.substr(folder.rfind(files::separator) + 1));
}

void MediaPlayer::PlayFromDirectory(const FileEntry& chosen) {
    DriverWantsSound();
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
