#include "core/settings.h"

#include "core/godfather.h"
#include "core/numbers.h"
#include "core/program.h"
#include "media/mediatypes.h"
#include "platform/log.h"
#include "platform/text.h"

#include <algorithm>

namespace zvr {
namespace {

constexpr std::size_t longestValue = 10239;  ///< characters that a value is read up to
/// Bytes. A larger file is full of other things: its keys are read, the rest isn't carried along.
constexpr std::size_t mostCarriedAlong = 1U << 20U;

/// Defaults name folders that only the running program knows.
std::string Standard(const Program& program, const Setting& setting) {
    if (setting.standard == "~documents") {
        return files::DocumentsFolder();
    }
    if (setting.standard == "~pictures") {
        return files::PicturesFolder();
    }
    if (setting.standard.starts_with("$")) {
        return program.place.folder + std::string(setting.standard.substr(1));
    }
    return std::string(setting.standard);
}

int ParseTime(const std::string& value, std::string_view standard) {
    const auto minutes = [](std::string_view digits) {
        return static_cast<int>(LeadingNumber(digits.substr(0, 2)) * 60 + LeadingNumber(digits.substr(2, 2)));
    };
    const double number = LeadingNumber(value);
    const double tail = value.size() == 4 ? LeadingNumber(std::string_view(value).substr(2)) : -1;
    const bool valid =
        text::Length(value) == 4 && value.size() == 4 && number >= 0 && number <= 2359 && tail >= 0 && tail <= 59;
    return minutes(valid ? std::string_view(value) : standard);
}

std::string FormatTime(int minutes) {
    const auto twoDigits = [](int number) { return std::string(number < 10 ? "0" : "") + std::to_string(number); };
    return twoDigits(minutes / 60) + twoDigits(minutes % 60);
}

void LoadOne(Program& program, const Setting& setting, const std::string& value, int element) {
    const std::string standard = Standard(program, setting);
    struct Visitor {
        Program& program;
        const std::string& value;
        const std::string& standard;
        int element;

        void operator()(const BooleanRule& rule) const { rule.variable(program) = LeadingNumber(value) == 1; }
        void operator()(const NumberRule& rule) const {
            rule.variable(program) = static_cast<int>(WithinRange(value, rule.lowest, rule.highest, rule.fallback));
        }
        void operator()(const TextRule& rule) const {
            rule.variable(program) = value.empty() && rule.empty == EmptyText::givesDefault ? standard : value;
        }
        void operator()(const TimeRule& rule) const { rule.variable(program) = ParseTime(value, standard); }
        void operator()(const ExtensionsRule& rule) const { rule.variable(program) = ExtensionsOf(value, standard); }
        void operator()(const OwnRule& rule) const { rule.load(program, value, element); }
    };
    std::visit(Visitor{program, value, standard, element}, setting.rule);
}

std::string SaveOne(Program& program, const Setting& setting, int element) {
    struct Visitor {
        Program& program;
        int element;

        std::string operator()(const BooleanRule& rule) const { return rule.variable(program) ? "1" : "0"; }
        std::string operator()(const NumberRule& rule) const { return std::to_string(rule.variable(program)); }
        std::string operator()(const TextRule& rule) const { return rule.variable(program); }
        std::string operator()(const TimeRule& rule) const { return FormatTime(rule.variable(program)); }
        std::string operator()(const ExtensionsRule& rule) const { return rule.variable(program); }
        std::string operator()(const OwnRule& rule) const { return rule.save(program, element); }
    };
    return std::visit(Visitor{program, element}, setting.rule);
}

/// Calls `visit` with each key of the row and its number in the family, 0 for a single key.
template <typename Visit>
void ForEachKey(const Setting& setting, Visit visit) {
    if (setting.elements == 0) {
        visit(std::string(setting.key), 0);
    }
    for (int element = 1; element <= setting.elements; ++element) {
        visit(std::string(setting.key) + std::to_string(element), element);
    }
}

const Setting& RowOf(std::string_view key) {
    return *FindSetting("general", key);
}

}  // namespace

const Setting* FindSetting(std::string_view section, std::string_view key) {
    const auto rows = Settings();
    const auto found = std::find_if(rows.begin(), rows.end(), [section, key](const Setting& row) {
        return row.section == section && row.key == key;
    });
    return found == rows.end() ? nullptr : &*found;
}

std::string SettingValue(Program& program, const Setting& setting, int element) {
    return SaveOne(program, setting, element);
}

void SetSettingValue(Program& program, const Setting& setting, int element, const std::string& value) {
    LoadOne(program, setting, value, element);
}

std::string readSetting(const Profile& profile, std::string_view section, std::string_view key,
                        std::string_view standard) {
    const std::string value = profile.Value(section, key).value_or(std::string(standard));
    return std::string(text::Mid(value, 0, longestValue));
}

long WithinRange(std::string_view value, long lowest, long highest, long fallback) {
    const double number = LeadingNumber(value);
    const bool within = number >= static_cast<double>(lowest) && number <= static_cast<double>(highest);
    return within ? RoundHalfEven(number) : fallback;
}

long digitsOnly(std::string_view text) {
    std::string digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits), [](char c) { return c >= '0' && c <= '9'; });
    return RoundHalfEven(LeadingNumber(digits));
}

