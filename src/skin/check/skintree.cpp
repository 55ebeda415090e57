#include "skin/check/skintree.h"

#include <array>

namespace zvr {
namespace {

using Row = SkinElementRow;
using V = SkinValue;

// clang-format off
constexpr std::array formRows{
    SkinFormRow{"mainmenu", "the main menu, the first screen"},
    SkinFormRow{"mediaplayer", "the media player"},
    SkinFormRow{"playlists", "the playlists"},
    SkinFormRow{"mediasearch", "the media search"},
    SkinFormRow{"gallery", "the pictures"},
    SkinFormRow{"dvdplayer", "the DVD player"},
    SkinFormRow{"radio", "the radio; has nothing but background, buttons and labels"},
    SkinFormRow{"phone", "the phone"},
    SkinFormRow{"smsbox", "the box in which a message is written"},
    SkinFormRow{"gps", "position and speed"},
    SkinFormRow{"externalapps", "the list of other programs"},
    SkinFormRow{"quickbardocked", "the bar beside another program, as wide as the screen"},
    SkinFormRow{"quickbarfloating", "the bar above another program"},
    SkinFormRow{"messagebox", "the box for messages and questions"},
};

constexpr std::array generalRows{
    Row{"width", V::number, true, "pixels, above 100", "", "Width of every screen that has none of its own."},
    Row{"height", V::number, true, "pixels, above 100", "", "Height of the same."},
    Row{"background-color", V::color, false, "#RRGGBB", "black", "Shows on screens without a section."},
    Row{"background-image", V::image, false, "image file", "none", "Shows on screens whose section has no picture."},
};

constexpr std::array sectionRows{
    Row{"background-color", V::color, false, "#RRGGBB", "black, whatever `general` says", "Behind everything."},
    Row{"background-image", V::image, false, "image file", "that of `general`", "In its own size, from the top left corner."},
};

constexpr std::array buttonRows{
    Row{"posx", V::number, true, "pixels, at least 0", "", "Left edge on the screen."},
    Row{"posy", V::number, true, "pixels, at least 0", "", "Top edge on the screen."},
    Row{"command", V::command, true, "a command", "", "What a touch does."},
    Row{"normal-image", V::image, true, "image file", "", "At rest. Its size is the button's."},
    Row{"active-image", V::image, true, "image file", "", "Under the finger."},
};

constexpr std::array labelRows{
    Row{"posx", V::number, true, "pixels, at least 0", "", "Left edge on the screen."},
    Row{"posy", V::number, true, "pixels, at least 0", "", "Top edge on the screen."},
    Row{"width", V::number, true, "pixels, at least 0", "", "The text is cut at its end."},
    Row{"height", V::number, true, "pixels, at least 0", "", "The text is cut at its end; it begins at the top."},
    Row{"text", V::text, true, "text or token", "", "What it shows. One line: blanks never break it."},
    Row{"shadow-distance", V::strictNumber, true, "pixels, at least 0", "", "The shadow lies so far right and down. 0: none. **Anything but a number ends the program.**"},
    Row{"shadow-color", V::color, false, "#RRGGBB", "no shadow", "Colour of the shadow."},
    Row{"font-face", V::text, false, "typeface", "Arial", "Falls back to a similar one if the machine lacks it."},
    Row{"font-size", V::number, false, "points, of 96 dots an inch", "12", "A point is 4/3 pixels on every screen."},
    Row{"font-color", V::color, false, "#RRGGBB", "what the label had", "Give it always: without it the colour is that of a former skin."},
    Row{"font-style", V::text, false, "letters", "none", "`b` bold, `i` italic, `u` underlined, `s` struck through, in any order."},
    Row{"align", V::text, false, "`left`, `center`, `right`", "center", "In small letters; any other text is left."},
    Row{"charcount", V::number, false, "above 4, at most 50", "10", "`**MEDIATITLE**` only: visible characters of the running title."},
};

constexpr Row listPosx{"posx", V::number, true, "pixels, at least 0", "", "Left edge."};
constexpr Row listPosy{"posy", V::number, true, "pixels, at least 0", "", "Top edge."};
constexpr Row widthAbove{"width", V::number, true, "pixels, above 0", "", "Width."};
constexpr Row heightAbove{"height", V::number, true, "pixels, above 0", "", "Height."};
constexpr Row heightZero{"height", V::number, true, "pixels, at least 0", "", "Height."};
constexpr Row fontFace{"font-face", V::text, false, "typeface", "as it was", "Typeface."};
constexpr Row fontSize{"font-size", V::number, false, "points, above 0", "as it was", "A point is 4/3 pixels."};
constexpr Row fontStyle{"font-style", V::text, false, "letters", "as it was", "`b` bold, `i` italic. Once set they stay."};
constexpr Row fontColor{"font-color", V::color, false, "#RRGGBB", "black", "Text."};
constexpr Row backColor{"background-color", V::color, false, "#RRGGBB", "black", "Background."};

constexpr std::array listRows{
    listPosx, listPosy, widthAbove, heightAbove, fontFace, fontSize, fontStyle,
    Row{"row-height", V::number, false, "pixels, above 0", "as it was", "Height of a row; also chooses the size of the icons."},
    fontColor, backColor,
    Row{"background-color-alt", V::color, false, "#RRGGBB", "black", "Background of every second row."},
    Row{"selection-font-color", V::color, false, "#RRGGBB", "black", "Text of the selected row."},
    Row{"selection-background-color", V::color, false, "#RRGGBB", "black", "Background of the selected row."},
};

constexpr std::array textBoxRows{
    listPosx, listPosy, widthAbove, heightZero, fontFace, fontSize, fontStyle,
    Row{"align", V::text, false, "`left`, `right`, `center`", "center", "In any case."},
    fontColor, backColor,
};

constexpr std::array videoRows{listPosx, listPosy, widthAbove, heightAbove};

constexpr std::array sliderRows{
    listPosx, listPosy, widthAbove, heightAbove,
    Row{"background-image", V::image, false, "image file", "none", "The track."},
    Row{"slider-image", V::image, false, "image file", "no knob", "The knob."},
    Row{"slider-width", V::number, false, "pixels, at least 1, below the track's", "no knob", "Width of the knob; it is as high as the track."},
};

constexpr std::array userPictureRows{
    Row{"allow", V::text, false, "`yes`", "no picture", "Exactly `yes`: the user's picture shows on this screen."},
    Row{"center-x", V::number, false, "pixels", "0", "Middle of the picture."},
    Row{"center-y", V::number, false, "pixels", "0", "Middle of the picture."},
};

constexpr std::array boxRows{widthAbove, heightZero};
constexpr std::array dockedRows{Row{"height", V::number, true, "pixels, at least 1", "", "Height of the bar."}};
constexpr std::array floatingRows{
    Row{"width", V::number, true, "pixels, at least 1", "", "Width of the bar."},
    Row{"height", V::number, true, "pixels, at least 1", "", "Height of the bar."},
};

constexpr std::array previewRows{
    listPosx, listPosy, widthAbove, heightZero, backColor,
    Row{"background-image", V::image, false, "image file", "none", "Shows while there is no picture."},
};
constexpr std::array fullscreenRows{
    backColor,
    Row{"background-image", V::image, false, "image file", "none", "Shows behind the picture."},
};

constexpr std::array dvdRows{
    listPosx, listPosy, widthAbove, heightZero,
    Row{"logo", V::image, false, "image file", "none", "In the video's top right corner; a touch on it leads back."},
};

constexpr std::array dashRows{
    listPosx, listPosy, widthAbove, heightZero,
    Row{"background-image", V::image, false, "image file", "none", "The dial."},
};
constexpr std::array needleRows{
    Row{"background-image", V::image, false, "image file", "none", "Its colours are the needle's."},
    Row{"length", V::number, false, "pixels, above 0, below 9999", "as it was", "From the middle of the dial."},
    Row{"center-size", V::number, false, "pixels, above 0, below 9999", "as it was", "The disc in the middle."},
    Row{"offset", V::number, false, "degrees, at least 0, below 360", "as it was", "Its angle at speed 0: 0 points right, and it turns clockwise."},
    Row{"stepping", V::number, false, "above 0, below 9999", "as it was", "Thousandths of a degree for a unit of speed."},
};

constexpr std::array positionSliderPictures{SkinPictureFault{"background-image", SkinFault::positionSliderBackground},
                                            SkinPictureFault{"slider-image", SkinFault::positionSliderKnob}};
constexpr std::array volumeSliderPictures{SkinPictureFault{"background-image", SkinFault::volumeSliderBackground},
                                          SkinPictureFault{"slider-image", SkinFault::volumeSliderKnob}};
constexpr std::array previewPictures{SkinPictureFault{"background-image", SkinFault::previewBackground}};
constexpr std::array fullscreenPictures{SkinPictureFault{"background-image", SkinFault::fullscreenBackground}};
constexpr std::array dashPictures{SkinPictureFault{"background-image", SkinFault::dashBackground}};
constexpr std::array needlePictures{SkinPictureFault{"background-image", SkinFault::needlePicture}};
// clang-format on

constexpr SkinPart List(std::string_view form, std::string_view name, std::string_view meaning) {
    return {form,
            name,
            meaning,
            listRows,
            SkinPlaceRule::bothAboveZero,
            SkinFault::listPlaceMissing,
            SkinFault::listPlaceInvalid,
            form,
            {},
            true};
}

/// `control` is the name that stands in the code.
constexpr SkinPart Box(std::string_view form, std::string_view name, std::string_view control,
                       std::string_view meaning) {
    return {form,
            name,
            meaning,
            textBoxRows,
            SkinPlaceRule::heightMayBeZero,
            SkinFault::textBoxPlaceMissing,
            SkinFault::textBoxPlaceInvalid,
            control,
            {},
            true};
}

constexpr std::array parts{
    SkinPart{"mainmenu", "user-pic", "the user's picture", userPictureRows},
    SkinPart{"mediaplayer", "vis", "area of video and cover", videoRows, SkinPlaceRule::bothAboveZero,
             SkinFault::videoPlaceMissing, SkinFault::videoPlaceInvalid},
    List("mediaplayer", "medialist", "list of media"),
    SkinPart{"mediaplayer",
             "posslider",
             "slider of the position",
             sliderRows,
             SkinPlaceRule::bothAboveZero,
             SkinFault::positionSliderPlaceMissing,
             SkinFault::positionSliderPlaceInvalid,
             {},
             positionSliderPictures,
             true},
    SkinPart{"mediaplayer",
             "volslider",
             "slider of the volume",
             sliderRows,
             SkinPlaceRule::bothAboveZero,
             SkinFault::volumeSliderPlaceMissing,
             SkinFault::volumeSliderPlaceInvalid,
             {},
             volumeSliderPictures,
             true},
    List("playlists", "playlistlist", "list of playlists"),
    Box("playlists", "namebox", "txtCurrentPlaylistName", "name of a playlist"),
    List("mediasearch", "resultlist", "what was found"),
    Box("mediasearch", "searchtermbox", "txtSearchTerm", "what is looked for"),
    List("gallery", "imglist", "list of pictures"),
    SkinPart{"gallery",
             "imgdisplay/preview",
             "area of the picture",
             previewRows,
             SkinPlaceRule::heightMayBeZero,
             SkinFault::previewPlaceMissing,
             SkinFault::previewPlaceInvalid,
             {},
             previewPictures},
    SkinPart{"gallery",
             "imgdisplay/fullscreen",
             "the picture on the whole screen",
             fullscreenRows,
             SkinPlaceRule::none,
             {},
             {},
             {},
             fullscreenPictures},
    SkinPart{"dvdplayer", "dvdcontent", "area of the video", dvdRows, SkinPlaceRule::heightMayBeZero,
             SkinFault::dvdPlaceMissing, SkinFault::dvdPlaceInvalid},
    List("phone", "phonebooklist", "the phone book"),
    Box("phone", "numberbox", "numberbox", "the number to dial"),
    SkinPart{"smsbox", "", "size of the box; it opens in the middle of the screen", boxRows, SkinPlaceRule::sizeAlone,
             SkinFault::smsSizeMissing, SkinFault::smsSizeInvalid},
    Box("smsbox", "smsnumberbox", "smsnumberbox", "the number that the message goes to"),
    Box("smsbox", "smstextbox", "smstextbox", "the message"),
    SkinPart{"gps",
             "dash",
             "the speedometer",
             dashRows,
             SkinPlaceRule::heightMayBeZero,
             SkinFault::dashPlaceMissing,
             SkinFault::dashPlaceInvalid,
             {},
             dashPictures},
    SkinPart{"gps", "dash/needle", "its needle", needleRows, SkinPlaceRule::none, {}, {}, {}, needlePictures},
    List("externalapps", "applist", "list of programs"),
    SkinPart{"quickbardocked", "", "height of the bar", dockedRows},
    SkinPart{"quickbarfloating", "", "size of the bar", floatingRows},
    SkinPart{"messagebox", "", "size of the box; it opens in the middle of the screen", boxRows,
             SkinPlaceRule::sizeAlone, SkinFault::messageSizeMissing, SkinFault::messageSizeInvalid},
};

}  // namespace

std::span<const SkinFormRow> SkinForms() {
    return formRows;
}

std::span<const SkinElementRow> GeneralRows() {
    return generalRows;
}

std::span<const SkinElementRow> FormRows() {
    return sectionRows;
}

std::span<const SkinElementRow> ButtonRows() {
    return buttonRows;
}

std::span<const SkinElementRow> LabelRows() {
    return labelRows;
}

std::span<const SkinPart> SkinParts() {
    return parts;
}

}  // namespace zvr
