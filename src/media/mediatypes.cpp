#include "media/mediatypes.h"

#include "platform/profile.h"
#include "platform/text.h"

#include <algorithm>

namespace zvr {
namespace {

/// Bytes; each file name is compared with all of a list.
constexpr std::size_t longestList = 10'239;

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

bool EqualWithoutCase(std::string_view a, std::string_view b) {
    return IsAscii(a) && IsAscii(b) ? text::EqualAscii(a, b) : text::Lower(a) == text::Lower(b);
}

bool EndsInExtension(std::string_view fileName, std::string_view extension) {
    // The dot in front of the ending is looked for from the end, so that the letters' byte lengths don't matter.
    const std::size_t dots = static_cast<std::size_t>(std::count(extension.begin(), extension.end(), '.'));
    std::size_t dot = fileName.size();
    for (std::size_t i = 0; i <= dots; ++i) {
        dot = dot == 0 ? std::string_view::npos : fileName.rfind('.', dot - 1);
        if (dot == std::string_view::npos) {
            return false;
        }
    }
    return EqualWithoutCase(fileName.substr(dot + 1), extension);
}

}  // namespace

std::string ExtensionsOf(std::string_view setting, std::string_view usual) {
    const bool valid =
        !setting.empty() && setting.size() <= longestList && setting.find_first_of("\\/:*?\"<>|.") == setting.npos;
    return text::Lower(valid ? setting : usual);
}

std::string MediaExtensions(const Profile& settings) {
    const auto list = [&settings](std::string_view key, std::string_view usual) {
        return ExtensionsOf(settings.Value("mediaplayer", key).value_or(""), usual);
    };
    return list("FILEEXTENSIONSAUDIO", usualAudioExtensions) + ";" + list("FILEEXTENSIONSVIDEO", usualVideoExtensions);
}

bool ExtensionMatches(std::string_view fileName, std::string_view extensions) {
    const bool endsInEmpty = extensions.ends_with(';');
    while (!extensions.empty()) {
        if (EndsInExtension(fileName, text::TakePiece(extensions, ';'))) {
            return true;
        }
    }
    return endsInEmpty && EndsInExtension(fileName, {});
}

bool IsPlaylistName(std::string_view fileName) {
    return ExtensionMatches(fileName, "m3u;pls");
}

}  // namespace zvr
