#include "media/gallery.h"

#include "core/moduleform.h"
#include "core/program.h"
#include "platform/platform.h"

namespace zvr {

Gallery::Gallery(Program& program) : tmrSlideshow(program.platform.loop, [] {}), program(program) {}

void Gallery::Load() {
    LoadModuleForm(program, form);
    imglist = &form.Add(ControlKind::grid, "imglist");
    picImage = &form.Add(ControlKind::picture, "picImage");
    imgBGprev = &form.Add(ControlKind::image, "imgBGprev");
    imgBGfull = &form.Add(ControlKind::image, "imgBGfull");
    imgBGprev->visible = false;
    imgBGfull->visible = false;
    form.focus = imglist;
}

}  // namespace zvr
