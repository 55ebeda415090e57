#pragma once

#include "platform/dvdcontrol.h"
#include "ui/form.h"

#include <string>

namespace zvr {

class Program;

/// The DVD screen: plays the film disc of one drive. The player's queue waits meanwhile, stopped at its place.
class DvdPlayer {
public:
    explicit DvdPlayer(Program& program);

    Form form{"dvdplayer"};
    Control* dvd = nullptr;                 ///< video area
    Control* dvdclickcatcher = nullptr;     ///< its top right corner: enters and leaves the full screen
    Control* dvdclickcatcherimg = nullptr;  ///< the mark in it

    std::string driveLetter;  ///< "d:", empty for none
    bool ejectIsAllowed = true;

    // From the skin: the video area in twips.
    int dvdposx = 0;
    int dvdposy = 0;
    int dvdwidth = 0;
    int dvdheight = 0;

    void Load();
    void DvdPlay();  ///< or back to the normal speed. Waits, with events running
    void DvdStop();
    void DvdPause();
    void DvdFfwd();
    void DvdRwnd();
    void DvdNextChapter();
    void DvdPrevChapter();
    void DvdMenu();
    void DvdZoomIn();
    void DvdZoomOut();
    void DvdEject();
    void ToggleFullscreen(bool forceLeave);
    void AreasChanged();  ///< a skin has placed the video

private:
    [[nodiscard]] std::string DiscOfDrive() const;
    void Zoom(double ratio);
    void PlaceAreas();

    Program& program;
    bool fullscreen = false;
    bool starting = false;
};

}  // namespace zvr
