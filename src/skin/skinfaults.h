#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace zvr {

/// What can be wrong with a skin that reads well but can't be applied.
enum class SkinFault {
    generalWidth,
    generalHeight,
    generalBackground,
    formBackground,
    buttonPicture,
    listPlaceMissing,
    listPlaceInvalid,
    textBoxPlaceMissing,
    textBoxPlaceInvalid,
    videoPlaceMissing,
    videoPlaceInvalid,
    positionSliderPlaceMissing,
    positionSliderPlaceInvalid,
    positionSliderBackground,
    positionSliderKnob,
    volumeSliderPlaceMissing,
    volumeSliderPlaceInvalid,
    volumeSliderBackground,
    volumeSliderKnob,
    previewPlaceMissing,
    previewPlaceInvalid,
    previewBackground,
    fullscreenBackground,
    dvdPlaceMissing,
    dvdPlaceInvalid,
    dockedHeight,
    floatingWidth,
    floatingHeight,
    smsSizeMissing,
    smsSizeInvalid,
    dashPlaceMissing,
    dashPlaceInvalid,
    dashBackground,
    needlePicture,
    messageSizeMissing,
    messageSizeInvalid,
};

struct SkinFaultRow {
    SkinFault fault;
    std::string_view code;     ///< as the user reads it; '*' stands for a name in capitals
    std::string_view meaning;  ///< for skin authors
};

