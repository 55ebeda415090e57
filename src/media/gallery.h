#pragma once

#include "platform/eventloop.h"
#include "ui/form.h"

#include <string>

namespace zvr {

class Program;

/// The picture screen.
class Gallery {
public:
    explicit Gallery(Program& program);

    Form form{"gallery"};
    Control* imglist = nullptr;
    Control* picImage = nullptr;   ///< preview area
    Control* imgBGprev = nullptr;  ///< background picture of the preview, kept for redrawing
    Control* imgBGfull = nullptr;

    std::string imageFolder;
    std::string fileExtensionsPicture;  ///< ";" separated, without dots
    bool loopSlideshow = true;
    std::string currentFolder;
    Timer tmrSlideshow;

    // From the skin: the preview area in twips, and the two backgrounds.
    int picposx = 0;
    int picposy = 0;
    int picwidth = 0;
    int picheight = 0;
    Color picBGColorPreview = 0;
    Color picBGColorFullscreen = 0;

    void Load();

private:
    Program& program;
};

}  // namespace zvr
