#include "core/numbers.h"
#include "core/program.h"
#include "media/mediaplayer.h"
#include "platform/platform.h"

#include <array>

namespace zvr {
namespace {

/// What a touch on the full screen does, by row and column. The middle leaves the full screen.
constexpr std::array<std::array<std::string_view, 3>, 3> touchGrid{{
    {"mediaplayer.volumedown", "mediaplayer.volumemute", "mediaplayer.volumeup"},
    {"mediaplayer.prev", "", "mediaplayer.next"},
    {"mediaplayer.rwnd", "mediaplayer.playpausetoggle", "mediaplayer.ffwd"},
}};

/// 0, 1 or 2: the first fifth, the middle, the last fifth.
std::size_t ThirdAt(int place, int extent) {
    const long percent = RoundHalfEven(100.0 * place / extent);
    return percent <= 20 ? 0 : percent >= 80 ? 2 : 1;
}

}  // namespace

void MediaPlayer::ShowVideoOrNothing() {
    // On the full screen an item without video is a black area, so that there is something to touch.
    video->visible = !picVis->visible && (fullscreen || program.platform.media.HasVideo());
}

void MediaPlayer::ToggleFullscreen(bool forceEnter) {
    program.platform.screen.ActivateRoot();
    const bool enter = forceEnter || !fullscreen;
    if (enter && wmp.CurrentMedia() == nullptr) {
        return;
    }
    fullscreen = enter;
    for (Control* const control : {medialist, picPosition, picVolume}) {
        control->visible = !enter;
    }
    PlaceAreas();
}

void MediaPlayer::PlaceAreas() {
    // Both: the next item may need the other one.
    for (Control* const area : {video, picVis}) {
        if (fullscreen) {
            area->Move(0, 0, form.width, form.height);
            form.BringToFront(*area);
        } else {
            area->Move(visposx, visposy, viswidth, visheight);
        }
    }
    form.BringToFront(*imgVis);
    ShowVideoOrNothing();
    if (const MediaItem* const media = wmp.CurrentMedia(); picVis->visible && media != nullptr) {
        FindCover(files::FolderOf(media->sourceURL), true);
    }
}

void MediaPlayer::VideoClicked(Point p) {
    if (!fullscreen || !useFullscreenCtl) {
        ToggleFullscreen(false);
        return;
    }
    const Rect place = video->Place();
    if (place.IsEmpty()) {
        return;
    }
    const std::string_view command = touchGrid[ThirdAt(p.y, place.height)][ThirdAt(p.x, place.width)];
    if (command.empty()) {
        ToggleFullscreen(false);
    } else {
        program.dispatchCommand(command);
    }
}

}  // namespace zvr
