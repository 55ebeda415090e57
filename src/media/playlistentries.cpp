#include "media/playlistentries.h"

#include "media/playlistreader.h"
#include "media/txtlinedelete.h"
#include "platform/text.h"

namespace zvr {
namespace {

/// Where the name begins; 0 if the whole line is one.
std::size_t NamePlace(std::string_view line) {
    std::size_t separator = line.rfind(files::separator);
    if (separator == line.npos) {
        separator = line.rfind('\\');
    }
    return separator == line.npos || separator + 1 == line.size() ? 0 : separator + 1;
}

}  // namespace

std::vector<FileEntry> PlaylistEntries(std::string_view content, const std::string& playlistFile) {
    const std::string decoded = text::Utf8Of(std::string(content));
    std::vector<std::string_view> lines = text::Lines(text::WithoutByteOrderMark(decoded));
    if (lines.back().empty()) {
        lines.pop_back();
    }
    const std::string folder = files::FolderOf(playlistFile);
    std::vector<FileEntry> entries;
    entries.reserve(lines.size());
    for (const std::string_view written : lines) {
        const std::string line = PlaylistLine(written, folder);
        const std::size_t name = NamePlace(line);
        entries.push_back({name == 0 ? folder : line.substr(0, name), line.substr(name), 0});
    }
    return entries;
}

bool IsPlayable(const FileEntry& entry) {
    if (entry.name.empty()) {
        return false;
    }
    const bool likeComment = entry.name.starts_with('#') || entry.path.starts_with('#');
    return !likeComment || files::Exists(entry.FullName());
}

files::ErrorText AppendLines(const std::string& playlistFile, const std::string& lines) {
    const std::string file = files::Read(playlistFile).value_or("");
    const std::string decoded = text::Utf8Of(file);
    const std::string_view content = text::WithoutByteOrderMark(decoded);
    const bool openEnd = !content.empty() && content.back() != '\n' && content.back() != '\r';
    const std::string added = openEnd ? "\r\n" + lines : lines;
    return text::IsUtf16(file) ? files::WriteAtomic(playlistFile, decoded + added) : files::Append(playlistFile, added);
}

}  // namespace zvr
