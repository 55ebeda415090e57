#pragma once

#include "platform/profile.h"

#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// devices.ini in the program folder: which device stands behind a drive letter.
/// Anything but an absolute path counts as not written.
[[nodiscard]] std::string DevicesFile(const std::string& programFolder);

/// Device, disc image or folder behind a letter such as "d:"; without a line of its own "d:" is the first of `drives`,
/// "e:" the second. Empty: there is none.
[[nodiscard]] std::string DiscPath(const Profile& devices, std::string_view letter,
                                   const std::vector<std::string>& drives);

}  // namespace zvr
