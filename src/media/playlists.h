#pragma once

#include "media/filesearch.h"
#include "ui/form.h"

#include <optional>
#include <string>
#include <vector>

namespace zvr {

class Program;

/// The screen that manages the playlist files of one folder.
class Playlists {
public:
    explicit Playlists(Program& program);

    Form form{"playlists"};
    Control* playlistlist = nullptr;
    Control* txtCurrentPlaylistName = nullptr;

    std::string playlistFolder;

    void Load();
    void RefreshPlaylistList();  ///< reads the folder anew; nothing when it can't be read. Runs events
    void ShowSelectedName();     ///< the selected row's name without extension into the name box

    // The commands. All but the creation do nothing without a selected row.
    void CreateNewPlaylistFromTextbox();
    void RenamePlaylist();
    void DeleteSelectedPlaylist();
    void EmptySelectedPlaylist();
    void LoadSelectedPlaylist();  ///< and shows the player

private:
    [[nodiscard]] std::string SelectedName() const;
    [[nodiscard]] std::string SelectedPath() const;
    [[nodiscard]] std::string InFolder(const std::string& name) const;
    /// Path for the name in the box; none after a message when it can't be taken.
    [[nodiscard]] std::optional<std::string> CheckedNewPath();
    [[nodiscard]] bool Confirm(const char* key, const std::string& name);
    void ReportFailure(const char* key, const std::string& errorText);

    Program& program;
    std::vector<FileEntry> entries;
    bool reading = false;
};

}  // namespace zvr
