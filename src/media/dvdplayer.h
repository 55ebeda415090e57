#pragma once

#include "ui/form.h"

#include <string>

namespace zvr {

class Program;

/// The DVD screen.
class DvdPlayer {
public:
    explicit DvdPlayer(Program& program);

    Form form{"dvdplayer"};
    Control* dvd = nullptr;  ///< video area
    Control* dvdclickcatcher = nullptr;
    Control* dvdclickcatcherimg = nullptr;

    std::string driveLetter;  ///< "d:", empty for none
    bool ejectIsAllowed = true;

    // From the skin: the video area in twips.
    int dvdposx = 0;
    int dvdposy = 0;
    int dvdwidth = 0;
    int dvdheight = 0;

    void Load();

private:
    Program& program;
};

}  // namespace zvr
