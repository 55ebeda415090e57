#pragma once

#include <string>
#include <string_view>

namespace zvr {

class Profile;

// What counts as media where the settings say nothing.
inline constexpr std::string_view usualAudioExtensions = "mp3;wav;wma;mid";
inline constexpr std::string_view usualVideoExtensions = "avi;mpeg;mpg;wmv";

/// A setting of extensions without dots, separated by ";", in small letters; `usual` if it can't be one.
[[nodiscard]] std::string ExtensionsOf(std::string_view setting, std::string_view usual);

/// Audio and video extensions of a settings file, in one list.
[[nodiscard]] std::string MediaExtensions(const Profile& settings);

/// The name ends in a dot and one of the ";" separated extensions, in any case. An empty one asks for a dot at the end.
[[nodiscard]] bool ExtensionMatches(std::string_view fileName, std::string_view extensions);

/// At least four characters that end in ".m3u" or ".pls", in any case.
[[nodiscard]] bool IsPlaylistName(std::string_view fileName);

}  // namespace zvr
