#include "system/devices.h"

#include "platform/log.h"
#include "platform/text.h"

#include <array>

namespace zvr {
namespace {

constexpr std::size_t longestPath = 4095;  // the system's own limit

std::string Written(const Profile& devices, std::string_view section, std::string_view key) {
    std::string path = devices.Value(section, key).value_or("");
    const bool usable = path.starts_with('/') && path.size() <= longestPath && path.find('\0') == std::string::npos;
    if (!usable && !path.empty()) {
        Log::Warning("devices.ini: the path of {} in [{}] can't be used", key, section);
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
    std::string path = Written(devices, "drives", letter.substr(0, 1));
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

std::string PortPath(const Profile& devices, int number) {
    std::string path = Written(devices, "ports", std::to_string(number));
    constexpr std::array names{"/dev/ttyS", "/dev/ttyUSB", "/dev/ttyACM"};
    constexpr int ofEach = 4;
    if (path.empty() && number >= 1 && number <= ofEach * static_cast<int>(names.size())) {
        path = names[static_cast<std::size_t>((number - 1) / ofEach)] + std::to_string((number - 1) % ofEach);
    }
    return path;
}

}  // namespace zvr
