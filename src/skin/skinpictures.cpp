#include "skin/skinpictures.h"

#include "platform/files.h"

#include <algorithm>

namespace zvr {

SkinPictures::SkinPictures(std::string folder, std::string language)
    : folder(std::move(folder)),
      // A name of settings, and no way out of the skin's folder.
      language(language.find_first_of("/\\") == std::string::npos && !language.starts_with('.') ? std::move(language)
                                                                                                : std::string()) {}

const SkinPictures::Found& SkinPictures::Find(std::string_view text) {
    if (const auto known = byText.find(text); known != byText.end()) {
        return known->second;
    }
    Found found;
    if (!text.empty()) {
        found.file = FileOf(std::string(text));
        if (!found.file.empty()) {
            found.picture = LoadPicture(folder + found.file);
        } else {
            missing.emplace_back(text);
        }
    }
    return byText.emplace(text, std::move(found)).first->second;
}

std::string SkinPictures::FileOf(const std::string& text) {
    std::string file = text;
    bool exists = files::Exists(folder + file);
    if (!exists && file.find('\\') != std::string::npos) {
        std::replace(file.begin(), file.end(), '\\', files::separator);
        exists = files::Exists(folder + file);
    }
    if (std::string own = InLanguage(file); !own.empty()) {
        return own;
    }
    return exists ? file : std::string();
}

std::string SkinPictures::InLanguage(const std::string& file) {
    if (language.empty()) {
        return {};
    }
    const auto name = file.rfind(files::separator) + 1;
    const std::string own = file.substr(0, name) + language + files::separator;
    const auto [entry, fresh] = speaks.try_emplace(own);
    if (fresh) {
        entry->second = files::IsFolder(folder + own);
    }
    std::string found = entry->second ? own + file.substr(name) : std::string();
    return found.empty() || files::Exists(folder + found) ? found : std::string();
}

}  // namespace zvr
