#pragma once

#include "media/filesearch.h"

#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// A playlist file as the list shows it and edits it: every line is an entry, comments and empty lines too, so that
/// the number of an entry is the number of its line.

/// One entry a line. A line with a separator ("/", or "\" where there is none) before its last character is cut behind
/// the last one; any other stands for a file beside the playlist. Any bytes will do.
[[nodiscard]] std::vector<FileEntry> PlaylistEntries(std::string_view content, const std::string& playlistFile);

/// False for an empty line and for a comment: a line that begins with "#" and is no file.
[[nodiscard]] bool IsPlayable(const FileEntry& entry);

/// Adds whole lines, behind a line end of their own where the file has none at its end. Makes the file.
[[nodiscard]] files::ErrorText AppendLines(const std::string& playlistFile, const std::string& lines);

}  // namespace zvr
