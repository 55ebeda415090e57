#pragma once

#include "media/playqueue.h"

#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// Where the state lies between an end and the next start.
[[nodiscard]] std::string StateFile(const std::string& programFolder);

// What of a player outlives a run: lines with CR LF behind each, in two parts.

/// The address of the current item, its position in whole seconds and the play state, all three empty without a
/// current item.
[[nodiscard]] std::string CurrentLines(const PlayQueue& queue);
/// The address of each item.
[[nodiscard]] std::string ItemLines(const PlayQueue& queue);

/// The lines of a state text; behind its last line end comes one more, empty one. Any bytes will do.
[[nodiscard]] std::vector<std::string> StateLines(std::string_view text);

}  // namespace zvr
