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
    imgUserPic->Move(Twips(userPicCenterX - size.width / 2.0), Twips(userPicCenterY - size.height / 2.0),
                     Twips(size.width), Twips(size.height));
    form.BringToFront(*imgUserPic);
    imgUserPic->visible = true;
}

}  // namespace zvr
