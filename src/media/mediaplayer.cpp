#include "media/mediaplayer.h"

#include "core/commanddispatcher.h"
#include "core/godfather.h"
#include "core/journal.h"
#include "core/moduleform.h"
#include "core/program.h"
#include "platform/platform.h"

namespace zvr {

MediaPlayer::MediaPlayer(Program& program)
    : wmp(program.platform.loop, program.platform.media,
          static_cast<std::uint64_t>(program.platform.loop.Now().milliseconds)),
      filesearch(program.platform.loop, program.platform.drives),
      program(program) {}

void MediaPlayer::Load() {
    LoadModuleForm(program, form);
    form.onActivate = [this] { Activated(); };

    medialist = &form.Add(ControlKind::grid, "medialist");
    video = &form.Add(ControlKind::video, "wmp");
    picVis = &form.Add(ControlKind::picture, "picVis");
    imgVis = &form.Add(ControlKind::image, "imgVis");
    picPosition = &form.Add(ControlKind::picture, "picPosition");
    picPosSlider = &form.Add(ControlKind::image, "picPosSlider");
    picVolume = &form.Add(ControlKind::picture, "picVolume");
    picVolSlider = &form.Add(ControlKind::image, "picVolSlider");
    imgVis->container = picVis;
    picPosSlider->container = picPosition;
    picVolSlider->container = picVolume;
    video->visible = false;
    picVis->visible = false;
    imgVis->visible = false;
    form.focus = medialist;

    medialist->events.onClick = [this](Point) {
        if (program.godfather.singleClickListSelect) {
            PlaySelectedFile();
        }
    };
    medialist->events.onDoubleClick = [this] {
        if (!program.godfather.singleClickListSelect) {
            PlaySelectedFile();
        }
    };
    picVolume->events.onDown = [this](Point p) { PressVolume(p); };
    picVolume->events.onDrag = [this](Point p) { DragVolume(p); };
    picVolume->events.onUp = [this](Point) { LetGo(); };
    picPosition->events.onDown = [this](Point p) { PressPosition(p); };
    picPosition->events.onDrag = [this](Point p) { DragPosition(p); };
    picPosition->events.onUp = [this](Point) { LetGo(); };
    video->events.onClick = [this](Point p) { VideoClicked(p); };
    picVis->events.onClick = [this](Point) { ToggleFullscreen(false); };

    wmp.SetMode("loop", true);
    wmp.onMediaChange = [this] { MediaChanged(); };
    wmp.onMediaInfo = [this] { ShowVideoOrNothing(); };
}

void MediaPlayer::Activated() {
    program.commanddispatcher.pushModuleHistory(form.name);
    // The list is filled for the first visit, not for the start: an unreachable folder must not hold up the menu.
    if (directoryWasRead || scanning || showingPlaylist) {
        return;
    }
    if (startShowingPlaylist) {
        startShowingPlaylist = false;
        DisplayPlaylistFilesInList();
    } else {
        ReadDirectory(currentFolder.empty() ? audioFolder : currentFolder);
    }
}

void MediaPlayer::MediaChanged() {
    program.journal.WriteSoon();
    if (heldKnob == picPosSlider) {
        heldKnob = nullptr;  // what the finger looks for is in the other item
        draggedPercent = -1;
    }
    ShowVideoOrNothing();
    const MediaItem* const media = wmp.CurrentMedia();
    if (media == nullptr || showingPlaylist || media->sourceURL == lastSourceURL) {
        return;
    }
    MarkPlayingFile(true, selectOnMediaChange);
    lastSourceURL = media->sourceURL;
    picVis->visible = showCover && ExtensionMatches(lastSourceURL, fileExtensionsAudio) &&
                      FindCover(files::FolderOf(lastSourceURL), false);
    ShowVideoOrNothing();
}

}  // namespace zvr
