#include "media/playlistreader.h"

#include "platform/files.h"
#include "platform/text.h"

#include <algorithm>
#include <charconv>

namespace zvr {
namespace {

bool BeginsWith(std::string_view text, std::string_view word) {
    return text::EqualAscii(text.substr(0, word.size()), word);
}

/// "scheme:" of two letters or more with "//" behind; one letter is a drive of another system.
bool IsAddress(std::string_view text) {
    const std::size_t colon = text.find("://");
    return colon != text.npos && colon >= 2 &&
           std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(colon), [](char character) {
               const char lower = text::LowerAscii(character);
               return (lower >= 'a' && lower <= 'z') || (character >= '0' && character <= '9') || character == '+' ||
                      character == '-' || character == '.';
           });
}

/// The part behind "=" of a line "File7=..."; empty for any other line.
std::string_view FileOfLine(std::string_view line) {
    if (!BeginsWith(line, "file")) {
        return {};
    }
    const std::size_t equals = line.find_first_not_of("0123456789", 4);
    return equals != line.npos && line[equals] == '=' ? line.substr(equals + 1) : std::string_view{};
}

}  // namespace

std::string PlaylistEntryAddress(std::string_view entry, const std::string& folder) {
    if (BeginsWith(entry, "file://")) {
        const std::size_t path = entry.find('/', 7);  // behind the host name, which is empty as a rule
        return path == entry.npos ? std::string(entry) : text::PercentDecoded(entry.substr(path));
    }
    if (entry.starts_with(files::separator) || IsAddress(entry)) {
        return std::string(entry);
    }
    return folder + std::string(entry);
}

std::string PlaylistLine(std::string_view line, const std::string& folder) {
    const bool asItIs = text::IsUtf8(line) || files::Exists(FoundPath(PlaylistEntryAddress(line, folder)));
    return asItIs ? std::string(line) : text::FromLatin1(line);
}

std::vector<std::string> ReadPlaylist(std::string_view content, const std::string& path) {
    const std::string folder = files::FolderOf(path);
    const bool keyed = text::EndsWithAscii(path, ".pls");
    std::vector<std::string> entries;
    const std::string decoded = text::Utf8Of(std::string(content));
    for (std::string_view line : text::Lines(text::WithoutByteOrderMark(decoded))) {
        if (keyed) {
            line = FileOfLine(line);
        }
        if (line.find_first_not_of(" \t") != line.npos && (keyed || !line.starts_with('#'))) {
            entries.push_back(PlaylistEntryAddress(PlaylistLine(line, folder), folder));
        }
    }
    return entries;
}

std::string FoundPath(const std::string& path) {
    if (path.find('\\') == path.npos || files::Exists(path)) {
        return path;
    }
    std::string other = path;
    std::replace(other.begin(), other.end(), '\\', files::separator);
    return files::Exists(other) ? other : path;
}

}  // namespace zvr
