#pragma once

#include "media/filesearch.h"
#include "ui/form.h"

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
    void RefreshPlaylistList();  ///< reads the folder anew; nothing when it can't be read

private:
    Program& program;
    std::vector<FileEntry> entries;
    bool reading = false;
};

}  // namespace zvr
