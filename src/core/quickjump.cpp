#include "core/quickjump.h"

#include "core/dialoglook.h"
#include "core/godfather.h"
#include "core/language.h"
#include "core/messagebox.h"
#include "core/program.h"
#include "platform/platform.h"
#include "ui/stage.h"

#include <algorithm>

namespace zvr {
namespace {

constexpr int rowHeight = dialogTarget;
constexpr int dialogWidth = 420;
constexpr int aroundList = 130;  ///< title above and buttons below the list
constexpr int titleHeight = 42;

}  // namespace

QuickJump::QuickJump(Program& program) : program(program) {}

void QuickJump::showQuickJump() {
    if (program.godfather.quickJumpList.empty()) {
        program.showMessage(program.languageText("QUICKJUMP_EMPTYLIST"));
        return;
    }
    program.messagebox.waitForMessageBox();
    program.godfather.modalBoxOpen = true;
    quickJumpCommand.clear();
    Load();
    program.stage.ShowModal(form);
    program.stage.Remove(form);
    if (!quickJumpCommand.empty()) {
        program.dispatchCommand(quickJumpCommand);
    }
}

void QuickJump::Load() {
    form.RemoveControls();
    const auto& entries = program.godfather.quickJumpList;
    const int most = program.platform.screen.PixelSize().height - aroundList;
    const int listHeight = std::min(static_cast<int>(entries.size()) * rowHeight, most);
    const DialogLook look = LookOfSkin(program);
    FrameDialog(program, form, {dialogWidth, listHeight + aroundList}, look);

    AddDialogText(form, "lblTitle", 0, {dialogMargin + 4, 9, dialogWidth - 2 * dialogMargin, titleHeight - 9},
                  "QUICKJUMP_TITLE", look.dim, 15);
    sevJumpList = &form.Add(ControlKind::grid, "sevJumpList");
    sevJumpList->Move(dialogMargin * twipsPerPixel, titleHeight * twipsPerPixel,
                      (dialogWidth - 2 * dialogMargin) * twipsPerPixel, listHeight * twipsPerPixel);
    sevJumpList->font = DialogFont(18);
    GridLook gridLook;
    gridLook.rowHeight = rowHeight;
    gridLook.fore = look.text;
    gridLook.back = look.ground;
    gridLook.backAlternate = look.ground;
    gridLook.selectionFore = look.text;
    gridLook.selectionBack = look.selection;
    sevJumpList->grid->SetLook(gridLook);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        sevJumpList->grid->AddRow(entries[i].first, static_cast<std::int32_t>(i));
    }
    sevJumpList->events.onClick = [this](Point) {
        if (program.godfather.singleClickListSelect) {
            Accept();
        }
    };
    sevJumpList->events.onDoubleClick = [this] {
        if (!program.godfather.singleClickListSelect) {
            Accept();
        }
    };
    const int buttonTop = titleHeight + listHeight + 8;
    const int buttonWidth = (dialogWidth - 2 * dialogMargin - 8) / 2;
    AddDialogButton(form, "picOK", "lblOK", 0, {dialogMargin, buttonTop, buttonWidth, dialogTarget}, "QUICKJUMP_OK",
                    look, [this] { Accept(); });
    AddDialogButton(form, "picCancel", "lblCancel", 0,
                    {dialogMargin + buttonWidth + 8, buttonTop, buttonWidth, dialogTarget}, "QUICKJUMP_CANCEL", look,
                    [this] { Cancel(); });
    translateControls(program.language, form);
    form.focus = sevJumpList;
    form.onKeyDown = [this](const KeyEvent& key) {
        if (key.key == Key::enter) {
            Accept();
        } else if (key.key == Key::escape) {
            Cancel();
        }
    };
    program.stage.Add(form);
}

void QuickJump::Accept() {
    const int row = sevJumpList->grid->Row();
    if (row >= 1) {
        quickJumpCommand = program.godfather.quickJumpList[static_cast<std::size_t>(row) - 1].second;
        Close();
    }
}

void QuickJump::Cancel() {
    quickJumpCommand.clear();
    Close();
}

void QuickJump::Close() {
    program.stage.Hide(form);
    // Here and not when the caller goes on: a dialog that was asked for meanwhile waits inside of this one's wait.
    program.godfather.modalBoxOpen = false;
}

}  // namespace zvr
