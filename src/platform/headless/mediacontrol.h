#pragma once

#include "platform/mediacontrol.h"

#include <map>
#include <set>
#include <vector>

namespace zvr {

/// A player without media: plays any address in virtual time, as long as the test says.
struct MediaControl::State {
    explicit State(EventLoop& loop);
    ~State();

    // What the test arranges.
    double defaultDuration = 60;              ///< seconds, of an address without one of its own
    std::map<std::string, double> durations;  ///< by address
    std::map<std::string, std::string> titles;
    std::set<std::string> videos;
    std::set<std::string> broken;  ///< these fail after `openingTime`
    bool everythingBroken = false;
    Milliseconds openingTime{40};
    void Pull();  ///< the stick with all addresses goes: what plays fails in its middle, and all others do
    std::uintptr_t window = 0;

    // What the test looks at.
    std::vector<std::string> opened;  ///< all addresses, in order
    int volume = 100;
    bool muted = false;
    std::string address;

    struct Run;
    std::unique_ptr<Run> run;
};

}  // namespace zvr
