#include "platform/headless/processes.h"

#include "platform/log.h"
#include "platform/text.h"

namespace zvr {
namespace {

std::string BareName(std::string_view name) {
    std::string bare = text::Lower(name.substr(name.rfind('/') + 1));
    if (bare.ends_with(".exe")) {
        bare.resize(bare.size() - 4);
    }
    return bare;
}

}  // namespace

Processes::Processes() : state(std::make_unique<State>()) {}
Processes::~Processes() = default;

std::optional<ProcessId> Processes::Start(const std::string& commandLine, How how) {
    state->started.push_back(commandLine);
    if (commandLine.find_first_not_of(' ') == std::string::npos || state->missing.contains(commandLine)) {
        Log::Warning("{} is not started: there is no such program", commandLine);
        return std::nullopt;
    }
    const ProcessId id = state->nextId++;
    // There are no files to look at: the program is what stands in quotes, or the first word.
    const bool quoted = commandLine.starts_with('"');
    const std::string file =
        commandLine.substr(quoted ? 1 : 0, commandLine.find(quoted ? '"' : ' ', 1) - (quoted ? 1 : 0));
    state->running[id] = {commandLine, file, std::move(how)};
    return id;
}

bool Processes::Lives(ProcessId id) const {
    return state->running.contains(id);
}

ProcessId Processes::Find(std::string_view fileName) const {
    const std::string wanted = BareName(fileName);
    for (const auto& [id, program] : state->running) {
        if (BareName(program.file) == wanted) {
            return id;
        }
    }
    const auto other = state->others.find(wanted);
    return other == state->others.end() ? 0 : other->second;
}

bool Processes::HasWindow(ProcessId id) const {
    const auto found = state->running.find(id);
    return found != state->running.end() && found->second.hasWindow;
}

bool Processes::Activate(ProcessId id) {
    if (!HasWindow(id)) {
        return false;
    }
    ++state->running[id].activations;
    state->activated = id;
    return true;
}

}  // namespace zvr
