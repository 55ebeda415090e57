#include "core/askforshutdown.h"

#include "core/dialoglook.h"
#include "core/godfather.h"
#include "core/language.h"
#include "core/messagebox.h"
#include "core/program.h"
#include "platform/platform.h"
#include "ui/stage.h"

namespace zvr {
namespace {

constexpr int dialogWidth = 420;
constexpr int titleHeight = 46;
constexpr int rowStep = dialogTarget + 8;
constexpr int greyTwin = 3;  ///< stands in the place of an action that this machine can't do

}  // namespace

AskForShutdown::AskForShutdown(Program& program) : program(program) {}

ShutdownChoice AskForShutdown::Ask() {
    program.messagebox.waitForMessageBox();
    program.godfather.modalBoxOpen = true;
    shutdownChoice = ShutdownChoice::none;
    Load();
    program.stage.ShowModal(form);
    program.stage.Remove(form);
    return shutdownChoice;
}

void AskForShutdown::Load() {
    form.RemoveControls();
    const DialogLook look = LookOfSkin(program);
    FrameDialog(program, form, {dialogWidth, titleHeight + 4 * rowStep + 4}, look);
    AddDialogText(form, "lblTitle", 0, {dialogMargin + 4, 10, dialogWidth - 2 * dialogMargin, titleHeight - 10},
                  "SHUTDOWN_TITLE", look.dim, 15);
    AddAction(0, "SHUTDOWN_QUIT", true);
    AddAction(1, "SHUTDOWN_HIBERNATE", program.platform.power.CanHibernate());
    AddAction(2, "SHUTDOWN_REBOOT", true);
    AddDialogButton(form, "picCancel", "lblCancel", 0,
                    {dialogMargin, titleHeight + 3 * rowStep, dialogWidth - 2 * dialogMargin, dialogTarget},
                    "SHUTDOWN_CANCEL", look, [this] { Close(); });
    translateControls(program.language, form);
    form.onKeyDown = [this](const KeyEvent& key) {
        if (key.key == Key::escape) {
            Close();
        }
    };
    program.stage.Add(form);
}

void AskForShutdown::AddAction(int action, const char* languageKey, bool allowed) {
    const Rect place{dialogMargin, titleHeight + action * rowStep, dialogWidth - 2 * dialogMargin, dialogTarget};
    AddDialogButton(form, "imgAction", "lblAction", allowed ? action : greyTwin, place, languageKey,
                    LookOfSkin(program), allowed ? [this, action] { Choose(action); } : std::function<void()>());
}

void AskForShutdown::Choose(int action) {
    shutdownChoice = static_cast<ShutdownChoice>(action);
    Close();
}

void AskForShutdown::Close() {
    program.stage.Hide(form);
    // Here and not when the caller goes on: a dialog that was asked for meanwhile waits inside of this one's wait.
    program.godfather.modalBoxOpen = false;
}

}  // namespace zvr
