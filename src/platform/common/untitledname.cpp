#include "platform/discs.h"
#include "platform/mediacontrol.h"

namespace zvr {

std::string UntitledName(const std::string& address) {
    if (const auto track = TrackOf(address)) {
        return track->Name();
    }
    const std::string name = address.substr(address.find_last_of("/\\") + 1);
    const std::size_t dot = name.rfind('.');
    return dot == name.npos || dot == 0 ? name : name.substr(0, dot);
}

}  // namespace zvr
