#pragma once

#include "platform/dvdcontrol.h"

#include <string>
#include <vector>

namespace zvr {

/// A player without a disc: notes what it is asked for.
struct DvdControl::State {
    DvdState current = DvdState::uninitialised;
    std::string path;
    std::string error;               ///< that the next play gives
    std::vector<std::string> asked;  ///< "play", "zoom 2", ...

    void PlayOn(const char* how) {
        asked.emplace_back(how);
        current = current == DvdState::paused ? DvdState::running : current;
    }
};

}  // namespace zvr
