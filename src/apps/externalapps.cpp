#include "apps/externalapps.h"

#include "apps/quickbars.h"
#include "core/godfather.h"
#include "core/moduleform.h"
#include "core/program.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "ui/stage.h"

#include <utility>

namespace zvr {
namespace {

constexpr std::string_view navigationName = "Navigation";

/// Where a program finds itself: the folder in front of its command line's last separator. Whatever else stands in
/// front makes a folder that isn't there, which is ignored.
std::string FolderOfCommand(const std::string& command) {
    const std::size_t last = command.rfind(files::separator);
    return last == std::string::npos || last == 0 ? "" : command.substr(0, last);
}

}  // namespace

ExternalApps::ExternalApps(Program& program) : program(program) {}

void ExternalApps::Load() {
    LoadModuleForm(program, form);
    applist = &form.Add(ControlKind::grid, "applist");
    applist->events.onClick = [this](Point) { ClickList(false); };
    applist->events.onDoubleClick = [this] { ClickList(true); };
    form.focus = applist;
    program.externalappsctl.LoadAppList();
    RefreshAppList();
}

void ExternalApps::RefreshAppList() {
    Grid& grid = *applist->grid;
    const bool bold = applist->font.get().bold;
    grid.SetRedraw(false);
    grid.Clear();
    std::int32_t index = 0;
    for (const ExternalApp& app : program.externalappsctl.externalApps) {
        grid.AddRow(app.name, index++, ListIcon::none, bold);
    }
    grid.Select(1);
    grid.SetRedraw(true);
}

void ExternalApps::SkinApplied() {
    if (form.loaded) {
        RefreshAppList();
        program.quickbars.Refit();
    }
}

void ExternalApps::ClickList(bool isDoubleClick) {
    if (program.godfather.singleClickListSelect != isDoubleClick) {
        StartSelectedProgram(false);
    }
}

bool ExternalApps::Runs(const ExternalApp& app) const {
    return app.processId != 0 && program.platform.processes.Lives(app.processId);
}

void ExternalApps::StartSelectedProgram(bool isNavigation) {
    ExternalApp wanted;
    if (isNavigation) {
        wanted = {std::string(navigationName), naviExe, naviQuickbar == "docked", true};
    } else {
        const int row = applist->grid->Row();
        if (row == 0) {
            return;
        }
        wanted = program.externalappsctl.externalApps[static_cast<std::size_t>(applist->grid->RowAt(row).data)];
    }
    std::int32_t slot = -1;
    std::int32_t next = 0;
    for (const ExternalApp& app : runningPrograms) {
        if (app.command.empty()) {
            slot = next;
        } else if (app.command == wanted.command && Runs(app)) {
            lastActiveProgram = next;
            SwitchToRunningApp(next);
            return;
        }
        ++next;
    }
    if (slot < 0) {
        slot = next;
        runningPrograms.emplace_back();
    }
    runningPrograms[static_cast<std::size_t>(slot)] = std::move(wanted);
    RunPreparedProgram(slot);
}

void ExternalApps::RunPreparedProgram(std::int32_t slot) {
    // By number at each use: while this waits, the table may grow.
    const auto app = [this, slot]() -> ExternalApp& { return runningPrograms[static_cast<std::size_t>(slot)]; };
    program.stage.Hide(program.godfather.form);
    ShowBar(app().docked);
    const auto started = program.platform.processes.Start(
        app().command, {.state = app().maximized ? StartState::maximized : StartState::normal,
                        .folder = FolderOfCommand(app().command)});
    if (!started) {
        app() = {};
        program.showMessage(program.languageText("EXTERNALAPPS_COULDNOTRUN"));
        return;  // the main form stays away: the bar is the way back
    }
    app().processId = *started;
    lastActiveProgram = slot;
    ++noOfRunningPrograms;
    if (!program.externalappsctl.WaitForProcess(*started)) {
        return;
    }
    if (--noOfRunningPrograms == 0) {
        program.quickbars.Hide();
        ShowMainForm();
    }
    const bool wasNavigation = app().command == naviExe;
    program.dispatchCommand(wasNavigation ? "mainmenu.show" : "externalapps.show");
    app() = {};
}

void ExternalApps::SwitchToRunningApp(std::int32_t slot) {
    ExternalApp app = slot < 0 ? ExternalApp{} : runningPrograms[static_cast<std::size_t>(slot)];
    // One that has ended stays in the table while a later one's wait is above its own.
    if (!Runs(app)) {
        for (const ExternalApp& other : runningPrograms) {
            if (Runs(other)) {
                app = other;
            }
        }
    }
    if (!Runs(app)) {
        program.showMessage(program.languageText("EXTERNALAPPS_NORUNNINGAPP"));
        return;
    }
    ShowBar(app.docked);
    program.stage.Hide(program.godfather.form);
    program.platform.processes.Activate(app.processId);
}

void ExternalApps::SwitchTask() {
    const auto slots = static_cast<std::int32_t>(runningPrograms.size());
    std::int32_t slot = lastActiveProgram;
    for (std::int32_t round = 0; round < slots; ++round) {
        slot = slot + 1 >= slots ? 0 : slot + 1;
        const ExternalApp& app = runningPrograms[static_cast<std::size_t>(slot)];
        if (app.processId != 0 && program.platform.processes.Activate(app.processId)) {
            lastActiveProgram = slot;
            return;
        }
    }
}

void ExternalApps::ShowOSK() {
    FocusTextBox();
    Processes& processes = program.platform.processes;
    if (keyboard != 0) {
        processes.Activate(keyboard);
        return;
    }
    // No wait: it comes up above a box that is being typed into, and the box's own wait must not outlast it.
    const auto started = processes.Start(oskExe, {.ended = lifetime.Guard([this] { keyboard = 0; })});
    keyboard = started.value_or(0);
    if (!started) {
        program.showMessage(program.languageText("EXTERNALAPPS_OSKERROR"));
    }
}

/// Where nothing is typed into yet, what the keyboard types goes into the screen's first box.
void ExternalApps::FocusTextBox() {
    Form* const active = program.stage.ActiveForm();
    if (active == nullptr || (active->focus != nullptr && active->focus->text)) {
        return;
    }
    for (Control* const control : active->Controls()) {
        if (control->text && control->IsShown() && !control->text->readOnly) {
            active->focus = control;
            control->SetText(control->text->text, static_cast<int>(text::Length(control->text->text)));
            control->MarkDirty();
            return;
        }
    }
}

void ExternalApps::BackToMainMenu() {
    program.quickbars.Hide();
    const unsigned before = barShows;
    program.platform.loop.Wait(Milliseconds{msecToWaitOnSwitchback});
    if (program.platform.loop.IsQuitting() || barShows != before) {
        return;  // he is on his way to a program again
    }
    ShowMainForm();
    program.dispatchCommand("mainmenu.show");
}

void ExternalApps::LeaveProgram() {
    program.quickbars.Hide();
    ShowMainForm();
}

void ExternalApps::ShowBar(bool docked) {
    ++barShows;
    registeredAppBar = docked;
    if (docked) {
        program.quickbars.ShowDocked();
    } else {
        program.quickbars.ShowFloating();
    }
}

void ExternalApps::ShowMainForm() {
    program.stage.Show(program.godfather.form);
    program.platform.screen.ActivateRoot();
}

}  // namespace zvr
