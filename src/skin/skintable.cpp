#include "skin/skintable.h"

#include "apps/externalapps.h"
#include "apps/quickbars.h"
#include "core/language.h"
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
#include "platform/text.h"
#include "radiogps/gps.h"
#include "radiogps/radio.h"
#include "skin/placeholders.h"
#include "skin/skinreadings.h"

#include <algorithm>
#include <array>

namespace zvr {
namespace {

using E = SkinElement;
using R = const SkinReading&;
using T = SkinTarget&;

constexpr double highestRow = 10'000;  ///< pixels
constexpr int standardTitleCharacters = 10;
constexpr double parked = -1500;  ///< off the screen: the way to hide an area without ending what plays in it
constexpr std::string_view noKnob = "error";

constexpr SkinRange atLeast0{.least = 0};
constexpr SkinRange above0{.least = 0, .aboveLeast = true};
constexpr SkinRange above0Below9999{.least = 0, .most = 9999, .aboveLeast = true, .belowMost = true};

constexpr SkinValue Pixels(SkinRange range) {
    return {SkinKind::number, "pixels", range};
}
constexpr SkinValue WholePixels(SkinRange range) {
    return {SkinKind::wholeNumber, "pixels", range};
}
constexpr SkinValue points{SkinKind::number, "points", above0};
constexpr SkinValue color{SkinKind::color, "#RRGGBB"};
constexpr SkinValue image{SkinKind::image, "image file"};
constexpr SkinValue typeface{SkinKind::typeface, "typeface"};

constexpr SkinFallback required{};
constexpr SkinFallback asItWas{SkinFallback::Rule::stays, "as it was"};
constexpr SkinFallback Stays(std::string_view text) {
    return {SkinFallback::Rule::stays, text};
}
constexpr SkinFallback Counts(std::string_view text) {
    return {SkinFallback::Rule::counts, text};
}
constexpr SkinFallback black = Counts("black");

// clang-format off
void PutLeft(T t, R r) { t.control->left = Twips(r.number); }
void PutTop(T t, R r) { t.control->top = Twips(r.number); }
void PutWidth(T t, R r) { t.control->width = Twips(r.number); }
void PutHeight(T t, R r) { t.control->height = Twips(r.number); }
void PutPicture(T t, R r) { t.control->picture = r.picture; }
void PutSecondPicture(T t, R r) { t.second->picture = r.picture; }
void PutForeColor(T t, R r) { t.control->foreColor = r.color; }
void PutBackColor(T t, R r) { t.control->backColor = r.color; }
void PutFormWidth(T t, R r) { t.form.width = Twips(r.number); }
void PutFormHeight(T t, R r) { t.form.height = Twips(r.number); }
// clang-format on

void PutNormalImage(T t, R r) {
    const Size size = r.picture->PixelSize();
    t.control->normalPicture = r.picture;
    t.control->picture = r.picture;
    t.control->width = Twips(size.width);
    t.control->height = Twips(size.height);
}

void PutLabelText(T t, R r) {
    Control& label = *t.control;
    if (!r.text.starts_with("**") || !r.text.ends_with("**")) {
        label.caption = WithoutBreaks(t.program.language.languageText(r.text));
        label.SetTag("");
        return;
    }
    label.caption = std::string();
    label.SetTag(r.text);
    label.titleCharacters = standardTitleCharacters;
}

Align AlignOf(std::string_view word, Align otherwise) {
    return word == "left" ? Align::left : word == "center" ? Align::center : word == "right" ? Align::right : otherwise;
}

// clang-format off
constexpr E left{"posx", Pixels(atLeast0), required, PutLeft, "Left edge."};
constexpr E top{"posy", Pixels(atLeast0), required, PutTop, "Top edge."};

constexpr std::array generalElements{
    E{"width", Pixels({.least = 100, .aboveLeast = true}), required, nullptr, "Width of every screen that has none of its own.",
      "=GENERAL_WIDTH_NOT_SET"},
    E{"height", Pixels({.least = 100, .aboveLeast = true}), required, nullptr, "Height of the same.", "=GENERAL_HEIGHT_NOT_SET"},
    E{"background-color", color, black, nullptr, "Shows on screens without a section."},
    E{"background-image", image, Stays("none"), nullptr, "Shows on screens whose section has no picture.", "=GENERAL_BGPIC_INVALID"},
};

constexpr std::array sectionElements{
    E{"background-color", color, Counts("black, whatever `general` says"), [](T t, R r) { t.form.backColor = r.color; },
      "Behind everything."},
    E{"background-image", image, Stays("that of `general`"), [](T t, R r) { t.form.background = r.picture; },
      "In its own size, from the top left corner.", "=*_BGPIC_INVALID"},
};

constexpr std::array buttonElements{
    left, top,
    E{"command", {SkinKind::command, "a command"}, required, [](T t, R r) { t.control->SetTag(r.text); }, "What a touch does."},
    E{"normal-image", image, required, PutNormalImage, "At rest. Its size is the button's.", "=*_BTNPIC_INVALID"},
    E{"active-image", image, required, [](T t, R r) { t.control->activePicture = r.picture; }, "Under the finger.",
      "=*_BTNPIC_INVALID"},
};

constexpr std::array labelElements{
    left, top,
    E{"width", Pixels(atLeast0), required, PutWidth, "The text is cut at its end."},
    E{"height", Pixels(atLeast0), required, PutHeight, "The text is cut at its end; it begins at the top."},
    E{"text", {SkinKind::text, "text or token"}, required, PutLabelText, "What it shows. One line: blanks never break it."},
    E{"shadow-distance", {SkinKind::strictNumber, "pixels", atLeast0}, required, nullptr,
      "The shadow lies so far right and down. 0: none. **Anything but a number ends the program.**"},
    E{"shadow-color", color, Stays("no shadow"), nullptr, "Colour of the shadow."},
    E{"font-face", typeface, Stays("Arial"), nullptr, "Falls back to a similar one if the machine lacks it."},
    E{"font-size", points, Stays("12"), nullptr, "A point is 4/3 pixels on every screen."},
    E{"font-color", color, Stays("what the label had"), PutForeColor,
      "Give it always: without it the colour is that of a former skin."},
    E{"font-style", {SkinKind::letters, "letters", {}, "bius"}, Stays("none"), nullptr,
      "`b` bold, `i` italic, `u` underlined, `s` struck through, in any order."},
    E{"align", {SkinKind::word, "`left`, `center`, `right`", {}, "left center right", "left"}, Stays("center"),
      [](T t, R r) { t.control->align = AlignOf(r.text, Align::left); }, "In small letters; any other text is left."},
    E{"charcount", {SkinKind::number, "", {.least = 4, .most = 50, .aboveLeast = true}}, Stays("10"),
      [](T t, R r) { t.control->titleCharacters = static_cast<int>(RoundHalfEven(r.number)); },
      "`**MEDIATITLE**` only: visible characters of the running title."},
};

constexpr E width{"width", Pixels(above0), required, PutWidth, "Width."};
constexpr E heightAbove0{"height", Pixels(above0), required, PutHeight, "Height."};
constexpr E height{"height", Pixels(atLeast0), required, PutHeight, "Height."};
constexpr E fontFace{"font-face", typeface, asItWas, nullptr, "Typeface."};
constexpr E fontSize{"font-size", points, asItWas, nullptr, "A point is 4/3 pixels."};
constexpr E fontStyle{"font-style", {SkinKind::letters, "letters", {}, "bi"}, asItWas, nullptr, "`b` bold, `i` italic. Once set they stay."};

constexpr std::array listElements{
    left, top, width, heightAbove0, fontFace, fontSize, fontStyle,
    E{"row-height", Pixels(above0), asItWas,
      [](T t, R r) { t.look.rowHeight = static_cast<int>(RoundHalfEven(std::min(r.number, highestRow))); },
      "Height of a row; also chooses the size of the icons."},
    E{"font-color", color, black, [](T t, R r) { t.look.fore = r.color; }, "Text."},
    E{"background-color", color, black, [](T t, R r) { t.look.back = r.color; }, "Background."},
    E{"background-color-alt", color, black, [](T t, R r) { t.look.backAlternate = r.color; }, "Background of every second row."},
    E{"selection-font-color", color, black, [](T t, R r) { t.look.selectionFore = r.color; }, "Text of the selected row."},
    E{"selection-background-color", color, black, [](T t, R r) { t.look.selectionBack = r.color; }, "Background of the selected row."},
};

constexpr std::array textBoxElements{
    left, top, width, height, fontFace, fontSize, fontStyle,
    E{"align", {SkinKind::word, "`left`, `right`, `center`", {}, "left center right", "center", true}, Counts("center"),
      [](T t, R r) { t.control->align = AlignOf(text::Lower(r.text), Align::center); }, "In any case."},
    E{"font-color", color, black, PutForeColor, "Text."},
    E{"background-color", color, black, PutBackColor, "Background."},
};

constexpr std::array videoElements{left, top, width, heightAbove0};

/// `knobFault`: a slider's two pictures each have a code.
constexpr std::array<E, 7> SliderElements(std::string_view trackFault, std::string_view knobFault) {
    return {left, top, width, heightAbove0,
        E{"background-image", image, Stays("none"), PutPicture, "The track. What shows through it is black.", trackFault},
        E{"slider-width", WholePixels({.least = 1}), Stays("no knob"), nullptr, "Width of the knob, less than the track's; it is as high as the track."},
        E{"slider-image", image, Stays("no knob"), nullptr, "The knob. What shows through it is black.", knobFault, "slider-width"}};
}
constexpr std::array positionSliderElements = SliderElements("=MP_POSSLIDERBG_INVALID", "=MP_POSSLIDERPIC_INVALID");
constexpr std::array volumeSliderElements = SliderElements("=MP_VOLSLIDERBG_INVALID", "=MP_VOLSLIDERPIC_INVALID");

constexpr std::array userPictureElements{
    E{"allow", {SkinKind::word, "`yes`", {}, "yes", "no picture"}, Counts("no picture"),
      [](T t, R r) { t.program.mainmenu.userPicIsAllowed = r.text == "yes"; },
      "Exactly `yes`: the user's picture shows on this screen."},
    E{"center-x", WholePixels({}), Counts("0"),
      [](T t, R r) { t.program.mainmenu.userPicCenterX = static_cast<int>(r.number); }, "Middle of the picture.", {}, "allow"},
    E{"center-y", WholePixels({}), Counts("0"),
      [](T t, R r) { t.program.mainmenu.userPicCenterY = static_cast<int>(r.number); }, "Middle of the picture.", {}, "allow"},
};

constexpr std::array boxElements{
    E{"width", Pixels(above0), required, PutFormWidth, "Width."},
    E{"height", Pixels(atLeast0), required, PutFormHeight, "Height."},
};
constexpr std::array dockedElements{
    E{"height", WholePixels({.least = 1}), required, PutFormHeight, "Height of the bar.", "=QBDOCK_HEIGHT_NOTSET"},
};
constexpr std::array floatingElements{
    E{"width", WholePixels({.least = 1}), required, PutFormWidth, "Width of the bar.", "=QBFLOAT_WIDTH_NOTSET"},
    E{"height", WholePixels({.least = 1}), required, PutFormHeight, "Height of the bar.", "=QBFLOAT_HEIGHT_NOTSET"},
};

constexpr std::array previewElements{
    left, top, width, height,
    E{"background-color", color, black,
      [](T t, R r) {
          t.program.gallery.picBGColorPreview = r.color;
          t.control->backColor = r.color;
      }, "Background."},
    E{"background-image", image, Stays("none"),
      [](T t, R r) {
          PutSecondPicture(t, r);
          PutPicture(t, r);
      }, "Shows while there is no picture.", "=GL_PREVBG_INVALID"},
};
constexpr std::array fullscreenElements{
    E{"background-color", color, black, [](T t, R r) { t.program.gallery.picBGColorFullscreen = r.color; }, "Background."},
    E{"background-image", image, Stays("none"), PutPicture, "Shows behind the picture.", "=GL_FULLBG_INVALID"},
};

constexpr std::array areaElements{left, top, width, height};
constexpr std::array logoElements{
    E{"logo", image, Stays("none"), PutSecondPicture, "In the video's top right corner; a touch on it leads back."},
};

constexpr std::array dashElements{
    left, top, width, height,
    E{"background-image", image, Stays("none"), PutPicture, "The dial.", "=GPS_SPDBG_INVALID"},
};
constexpr std::array needleElements{
    E{"background-image", image, Stays("none"), PutPicture, "Its colours are the needle's.", "=GL_NDLBG_INVALID"},
    E{"length", {SkinKind::number, "pixels", above0Below9999}, asItWas,
      [](T t, R r) { t.program.gps.speedoNeedleLength = static_cast<int>(RoundHalfEven(r.number)); }, "From the middle of the dial."},
    E{"center-size", {SkinKind::number, "pixels", above0Below9999}, asItWas,
      [](T t, R r) { t.program.gps.speedoNeedleCenter = static_cast<int>(RoundHalfEven(r.number)); }, "The disc in the middle."},
    E{"offset", {SkinKind::number, "degrees", {.least = 0, .most = 360, .belowMost = true}}, Counts("0"),
      [](T t, R r) { t.program.gps.speedoOffset = r.number; }, "Its angle at speed 0: 0 points right, and it turns clockwise."},
    E{"stepping", {SkinKind::number, "", above0Below9999}, asItWas,
      [](T t, R r) { t.program.gps.speedoStepping = r.number / 1000; }, "Thousandths of a degree for a unit of speed."},
};
// clang-format on

int Whole(double value) {
    return static_cast<int>(RoundHalfEven(value));
}

/// The variables of `owner` that hold the area of a control in whole twips.
template <typename Owner>
void KeepPlace(const Control& area, Owner& owner, int Owner::*x, int Owner::*y, int Owner::*width, int Owner::*height) {
    owner.*x = Whole(area.left);
    owner.*y = Whole(area.top);
    owner.*width = Whole(area.width);
    owner.*height = Whole(area.height);
}

void ParkVideo(Program& program) {
    for (Control* area : {program.mediaplayer.video, program.mediaplayer.picVis}) {
        area->left = parked;
        area->top = parked;
    }
}

void PlaceVideo(T t, const SkinReadings&, bool placed) {
    MediaPlayer& player = t.program.mediaplayer;
    if (placed) {
        KeepPlace(*t.control, player, &MediaPlayer::visposx, &MediaPlayer::visposy, &MediaPlayer::viswidth,
                  &MediaPlayer::visheight);
        player.picVis->backColor = player.form.backColor;
        player.PlaceAreas();  // the night may fall while a video fills the screen, and a cover fits its area
    }
}

void FitKnob(T t, const SkinReadings& readings, bool placed) {
    if (!placed || readings["background-image"].state == SkinReading::State::noPicture) {
        return;  // which ended the layout there
    }
    const SkinReading& image = readings["slider-image"];
    if (image.counts) {
        t.second->picture = image.picture;
        t.second->width = Twips(readings["slider-width"].number);
        t.second->height = t.control->height;
    }
    t.second->SetTag(image.counts && t.second->width < t.control->width ? "" : noKnob);
}

void PlaceDvd(T t, const SkinReadings&, bool placed) {
    if (placed) {
        KeepPlace(*t.control, t.program.dvdplayer, &DvdPlayer::dvdposx, &DvdPlayer::dvdposy, &DvdPlayer::dvdwidth,
                  &DvdPlayer::dvdheight);
    }
}

/// The mark in the corner of the video that brings the driver back from it. Never worth a message.
void PlaceLogo(T t, const SkinReadings& readings, bool) {
    DvdPlayer& player = t.program.dvdplayer;
    const PicturePointer& logo = readings["logo"].picture;
    player.dvdclickcatcher->visible = logo != nullptr;
    if (logo != nullptr) {
        const Size size = logo->PixelSize();
        const double width = Twips(size.width);
        player.dvdclickcatcher->Move(player.dvd->left + player.dvd->width - width, player.dvd->top, width,
                                     Twips(size.height));
        t.form.BringToFront(*player.dvdclickcatcher);
        t.form.BringToFront(*player.dvdclickcatcherimg);
    }
    player.AreasChanged();  // the night may fall while a film fills the screen
}

void PlacePreview(T t, const SkinReadings&, bool placed) {
    if (placed) {
        KeepPlace(*t.control, t.program.gallery, &Gallery::picposx, &Gallery::picposy, &Gallery::picwidth,
                  &Gallery::picheight);
    }
}

void FitDash(T t, const SkinReadings&, bool placed) {
    if (placed) {
        t.program.gps.FitDash();
    }
}

// clang-format off
constexpr std::array<std::string_view, 3> messageBoxCommands{"messagebox.ok", "messagebox.yes", "messagebox.no"};
constexpr std::array<std::string_view, 1> smsBoxNeeds{"smsbox.close"};
constexpr std::array<std::string_view, 3> smsBoxCommands{"smsbox.send", "smsbox.close", "externalapps.onscreenkeyboard"};

constexpr std::array forms{
    SkinFormRow{"radio", "radio", [](Program& p) -> Form& { return p.radio.form; }, {}, {}, true, "the radio; has nothing but background, buttons and labels"},
    SkinFormRow{"mediasearch", "mediasearch", [](Program& p) -> Form& { return p.mediasearch.form; }, {}, {}, true, "the media search"},
    SkinFormRow{"dvdplayer", "dvdplayer", [](Program& p) -> Form& { return p.dvdplayer.form; }, {}, {}, true, "the DVD player"},
    SkinFormRow{"gallery", "gallery", [](Program& p) -> Form& { return p.gallery.form; }, {}, {}, true, "the pictures"},
    SkinFormRow{"gps", "gps", [](Program& p) -> Form& { return p.gps.form; }, {}, {}, true, "position and speed"},
    SkinFormRow{"phone", "phone", [](Program& p) -> Form& { return p.phone.form; }, {}, {}, true, "the phone"},
    SkinFormRow{"smsbox", "phone", [](Program& p) -> Form& { return p.smsbox.form; }, smsBoxCommands, smsBoxNeeds, false, "the box in which a message is written"},
    SkinFormRow{"externalapps", "externalapps", [](Program& p) -> Form& { return p.externalapps.form; }, {}, {}, true, "the list of other programs"},
    SkinFormRow{"quickbardocked", "externalapps", [](Program& p) -> Form& { return p.quickbars.docked; }, {}, {}, true, "the bar beside another program, as wide as the screen"},
    SkinFormRow{"quickbarfloating", "externalapps", [](Program& p) -> Form& { return p.quickbars.floating; }, {}, {}, true, "the bar above another program"},
    SkinFormRow{"mediaplayer", "mediaplayer", [](Program& p) -> Form& { return p.mediaplayer.form; }, {}, {}, true, "the media player"},
    SkinFormRow{"playlists", "playlists", [](Program& p) -> Form& { return p.playlists.form; }, {}, {}, true, "the playlists"},
    SkinFormRow{"messagebox", "messagebox", [](Program& p) -> Form& { return p.messagebox.form; }, messageBoxCommands, messageBoxCommands, false, "the box for messages and questions"},
    SkinFormRow{"mainmenu", "mainmenu", [](Program& p) -> Form& { return p.mainmenu.form; }, {}, {}, false, "the main menu, the first screen"},
};

using Find = void (*)(SkinTarget&);
using After = void (*)(SkinTarget&, const SkinReadings&, bool);

constexpr SkinPart List(std::string_view form, std::string_view path, Find find, std::string_view meaning) {
    return {form, path, "Lists", meaning, listElements, SkinArea::touched,
            "=*_LISTPOSITION_NOTSET", "=*_LISTPOSITION_INVALID", form, find};
}
/// `control` is the name that stands in the code.
constexpr SkinPart Box(std::string_view form, std::string_view path, std::string_view control, Find find,
                       std::string_view meaning, After after = nullptr) {
    return {form, path, "Text boxes", meaning, textBoxElements, SkinArea::touched,
            "=TXTBOX_*_NOTSET", "=TXTBOX_*_INVALID", control, find, nullptr, after};
}

constexpr SkinPart generalPart{"general", "", "`general`", "of all screens", generalElements};
constexpr SkinPart sectionPart{"", "", "Every screen's section", "by the screen's name", sectionElements};
constexpr SkinPart buttonPart{"", "buttons/ANY-NAME", "Buttons", "in the order of the file, the last one on top", buttonElements};
constexpr SkinPart labelPart{"", "labels/ANY-NAME", "Labels", "over the buttons", labelElements};

constexpr std::array parts{
    List("phone", "phonebooklist", [](T t) { t.control = t.program.phone.phonebooklist; }, "the phone book"),
    Box("phone", "numberbox", "numberbox", [](T t) { t.control = t.program.phone.numberbox; }, "the number to dial"),
    SkinPart{"smsbox", "", "Sizes of the boxes", "it opens in the middle of the screen", boxElements, SkinArea::box,
             "=SMS_SIZE_NOTSET", "=SMS_SIZE_INVALID"},
    Box("smsbox", "smsnumberbox", "smsnumberbox", [](T t) { t.control = t.program.smsbox.smsnumberbox; },
        "the number that the message goes to"),
    Box("smsbox", "smstextbox", "smstextbox", [](T t) { t.control = t.program.smsbox.smstextbox; }, "the message"),

    SkinPart{"dvdplayer", "dvdcontent", "", "area of the video", areaElements, SkinArea::covers,
             "=DVD_POS_NOTSET", "=DVD_POS_INVALID", {}, [](T t) { t.control = t.program.dvdplayer.dvd; }, nullptr, PlaceDvd},
    // By itself: the mark shows also where the area's place is at fault.
    SkinPart{"dvdplayer", "dvdcontent", "", "and its mark", logoElements, SkinArea::none, {}, {}, {},
             [](T t) { t.second = t.program.dvdplayer.dvdclickcatcherimg; }, nullptr, PlaceLogo},

    List("externalapps", "applist", [](T t) { t.control = t.program.externalapps.applist; }, "list of programs"),
    SkinPart{"quickbardocked", "", "", "height of the bar", dockedElements, SkinArea::box},
    SkinPart{"quickbarfloating", "", "", "size of the bar", floatingElements, SkinArea::box},

    List("gallery", "imglist", [](T t) { t.control = t.program.gallery.imglist; }, "list of pictures"),
    SkinPart{"gallery", "imgdisplay/preview", "", "area of the picture", previewElements, SkinArea::covers,
             "=GL_PREVPOS_NOTSET", "=GL_PREVIEWPOS_INVALID", {},
             [](T t) { t.control = t.program.gallery.picImage; t.second = t.program.gallery.imgBGprev; },
             nullptr, PlacePreview, true},
    SkinPart{"gallery", "imgdisplay/fullscreen", "", "the picture on the whole screen", fullscreenElements, SkinArea::none,
             {}, {}, {}, [](T t) { t.control = t.program.gallery.imgBGfull; }, nullptr,
             [](T t, const SkinReadings&, bool) { t.program.gallery.AreasChanged(); }},

    List("mediasearch", "resultlist", [](T t) { t.control = t.program.mediasearch.resultlist; }, "what was found"),
    Box("mediasearch", "searchtermbox", "txtSearchTerm", [](T t) { t.control = t.program.mediasearch.txtSearchTerm; },
        "what is looked for", [](T t, const SkinReadings&, bool) { t.program.mediasearch.tmrCheckIndex.Start(); }),

    SkinPart{"gps", "dash", "", "the speedometer", dashElements, SkinArea::covers,
             "=GPS_SPD_SIZE_NOTSET", "=GPS_SPD_SIZE_INVALID", {}, [](T t) { t.control = t.program.gps.picSpeedo[0]; },
             nullptr, FitDash, true},
    SkinPart{"gps", "dash/needle", "", "its needle", needleElements, SkinArea::none, {}, {}, {},
             [](T t) { t.control = t.program.gps.picNeedle; }, nullptr,
             [](T t, const SkinReadings&, bool) { t.program.gps.DrawDash(); }},

    SkinPart{"mediaplayer", "vis", "", "area of video and cover", videoElements, SkinArea::covers,
             "=WMP_POS_NOTSET", "=WMP_POS_INVALID", {}, [](T t) { t.control = t.program.mediaplayer.video; },
             ParkVideo, PlaceVideo},
    List("mediaplayer", "medialist", [](T t) { t.control = t.program.mediaplayer.medialist; }, "list of media"),
    SkinPart{"mediaplayer", "posslider", "Sliders", "where it plays", positionSliderElements, SkinArea::touched,
             "=MP_POSSLIDERPOS_NOTSET", "=MP_POSSLIDERPOS_INVALID", {},
             [](T t) { t.control = t.program.mediaplayer.picPosition; t.second = t.program.mediaplayer.picPosSlider; },
             nullptr, FitKnob},
    SkinPart{"mediaplayer", "volslider", "Sliders", "how loud", volumeSliderElements, SkinArea::touched,
             "=MP_VOLSLIDERPOS_NOTSET", "=MP_VOLSLIDERPOS_INVALID", {},
             [](T t) { t.control = t.program.mediaplayer.picVolume; t.second = t.program.mediaplayer.picVolSlider; },
             nullptr, FitKnob},

    List("playlists", "playlistlist", [](T t) { t.control = t.program.playlists.playlistlist; }, "list of playlists"),
    Box("playlists", "namebox", "txtCurrentPlaylistName",
        [](T t) { t.control = t.program.playlists.txtCurrentPlaylistName; }, "name of a playlist",
        [](T t, const SkinReadings&, bool) { t.program.playlists.RefreshPlaylistList(); }),

    SkinPart{"messagebox", "", "Sizes of the boxes", "it opens in the middle of the screen", boxElements, SkinArea::box,
             "=MSG_SIZE_NOTSET", "=MSG_SIZE_INVALID"},
    SkinPart{"mainmenu", "user-pic", "", "the user's picture", userPictureElements, SkinArea::none, {}, {}, {}, nullptr,
             nullptr, [](T t, const SkinReadings&, bool) { t.program.mainmenu.LoadUserPic(); }},
};
// clang-format on

}  // namespace

bool SkinFormRow::Takes(std::string_view command) const {
    return commands.empty() || std::find(commands.begin(), commands.end(), command) != commands.end();
}

std::span<const SkinFormRow> SkinForms() {
    return forms;
}

const SkinFormRow* FindSkinForm(std::string_view name) {
    const auto row = std::find_if(forms.begin(), forms.end(), [name](const auto& form) { return form.name == name; });
    return row == forms.end() ? nullptr : &*row;
}

const SkinPart& GeneralPart() {
    return generalPart;
}

const SkinPart& SectionPart() {
    return sectionPart;
}

const SkinPart& ButtonPart() {
    return buttonPart;
}

const SkinPart& LabelPart() {
    return labelPart;
}

std::span<const SkinPart> SkinParts() {
    return parts;
}

}  // namespace zvr
