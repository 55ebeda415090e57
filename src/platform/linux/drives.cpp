#include "platform/common/mounts.h"

namespace zvr {

struct Drives::State {};

Drives::Drives() = default;
Drives::~Drives() = default;

std::vector<Drive> Drives::List() const {
    return DrivesOfMounts(MountInfo(), FactsOfKernel());
}

bool Drives::IsRoot(const std::string& path) const {
    return path == "/" || IsRootOf(List(), path);
}

}  // namespace zvr
