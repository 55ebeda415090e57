#include "apps/quickbars.h"

#include "apps/externalapps.h"
#include "core/moduleform.h"
#include "core/program.h"
#include "platform/platform.h"
#include "skin/clsstyle.h"
#include "ui/stage.h"

#include <algorithm>

namespace zvr {
namespace {

// From the lower right corner, when the bar was never placed; pixels.
constexpr int firstFromRight = 50;
constexpr int firstFromBottom = 100;

/// Of a level from 0, nearly opaque, to 10, which can still be found.
constexpr int AlphaOf(int transparency) {
    return (10 - transparency) * 24 + 14;
}

}  // namespace

QuickBars::QuickBars(Program& program) : program(program) {}

void QuickBars::Load() {
    LoadModuleForm(program, docked, History::notRecorded);
    LoadModuleForm(program, floating, History::notRecorded);
    floating.onPress = [this] {
        clsStyle style(program.platform.screen);
        style.Client = &floating;
        style.AutoDrag = true;
        style.MouseDown();
    };
}

void QuickBars::ShowDocked() {
    RegisterAppBar();
    docked.topMost = true;
    SetFormAlpha(docked, AlphaOf(program.externalapps.dockedWindowTransparency));
    program.stage.Show(docked);
}

void QuickBars::ShowFloating() {
    int& x = program.externalapps.floatingWindowX;
    int& y = program.externalapps.floatingWindowY;
    const Size screen = program.platform.screen.PixelSize();
    const Rect bar = floating.Place();
    if (x == -1) {
        x = screen.width - bar.width - firstFromRight;
    }
    if (y == -1) {
        y = screen.height - bar.height - firstFromBottom;
    }
    // All of it, on a screen that is smaller than the one it was left on too.
    floating.left = Twips(std::clamp(x, 0, std::max(0, screen.width - bar.width)));
    floating.top = Twips(std::clamp(y, 0, std::max(0, screen.height - bar.height)));
    floating.topMost = true;
    SetFormAlpha(floating, AlphaOf(program.externalapps.floatingWindowTransparency));
    program.stage.Show(floating);
}

void QuickBars::Refit() {
    if (docked.visible) {
        RegisterAppBar();
    }
}

void QuickBars::Hide() {
    if (program.externalapps.registeredAppBar) {
        RemoveAppBar();
        program.stage.Hide(docked);
    } else if (floating.visible) {
        const Rect place = floating.Place();
        program.externalapps.floatingWindowX = place.x;
        program.externalapps.floatingWindowY = place.y;
        program.stage.Hide(floating);
    }
}

void QuickBars::RegisterAppBar() {
    docked.left = 0;
    docked.top = 0;
    docked.Resize({program.platform.screen.PixelSize().width, docked.Place().height});
    docked.reservesTop = true;
}

void QuickBars::RemoveAppBar() {
    docked.reservesTop = false;
}

}  // namespace zvr
