// Numbers and times: large keys to step, and a box to type into.
#include "options/optionsheet.h"

#include <algorithm>

namespace zvr {
namespace {

std::string TwoDigits(long number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

void OptionSheet::MakeStepper(std::size_t row, Rect place) {
    const Option& option = rows[row];
    const bool isChoice = option.kind == OptionKind::choice;
    const int keyWidth = look.Scaled(76);
    const int width = isChoice ? std::max(look.Scaled(280), place.width * 3 / 5) : look.Scaled(228);
    const Rect beside = CaptionBeside(row, place, width);
    const int height = look.Scaled(48);
    const Rect field{beside.x, beside.y + (beside.height - height) / 2, width, height};
    Control& ground = parts.AddPlate(std::string(option.name), field, look.Sunk(), KeyIndex(option));
    TellState(ground, row, isChoice ? "choice" : "number");
    const Rect middle{field.x + keyWidth + 4, field.y, field.width - 2 * keyWidth - 8, height};
    if (isChoice) {
        Control& value = parts.AddText(middle, "", look.text);
        value.align = Align::center;
        refreshers.push_back([this, row, &value, middle] {
            value.foreColor = IsEnabled(rows[row]) ? look.text : look.off;
            const std::string text = ChoiceText(row);
            PlaceText(value, middle, text.empty() ? "-" : text, look, 16);
        });
    } else {
        const auto shown = [this, row] {
            const Option& number = rows[row];
            return number.shown != nullptr && !values[row].empty() ? number.shown(values[row]) : values[row];
        };
        MakeNumberBox(std::string(option.name) + "Box", row, middle, shown,
                      [this, row](const std::string& digits) { Changed(row, digits); });
    }
    for (const int step : {-1, 1}) {
        const bool less = step < 0;
        AddStepKey(
            std::string(option.name), row, isChoice ? (less ? "left" : "right") : (less ? "minus" : "plus"),
            {less ? field.x : field.x + field.width - keyWidth, field.y, keyWidth, height},
            [this, row, step](int steps) { Step(row, step * steps); }, less);
    }
}

void OptionSheet::AddStepKey(const std::string& name, std::size_t row, const char* icon, Rect place,
                             std::function<void(int)> step, bool less) {
    OptionKey& key = parts.AddKey();
    key.icon = icon;
    key.onDown = [this, step = std::move(step)] { BeginRepeat(step); };
    key.onUp = [this] { repeatTimer.Stop(); };
    key.Make(form, name + (less ? "Less" : "More"), KeyIndex(rows[row]), place, look);
    refreshers.push_back([this, row, &key] { key.Enable(IsEnabled(rows[row])); });
}

/// A number that can be typed, by the keyboard on the screen too: a touch opens it. While it is typed the box follows
/// the rule of its row, but for a number that may still grow into the range.
Control& OptionSheet::MakeNumberBox(const std::string& name, std::size_t row, Rect place,
                                    std::function<std::string()> shown,
                                    std::function<void(const std::string& digits)> typed) {
    Control& ring = parts.AddPlate(name + "Ring", {place.x, place.y + 1, place.width, place.height - 2}, {});
    Control& box = form.Add(ControlKind::textBox, name, KeyIndex(rows[row]));
    box.Move({place.x + 2, place.y + 3, place.width - 4, place.height - 6});
    box.backColor = look.wellEdge;
    box.font = look.TextFont(20, true);
    box.align = Align::center;
    box.text->digits = true;
    const auto refresh = [this, row, shown, &ring, &box] {
        const bool enabled = IsEnabled(rows[row]);
        const bool focused = form.focus == &box;
        box.foreColor = enabled ? look.text : look.off;
        box.SetReadOnly(!enabled);
        ring.plate = {look.wellEdge, look.wellEdge, focused ? look.accent : look.wellEdge, look.Scaled(8), 2, true};
        if (!focused && box.text->text != shown()) {
            box.SetText(shown(), static_cast<int>(shown().size()));
        }
    };
    refreshers.push_back(refresh);
    box.events.onClick = [this, row, &box](Point) {
        if (IsEnabled(rows[row])) {
            box.SetText(box.text->text, 0, static_cast<int>(box.text->text.size()));
            OpenKeyboardFor(box);
        }
    };
    box.events.onChange = [row, shown, typed = std::move(typed), this, &box] {
        std::string digits;
        for (const char c : box.text->text) {
            digits += c >= '0' && c <= '9' && digits.size() < 6 ? std::string(1, c) : "";
        }
        typed(digits);
        const bool mayGrow = rows[row].lowest > 1 && !digits.empty() && NumberOf(digits) < rows[row].lowest;
        const std::string text = mayGrow ? digits : shown();
        if (box.text->text != text) {
            // What stands in for nothing gives way to the next digit.
            const auto end = static_cast<int>(text.size());
            box.SetText(text, digits.empty() ? 0 : end, digits.empty() ? end : 0);
        }
    };
    return box;
}

void OptionSheet::MakeTime(std::size_t row, Rect place) {
    const Option& option = rows[row];
    const int keyWidth = look.Scaled(76);
    const int digitsWidth = look.Scaled(56);
    const int part = 2 * keyWidth + digitsWidth;
    const int colon = look.Scaled(16);
    const int height = look.Scaled(48);
    const Rect beside = CaptionBeside(row, place, 2 * part + colon);
    const Rect field{beside.x, beside.y + (beside.height - height) / 2, beside.width, height};
    Control& ground = parts.AddPlate(std::string(option.name), field, look.Sunk());
    TellState(ground, row, "time");
    Control& between = parts.AddText({field.x + part, field.y, colon, height}, ":", look.text, 20, true);
    between.align = Align::center;
    refreshers.push_back([this, row, &between] { between.foreColor = IsEnabled(rows[row]) ? look.text : look.off; });
    for (const bool hours : {true, false}) {
        const int left = hours ? field.x : field.x + part + colon;
        const std::string name = std::string(option.name) + (hours ? "Hour" : "Min");
        const auto shown = [this, row, hours] {
            return values[row].size() == 4 ? values[row].substr(hours ? 0 : 2, 2) : "";
        };
        const auto set = [this, row, hours](long number) {
            const std::string now = values[row].size() == 4 ? values[row] : "0000";
            const std::string kept = TwoDigits(std::clamp(number, 0L, hours ? 23L : 59L));
            Changed(row, hours ? kept + now.substr(2) : now.substr(0, 2) + kept);
        };
        MakeNumberBox(name, row, {left + keyWidth, field.y, digitsWidth, height}, shown,
                      [set](const std::string& digits) { set(NumberOf(digits)); });
        for (const int step : {-1, 1}) {
            const bool less = step < 0;
            AddStepKey(
                name, row, less ? "minus" : "plus", {less ? left : left + part - keyWidth, field.y, keyWidth, height},
                [set, shown, step, hours](int steps) {
                    const long round = hours ? 24 : 60;
                    set((NumberOf(shown()) + step * steps + 2 * round) % round);
                },
                less);
        }
    }
}

}  // namespace zvr
