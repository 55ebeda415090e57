#pragma once

#include "options/optionstable.h"

#include <string_view>
#include <vector>

namespace zvr {

/// All commands that the user can put on a key, with what each does, in the order in which they are shown.
[[nodiscard]] std::vector<OptionChoice> CommandReference();
/// Those of them that hold the text, in any case, in their name or description.
[[nodiscard]] std::vector<OptionChoice> CommandReference(std::string_view filter);

}  // namespace zvr
