#pragma once

#include "ui/form.h"

#include <functional>
#include <optional>
#include <string>

namespace zvr {

/// Colours and measures of the options and what opens over them, by day or by night. No skin has a say in it: the
/// options are where a broken skin is put right.
struct OptionLook {
    Color pageTop, pageBottom, well, wellAlt, wellEdge, keyTop, keyBottom, keyHigh, flatTop, flatBottom, line, text,
        dim, silver, silverHigh, accent, accentDeep, onDeep, off, pressTop, pressBottom, pressEdge, pressInk;
    double scale = 1;  ///< of all measures below

    int margin = 0;  ///< pixels, as all of these
    int footGap = 0;
    int foot = 0;  ///< height of the keys there
    int tabWidth = 0;
    int tabRow = 0;
    int row = 0;
    int heading = 0;

    [[nodiscard]] int Scaled(int pixels) const;
    [[nodiscard]] Font TextFont(double points, bool medium = false) const;
    [[nodiscard]] Plate Sunk(int radius = 10) const;
};

[[nodiscard]] OptionLook LookFor(Size screen, bool night);

/// Shows a text in the room: in one line, else in two smaller ones, the middle left out at last.
void PlaceText(Control& label, Rect room, const std::string& text, const OptionLook& look, double points = 17,
               bool medium = false);

/// Captions that stand before a control end in a colon; elsewhere it is too much.
[[nodiscard]] std::string WithoutColon(std::string text);

enum class KeyStyle { raised, quiet, primary };

/// A key of a dialog: a plate with an icon, a text, or both, one above the other.
class OptionKey {
public:
    std::string icon;
    std::string text;
    KeyStyle style = KeyStyle::quiet;
    bool iconBeside = false;       ///< left of the text, not above
    std::optional<Color> swatch;   ///< shown in place of a text
    std::function<void()> onDown;  ///< a key that repeats
    std::function<void()> onUp;
    std::function<void()> onClick;  ///< another

    void Make(Form& form, std::string name, int index, Rect place, const OptionLook& look);
    void Enable(bool on);
    void SetText(const std::string& newText);
    void SetSwatch(Color color);  ///< of a key that was made with one
    [[nodiscard]] bool Enabled() const { return enabled; }

private:
    void Dress(bool pressed);

    const OptionLook* look = nullptr;
    Control* plate = nullptr;
    Control* image = nullptr;
    Control* label = nullptr;
    Control* chip = nullptr;
    Rect place;
    bool enabled = true;
};

}  // namespace zvr
