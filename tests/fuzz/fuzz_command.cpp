#include "core/commanddispatcher.h"
#include "core/dialogqueue.h"
#include "core/messagebox.h"
#include "options/options.h"
#include "platform/headless/processes.h"
#include "platform/text.h"
#include "support/minimal.h"
#include "ui/stage.h"

#include <algorithm>
#include <cstdlib>

namespace {

// Quick jump and the shutdown prompt wait for a finger as the message box does; here it always leaves them. Programs
// that are waited for come to their end.
void EndWaits(zvr::Bench& bench) {
    zvr::Program& program = *bench.program;
    zvr::Processes::State& programs = *bench.platform.processes.state;
    if (!programs.running.empty()) {
        programs.End(programs.running.begin()->first);
    }
    const zvr::DialogRequest* open = program.dialogs.Open();
    if (open != nullptr && &open->form != &program.messagebox.form) {
        program.dialogs.Settle(open->form, "");
    }
}

}  // namespace

// Any text at all may stand on a button, a function key or a quick jump entry. Whatever it does, the program
// stands afterwards with no dialog open, and the text that was run is in lower case.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static const auto bench = zvr::RunningBench();
    static zvr::Timer finger{bench->platform.loop, [] { EndWaits(*bench); }};
    finger.SetInterval(zvr::Milliseconds{20});
    finger.Start();
    const std::string given(reinterpret_cast<const char*>(data), size);
    if (zvr::text::Lower(given).find("app.exit") != std::string::npos) {
        return 0;
    }
    std::string command = given;
    bench->program->commanddispatcher.dispatchCommand(command);
    bench->messages.clear();
    bench->Advance(zvr::Milliseconds{50});
    if (bench->program->options.IsOpen()) {
        bench->program->options.Cancel();
    }
    if (command != zvr::text::Lower(command) || bench->program->stage.ModalForm() != nullptr || bench->loop.quitting) {
        std::abort();
    }
    return 0;
}
