#pragma once

#include "platform/files.h"

namespace zvr {

/// The volumes that the test mounts. Starts with "/" alone.
struct Drives::State {
    std::vector<Drive> mounted{{"/", DriveType::fixed}};
};

}  // namespace zvr
