#pragma once

#include "ui/form.h"

namespace zvr {

class Program;

/// The two bars that stand above other programs and bring the driver back.
class QuickBars {
public:
    explicit QuickBars(Program& program);

    Form docked{"quickbardocked", FormRole::window};
    Form floating{"quickbarfloating", FormRole::window};

    void Load();

    void ShowDocked();    ///< along the top edge, other programs stay clear of it
    void ShowFloating();  ///< where it was left, at first near the lower right corner
    void Refit();         ///< the docked one, if it shows
    /// Hides the one in use, noting where the floating one stands.
    void Hide();

private:
    void RegisterAppBar();
    void RemoveAppBar();

    Program& program;
};

}  // namespace zvr
