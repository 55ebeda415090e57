#pragma once

#include "ui/form.h"

#include <memory>

namespace zvr {

/// The desktop around the program: its panels.
class Desktop {
public:
    Desktop();
    ~Desktop();

    void HideTaskbar();  ///< hides the panels of other programs and notes them, so that any later run can show them
    void ShowTaskbar();  ///< shows what was noted; harmless when nothing was

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
