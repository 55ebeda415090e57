#include "core/commanddispatcher.h"
#include "core/program.h"
#include "media/mediaplayer.h"
#include "media/playlistentries.h"
#include "media/playlistreader.h"
#include "media/txtlinedelete.h"
#include "platform/log.h"
#include "platform/platform.h"
#include "skin/skinner.h"

#include <algorithm>

namespace zvr {
namespace {

constexpr Milliseconds settleTime{100};
constexpr std::size_t manyFiles = 1001;

bool BreaksLine(const std::string& name) {
    return name.find_first_of("\r\n") != name.npos;
}

}  // namespace

void MediaPlayer::DisplayPlaylistFilesInList() {
    if (!std::exchange(showingPlaylist, true)) {
        medialist->grid->Clear();  // rows of the folder mean nothing from here on
    }
    program.skinner.pairs.Refresh(program);
    program.platform.loop.Wait(settleTime);
    if (!showingPlaylist) {
        return;  // the driver went back to the folder meanwhile
    }
    playlistEntries.clear();
    if (const auto content = files::Read(currentPlaylistFile)) {
        playlistEntries = PlaylistEntries(*content, currentPlaylistFile);
    } else if (!currentPlaylistFile.empty()) {
        Log::Warning("the playlist {} can't be read or isn't there", currentPlaylistFile);
    }
    Grid& grid = *medialist->grid;
    const bool bold = medialist->font.get().bold;
    grid.SetRedraw(false);
    grid.Clear();
    grid.Reserve(playlistEntries.size());
    std::int32_t index = 0;
    for (const FileEntry& entry : playlistEntries) {
        grid.AddRow(entry.name, index++, FileIcon(entry), bold);
    }
    grid.Select(1);
    grid.SetRedraw(true);
}

void MediaPlayer::PlayFromPlaylist(const FileEntry& chosen) {
    DriverWantsSound();
    const std::string chosenName = chosen.FullName();
    const std::string folder = files::FolderOf(currentPlaylistFile);
    int start = -1;
    bool chosenIsComment = false;
    wmp.NewPlaylist();
    for (const FileEntry& entry : playlistEntries) {
        const bool isChosen = entry.HasFullName(chosenName);
        if (!IsPlayable(entry)) {
            chosenIsComment = chosenIsComment || isChosen;
            continue;
        }
        wmp.AppendItem(PlaylistEntryAddress(entry.FullName(), folder));
        if (isChosen || chosenIsComment) {
            start = wmp.Count() - 1;
            chosenIsComment = false;
        }
    }
    if (wmp.Count() > 0) {
        StartAt(std::max(0, start));
    }
}

void MediaPlayer::AddThis2Playlist(const std::string& fullName, std::uint32_t attributes) {
    std::vector<FileEntry> entries;
    if ((attributes & files::attributeDirectory) != 0) {
        filesearch.Scan(fullName, true, false, fileExtensionsAudio + ";" + fileExtensionsVideo, entries);
        if (program.platform.loop.IsQuitting()) {
            return;
        }
    } else if (IsPlaylistName(fullName)) {
        program.showMessage(program.languageText("MEDIAPLAYER_PLAYLISTADDERROR"));
        return;
    }
    // A name that breaks the line can't stand in a playlist.
    std::erase_if(entries, [](const FileEntry& entry) { return BreaksLine(entry.FullName()); });
    std::string lines;
    for (const FileEntry& entry : entries) {
        lines += entry.FullName() + "\r\n";
    }
    if (entries.empty()) {
        lines = fullName + "\r\n";  // a folder without media too, as its own path
    }
    if ((entries.empty() && BreaksLine(fullName)) || !AppendLines(currentPlaylistFile, lines).empty()) {
        program.showMessage(program.languageText(currentPlaylistFile.empty() ? "MEDIAPLAYER_PLSNOPLAYLIST"
                                                                             : "MEDIAPLAYER_PLSCOULDNOTADD"));
        return;
    }
    if (entries.empty()) {
        program.showMessage(program.languageText("MEDIAPLAYER_PLSADDEDSELECTEDFILE"));
        return;
    }
    std::string report =
        program.languageText("MEDIAPLAYER_PLSADDEDMULTIPLEFILES") + " " + std::to_string(entries.size());
    if (entries.size() >= manyFiles) {
        report = program.languageText("MEDIAPLAYER_PLSADDEDMANYFILES") + " " + report;
    }
    program.showMessage(report);
}

void MediaPlayer::AddSelection2Playlist() {
    if (showingPlaylist) {
        program.showMessage(program.languageText("MEDIAPLAYER_JUSTFORDIRECTORYMODE"));
        return;
    }
    const FileEntry* const selected = SelectedEntry();
    if (selected != nullptr && selected->name != "..") {
        // Copies: the scan runs events, and they may bring another list.
        const FileEntry entry = *selected;
        AddThis2Playlist(entry.FullName(), entry.attributes);
    }
}

void MediaPlayer::RemoveSelectionFromPlaylist() {
    if (!showingPlaylist) {
        program.showMessage(program.languageText("MEDIAPLAYER_JUSTFORPLAYLISTMODE"));
        return;
    }
    Grid& grid = *medialist->grid;
    const int row = grid.Row();
    if (currentPlaylistFile.empty() || row == 0) {
        return;
    }
    (void)RemoveLine(currentPlaylistFile, static_cast<std::size_t>(grid.RowAt(row).data) + 1);
    DisplayPlaylistFilesInList();
    if (showingPlaylist) {
        grid.Select(std::min(row, grid.RowCount()));
    }
}

}  // namespace zvr
