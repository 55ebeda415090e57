#include "platform/applications.h"

#include "platform/profile.h"
#include "platform/text.h"

#include <algorithm>
#include <cstdlib>
#include <set>

namespace zvr {
namespace {

constexpr std::string_view section = "Desktop Entry";

bool Says(const Profile& entry, std::string_view key) {
    return entry.Value(section, key) == "true";
}

/// "%f" and its like stand for files that the program is asked to open, "%%" for a percent sign.
std::string WithoutPlaces(std::string_view command) {
    std::string line;
    for (std::size_t i = 0; i < command.size(); ++i) {
        if (command[i] != '%') {
            line += command[i];
        } else if (++i < command.size() && command[i] == '%') {
            line += '%';
        }
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

Application Read(const Profile& entry, std::string_view language) {
    if (entry.Value(section, "Type") != "Application" || Says(entry, "NoDisplay") || Says(entry, "Hidden") ||
        Says(entry, "Terminal")) {
        return {};
    }
    const auto name = entry.Value(section, "Name");
    return {entry.Value(section, "Name[" + std::string(language) + "]").value_or(name.value_or("")),
            WithoutPlaces(entry.Value(section, "Exec").value_or(""))};
}

std::string Variable(const char* name, const std::string& usual) {
    const char* const value = std::getenv(name);
    return value != nullptr && *value != '\0' ? value : usual;
}

}  // namespace

std::vector<Application> ApplicationsIn(const std::vector<std::string>& folders, std::string_view language) {
    std::vector<std::pair<std::string, Application>> byName;
    std::set<std::string, std::less<>> seen;
    for (const std::string& folder : folders) {
        files::Enumerate(folder, [&](const files::Found& found) {
            if (found.name.ends_with(".desktop") && seen.emplace(found.name).second) {
                Application one = Read(Profile::Load(folder + files::separator + std::string(found.name)), language);
                if (!one.name.empty() && !one.commandLine.empty()) {
                    byName.emplace_back(text::SortKeyWithoutCase(one.name), std::move(one));
                }
            }
            return true;
        });
    }
    std::stable_sort(byName.begin(), byName.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<Application> applications;
    for (auto& [key, one] : byName) {
        applications.push_back(std::move(one));
    }
    return applications;
}

std::vector<std::string> ApplicationFolders() {
    std::vector<std::string> folders{Variable("XDG_DATA_HOME", files::HomeFolder() + "/.local/share")};
    const std::string machine = Variable("XDG_DATA_DIRS", "/usr/local/share:/usr/share");
    for (const std::string_view folder : text::Split(machine, ':')) {
        folders.emplace_back(folder);
    }
    for (std::string& folder : folders) {
        folder += "/applications";
    }
    return folders;
}

}  // namespace zvr
