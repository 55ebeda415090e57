#pragma once

#include "media/filesearch.h"
#include "media/photoshelf.h"
#include "platform/eventloop.h"
#include "platform/lifetime.h"
#include "ui/form.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zvr {

class Program;

/// The picture screen: a list of folders and pictures, one picture beside it or on the whole screen, and a slide show.
class Gallery {
public:
    explicit Gallery(Program& program);

    Form form{"gallery"};
    Control* imglist = nullptr;
    Control* picImage = nullptr;   ///< the area of the picture
    Control* imgImage = nullptr;   ///< the picture in it; stays until the next one is there
    Control* imgBGprev = nullptr;  ///< hold the backgrounds of the two modes
    Control* imgBGfull = nullptr;

    std::string imageFolder;
    std::string fileExtensionsPicture;  ///< ";" separated, without dots
    bool loopSlideshow = true;
    std::string currentFolder;
    std::int32_t currentImageIndex = 0;  ///< in the folder's entries, of the picture shown
    Timer tmrSlideshow;

    // From the skin: the preview area in twips, and the two backgrounds.
    int picposx = 0;
    int picposy = 0;
    int picwidth = 0;
    int picheight = 0;
    Color picBGColorPreview = 0;
    Color picBGColorFullscreen = 0;

    void Load();
    void ReadDirectory(const std::string& path);  ///< runs events; a second call meanwhile does nothing
    void DisplayDirectoryFilesInList();
    /// Enters the selected folder or shows the selected picture. Runs events.
    void ShowSelectedImage();
    void SelectByHand();  ///< the same, and the slide show ends
    void SlideshowOn();
    void SlideshowOff();
    void ToggleFullscreen();
    void AreasChanged();  ///< a skin has placed the preview and filled the backgrounds

private:
    enum class Shown { yes, no, overtaken };

    void EnterFolder(const FileEntry& entry);
    [[nodiscard]] Shown Display(std::int32_t index);
    void PutPicture(const PicturePointer& picture);
    void PlaceAreas();
    void FitPicture();
    void ShowAgain();  ///< in the area's new size
    void NextOfSlideshow();
    void Lifted(Point p);
    void Turn(int rows);
    void ReadAhead();
    [[nodiscard]] const FileEntry* EntryOfRow(int row) const;
    [[nodiscard]] bool IsPicture(const FileEntry& entry) const;
    [[nodiscard]] Size Area() const;

    Program& program;
    std::vector<FileEntry> entries;
    bool scanning = false;
    bool fullscreen = false;
    PhotoShelf photos;
    unsigned displayGeneration = 0;  ///< who waits for his picture and finds another number has been overtaken
    std::optional<Point> pressedAt;
    bool swiped = false;
    Lifetime lifetime;
};

}  // namespace zvr