std::string ReadUsedLanguage(const Program& program) {
    const Setting& row = RowOf("USEDLANGUAGE");
    return readSetting(Profile::Load(program.SettingsFile()), row.section, row.key, row.standard);
}

void readUsedModules(Program& program) {
    const Setting& row = RowOf("USEDMODULES");
    program.godfather.modules.usedModules =
        text::Lower(readSetting(Profile::Load(program.SettingsFile()), row.section, row.key, row.standard));
}

files::ErrorText loadSettings(Program& program) {
    files::ErrorText fault;
    const Profile profile = Profile::Load(program.SettingsFile(), fault);
    program.settingsWereUnread = !fault.empty();
    for (const Setting& setting : Settings()) {
        if (setting.direction != Direction::both && setting.direction != Direction::readOnly) {
            continue;
        }
        ForEachKey(setting, [&](const std::string& key, int element) {
            std::string standard = Standard(program, setting);
            if (setting.withoutLine != nullptr && !profile.Value(setting.section, key)) {
                if (std::string chosen = setting.withoutLine(program, profile); !chosen.empty()) {
                    standard = std::move(chosen);
                }
            }
            LoadOne(program, setting, readSetting(profile, setting.section, key, standard), element);
        });
    }
    return fault;
}

/// Every key on top of what the profile holds, so that a user's comments and the keys that are never written stay.
static std::string GatheredOn(Profile profile, Program& program) {
    for (const Setting& setting : Settings()) {
        if (setting.direction == Direction::readOnly || setting.direction == Direction::elsewhereReadOnly) {
            continue;
        }
        ForEachKey(setting, [&](const std::string& key, int element) {
            profile.SetValue(setting.section, key, SaveOne(program, setting, element));
        });
    }
    return profile.Text();
}

std::string SettingsText(Program& program) {
    Profile present = Profile::Load(program.SettingsFile());
    return GatheredOn(present.Text().size() <= mostCarriedAlong ? std::move(present) : Profile{}, program);
}

void saveSettings(Program& program) {
    (void)WriteSettingsFile(program, SettingsText(program));
}

files::ErrorText KeepAsBad(const std::string& file) {
    std::string kept = file + ".bad";
    for (int number = 2; files::Attributes(kept); ++number) {
        kept = file + ".bad" + std::to_string(number);
    }
    files::ErrorText fault = files::Rename(file, kept);
    if (fault.empty()) {
        Log::Warning("{} can't be read or is full of other things, and is kept as {}", file, kept);
    }
    return fault;
}

files::ErrorText WriteSettingsFile(Program& program, std::string_view text) {
    const std::string file = program.SettingsFile();
    files::ErrorText fault;
    (void)files::Read(file, mostCarriedAlong, fault);
    const bool notTakenOver = !fault.empty() || program.settingsWereUnread;
    if (notTakenOver && files::Attributes(file)) {
        if (fault = KeepAsBad(file); !fault.empty()) {
            return fault;
        }
    }
    program.settingsWereUnread = false;
    return files::WriteAtomic(file, text);
}

}  // namespace zvr
