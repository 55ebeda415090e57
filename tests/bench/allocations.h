#pragma once

#include <cstddef>

namespace zvr {

/// How often memory was asked for since the start of the process.
[[nodiscard]] std::size_t Allocations();

}  // namespace zvr
