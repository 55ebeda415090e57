#pragma once

#include "options/optionlook.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zvr {

class Program;

/// A key below a page.
struct FootKey {
    const char* name;
    const char* icon;
    std::string text;  ///< empty: a small one
    KeyStyle style = KeyStyle::quiet;
    std::function<void()> onClick;
    bool enabled = true;
};

/// What the options, their editors and the choosers consist of: pieces on one form that fills the root, in the light of
/// now. The pieces go with the next Begin.
class OptionParts {
public:
    OptionParts(Program& program, Form& form) : program(program), form(form) {}

    OptionLook look{};

    void Begin();  ///< the form is bare but for the ground
    void Forget();

    /// The room right of a panel of that width, above the keys at the foot.
    [[nodiscard]] Rect PageBeside(int panelWidth) const;
    Control& AddText(Rect room, const std::string& text, Color color, double points = 17, bool medium = false);
    Control& AddPlate(std::string name, Rect place, const Plate& plate, int index = 0);
    Control& AddWell(std::string name, Rect place);
    void AddLine(int left, int top, int width);
    /// Left in the row, in the middle of its height. A touch on it is one on `on`, where that isn't null.
    void AddIcon(const std::string& name, Rect row, int left, int size, Color ink, Control* on);
    OptionKey& AddKey();
    /// One a page at the page's right edge, the present one lit; nothing for a single page.
    void AddMarks(Rect page, int count, int present);
    void AddFoot(Rect page, const std::vector<FootKey>& wanted);

private:
    Program& program;
    Form& form;
    std::vector<std::unique_ptr<OptionKey>> keys;
};

}  // namespace zvr
