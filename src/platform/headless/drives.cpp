#include "platform/headless/drives.h"

#include <algorithm>

namespace zvr {

Drives::Drives() : state(std::make_unique<State>()) {}
Drives::~Drives() = default;

std::vector<Drive> Drives::List() const {
    return state->mounted;
}

bool Drives::IsRoot(const std::string& path) const {
    return std::any_of(state->mounted.begin(), state->mounted.end(),
                       [&](const Drive& drive) { return drive.path == path || drive.path == path + files::separator; });
}

}  // namespace zvr
