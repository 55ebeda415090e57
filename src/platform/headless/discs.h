#pragma once

#include "platform/discs.h"

#include <map>
#include <string>
#include <vector>

namespace zvr {

/// Drives in virtual time. Images and folders are looked at as they are.
struct Discs::State {
    explicit State(EventLoop& loop);

    // What the test arranges.
    std::vector<std::string> devices;
    std::map<std::string, Disc> inDevice;  ///< a device without one is empty
    Milliseconds spinUp{2000};

    std::vector<std::string> ejected;

    std::string path;                        ///< that is looked at
    std::function<void(const Disc&)> waits;  ///< for the disc; empty: nobody
    Timer spinning;

    void Tell();
};

}  // namespace zvr
