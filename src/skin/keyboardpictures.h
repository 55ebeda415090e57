#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace zvr {

/// Pictures that a skin may bring along for the on-screen keyboard: PNG files of its folder "osk".
inline constexpr std::string_view keyboardPictureFolder = "osk/";
inline constexpr std::string_view keyboardPictureEnding = ".png";
inline constexpr std::array<std::string_view, 5> keyboardPictures{"background", "key", "quiet", "enter", "pressed"};

/// Of a file, by its path in the skin's folder.
[[nodiscard]] inline bool IsKeyboardPicture(std::string_view file) {
    return std::any_of(keyboardPictures.begin(), keyboardPictures.end(), [file](std::string_view name) {
        return file.size() == keyboardPictureFolder.size() + name.size() + keyboardPictureEnding.size() &&
               file.starts_with(keyboardPictureFolder) && file.substr(keyboardPictureFolder.size()).starts_with(name) &&
               file.ends_with(keyboardPictureEnding);
    });
}

}  // namespace zvr
