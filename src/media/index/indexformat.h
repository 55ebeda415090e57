#pragma once

#include <cstddef>
#include <string_view>

namespace zvr {

// The media index, a file: the magic, a line of entries, a line of folders. A line ends in a carriage return and a line
// feed, so no name may hold these two together. An entry is the name of a file or folder, a zero byte, and the number
// of its folder in the list of folders in decimal digits; a folder ends in the separator of paths.
inline constexpr std::string_view indexMagic = "ZVRIDX100";
inline constexpr std::string_view indexLineEnd = "\r\n";
inline constexpr std::string_view indexSeparator{"\0\0", 2};  ///< between entries, and between folders
/// A folder's number is read into 16 bits.
inline constexpr std::size_t mostIndexFolders = 32767;
inline constexpr std::string_view indexFileName = "zvrmedia.dat";

}  // namespace zvr
