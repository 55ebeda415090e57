#pragma once

#include "platform/eventloop.h"
#include "platform/processes.h"

#include <string>

namespace zvr::contract {

/// A program that does nothing for a minute, under a name that no other has; one implementation each.
class Sleeper {
public:
    Sleeper(EventLoop& loop, Processes& processes);
    ~Sleeper();
    Sleeper(const Sleeper&) = delete;
    Sleeper& operator=(const Sleeper&) = delete;

    void Kill(ProcessId id);  ///< as a crash ends it

    const std::string name = "zvr-sleeper";
    std::string path;  ///< of its file, with a blank in it

private:
    EventLoop& loop;
    Processes& processes;
};

}  // namespace zvr::contract
