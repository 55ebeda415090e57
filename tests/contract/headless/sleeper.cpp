#include "contract/sleeper.h"

#include "platform/headless/processes.h"

namespace zvr::contract {

Sleeper::Sleeper(EventLoop& loop, Processes& processes)
    : path("/opt/a folder/" + name), loop(loop), processes(processes) {
    processes.state->missing["/no/such program"] = true;
}

Sleeper::~Sleeper() = default;

void Sleeper::Kill(ProcessId id) {
    loop.Post([this, id] { processes.state->End(id); });
}

}  // namespace zvr::contract
