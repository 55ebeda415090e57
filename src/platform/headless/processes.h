#pragma once

#include "platform/processes.h"

#include <map>
#include <string>
#include <vector>

namespace zvr {

struct Processes::State {
    struct Running {
        std::string commandLine;
        std::string file;
        How how;
        bool hasWindow = true;
        int activations = 0;
    };
    std::map<ProcessId, Running> running;
    std::vector<std::string> started;         ///< command lines, those that failed too
    std::map<std::string, bool> missing;      ///< command lines that can't be started
    std::map<std::string, ProcessId> others;  ///< programs that somebody else started, by lower-case file name
    ProcessId activated = 0;                  ///< whose window came to the front last
    ProcessId nextId = 100;

    void End(ProcessId id) {
        const auto found = running.find(id);
        if (found != running.end()) {
            const auto ended = std::move(found->second.how.ended);
            running.erase(found);
            if (ended) {
                ended();
            }
        }
    }
};

}  // namespace zvr
