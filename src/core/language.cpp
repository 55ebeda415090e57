#include "core/language.h"

#include "core/languagekeys.h"
#include "platform/log.h"
#include "ui/form.h"

namespace zvr {
namespace {

constexpr std::string_view section = "strings";
constexpr std::string_view english = "en";

}  // namespace

std::string LanguageTable::loadLanguage(const std::string& programFolder, const std::string& usedLanguage) {
    const std::string folder = programFolder + files::separator + "lang" + files::separator;
    Sources sources{folder, Profile::Load(folder + usedLanguage + ".ini")};
    languageTable.clear();
    languageTable.reserve(languageKeys.size());
    for (const std::string_view key : languageKeys) {
        if (!addLanguageKey(sources, key)) {
            // The one text that can't come from a file.
            return "The default language file (English) is incomplete, please reinstall the application or contact "
                   "the author.\n\nMissing key: " +
                   std::string(key) + "\n\nThe program can not be run and will now terminate.";
        }
    }
    if (sources.missing > 0) {
        Log::Warning("{}{}.ini lacks {} of {} texts; the English ones stand in", folder, usedLanguage, sources.missing,
                     languageKeys.size());
    }
    return {};
}

bool LanguageTable::addLanguageKey(Sources& sources, std::string_view key) {
    std::string text = readLanguageText(sources, key);
    if (text.empty()) {
        return false;
    }
    languageTable.emplace(key, std::move(text));
    return true;
}

std::string LanguageTable::readLanguageText(Sources& sources, std::string_view key) {
    if (auto text = sources.selected.Value(section, key); text && !text->empty()) {
        return *std::move(text);
    }
    ++sources.missing;
    if (!sources.english) {
        sources.english = Profile::Load(sources.folder + std::string(english) + ".ini");
    }
    return sources.english->Value(section, key).value_or("");
}

std::string_view LanguageTable::languageText(std::string_view key) const {
    const auto found = languageTable.find(key);
    return found == languageTable.end() ? key : std::string_view(found->second);
}

void translateControls(const LanguageTable& language, Form& form) {
    for (Control* control : form.Controls()) {
        if (const std::string_view text = language.languageText(control->caption.get()); !text.empty()) {
            control->caption = std::string(text);
        }
    }
}

}  // namespace zvr
