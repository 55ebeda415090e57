// One function for each kind of row: it makes the row's controls, and what shows its value anew.
#include "options/optionsheet.h"

#include "core/program.h"

#include <algorithm>
#include <cstdlib>

namespace zvr {
void OptionSheet::MakeRow(std::size_t row, Rect place) {
    const Option& option = rows[row];
    switch (option.kind) {
        case OptionKind::heading:
            MakeHeading(row, place);
            break;
        case OptionKind::legend:
            MakeLegend(row, place);
            break;
        case OptionKind::toggle:
            MakeToggle(row, place);
            break;
        case OptionKind::segments:
            MakeSegments(row, place);
            break;
        case OptionKind::choice:
        case OptionKind::number:
            MakeStepper(row, place);
            break;
        case OptionKind::time:
            MakeTime(row, place);
            break;
        case OptionKind::slider:
            MakeSlider(row, place);
            break;
        case OptionKind::text:
            MakeText(row, place);
            break;
        case OptionKind::list:
        case OptionKind::editList:
            MakeList(row, place);
            break;
        case OptionKind::action:
            MakeAction(row, place);
            break;
        case OptionKind::swatches:
            MakeSwatches(row, place);
            break;
    }
}

void OptionSheet::MakeHeading(std::size_t row, Rect place) {
    const std::string more = WithoutColon(Text(rows[row].keyCaption));
    parts.AddText({place.x, place.y + look.Scaled(4), place.width, place.height - look.Scaled(4)},
                  WithoutColon(Text(rows[row].caption)) + (more.empty() ? "" : ": " + more), look.dim, 15, true);
}

void OptionSheet::MakeToggle(std::size_t row, Rect place) {
    const Option& option = rows[row];
    Control& hit =
        parts.AddPlate(std::string(option.name), place, {look.well, look.well, 0, 0, 0, true}, KeyIndex(option));
    TellState(hit, row, "switch");
    const int width = look.Scaled(72);
    const int height = look.Scaled(40);
    const Rect beside = CaptionBeside(row, place, width, &hit);
    const Rect groovePlace{beside.x - place.x, (place.height - height) / 2, width, height};
    Control& groove = parts.AddPlate("groove", groovePlace, {});
    groove.container = &hit;
    Control& knob = parts.AddPlate("knob", {}, {});
    knob.container = &hit;
    Control& mark = parts.AddPlate("mark", {}, {});
    mark.container = &hit;
    const auto show = [this, row, &groove, &knob, &mark, groovePlace](bool pressed) {
        const bool on = values[row] == "1";
        const bool enabled = IsEnabled(rows[row]);
        const int size = look.Scaled(33);
        const int inset = (groovePlace.height - size) / 2;
        const bool lit = on && enabled;
        groove.plate =
            lit ? Plate{look.accentDeep, look.accentDeep, look.accent, look.Scaled(10), 1, true} : look.Sunk();
        const Rect knobPlace{on ? groovePlace.x + groovePlace.width - size - inset : groovePlace.x + inset,
                             groovePlace.y + inset, size, size};
        knob.Move(knobPlace);
        knob.plate =
            pressed ? Plate{look.pressTop, look.pressBottom, look.pressEdge, look.Scaled(8), 1, true}
                    : Plate{look.keyTop, look.keyBottom, enabled ? look.silver : look.line, look.Scaled(8), 1, true};
        const Color ink = pressed ? look.pressInk : lit ? look.accent : look.off;
        mark.plate = {ink, ink, 0, 2, 0, true};
        mark.Move({knobPlace.x + (size - look.Scaled(4)) / 2, knobPlace.y + size / 4, look.Scaled(4), size / 2});
    };
    refreshers.push_back([show] { show(false); });
    hit.events.onDown = [this, row, show](Point) { show(IsEnabled(rows[row])); };
    hit.events.onUp = [show](Point) { show(false); };
    hit.events.onClick = [this, row](Point) {
        if (IsEnabled(rows[row])) {
            Changed(row, values[row] == "1" ? "0" : "1");
        }
    };
}

void OptionSheet::MakeSegments(std::size_t row, Rect place) {
    const Option& option = rows[row];
    const auto all = EntriesFor(row);
    const bool wide = option.caption.empty();
    const int columns = wide ? 2 : static_cast<int>(all.size());
    const int lines = wide ? (static_cast<int>(all.size()) + 1) / 2 : 1;
    Rect field = wide ? place : CaptionBeside(row, place, std::min(place.width * 3 / 5, look.Scaled(160) * columns));
    field.y += look.Scaled(3);
    field.height -= look.Scaled(6);
    Control& ground = parts.AddPlate(std::string(option.name), field, look.Sunk(), KeyIndex(option));
    TellState(ground, row, "radio");
    for (int i = 0; i < static_cast<int>(all.size()); ++i) {
        const int column = i % columns;
        const int line = i / columns;
        const Rect part{field.x + 3 + (field.width - 6) * column / columns,
                        field.y + 3 + (field.height - 6) * line / lines, (field.width - 6) / columns,
                        (field.height - 6) / lines};
        Control& plate = parts.AddPlate(std::string(option.name) + "Segment", part, {}, i + 1);
        const OptionChoice choice = all[static_cast<std::size_t>(i)];
        plate.caption = WithoutColon(Text(choice.caption));
        plate.role = "segment";
        Control& label =
            parts.AddText({part.x + 4, part.y, part.width - 8, part.height}, plate.caption, look.text, 15, true);
        label.align = Align::center;
        const auto show = [this, row, value = choice.value, &plate, &label](bool pressed) {
            const bool chosen = values[row] == value;
            const bool enabled = IsEnabled(rows[row]);
            plate.SetTag(chosen ? "1" : "0");
            const Color ground = chosen && enabled ? look.accentDeep : look.wellEdge;
            plate.plate = pressed ? Plate{look.pressTop, look.pressBottom, look.pressEdge, look.Scaled(8), 1, true}
                                  : Plate{ground, ground, 0, look.Scaled(8), 0, true};
            label.foreColor = pressed ? look.pressInk : !enabled ? look.off : chosen ? look.onDeep : look.text;
        };
        refreshers.push_back([show] { show(false); });
        plate.events.onDown = [this, row, show](Point) { show(IsEnabled(rows[row])); };
        plate.events.onUp = [show](Point) { show(false); };
        plate.events.onClick = [this, row, value = choice.value](Point) {
            if (IsEnabled(rows[row])) {
                Changed(row, value);
            }
        };
    }
}

void OptionSheet::MakeText(std::size_t row, Rect place) {
    const Option& option = rows[row];
    const int keyWidth = look.Scaled(76);
    const int gap = look.Scaled(8);
    const bool picks = option.picks != Picks::nothing;
    const int keysWidth = (picks ? 2 : 1) * (keyWidth + gap);
    const int captionWidth = CaptionWidthOfTexts(row, place.width * 34 / 100);
    const Rect beside = captionWidth == 0 ? place : CaptionBeside(row, place, place.width - captionWidth);
    const int height = look.Scaled(50);
    const Rect field{beside.x, place.y + (place.height - height) / 2, beside.width - keysWidth, height};
    Control& ground = parts.AddPlate(std::string(option.name) + "Field", field, look.Sunk());
    Control& box = form.Add(ControlKind::textBox, std::string(option.name), KeyIndex(option));
    box.Move({field.x + 5, field.y + 4, field.width - 10, field.height - 8});
    box.backColor = look.wellEdge;
    box.font = look.TextFont(16);
    TellState(box, row, "text");
    box.events.onDown = [this](Point) { Refresh(); };
    box.events.onChange = [this, row, &box] { Changed(row, box.text->text); };
    refreshers.push_back([this, row, &box, &ground] {
        const bool enabled = IsEnabled(rows[row]);
        box.foreColor = enabled ? look.text : look.off;
        box.SetReadOnly(!enabled);
        ground.plate = look.Sunk();
        if (form.focus == &box) {
            ground.plate = {look.wellEdge, look.wellEdge, look.accent, look.Scaled(10), 2, true};
        }
        if (box.text->text != values[row]) {
            box.SetText(values[row], static_cast<int>(values[row].size()));
        }
    });
    int left = field.x + field.width + gap;
    const auto addKey = [&](const char* name, const char* icon, std::function<void()> onClick) {
        OptionKey& key = parts.AddKey();
        key.icon = icon;
        key.onClick = std::move(onClick);
        key.Make(form, std::string(option.name) + name, KeyIndex(option), {left, field.y + 1, keyWidth, height - 2},
                 look);
        refreshers.push_back([this, row, &key] { key.Enable(IsEnabled(rows[row])); });
        left += keyWidth + gap;
    };
    addKey("Keyboard", "keyboard", [this, &box] { OpenKeyboardFor(box); });
    if (picks) {
        addKey("Pick", option.picks == Picks::command ? "list" : "open-folder", [this, row] {
            if (onPick) {
                onPick(row);
            }
        });
    }
}

void OptionSheet::MakeAction(std::size_t row, Rect place) {
    const int height = look.Scaled(48);
    const int top = place.y + (place.height - height) / 2;
    if (const auto others = PartsOf(row); !others.empty()) {
        const int gap = look.Scaled(8);
        const int half = (place.width - gap) / 2;
        MakeActionKey(row, {place.x, top, half, height});
        MakeActionKey(others.front(), {place.x + half + gap, top, half, height});
        return;
    }
    const Rect beside = CaptionBeside(row, place, look.Scaled(220));
    MakeActionKey(row, {beside.x, top, beside.width, height});
}

void OptionSheet::MakeActionKey(std::size_t row, Rect place) {
    const Option& option = rows[row];
    OptionKey& key = parts.AddKey();
    const auto text = [this, row] {
        const std::string own = keyText ? keyText(row) : std::string();
        return own.empty() ? Text(rows[row].keyCaption) : own;
    };
    key.swatch = keySwatch ? keySwatch(row) : std::nullopt;
    key.icon = option.icon;
    key.text = text();
    key.text = key.text.empty() && !key.swatch && key.icon.empty() ? " " : key.text;
    key.style = key.icon.empty() ? KeyStyle::raised : KeyStyle::quiet;
    key.onClick = [this, row] {
        if (onAction) {
            onAction(row);
        }
    };
    key.Make(form, std::string(option.name), 0, place, look);
    refreshers.push_back([this, row, &key, text] {
        key.Enable(IsEnabled(rows[row]) && (!mayAct || mayAct(row)));
        key.SetText(text());
        if (key.swatch) {
            key.SetSwatch(*keySwatch(row));
        }
    });
}

void OptionSheet::MakeSwatches(std::size_t row, Rect place) {
    const int columns = (static_cast<int>(EntriesFor(row).size()) + 1) / 2;
    const int gap = look.Scaled(8);
    Control& ground = parts.AddPlate(std::string(rows[row].name), place, {look.well, look.well, 0, 0, 0, true});
    TellState(ground, row, "radio");
    for (int i = 0; i < 2 * columns; ++i) {
        const int left = place.x + (place.width + gap) * (i % columns) / columns;
        const int right = place.x + (place.width + gap) * (i % columns + 1) / columns - gap;
        const int top = place.y + gap / 2 + place.height * (i / columns) / 2;
        Control& frame = parts.AddPlate(std::string(rows[row].name) + "Segment",
                                        {left, top, right - left, place.height / 2 - gap}, {}, i + 1);
        frame.role = "segment";
        Control& chip = parts.AddPlate("swatch", {}, {});
        chip.container = &frame;
        const auto color = [this, row, i] {
            const auto all = EntriesFor(row);
            return all[std::min(static_cast<std::size_t>(i), all.size() - 1)].value;
        };
        refreshers.push_back([this, row, color, &frame, &chip] {
            const bool chosen = values[row] == color();
            frame.SetTag(chosen ? "1" : "0");
            frame.caption = color();
            frame.plate = {look.well,       look.well,      chosen ? look.accent : look.line,
                           look.Scaled(10), chosen ? 3 : 1, true};
            const auto shown = static_cast<Color>(NumberOf(color()));
            const int inset = chosen ? look.Scaled(7) : 1;
            const Rect whole = frame.Place();
            chip.Move({inset, inset, whole.width - 2 * inset, whole.height - 2 * inset});
            chip.plate = {shown, shown, 0, look.Scaled(chosen ? 6 : 9), 0, true};
        });
        frame.events.onClick = [this, row, color](Point) { Changed(row, color()); };
    }
}

}  // namespace zvr
