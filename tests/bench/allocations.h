#pragma once

#include <cstddef>

namespace zvr {

/// How often the calling thread asked for memory since its start.
[[nodiscard]] std::size_t Allocations();

}  // namespace zvr
