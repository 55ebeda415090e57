#pragma once

#include <filesystem>
#include <functional>

namespace skincheck {

/// Calls `changed` at once, and again whenever a file of the folder was saved, came or went: once when a burst of
/// changes is over. Never returns.
[[noreturn]] void Watch(const std::filesystem::path& folder, const std::function<void()>& changed);

}  // namespace skincheck
