#pragma once

#include "platform/eventloop.h"
#include "platform/lifetime.h"

#include <string>
#include <vector>

namespace zvr {

class Program;

/// The radio program, which owns the tuner. It is started when it is needed, and told each change by a run of its
/// command line tool; nothing comes back from it. It goes on when this program ends.
class Radiator {
public:
    explicit Radiator(Program& program);

    /// Has the tool run with that word, at once or, where the radio program must be started first, behind its start.
    /// Nothing here waits. A failure is told to the driver unless `quiet`.
    void RunRadiatorCommand(const std::string& command, bool quiet);
    /// The radio screen is in front: a radio program that isn't there yet is started, without a word when that fails.
    void Wake(const std::string& command);

private:
    struct Call {
        std::string command;
        bool quiet = false;
    };
    struct Later {
        Call call;
        int steps = 0;  ///< of the start's timer until then
    };

    [[nodiscard]] bool IsRunning() const;
    bool StartRadiator(bool quiet);
    void RunBehindStart(const Call& call, int steps);
    void Step();
    void Tell(const Call& call);
    void RunNext();
    void Complain(const char* languageKey, bool quiet);

    Program& program;
    Timer tmrStart;  ///< 200 ms, until the radio program is silenced and what waits for that is told
    int mutesLeft = 0;
    std::vector<Later> behindStart;
    std::vector<Call> waiting;  ///< for the tool: it runs once at a time
    bool toolRuns = false;
    Timer tmrTool;  ///< how long the tool may run before the next one goes ahead
    Lifetime tool;  ///< of the run whose end is waited for
    Lifetime lifetime;
};

}  // namespace zvr
