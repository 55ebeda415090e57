#include "skin/layouts.h"

#include "apps/externalapps.h"
#include "apps/quickbars.h"
#include "core/mainmenu.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/program.h"
#include "media/dvdplayer.h"
#include "media/gallery.h"
#include "media/mediaplayer.h"
#include "media/mediasearch.h"
#include "media/playlists.h"
#include "phone/phone.h"
#include "phone/smsbox.h"
#include "radiogps/gps.h"
#include "skin/elements.h"
#include "skin/skinner.h"

#include <array>

namespace zvr {
namespace {

/// Off the screen: the way to hide an area without ending what plays in it.
constexpr double parked = -1500;

constexpr std::string_view noKnob = "error";

int Whole(double value) {
    return static_cast<int>(RoundHalfEven(value));
}

double ValueAt(const Skinner& skinner, const std::string& path) {
    return SkinNumber(skinner.ReadSkinValue(path));
}

/// The picture at the path goes to `show`, if the skin has it. False, and reported, if it can't be decoded.
template <typename Show>
bool ApplyPicture(Skinner& skinner, std::string_view path, SkinFault fault, Show show) {
    const SkinPicture found = skinner.FindPicture(skinner.ReadSkinValue(path));
    if (!found.exists) {
        return true;
    }
    if (found.picture == nullptr) {
        skinner.ReportSkinError(fault);
        return false;
    }
    show(found.picture);
    return true;
}

/// Width and height of a box that is placed when it opens.
void ApplySize(Skinner& skinner, Form& form, SkinFault missing, SkinFault invalid) {
    const std::string base = "//" + form.name + "/";
    const XmlElement widthElement = skinner.skinDocument.First(base + "width");
    const XmlElement heightElement = skinner.skinDocument.First(base + "height");
    if (!widthElement || !heightElement) {
        skinner.ReportSkinError(missing);
        return;
    }
    const double width = SkinNumber(widthElement.Text());
    const double height = SkinNumber(heightElement.Text());
    if (width <= 0 || height < 0) {
        skinner.ReportSkinError(invalid);
        return;
    }
    form.width = width * twipsPerPixel;
    form.height = height * twipsPerPixel;
}

void LayOutPhone(Program& program) {
    if (Phone& phone = program.phone; phone.form.loaded) {
        SkinList(program, *phone.phonebooklist, "phone");
        SkinTextBox(program, *phone.numberbox, "//phone/numberbox/");
    }
    if (SmsBox& smsbox = program.smsbox; smsbox.form.loaded) {
        ApplySize(program.skinner, smsbox.form, SkinFault::smsSizeMissing, SkinFault::smsSizeInvalid);
        SkinTextBox(program, *smsbox.smsnumberbox, "//smsbox/smsnumberbox/");
        SkinTextBox(program, *smsbox.smstextbox, "//smsbox/smstextbox/");
    }
}

/// The mark in the corner of the video that brings the driver back from it. Never worth a message.
void ApplyDvdLogo(Program& program) {
    DvdPlayer& dvdplayer = program.dvdplayer;
    const SkinPicture logo = program.skinner.FindPicture(program.skinner.ReadSkinValue("//dvdplayer/dvdcontent/logo"));
    dvdplayer.dvdclickcatcher->visible = logo.picture != nullptr;
    if (logo.picture == nullptr) {
        return;
    }
    const Size size = logo.picture->PixelSize();
    const double width = size.width * double{twipsPerPixel};
    dvdplayer.dvdclickcatcherimg->picture = logo.picture;
    dvdplayer.dvdclickcatcher->Move(dvdplayer.dvd->left + dvdplayer.dvd->width - width, dvdplayer.dvd->top, width,
                                    size.height * double{twipsPerPixel});
    dvdplayer.form.BringToFront(*dvdplayer.dvdclickcatcher);
    dvdplayer.form.BringToFront(*dvdplayer.dvdclickcatcherimg);
}

void LayOutDvdPlayer(Program& program) {
    DvdPlayer& dvdplayer = program.dvdplayer;
    if (!dvdplayer.form.loaded) {
        return;
    }
    SkinPlace place;
    if (ReadPlace(program.skinner, "//dvdplayer/dvdcontent/", SizeRule::heightMayBeZero, SkinFault::dvdPlaceMissing,
                  SkinFault::dvdPlaceInvalid, {}, place)) {
        MoveTo(*dvdplayer.dvd, place);
        dvdplayer.dvdposx = Whole(place.left);
        dvdplayer.dvdposy = Whole(place.top);
        dvdplayer.dvdwidth = Whole(place.width);
        dvdplayer.dvdheight = Whole(place.height);
    }
    ApplyDvdLogo(program);
}

void LayOutExternalApps(Program& program) {
    if (program.externalapps.form.loaded) {
        SkinList(program, *program.externalapps.applist, "externalapps");
    }
    const auto size = [&program](std::string_view path, SkinFault fault, Property<Form, double>& extent) {
        const long pixels = RoundHalfEven(SkinNumber(program.skinner.ReadSkinValue(path)));
        if (pixels < 1) {
            program.skinner.ReportSkinError(fault);
        } else {
            extent = static_cast<double>(pixels * twipsPerPixel);
        }
    };
    QuickBars& bars = program.quickbars;
    if (bars.docked.loaded) {
        size("//quickbardocked/height", SkinFault::dockedHeight, bars.docked.height);
    }
    if (bars.floating.loaded) {
        size("//quickbarfloating/width", SkinFault::floatingWidth, bars.floating.width);
        size("//quickbarfloating/height", SkinFault::floatingHeight, bars.floating.height);
    }
}

void LayOutGallery(Program& program) {
    Gallery& gallery = program.gallery;
    Skinner& skinner = program.skinner;
    if (!gallery.form.loaded) {
        return;
    }
    SkinList(program, *gallery.imglist, "gallery");
    const std::string base = "//gallery/imgdisplay/";
    SkinPlace place;
    if (!ReadPlace(skinner, base + "preview/", SizeRule::heightMayBeZero, SkinFault::previewPlaceMissing,
                   SkinFault::previewPlaceInvalid, {}, place)) {
        return;
    }
    MoveTo(*gallery.picImage, place);
    gallery.picposx = Whole(place.left);
    gallery.picposy = Whole(place.top);
    gallery.picwidth = Whole(place.width);
    gallery.picheight = Whole(place.height);
    gallery.picBGColorPreview = ParseSkinColor(skinner.ReadSkinValue(base + "preview/background-color"));
    gallery.picImage->backColor = gallery.picBGColorPreview;
    if (!ApplyPicture(skinner, base + "preview/background-image", SkinFault::previewBackground,
                      [&gallery](const PicturePointer& picture) {
                          gallery.imgBGprev->picture = picture;
                          gallery.picImage->picture = picture;
                      })) {
        return;
    }
    gallery.picBGColorFullscreen = ParseSkinColor(skinner.ReadSkinValue(base + "fullscreen/background-color"));
    (void)ApplyPicture(skinner, base + "fullscreen/background-image", SkinFault::fullscreenBackground,
                       [&gallery](const PicturePointer& picture) { gallery.imgBGfull->picture = picture; });
}

void LayOutMediaSearch(Program& program) {
    MediaSearch& mediasearch = program.mediasearch;
    if (mediasearch.form.loaded) {
        SkinList(program, *mediasearch.resultlist, "mediasearch");
        SkinTextBox(program, *mediasearch.txtSearchTerm, "//mediasearch/searchtermbox/");
    }
}

/// Each number only if it is in range; else the one of the skin before stays.
void ReadNeedle(const Skinner& skinner, Gps& gps) {
    constexpr double most = 9999;
    const std::string base = "//gps/dash/needle/";
    if (const double length = ValueAt(skinner, base + "length"); length > 0 && length < most) {
        gps.speedoNeedleLength = Whole(length);
    }
    if (const double center = ValueAt(skinner, base + "center-size"); center > 0 && center < most) {
        gps.speedoNeedleCenter = Whole(center);
    }
    if (const double offset = ValueAt(skinner, base + "offset"); offset >= 0 && offset < 360) {
        gps.speedoOffset = offset;
    }
    if (const double stepping = ValueAt(skinner, base + "stepping"); stepping > 0 && stepping < most) {
        gps.speedoStepping = stepping / 1000;
    }
}

void LayOutGps(Program& program) {
    Gps& gps = program.gps;
    Skinner& skinner = program.skinner;
    if (!gps.form.loaded) {
        return;
    }
    SkinPlace place;
    if (!ReadPlace(skinner, "//gps/dash/", SizeRule::heightMayBeZero, SkinFault::dashPlaceMissing,
                   SkinFault::dashPlaceInvalid, {}, place)) {
        return;
    }
    MoveTo(*gps.picSpeedo, place);
    gps.picNeedle->width = place.width;
    gps.picNeedle->height = place.height;
    const bool decoded = ApplyPicture(skinner, "//gps/dash/background-image", SkinFault::dashBackground,
                                      [&gps](const PicturePointer& picture) { gps.picSpeedo->picture = picture; }) &&
                         ApplyPicture(skinner, "//gps/dash/needle/background-image", SkinFault::needlePicture,
                                      [&gps](const PicturePointer& picture) { gps.picNeedle->picture = picture; });
    if (decoded) {
        ReadNeedle(skinner, gps);
    }
}

/// A track with its knob, and what can be wrong with them.
struct Slider {
    const char* path;
    Control* track;
    Control* knob;
    SkinFault placeMissing;
    SkinFault placeInvalid;
    SkinFault background;
    SkinFault picture;
};

/// False if a picture can't be decoded, which ends the layout of the player.
bool LayOutSlider(Skinner& skinner, const Slider& slider) {
    const std::string base = slider.path;
    SkinPlace place;
    if (!ReadPlace(skinner, base, SizeRule::bothAboveZero, slider.placeMissing, slider.placeInvalid, {}, place)) {
        return true;
    }
    MoveTo(*slider.track, place);
    if (!ApplyPicture(skinner, base + "background-image", slider.background,
                      [&slider](const PicturePointer& picture) { slider.track->picture = picture; })) {
        return false;
    }
    const long width = RoundHalfEven(ValueAt(skinner, base + "slider-width"));
    const SkinPicture knob = skinner.FindPicture(skinner.ReadSkinValue(base + "slider-image"));
    if (width < 1 || !knob.exists) {
        slider.knob->SetTag(noKnob);
        return true;
    }
    if (knob.picture == nullptr) {
        slider.knob->SetTag(noKnob);
        skinner.ReportSkinError(slider.picture);
        return false;
    }
    slider.knob->picture = knob.picture;
    slider.knob->width = static_cast<double>(width * twipsPerPixel);
    slider.knob->height = place.height;
    slider.knob->SetTag(slider.knob->width < slider.track->width ? "" : noKnob);
    return true;
}

void LayOutVideo(Program& program) {
    MediaPlayer& mediaplayer = program.mediaplayer;
    for (Control* area : {mediaplayer.video, mediaplayer.picVis}) {
        area->left = parked;
        area->top = parked;
    }
    SkinPlace place;
    if (!ReadPlace(program.skinner, "//mediaplayer/vis/", SizeRule::bothAboveZero, SkinFault::videoPlaceMissing,
                   SkinFault::videoPlaceInvalid, {}, place)) {
        return;
    }
    mediaplayer.visposx = Whole(place.left);
    mediaplayer.visposy = Whole(place.top);
    mediaplayer.viswidth = Whole(place.width);
    mediaplayer.visheight = Whole(place.height);
    mediaplayer.picVis->backColor = mediaplayer.form.backColor;
    mediaplayer.PlaceAreas();  // the night may fall while a video fills the screen, and a cover fits its area
}

void LayOutMediaPlayer(Program& program) {
    MediaPlayer& mediaplayer = program.mediaplayer;
    if (!mediaplayer.form.loaded) {
        return;
    }
    LayOutVideo(program);
    SkinList(program, *mediaplayer.medialist, "mediaplayer");
    const Slider position{"//mediaplayer/posslider/",
                          mediaplayer.picPosition,
                          mediaplayer.picPosSlider,
                          SkinFault::positionSliderPlaceMissing,
                          SkinFault::positionSliderPlaceInvalid,
                          SkinFault::positionSliderBackground,
                          SkinFault::positionSliderKnob};
    const Slider volume{"//mediaplayer/volslider/",
                        mediaplayer.picVolume,
                        mediaplayer.picVolSlider,
                        SkinFault::volumeSliderPlaceMissing,
                        SkinFault::volumeSliderPlaceInvalid,
                        SkinFault::volumeSliderBackground,
                        SkinFault::volumeSliderKnob};
    if (LayOutSlider(program.skinner, position)) {
        (void)LayOutSlider(program.skinner, volume);
    }
}

void LayOutPlaylists(Program& program) {
    Playlists& playlists = program.playlists;
    if (playlists.form.loaded) {
        SkinList(program, *playlists.playlistlist, "playlists");
        SkinTextBox(program, *playlists.txtCurrentPlaylistName, "//playlists/namebox/");
        playlists.RefreshPlaylistList();
    }
}

void LayOutMessageBox(Program& program) {
    if (program.messagebox.form.loaded) {
        ApplySize(program.skinner, program.messagebox.form, SkinFault::messageSizeMissing,
                  SkinFault::messageSizeInvalid);
    }
}

void LayOutMainMenu(Program& program) {
    MainMenu& mainmenu = program.mainmenu;
    const Skinner& skinner = program.skinner;
    if (!mainmenu.form.loaded) {
        return;
    }
    mainmenu.userPicIsAllowed = skinner.ReadSkinValue("//mainmenu/user-pic/allow") == "yes";
    if (mainmenu.userPicIsAllowed) {
        mainmenu.userPicCenterX = Whole(ValueAt(skinner, "//mainmenu/user-pic/center-x"));
        mainmenu.userPicCenterY = Whole(ValueAt(skinner, "//mainmenu/user-pic/center-y"));
    }
    mainmenu.LoadUserPic();
}

constexpr std::array layouts{
    ModuleLayout{"phone", LayOutPhone},
    ModuleLayout{"dvdplayer", LayOutDvdPlayer},
    ModuleLayout{"externalapps", LayOutExternalApps},
    ModuleLayout{"gallery", LayOutGallery},
    ModuleLayout{"mediasearch", LayOutMediaSearch},
    ModuleLayout{"gps", LayOutGps},
    ModuleLayout{"mediaplayer", LayOutMediaPlayer},
    ModuleLayout{"playlists", LayOutPlaylists},
    ModuleLayout{"messagebox", LayOutMessageBox},
    ModuleLayout{"mainmenu", LayOutMainMenu},
};

}  // namespace

std::span<const ModuleLayout> ModuleLayouts() {
    return layouts;
}

}  // namespace zvr
