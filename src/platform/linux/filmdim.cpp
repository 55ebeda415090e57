#include "platform/linux/filmdim.h"

#include "platform/linux/enginelibrary.h"

namespace zvr {

void DimFilm(const EngineLibrary& vlc, libvlc_media_player_t* player, double share) {
    // The engine turns contrast about the middle of 0 to 255, and a film's black is 16.
    constexpr double levels = 255;
    constexpr double middle = 128;
    constexpr double black = 16;
    const double kept = 1 - share;
    vlc.libvlc_video_set_adjust_float(player, libvlc_adjust_Contrast, static_cast<float>(kept));
    vlc.libvlc_video_set_adjust_float(player, libvlc_adjust_Saturation, static_cast<float>(kept));
    vlc.libvlc_video_set_adjust_float(player, libvlc_adjust_Brightness,
                                      static_cast<float>(1 + (black * share + levels / 2 * kept - middle) / levels));
    vlc.libvlc_video_set_adjust_int(player, libvlc_adjust_Enable, share > 0 ? 1 : 0);
}

}  // namespace zvr
