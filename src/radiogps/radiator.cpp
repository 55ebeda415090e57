#include "radiogps/radiator.h"

#include "core/program.h"
#include "platform/log.h"
#include "platform/platform.h"
#include "radiogps/radio.h"

#include <algorithm>

namespace zvr {
namespace {

constexpr const char* programName = "radiator";
constexpr const char* toolName = "Add-ons/Command line/rc";
// It comes up with its sound on and takes a while to listen, so it is told to be silent again and again. Whoever has
// waited for it has his turn some steps behind that.
constexpr Milliseconds stepOfStart{200};
constexpr int mutes = 20;
constexpr int settling = 5;
constexpr Milliseconds longestRun{10'000};

bool IsFrequency(const std::string& command) {
    return command.starts_with("fr");
}

/// The command line of a program in the radio program's folder.
std::string LineOf(std::string folder, const char* name, const std::string& argument) {
    if (!folder.ends_with(files::separator)) {
        folder += files::separator;
    }
    return "\"" + folder + name + "\" " + argument;
}

}  // namespace

Radiator::Radiator(Program& program)
    : program(program), tmrStart(program.platform.loop, [this] { Step(); }), tmrTool(program.platform.loop, [this] {
          Log::Warning("{} of the radio program does not end", toolName);
          tool.Renew();
          toolRuns = false;
          RunNext();
      }) {
    tmrStart.SetInterval(stepOfStart);
    tmrTool.SetInterval(longestRun);
}

bool Radiator::IsRunning() const {
    return program.platform.processes.Find(programName) != 0;
}

void Radiator::RunRadiatorCommand(const std::string& command, bool quiet) {
    if (IsRunning()) {
        Tell({command, quiet});
    } else if (tmrStart.Enabled() || StartRadiator(quiet)) {
        RunBehindStart({command, quiet}, mutesLeft + settling);
    }
}

void Radiator::Wake(const std::string& command) {
    if (IsRunning()) {
        Tell({command, true});
    } else if (tmrStart.Enabled() || StartRadiator(true)) {
        RunBehindStart({command, true}, mutesLeft);
    }
}

bool Radiator::StartRadiator(bool quiet) {
    const std::string& folder = program.radio.radiatorFolder;
    if (folder.empty()) {
        Complain("RADIO_RADIATORPATH", quiet);
        return false;
    }
    if (!program.platform.processes.Start(LineOf(folder, programName, "-tray"), {StartState::withoutFocus})) {
        Complain("RADIO_RADIATORERROR", quiet);
        return false;
    }
    mutesLeft = mutes;
    tmrStart.Start();
    return true;
}

void Radiator::RunBehindStart(const Call& call, int steps) {
    if (IsFrequency(call.command)) {
        std::erase_if(behindStart, [](const Later& later) { return IsFrequency(later.call.command); });
    }
    behindStart.push_back({call, steps});
}

void Radiator::Step() {
    if (mutesLeft > 0) {
        --mutesLeft;
        Tell({"mute", mutesLeft > 0});  // a missing tool is told once
    }
    for (std::size_t i = 0; i < behindStart.size();) {
        if (--behindStart[i].steps <= 0) {
            const Call call = behindStart[i].call;
            behindStart.erase(behindStart.begin() + static_cast<std::ptrdiff_t>(i));
            Tell(call);
        } else {
            ++i;
        }
    }
    if (mutesLeft == 0 && behindStart.empty()) {
        tmrStart.Stop();
    }
}

void Radiator::Tell(const Call& call) {
    if (program.radio.radiatorFolder.empty()) {
        Complain("RADIO_RADIATORPATH", call.quiet);
        return;
    }
    // Of frequencies that wait the newest is the one that the driver wants.
    if (IsFrequency(call.command)) {
        std::erase_if(waiting, [](const Call& other) { return IsFrequency(other.command); });
        for (Later& later : behindStart) {
            if (IsFrequency(later.call.command)) {
                later.call.command = call.command;
            }
        }
    }
    waiting.push_back(call);
    RunNext();
}

void Radiator::RunNext() {
    while (!toolRuns && !waiting.empty()) {
        const Call call = waiting.front();
        waiting.erase(waiting.begin());
        tool.Renew();
        const auto ended = tool.Guard([this] {
            toolRuns = false;
            tmrTool.Stop();
            RunNext();
        });
        const std::string line = LineOf(program.radio.radiatorFolder, toolName, call.command);
        toolRuns = program.platform.processes.Start(line, {StartState::withoutFocus, "", ended}).has_value();
        if (toolRuns) {
            tmrTool.Start();
        } else {
            Complain("RADIO_RADIATORERROR", call.quiet);
        }
    }
}

/// From the loop: whoever turns a knob, and whatever waits for its turn, is not held up by a message.
void Radiator::Complain(const char* languageKey, bool quiet) {
    if (!quiet) {
        program.platform.loop.Post(
            lifetime.Guard([this, languageKey] { program.showMessage(program.languageText(languageKey)); }));
    }
}

}  // namespace zvr
