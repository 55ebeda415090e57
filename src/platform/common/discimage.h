#pragma once

#include "platform/discs.h"

#include <string>
#include <string_view>
#include <vector>

namespace zvr {

inline constexpr long sectorsASecond = 75;  ///< of sound
inline constexpr std::size_t soundSectorSize = 2352;

/// A line of a disc's table of contents.
struct TocEntry {
    long firstSector = 0;
    bool isAudio = true;
};

/// `leadOut` is the sector behind the last track. An impossible table gives tracks without a length.
[[nodiscard]] Disc DiscOfToc(const std::string& path, const std::vector<TocEntry>& entries, long leadOut);

/// What a .cue file says of the image beside it.
struct CueSheet {
    std::string image;  ///< as it is written there, empty for none
    std::vector<TocEntry> entries;
};
[[nodiscard]] CueSheet ReadCue(std::string_view text);
[[nodiscard]] std::string ImageOfCue(const std::string& path);  ///< the path of that image; empty for none

/// An image, or a drive with a disc in it, has a video_ts folder. May wait for the drive.
[[nodiscard]] bool HoldsVideo(const std::string& path);

/// Of a folder or an image file.
[[nodiscard]] Disc DiscOfPath(const std::string& path);

}  // namespace zvr
