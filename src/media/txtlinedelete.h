#pragma once

#include "platform/files.h"

#include <string>
#include <string_view>

namespace zvr {

/// The text without one of its lines, all other bytes as they are. `lineNumber` counts from 1; beyond the last line
/// it means the last, the empty one behind a final line end included.
[[nodiscard]] std::string WithoutLine(std::string_view text, std::size_t lineNumber);

/// Rewrites the file without the line.
[[nodiscard]] files::ErrorText RemoveLine(const std::string& file, std::size_t lineNumber);

}  // namespace zvr
