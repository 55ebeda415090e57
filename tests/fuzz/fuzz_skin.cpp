#include "target.h"

#include "core/mainmenu.h"
#include "core/tick.h"
#include "platform/text.h"
#include "skin/skinner.h"
#include "support/minimal.h"

namespace {

constexpr const char* goodSkin = "Dark&Silver 800x600";

void RequireBounds(const zvr::Program& program) {
    for (const zvr::Form* form : program.ModuleForms()) {
        zvr::Require(form->Controls().size() <= 5000);
        for (const zvr::Control* control : form->Controls()) {
            (void)control->VisiblePlace();
        }
    }
}

/// A bench that can change to and fro between two good skins.
std::unique_ptr<zvr::Bench> BenchWithTwoSkins() {
    auto bench = zvr::RunningBench();
    bench->skin.WriteTo(bench->folder, "again");
    bench->skin.WriteTo(bench->folder, "fuzzed");
    bench->folder.Write("skins/fuzzed/broken.png", "no picture");
    return bench;
}

/// Touches the main menu, unless a button there leaves the program.
void Touch(zvr::Bench& bench) {
    for (const zvr::Control* control : bench.program->mainmenu.form.Controls()) {
        if (zvr::text::Lower(control->Tag()).find("exit") != std::string::npos) {
            return;
        }
    }
    bench.Tap(zvr::Point{50, 25});
    bench.Advance(zvr::Milliseconds{200});
}

}  // namespace

// Any skindata.xml at all, applied over a good skin: the screens can be shown, touched and refreshed, the skin in force
// is one of the two, and only a load without a fault makes it the new one.
void zvr::Try(std::string_view input) {
    static const auto bench = BenchWithTwoSkins();
    zvr::Program& program = *bench->program;
    zvr::Skinner& skinner = program.skinner;
    bench->folder.Write("skins/fuzzed/skindata.xml", input);
    bench->dialogs.critical.clear();
    skinner.LoadSkin("fuzzed");
    const bool applied = skinner.loadedSkin == "fuzzed";
    if (bench->loop.quitting) {
        bench->loop.quitting = false;  // a shadow's distance that is no number ends the program
    } else {
        Require(applied == bench->dialogs.critical.empty());
    }
    program.tick.Run();
    program.dispatchCommand("mainmenu.show");
    Touch(*bench);
    RequireBounds(program);
    skinner.LoadSkin(skinner.loadedSkin == goodSkin ? "again" : goodSkin);
}
