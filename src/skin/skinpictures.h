#pragma once

#include "platform/picture.h"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zvr {

/// The pictures of one skin, each read once however often it is named.
class SkinPictures {
public:
    /// `folder` ends with a separator. A picture below a folder that is named as the language, beside the one that the
    /// skin names, comes first: "images/de/a.png" before "images/a.png".
    SkinPictures(std::string folder, std::string language);

    struct Found {
        std::string file;        ///< below the skin's folder; empty if there is none
        PicturePointer picture;  ///< null if there is none, or it can't be decoded
    };
    /// `text` as a skin writes it: a path from the skin's folder on, with either slash.
    [[nodiscard]] const Found& Find(std::string_view text);
    [[nodiscard]] const std::string& Folder() const { return folder; }
    /// Texts so far that lead to no file.
    [[nodiscard]] const std::vector<std::string>& Missing() const { return missing; }

private:
    [[nodiscard]] std::string FileOf(const std::string& text);
    [[nodiscard]] std::string InLanguage(const std::string& file);

    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    const std::string folder;
    const std::string language;  ///< empty: none has a folder of its own
    std::unordered_map<std::string, Found, Hash, std::equal_to<>> byText;
    std::vector<std::string> missing;
    std::unordered_map<std::string, bool, Hash, std::equal_to<>> speaks;  ///< whether a folder has one of the language
};

}  // namespace zvr
