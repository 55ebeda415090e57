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

private:
    Program& program;
};

}  // namespace zvr
