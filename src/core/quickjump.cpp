#include "core/quickjump.h"

#include "core/dialogqueue.h"
#include "core/godfather.h"
#include "core/language.h"
#include "core/numbers.h"
#include "core/program.h"
#include "platform/platform.h"
#include "ui/stage.h"

#include <algorithm>
#include <utility>

namespace zvr {
namespace {

constexpr int dialogWidth = 420;
constexpr int titleHeight = 42;
constexpr int aroundList = 130;  ///< pixels of the screen's height that the list leaves free, as the menu's own rest
constexpr double rowPoints = 18;

}  // namespace

QuickJump::QuickJump(Program& program) : program(program) {}

void QuickJump::Load() {
    picQuickjump = &AddDialogGround(form);
    lblTitle = &AddDialogTitle(form, "QUICKJUMP_TITLE");
    sevJumpList = &form.Add(ControlKind::grid, "sevJumpList");
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
    ok = AddDialogButton(form, "picOK", "lblOK", 0, "QUICKJUMP_OK", look, [this] { Accept(); });
    cancel = AddDialogButton(form, "picCancel", "lblCancel", 0, "QUICKJUMP_CANCEL", look, [this] { Cancel(); });
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

void QuickJump::showQuickJump() {
    const std::vector<QuickJumpEntry> entries = program.godfather.quickJumpList;
    if (entries.empty()) {
        program.showMessage(program.languageText("QUICKJUMP_EMPTYLIST"));
        return;
    }
    bool listed = false;
    DialogRequest request{form, [&] {
                              if (!std::exchange(listed, true)) {
                                  List(entries);
                              }
                              Dress();
                          }};
    if (!program.dialogs.Show(request) || request.answer.empty()) {
        return;
    }
    const auto row = static_cast<std::size_t>(LeadingNumber(request.answer));
    if (row >= 1 && row <= entries.size()) {
        const std::string& quickJumpCommand = entries[row - 1].second;
        program.dispatchCommand(quickJumpCommand);
    }
}

void QuickJump::List(const std::vector<QuickJumpEntry>& entries) {
    Grid& grid = *sevJumpList->grid;
    grid.Clear();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        grid.AddRow(entries[i].first, static_cast<std::int32_t>(i));
    }
}

void QuickJump::Dress() {
    look = LookOfSkin(program);
    const int margin = look.Scaled(dialogMargin);
    const int gap = look.Scaled(dialogGap);
    const int title = look.Scaled(titleHeight);
    const int width = look.Scaled(dialogWidth);
    const int inside = width - 2 * margin;
    // Whole rows only: half an entry at the lower edge is none to aim at.
    const int below = look.target + 2 * gap;
    const int free = program.platform.screen.PixelSize().height - std::max(aroundList, title + below);
    const int most = std::max(1, free / look.target);
    const int listHeight = std::min(sevJumpList->grid->RowCount(), most) * look.target;
    FrameDialog(program, form, *picQuickjump, {width, title + listHeight + below}, look);
    DressDialogTitle(*lblTitle, {margin + 4, 0, inside, title}, look);
    sevJumpList->Move({margin, title, inside, listHeight});
    sevJumpList->font = look.TextFont(rowPoints);
    sevJumpList->grid->SetLook({look.target, look.text, look.ground, look.ground, look.text, look.selection});
    const int top = title + listHeight + gap;
    const int half = (inside - gap) / 2;
    ok.Dress({margin, top, half, look.target}, look);
    cancel.Dress({margin + half + gap, top, half, look.target}, look);
}

void QuickJump::Accept() {
    if (const int row = sevJumpList->grid->Row(); row >= 1) {
        program.dialogs.Settle(form, std::to_string(row));
    }
}

void QuickJump::Cancel() {
    program.dialogs.Settle(form, "");
}

}  // namespace zvr
