#pragma once

#include "platform/profile.h"

#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// devices.ini in the program folder: which device stands behind a drive letter or the number of a serial port.
/// Anything but an absolute path counts as not written.
[[nodiscard]] std::string DevicesFile(const std::string& programFolder);

/// Device, disc image or folder behind a letter such as "d:"; without a line of its own "d:" is the first of `drives`,
/// "e:" the second. Empty: there is none.
[[nodiscard]] std::string DiscPath(const Profile& devices, std::string_view letter,
                                   const std::vector<std::string>& drives);

/// Device behind the number of a serial port; without a line of its own 1 to 4 are the ports of the board, 5 to 8
/// adapters (ttyUSB), 9 to 12 receivers that are such an adapter themselves (ttyACM). Empty: there is none.
[[nodiscard]] std::string PortPath(const Profile& devices, int number);

}  // namespace zvr
