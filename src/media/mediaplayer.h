#pragma once

#include "media/filesearch.h"
#include "media/playqueue.h"
#include "platform/discs.h"
#include "platform/lifetime.h"
#include "ui/form.h"

#include <cstdint>
#include <functional>
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
    FileSearch filesearch;  ///< of all lists: one of them ends the scan of another

    Control* medialist = nullptr;
    Control* video = nullptr;   ///< the player's area; shown while there is video to see
    Control* picVis = nullptr;  ///< picture area on the same spot
    Control* imgVis = nullptr;  ///< the cover in it
    Control* picPosition = nullptr;
    Control* picPosSlider = nullptr;
    Control* picVolume = nullptr;
    Control* picVolSlider = nullptr;

    int currentSkipMode = 0;  ///< 0 none, 1 forward, -1 backward; the tick does the skipping
    int skipSecs = 5;
    int playstate = 0;  ///< 3 when the driver wants sound, 0 after pause or stop
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
    std::string currentFolder;  ///< without trailing separator; "/" for the root of all
    std::string currentPlaylistFile;
    bool showingPlaylist = false;
    bool startShowingPlaylist = false;  ///< the first visit begins in playlist mode
    std::string mpStateSave;            ///< queue and position while a disc plays; empty for none

    // From the skin: the player's area in twips.
    int visposx = 0;
    int visposy = 0;
    int viswidth = 0;
    int visheight = 0;

    void Load();

    // The list.
    void ReadDirectory(const std::string& path);  ///< runs events while it scans; a second call meanwhile does nothing
    void DisplayDirectoryFilesInList();
    void DisplayPlaylistFilesInList();  ///< runs events
    void SwitchListMode();
    void PlaySelectedFile();  ///< enters a folder or plays from the file on; nothing without a selected row
    void PlayAlone(const std::string& file);  ///< in place of the queue; that the driver wants sound is not noted
    /// A file, or all media below a folder, to the end of the current playlist; says in a box what came of it.
    void AddThis2Playlist(const std::string& fullName, std::uint32_t attributes);
    void AddSelection2Playlist();
    void RemoveSelectionFromPlaylist();

    // Transport.
    void PerformPlay();  ///< notes the wish to play, then starts the control
    void Play();
    void Stop();
    void Pause();
    void PlayPauseToggle();  ///< plays when a skip is on
    void SkipForward();
    void SkipBackward();
    void Next();
    void Previous();
    void SetShuffle(bool on);  ///< and uncovers the other button of the pair
    void VolumeMute();
    void ApplyStartupVolume();  ///< nothing without one
    void ListSelect();
    /// What lies in the drive that the settings name: an audio CD becomes the queue, a film goes to the DVD screen.
    /// Does not wait for the drive; without a disc nothing happens.
    void LoadAudioCd();
    void PlayAfterSleep();                   ///< the machine woke up: plays on if the driver had it playing
    void ToggleFullscreen(bool forceEnter);  ///< of the cover or the video; `forceEnter` never leaves
    void PlaceAreas();                       ///< of video and cover: where the skin has them, or the full screen

    [[nodiscard]] bool IsHeld(const Control& knob) const;  ///< a finger moves it along its track

    // What outlives a run, or a disc.
    /// Of the player's state the lines of the current item, as a save writes them now: where it plays or, while a
    /// restore brings it there or the end has stopped it, where it is to play.
    [[nodiscard]] std::string StateLinesOfCurrent() const;
    void StopForTheEnd();                        ///< silent from here on; a save still tells where it played
    void PerformMediaplayerStateSave();          ///< to restore.dat; nothing without a queue
    void PerformMediaplayerStateRestore();       ///< from it; waits a second; the file goes when all went well
    void PerformMediaplayerStateSaveToMemory();  ///< to `mpStateSave`
    /// At once, or from the loop behind the second in which a restore plays in silence: to pause or to choose in it is
    /// the driver's, and gives the place up.
    void WhenRestored(std::function<void()> task);
    void PerformMediaplayerStateRestoreFromMemory();  ///< from it; does not start to play

private:
    void Activated();
    [[nodiscard]] const FileEntry* SelectedEntry() const;
    [[nodiscard]] ListIcon FileIcon(const FileEntry& entry) const;
    void MarkPlayingFile(bool restoring, bool scrolling);
    void EnterFolder(const FileEntry& entry);
    void PlayFromDirectory(const FileEntry& chosen);
    void PlayFromPlaylist(const FileEntry& chosen);
    void StartAt(int queueIndex);
    void PlayDisc(const Disc& disc);
    /// He chose, started or stopped something: a restore, or a disc that is being looked for, is no longer wanted.
    void DriverActed();
    void DriverWantsSound();  ///< the same, and a running film pauses
    void GiveVideoWindow();

    void ArmFade();
    void PressVolume(Point p);
    void DragVolume(Point p);
    void PressPosition(Point p);
    void DragPosition(Point p);
    void SeekToPercent(long percent);
    void LetGo();  ///< of a knob: what was dragged along the position counts now

    void MediaChanged();
    void ShowVideoOrNothing();
    void VideoClicked(Point p);
    /// Puts the cover of the folder into `imgVis`; false without one. An unforced search of the same folder looks at
    /// no file.
    bool FindCover(const std::string& folder, bool forced);
    void FitCover();

    /// Leaves the player stopped at the place; false when it could not, and then the queue is there without one.
    [[nodiscard]] bool RestoreQueueAndPosition(const std::vector<std::string>& lines);

    Program& program;
    std::vector<FileEntry> directoryEntries;
    std::vector<FileEntry> playlistEntries;
    bool scanning = false;
    bool directoryWasRead = false;
    bool fullscreen = false;
    Control* heldKnob = nullptr;  ///< that a finger moves
    long draggedPercent = -1;     ///< of the position, where the finger has moved its knob; -1: nowhere
    std::string lastSourceURL;    ///< that the media change has seen
    std::string coverFolder;      ///< that was searched last
    Lifetime discWanted;          ///< renewed when the driver has chosen something else
    std::string heldLines;        ///< see StateLinesOfCurrent; empty: the player's own
    std::vector<std::function<void()>> behindRestore;
};

}  // namespace zvr
