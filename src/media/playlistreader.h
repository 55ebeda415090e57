#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// The entries of a playlist file in order, as they are to be opened: addresses as they are (of "file://" ones the
/// path), paths of their own as written, relative ones behind the playlist's folder. `path` names the file and by its
/// extension the format: ".pls", else one entry a line with "#" comments. Any bytes will do.
[[nodiscard]] std::vector<std::string> ReadPlaylist(std::string_view content, const std::string& path);

/// One entry of a playlist in that folder (with trailing separator), as it is to be opened.
[[nodiscard]] std::string PlaylistEntryAddress(std::string_view entry, const std::string& folder);

/// A line of a playlist in that folder. One that isn't UTF-8 is Latin-1, unless a file is called like that.
[[nodiscard]] std::string PlaylistLine(std::string_view line, const std::string& folder);

/// `path`, or the same with '/' in place of each backslash when only that is there.
[[nodiscard]] std::string FoundPath(const std::string& path);

}  // namespace zvr
