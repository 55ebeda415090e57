#include "platform/headless/drives.h"

#include "platform/common/mounts.h"

namespace zvr {

Drives::Drives() : state(std::make_unique<State>()) {}
Drives::~Drives() = default;

std::vector<Drive> Drives::List() const {
    return state->mounted;
}

bool Drives::IsRoot(const std::string& path) const {
    return IsRootOf(state->mounted, path);
}

}  // namespace zvr
