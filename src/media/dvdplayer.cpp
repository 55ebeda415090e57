#include "media/dvdplayer.h"

#include "core/journal.h"
#include "core/moduleform.h"
#include "core/program.h"
#include "media/mediaplayer.h"
#include "platform/platform.h"
#include "system/devices.h"

namespace zvr {

DvdPlayer::DvdPlayer(Program& program) : program(program) {}

void DvdPlayer::Load() {
    LoadModuleForm(program, form);
    dvd = &form.Add(ControlKind::video, "dvd");
    dvdclickcatcher = &form.Add(ControlKind::picture, "dvdclickcatcher");
    dvdclickcatcherimg = &form.Add(ControlKind::image, "dvdclickcatcherimg");
    dvdclickcatcherimg->container = dvdclickcatcher;
    dvdclickcatcher->visible = false;
    dvd->events.onClick = [this](Point p) { program.platform.dvd.Touch(p); };
    dvdclickcatcher->events.onClick = [this](Point) { ToggleFullscreen(false); };
    program.platform.dvd.onFailed = [this](const files::ErrorText& error) { program.showMessage(error); };
}

std::string DvdPlayer::DiscOfDrive() const {
    return DiscPath(Profile::Load(DevicesFile(program.place.folder)), driveLetter,
                    program.platform.discs.DriveDevices());
}

void DvdPlayer::DvdPlay() {
    DvdControl& control = program.platform.dvd;
    if (starting) {
        return;
    }
    if (driveLetter.empty()) {
        program.showMessage(program.languageText("DVDPLAYER_NODRIVESELECTED"));
        return;
    }
    if (control.PlayState() == DvdState::running) {
        (void)control.Play();
        return;
    }
    starting = true;
    MediaPlayer& mediaplayer = program.mediaplayer;
    mediaplayer.PerformMediaplayerStateSaveToMemory();
    mediaplayer.wmp.NewPlaylist();  // its sound ends here
    if (control.PlayState() != DvdState::paused) {
        control.SetDVDDirectory(DiscOfDrive());
        control.SetVideoWindow(program.platform.screen.WindowOf(*dvd));
    }
    const std::string error = control.Play();
    mediaplayer.PerformMediaplayerStateRestoreFromMemory();
    program.journal.WriteSoon();  // a cut during the film is no reason to begin with the song
    starting = false;
    if (!error.empty()) {
        program.showMessage(error);
    }
}

void DvdPlayer::DvdStop() {
    program.platform.dvd.Stop();
}

void DvdPlayer::DvdPause() {
    program.platform.dvd.Pause();
}

void DvdPlayer::DvdFfwd() {
    program.platform.dvd.PlayForwards(2);
}

void DvdPlayer::DvdRwnd() {
    program.platform.dvd.PlayBackwards(2);
}

void DvdPlayer::DvdNextChapter() {
    program.platform.dvd.PlayNextChapter();
}

void DvdPlayer::DvdPrevChapter() {
    program.platform.dvd.PlayPrevChapter();
}

void DvdPlayer::DvdMenu() {
    program.platform.dvd.ShowRootMenu();
}

void DvdPlayer::Zoom(double ratio) {
    // The size of the area stands where a centre belongs: each press goes to the same place.
    program.platform.dvd.Zoom(Pixels(dvd->width), Pixels(dvd->height), ratio);
}

void DvdPlayer::DvdZoomIn() {
    Zoom(2);
}

void DvdPlayer::DvdZoomOut() {
    Zoom(0.5);
}

void DvdPlayer::DvdEject() {
    if (!driveLetter.empty() && ejectIsAllowed) {
        program.platform.discs.Eject(DiscOfDrive());
    }
}

void DvdPlayer::ToggleFullscreen(bool forceLeave) {
    if (forceLeave) {
        fullscreen = false;
    }
    program.platform.screen.ActivateRoot();
    const DvdState state = program.platform.dvd.PlayState();
    if (!fullscreen && state != DvdState::paused && state != DvdState::running) {
        return;
    }
    fullscreen = !fullscreen;
    PlaceAreas();
}

void DvdPlayer::AreasChanged() {
    if (fullscreen) {
        PlaceAreas();
    }
}

void DvdPlayer::PlaceAreas() {
    if (fullscreen) {
        dvd->Move(0, 0, form.width, form.height);
    } else {
        dvd->Move(dvdposx, dvdposy, dvdwidth, dvdheight);
    }
    form.BringToFront(*dvd);
    dvdclickcatcher->left = dvd->left + (dvd->width - dvdclickcatcher->width);
    dvdclickcatcher->top = dvd->top.get();
    form.BringToFront(*dvdclickcatcher);
    form.BringToFront(*dvdclickcatcherimg);
}

}  // namespace zvr
