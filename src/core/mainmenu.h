#pragma once

#include "ui/form.h"

#include <string>

namespace zvr {

class Program;

/// The first screen: skinned buttons and the user's own picture.
class MainMenu {
public:
    explicit MainMenu(Program& program);

    Form form{"mainmenu"};

    bool showUserPic = false;
    std::string userPic;            ///< file path
    bool userPicIsAllowed = false;  ///< by the skin
    int userPicCenterX = 0;         ///< pixels
    int userPicCenterY = 0;
    int flashUserPicWidth = 200;  ///< pixels
    int flashUserPicHeight = 200;
    int flashUserPicBackground = 0;  ///< colour

    void Load();
    void LoadUserPic();  ///< a missing or broken file leaves the menu without a picture

private:
    Program& program;
    Control* imgUserPic = nullptr;
};

}  // namespace zvr
