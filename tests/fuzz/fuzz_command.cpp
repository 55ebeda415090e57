#include "target.h"

#include "core/commanddispatcher.h"
#include "core/dialogqueue.h"
#include "core/messagebox.h"
#include "options/options.h"
#include "platform/headless/processes.h"
#include "platform/text.h"
#include "support/minimal.h"
#include "ui/stage.h"

#include <algorithm>

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
void zvr::Try(std::string_view input) {
    static const auto bench = zvr::RunningBench();
    static zvr::Timer finger{bench->platform.loop, [] { EndWaits(*bench); }};
    finger.SetInterval(zvr::Milliseconds{20});
    finger.Start();
    std::string command(input);
    if (zvr::text::Lower(command).find("app.exit") != std::string::npos) {
        return;
    }
    bench->program->commanddispatcher.dispatchCommand(command);
    bench->messages.clear();
    bench->Advance(zvr::Milliseconds{50});
    if (bench->program->options.IsOpen()) {
        bench->program->options.Cancel();
    }
    Require(command == zvr::text::Lower(command));
    Require(bench->program->stage.ModalForm() == nullptr && !bench->loop.quitting);
}
