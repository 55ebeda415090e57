#include "media/gallery.h"

#include "core/commanddispatcher.h"
#include "core/godfather.h"
#include "core/moduleform.h"
#include "core/program.h"
#include "media/folderlist.h"
#include "media/mediaplayer.h"
#include "platform/photo.h"
#include "platform/platform.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace zvr {
namespace {

/// Pixels that a finger goes before it is no tap any more.
constexpr int shortestSwipe = 60;
/// Of all decoded pictures together, at four bytes a pixel.
constexpr int mostPixels = 16 << 20;

}  // namespace

Gallery::Gallery(Program& program)
    : tmrSlideshow(program.platform.loop, [this] { NextOfSlideshow(); }),
      program(program),
      photos(program.platform.loop, program.platform.background) {}

void Gallery::Load() {
    LoadModuleForm(program, form);
    imglist = &form.Add(ControlKind::grid, "imglist");
    picImage = &form.Add(ControlKind::picture, "picImage");
    imgImage = &form.Add(ControlKind::image, "imgImage");
    imgBGprev = &form.Add(ControlKind::image, "imgBGprev");
    imgBGfull = &form.Add(ControlKind::image, "imgBGfull");
    imgImage->container = picImage;
    for (Control* const hidden : {imgImage, imgBGprev, imgBGfull}) {
        hidden->visible = false;
    }
    form.focus = imglist;
    form.onActivate = [this] {
        program.commanddispatcher.pushModuleHistory(form.name);
        if (entries.empty()) {
            ReadDirectory(currentFolder.empty() ? imageFolder : currentFolder);
        }
    };
    imglist->events.onClick = [this](Point) {
        if (program.godfather.singleClickListSelect) {
            SelectByHand();
        }
    };
    imglist->events.onDoubleClick = [this] {
        if (!program.godfather.singleClickListSelect) {
            SelectByHand();
        }
    };
    picImage->events.onDown = [this](Point p) { pressedAt = p; };
    picImage->events.onUp = [this](Point p) { Lifted(p); };
    picImage->events.onClick = [this](Point) {
        if (!std::exchange(swiped, false)) {
            ToggleFullscreen();
        }
    };
}

void Gallery::ReadDirectory(const std::string& path) {
    if (std::exchange(scanning, true)) {
        return;
    }
    FolderContent content = ReadFolderOrAbove(program.mediaplayer.filesearch, program.platform.loop,
                                              program.platform.drives, path, fileExtensionsPicture);
    ++displayGeneration;  // whoever waits for a picture waits for one of another folder
    entries = std::move(content.entries);
    currentFolder = std::move(content.folder);
    if (!entries.empty()) {
        currentImageIndex = 0;
    }
    DisplayDirectoryFilesInList();
    scanning = false;
}

void Gallery::DisplayDirectoryFilesInList() {
    Grid& grid = *imglist->grid;
    grid.SetRedraw(false);
    grid.Clear();
    AddFolderRows(grid, entries, !program.godfather.postSortDirectoryListings, imglist->font.get().bold,
                  program.platform.drives, [](const FileEntry&) { return ListIcon::image; });
    grid.Select(1);
    grid.SetRedraw(true);
}

const FileEntry* Gallery::EntryOfRow(int row) const {
    const Grid& grid = *imglist->grid;
    if (row < 1 || row > grid.RowCount()) {
        return nullptr;
    }
    const auto index = static_cast<std::size_t>(grid.RowAt(row).data);
    return index < entries.size() ? &entries[index] : nullptr;
}

bool Gallery::IsPicture(const FileEntry& entry) const {
    return !entry.IsFolder() && !entry.IsDrive() && ExtensionMatches(entry.name, fileExtensionsPicture);
}

void Gallery::SelectByHand() {
    tmrSlideshow.Stop();
    ShowSelectedImage();
}

void Gallery::ShowSelectedImage() {
    const int row = imglist->grid->Row();
    const FileEntry* const selected = EntryOfRow(row);
    if (selected == nullptr) {
        return;
    }
    if (selected->IsFolder() || selected->IsDrive()) {
        EnterFolder(FileEntry(*selected));
        return;
    }
    currentImageIndex = imglist->grid->RowAt(row).data;
    (void)Display(currentImageIndex);
}

void Gallery::EnterFolder(const FileEntry& entry) {
    imglist->grid->SetRedraw(false);
    if (entry.name != "..") {
        ReadDirectory(entry.FullName());
    } else {
        const std::string folder = FolderNamed(entry.path);
        ReadDirectory(ParentOf(folder));
        SelectFolderLeft(*imglist->grid, folder.substr(folder.rfind(files::separator) + 1));
    }
    imglist->grid->SetRedraw(true);
}

Size Gallery::Area() const {
    return {Pixels(picImage->width), Pixels(picImage->height)};
}

Gallery::Shown Gallery::Display(std::int32_t index) {
    const unsigned own = ++displayGeneration;
    const auto isWanted = [this, own] { return displayGeneration == own; };
    const std::string path = entries[static_cast<std::size_t>(index)].FullName();
    const PicturePointer picture = photos.Get(path, Area(), isWanted);
    if (!isWanted() || program.platform.loop.IsQuitting()) {
        return Shown::overtaken;
    }
    if (picture == nullptr) {
        return Shown::no;
    }
    currentImageIndex = index;
    PutPicture(picture);
    ReadAhead();
    return Shown::yes;
}

