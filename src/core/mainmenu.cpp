#include "core/mainmenu.h"

#include "core/moduleform.h"
#include "core/program.h"
#include "platform/text.h"

namespace zvr {

MainMenu::MainMenu(Program& program) : program(program) {}

void MainMenu::Load() {
    LoadModuleForm(program, form);
    imgUserPic = &form.Add(ControlKind::image, "imgUserPic");
    imgUserPic->visible = false;
}

void MainMenu::LoadUserPic() {
    imgUserPic->visible = false;
    imgUserPic->picture = PicturePointer();
    const bool wanted =
        text::Length(userPic) > 4 && userPicIsAllowed && showUserPic && userPicCenterX >= 0 && userPicCenterY >= 0;
    if (!wanted || text::Lower(userPic).ends_with(".swf")) {
        return;
    }
    const PicturePointer picture = LoadPicture(userPic);
    if (picture == nullptr) {
        return;
    }
    const Size size = picture->PixelSize();
    imgUserPic->picture = picture;
    imgUserPic->Move((userPicCenterX - size.width / 2.0) * twipsPerPixel,
                     (userPicCenterY - size.height / 2.0) * twipsPerPixel, size.width * double{twipsPerPixel},
                     size.height * double{twipsPerPixel});
    form.BringToFront(*imgUserPic);
    imgUserPic->visible = true;
}

}  // namespace zvr
