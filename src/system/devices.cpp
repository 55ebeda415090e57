#include "system/devices.h"

#include "platform/log.h"
#include "platform/text.h"

namespace zvr {
namespace {

constexpr std::size_t longestPath = 4095;  // the system's own limit

std::string Written(const Profile& devices, std::string_view letter) {
    std::string path = devices.Value("drives", letter).value_or("");
    const bool usable = path.starts_with('/') && path.size() <= longestPath && path.find('\0') == std::string::npos;
    if (!usable && !path.empty()) {
        Log::Warning("devices.ini: the path of drive {} can't be used", letter);
    }
    return usable ? path : std::string{};
}

}  // namespace

std::string DevicesFile(const std::string& programFolder) {
    return programFolder + "/devices.ini";
}

std::string DiscPath(const Profile& devices, std::string_view letter, const std::vector<std::string>& drives) {
    if (letter.empty()) {
        return {};
    }
    std::string path = Written(devices, letter.substr(0, 1));
    const char first = text::LowerAscii(letter.front());
    const auto place = static_cast<std::size_t>(first - 'd');
    if (path.empty() && first >= 'd' && place < drives.size()) {
        path = drives[place];
    }
    if (path.empty()) {
        Log::Warning("there is no drive {}", letter);
    }
    return path;
}

}  // namespace zvr
