#include "media/dvdplayer.h"

#include "core/moduleform.h"

namespace zvr {

DvdPlayer::DvdPlayer(Program& program) : program(program) {}

void DvdPlayer::Load() {
    LoadModuleForm(program, form);
    dvd = &form.Add(ControlKind::video, "dvd");
    dvdclickcatcher = &form.Add(ControlKind::picture, "dvdclickcatcher");
    dvdclickcatcherimg = &form.Add(ControlKind::image, "dvdclickcatcherimg");
    dvdclickcatcherimg->container = dvdclickcatcher;
    dvdclickcatcher->visible = false;
}

}  // namespace zvr
