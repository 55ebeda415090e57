#pragma once

#include "media/filesearch.h"
#include "media/playqueue.h"
#include "ui/form.h"

#include <string>
#include <vector>

namespace zvr {

class Program;

/// What is playing, what comes next, and the list it was chosen from.
class MediaPlayer {
public:
    explicit MediaPlayer(Program& program);

    Form form{"mediaplayer"};
    PlayQueue wmp;

    Control* medialist = nullptr;
    Control* video = nullptr;   ///< the player's area
    Control* picVis = nullptr;  ///< picture area on the same spot
    Control* imgVis = nullptr;  ///< the cover in it
    Control* picPosition = nullptr;
    Control* picPosSlider = nullptr;
    Control* picVolume = nullptr;
    Control* picVolSlider = nullptr;

    int currentSkipMode = 0;  ///< 0 none, 1 forward, -1 backward; the tick does the skipping
    int skipSecs = 5;
    int playstate = 0;     ///< 3 when the driver wants sound, 0 after pause or stop
    int fadeInVolume = 0;  ///< percent to fade up to, 0 = no fade is due
    bool fadeInAfterPause = true;
    bool fadeInOnStart = true;
    bool displayFilenames = false;
    bool dispRemain = false;
    bool selectOnMediaChange = false;
    bool showCover = false;
    bool useFullscreenCtl = false;
    std::string coverStrings = "front;cover";
    std::string startupVolume;  ///< percent as text, empty for none
    std::string audioFolder;
    std::string videoFolder;
    std::string fileExtensionsAudio;
    std::string fileExtensionsVideo;
    std::string currentFolder;  ///< without trailing separator
    std::string currentPlaylistFile;
    bool showingPlaylist = false;
    bool startShowingPlaylist = false;

    // From the skin: the player's area in twips.
    int visposx = 0;
    int visposy = 0;
    int viswidth = 0;
    int visheight = 0;

    void Load();

    // The list.
    void ReadDirectory(std::string path);  ///< runs events while it scans; a second call meanwhile does nothing
    bool DisplayDirectoryFilesInList();    ///< true when there is nothing to show
    void DisplayPlaylistFilesInList();
    void SwitchListMode();
    void PlaySelectedFile();
    void AddThis2Playlist(const std::string& fullName, std::uint32_t attributes);
    void AddSelection2Playlist();
    void RemoveSelectionFromPlaylist();

    // Transport.
    void PerformPlay();  ///< notes the wish to play, then starts the control
    void ToggleFullscreen(bool forceEnter);

private:
    Program& program;
};

}  // namespace zvr