void Gallery::PutPicture(const PicturePointer& picture) {
    imgImage->picture = picture;
    FitPicture();
    imgImage->visible = true;
}

void Gallery::FitPicture() {
    const PicturePointer& picture = imgImage->picture;
    if (picture == nullptr) {
        return;
    }
    const Size whole = picture->PixelSize();
    const Size area = Area();
    const Size fitted = FittedInto(whole, area);
    imgImage->stretch = fitted != whole;
    imgImage->Move(Centred(picImage->width, Twips(fitted.width)), Centred(picImage->height, Twips(fitted.height)),
                   Twips(fitted.width), Twips(fitted.height));
}

void Gallery::ShowAgain() {
    FitPicture();
    const PicturePointer shown = imgImage->picture;
    if (shown == nullptr) {
        return;
    }
    // What is there stands in for it until it is decoded for the new size.
    const unsigned own = ++displayGeneration;
    const PicturePointer sharper = photos.Get(shown->Path(), Area(), [this, own] { return displayGeneration == own; });
    if (displayGeneration == own && sharper != nullptr && !program.platform.loop.IsQuitting()) {
        PutPicture(sharper);
        ReadAhead();
    }
}

void Gallery::PlaceAreas() {
    if (fullscreen) {
        picImage->Move(0, 0, form.width, form.height);
        picImage->backColor = picBGColorFullscreen;
    } else {
        picImage->Move(picposx, picposy, picwidth, picheight);
        picImage->backColor = picBGColorPreview;
    }
    picImage->picture = (fullscreen ? imgBGfull : imgBGprev)->picture.get();
    imglist->visible = !fullscreen;  // a list is a window of its own and covers what is painted
    form.BringToFront(*picImage);
    form.BringToFront(*imgImage);
    FitPicture();
}

void Gallery::AreasChanged() {
    PlaceAreas();
    // Not here: a skin is being loaded, and nothing in there may wait.
    program.platform.loop.Post(lifetime.Guard([this] { ShowAgain(); }));
}

void Gallery::ToggleFullscreen() {
    fullscreen = !fullscreen;
    PlaceAreas();
    ShowAgain();
}

void Gallery::SlideshowOn() {
    tmrSlideshow.Start();
}

void Gallery::SlideshowOff() {
    tmrSlideshow.Stop();
}

void Gallery::NextOfSlideshow() {
    const auto count = static_cast<std::int32_t>(entries.size());
    const std::int32_t last = count - 1;
    if (currentImageIndex > last) {
        currentImageIndex = 0;
    } else if (currentImageIndex < last) {
        ++currentImageIndex;
    } else if (loopSlideshow) {
        currentImageIndex = 0;
    } else {
        tmrSlideshow.Stop();
    }
    for (std::int32_t tried = 0; tried < count; ++tried) {
        if (IsPicture(entries[static_cast<std::size_t>(currentImageIndex)])) {
            if (const Shown shown = Display(currentImageIndex); shown != Shown::no) {
                return;
            }
        }
        if (++currentImageIndex > last) {
            if (!loopSlideshow) {
                tmrSlideshow.Stop();
            }
            currentImageIndex = 0;
        }
    }
    currentImageIndex = 0;
    tmrSlideshow.Stop();
}

void Gallery::Lifted(Point p) {
    const auto from = std::exchange(pressedAt, std::nullopt);
    const bool taken = p == Point{-1, -1};  // away from the finger: it is no swipe
    const int across = from && !taken ? p.x - from->x : 0;
    const int down = from && !taken ? p.y - from->y : 0;
    swiped = std::abs(across) >= shortestSwipe && std::abs(across) > 2 * std::abs(down);
    if (swiped) {
        program.platform.loop.Post(lifetime.Guard([this, rows = across < 0 ? 1 : -1] {
            swiped = false;  // the click of this touch is over, if there was one
            Turn(rows);
        }));
    }
}

/// Shows the next or the previous picture of the list and stays at its ends. A running slide show goes on from there.
void Gallery::Turn(int rows) {
    Grid& grid = *imglist->grid;
    int row = 1;
    while (row <= grid.RowCount() && grid.RowAt(row).data != currentImageIndex) {
        ++row;
    }
    for (row += rows; const FileEntry* const entry = EntryOfRow(row); row += rows) {
        if (IsPicture(*entry)) {
            const Shown shown = Display(grid.RowAt(row).data);
            if (shown == Shown::yes) {
                grid.Select(row);
            }
            if (shown != Shown::no) {
                return;
            }
        }
    }
}

void Gallery::ReadAhead() {
    const Size area = Area();
    const int room = mostPixels / std::max(1, area.width * area.height) - 1;
    std::vector<std::string> next;
    const auto expect = [&](const FileEntry* entry) {
        if (entry != nullptr && IsPicture(*entry) && static_cast<int>(next.size()) < room) {
            next.push_back(entry->FullName());
        }
    };
    const auto count = static_cast<std::int32_t>(entries.size());
    if (tmrSlideshow.Enabled() && count > 0) {
        expect(&entries[static_cast<std::size_t>((currentImageIndex + 1) % count)]);
    } else {
        const Grid& grid = *imglist->grid;
        for (int row = 1; row <= grid.RowCount(); ++row) {
            if (grid.RowAt(row).data == currentImageIndex) {
                expect(EntryOfRow(row + 1));
                expect(EntryOfRow(row - 1));
            }
        }
    }
    photos.Expect(next, area, imgImage->picture.get()->Path());
}

}  // namespace zvr
