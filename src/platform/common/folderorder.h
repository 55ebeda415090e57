#pragma once

#include <cstdint>

namespace zvr::files {

/// Whether a file system of that type, as statfs names it, lists a folder in an order that somebody gave it.
[[nodiscard]] bool OrderHasMeaning(std::uint64_t fileSystemType);

}  // namespace zvr::files