// clang-format off
inline constexpr std::array skinFaults{
    SkinFaultRow{SkinFault::generalWidth, "=GENERAL_WIDTH_NOT_SET", "general/width is missing or not above 100"},
    SkinFaultRow{SkinFault::generalHeight, "=GENERAL_HEIGHT_NOT_SET", "general/height is missing or not above 100"},
    SkinFaultRow{SkinFault::generalBackground, "=GENERAL_BGPIC_INVALID", "general/background-image is no picture"},
    SkinFaultRow{SkinFault::formBackground, "=*_BGPIC_INVALID", "the background-image of the screen * is no picture"},
    SkinFaultRow{SkinFault::buttonPicture, "=*_BTNPIC_INVALID", "an image of a button of the screen * is no picture"},
    SkinFaultRow{SkinFault::listPlaceMissing, "=*_LISTPOSITION_NOTSET",
                 "the list of * lacks posx, posy, width or height"},
    SkinFaultRow{SkinFault::listPlaceInvalid, "=*_LISTPOSITION_INVALID",
                 "the list of * has a negative position or a size that is not above 0"},
    SkinFaultRow{SkinFault::textBoxPlaceMissing, "=TXTBOX_*_NOTSET",
                 "the text box * lacks posx, posy, width or height"},
    SkinFaultRow{SkinFault::textBoxPlaceInvalid, "=TXTBOX_*_INVALID",
                 "the text box * has a negative position or height, or a width that is not above 0"},
    SkinFaultRow{SkinFault::videoPlaceMissing, "=WMP_POS_NOTSET", "mediaplayer/vis lacks posx, posy, width or height"},
    SkinFaultRow{SkinFault::videoPlaceInvalid, "=WMP_POS_INVALID",
                 "mediaplayer/vis has a negative position or a size that is not above 0"},
    SkinFaultRow{SkinFault::positionSliderPlaceMissing, "=MP_POSSLIDERPOS_NOTSET",
                 "mediaplayer/posslider lacks posx, posy, width or height"},
    SkinFaultRow{SkinFault::positionSliderPlaceInvalid, "=MP_POSSLIDERPOS_INVALID",
                 "mediaplayer/posslider has a negative position or a size that is not above 0"},
    SkinFaultRow{SkinFault::positionSliderBackground, "=MP_POSSLIDERBG_INVALID",
                 "mediaplayer/posslider/background-image is no picture"},
    SkinFaultRow{SkinFault::positionSliderKnob, "=MP_POSSLIDERPIC_INVALID",
                 "mediaplayer/posslider/slider-image is no picture"},
    SkinFaultRow{SkinFault::volumeSliderPlaceMissing, "=MP_VOLSLIDERPOS_NOTSET",
                 "mediaplayer/volslider lacks posx, posy, width or height"},
    SkinFaultRow{SkinFault::volumeSliderPlaceInvalid, "=MP_VOLSLIDERPOS_INVALID",
                 "mediaplayer/volslider has a negative position or a size that is not above 0"},
    SkinFaultRow{SkinFault::volumeSliderBackground, "=MP_VOLSLIDERBG_INVALID",
                 "mediaplayer/volslider/background-image is no picture"},
    SkinFaultRow{SkinFault::volumeSliderKnob, "=MP_VOLSLIDERPIC_INVALID",
                 "mediaplayer/volslider/slider-image is no picture"},
    SkinFaultRow{SkinFault::previewPlaceMissing, "=GL_PREVPOS_NOTSET",
                 "gallery/imgdisplay/preview lacks posx, posy, width or height"},
    SkinFaultRow{SkinFault::previewPlaceInvalid, "=GL_PREVIEWPOS_INVALID",
                 "gallery/imgdisplay/preview has a negative position or height, or a width that is not above 0"},
    SkinFaultRow{SkinFault::previewBackground, "=GL_PREVBG_INVALID",
                 "gallery/imgdisplay/preview/background-image is no picture"},
    SkinFaultRow{SkinFault::fullscreenBackground, "=GL_FULLBG_INVALID",
                 "gallery/imgdisplay/fullscreen/background-image is no picture"},
    SkinFaultRow{SkinFault::dvdPlaceMissing, "=DVD_POS_NOTSET",
                 "dvdplayer/dvdcontent lacks posx, posy, width or height"},
    SkinFaultRow{SkinFault::dvdPlaceInvalid, "=DVD_POS_INVALID",
                 "dvdplayer/dvdcontent has a negative position or height, or a width that is not above 0"},
    SkinFaultRow{SkinFault::dockedHeight, "=QBDOCK_HEIGHT_NOTSET", "quickbardocked/height is missing or below 1"},
    SkinFaultRow{SkinFault::floatingWidth, "=QBFLOAT_WIDTH_NOTSET", "quickbarfloating/width is missing or below 1"},
    SkinFaultRow{SkinFault::floatingHeight, "=QBFLOAT_HEIGHT_NOTSET", "quickbarfloating/height is missing or below 1"},
    SkinFaultRow{SkinFault::smsSizeMissing, "=SMS_SIZE_NOTSET", "smsbox lacks width or height"},
    SkinFaultRow{SkinFault::smsSizeInvalid, "=SMS_SIZE_INVALID",
                 "smsbox has a width that is not above 0 or a negative height"},
    SkinFaultRow{SkinFault::dashPlaceMissing, "=GPS_SPD_SIZE_NOTSET", "gps/dash lacks posx, posy, width or height"},
    SkinFaultRow{SkinFault::dashPlaceInvalid, "=GPS_SPD_SIZE_INVALID",
                 "gps/dash has a negative position or height, or a width that is not above 0"},
    SkinFaultRow{SkinFault::dashBackground, "=GPS_SPDBG_INVALID", "gps/dash/background-image is no picture"},
    SkinFaultRow{SkinFault::needlePicture, "=GL_NDLBG_INVALID", "gps/dash/needle/background-image is no picture"},
    SkinFaultRow{SkinFault::messageSizeMissing, "=MSG_SIZE_NOTSET", "messagebox lacks width or height"},
    SkinFaultRow{SkinFault::messageSizeInvalid, "=MSG_SIZE_INVALID",
                 "messagebox has a width that is not above 0 or a negative height"},
};
// clang-format on

inline constexpr bool SkinFaultsAreInOrder() {
    for (std::size_t i = 0; i < skinFaults.size(); ++i) {
        if (static_cast<std::size_t>(skinFaults[i].fault) != i) {
            return false;
        }
    }
    return static_cast<std::size_t>(SkinFault::messageSizeInvalid) + 1 == skinFaults.size();
}
static_assert(SkinFaultsAreInOrder());

/// The code of a fault, `name` (of a screen, module or text box, in ASCII) put in for the star.
[[nodiscard]] inline std::string SkinFaultCode(SkinFault fault, std::string_view name = {}) {
    std::string code(skinFaults[static_cast<std::size_t>(fault)].code);
    if (const auto star = code.find('*'); star != std::string::npos) {
        std::string capitals(name);
        std::transform(capitals.begin(), capitals.end(), capitals.begin(),
                       [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
        code.replace(star, 1, capitals);
    }
    return code;
}

}  // namespace zvr
