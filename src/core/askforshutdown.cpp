#include "core/askforshutdown.h"

#include "core/dialogqueue.h"
#include "core/language.h"
#include "core/numbers.h"
#include "core/program.h"
#include "platform/platform.h"
#include "ui/stage.h"

namespace zvr {
namespace {

constexpr int dialogWidth = 420;
constexpr int titleHeight = 46;
constexpr std::size_t hibernateAction = 1;
constexpr std::size_t greyTwin = 3;  ///< stands in the place of hibernate where this machine can't

}  // namespace

AskForShutdown::AskForShutdown(Program& program) : program(program) {}

void AskForShutdown::Load() {
    picShutdown = &AddDialogGround(form);
    lblTitle = &AddDialogTitle(form, "SHUTDOWN_TITLE");
    const std::array captions{"SHUTDOWN_QUIT", "SHUTDOWN_HIBERNATE", "SHUTDOWN_REBOOT", "SHUTDOWN_HIBERNATE"};
    for (std::size_t i = 0; i < actions.size(); ++i) {
        const auto choose = [this, i] { program.dialogs.Settle(form, std::to_string(i)); };
        actions[i] = AddDialogButton(form, "imgAction", "lblAction", static_cast<int>(i), captions[i], look,
                                     i == greyTwin ? std::function<void()>() : choose);
    }
    const auto close = [this] { program.dialogs.Settle(form, ""); };
    cancel = AddDialogButton(form, "picCancel", "lblCancel", 0, "SHUTDOWN_CANCEL", look, close);
    translateControls(program.language, form);
    form.onKeyDown = [close](const KeyEvent& key) {
        if (key.key == Key::escape) {
            close();
        }
    };
    program.stage.Add(form);
}

ShutdownChoice AskForShutdown::Ask() {
    DialogRequest request{form, [this] { Dress(); }};
    if (!program.dialogs.Show(request) || request.answer.empty()) {
        return ShutdownChoice::none;
    }
    return static_cast<ShutdownChoice>(LeadingNumber(request.answer));
}

void AskForShutdown::Dress() {
    look = LookOfSkin(program);
    const int margin = look.Scaled(dialogMargin);
    const int step = look.target + look.Scaled(dialogGap);
    const int title = look.Scaled(titleHeight);
    const int width = look.Scaled(dialogWidth);
    const int inside = width - 2 * margin;
    FrameDialog(program, form, *picShutdown, {width, title + 4 * step + look.Scaled(4)}, look);
    DressDialogTitle(*lblTitle, {margin + 4, 0, inside, title}, look);
    const auto row = [&](int number) { return Rect{margin, title + number * step, inside, look.target}; };
    const bool canHibernate = program.platform.power.CanHibernate();
    for (std::size_t i = 0; i < actions.size(); ++i) {
        actions[i].Dress(row(static_cast<int>(i == greyTwin ? hibernateAction : i)), look);
        actions[i].Show(i == greyTwin ? !canHibernate : i != hibernateAction || canHibernate);
    }
    cancel.Dress(row(3), look);
}

}  // namespace zvr
