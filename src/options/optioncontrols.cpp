// One function for each kind of row: it makes the row's controls, and what shows its value anew.
#include "options/optionsheet.h"

#include "core/program.h"

#include <algorithm>
#include <cstdlib>

namespace zvr {
namespace {

int KeyIndex(const Option& option) {
    return option.element < 0 ? -option.element : option.element;
}

long NumberOf(const std::string& text) {
    return std::strtol(text.c_str(), nullptr, 10);
}

std::string TwoDigits(long number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

void OptionSheet::MakeRow(std::size_t row, Rect place) {
    const Option& option = rows[row];
    switch (option.kind) {
        case OptionKind::heading:
            parts.AddText({place.x, place.y + look.Scaled(4), place.width, place.height - look.Scaled(4)},
                          Text(option.caption), look.dim, 15, true);
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

void OptionSheet::MakeToggle(std::size_t row, Rect place) {
    const Option& option = rows[row];
    Control& hit =
        parts.AddPlate(std::string(option.name), place, {look.well, look.well, 0, 0, 0, true}, KeyIndex(option));
    TellState(hit, row, "switch");
    const int width = look.Scaled(72);
    const int height = look.Scaled(40);
    const Rect beside = CaptionBeside(row, place, width);
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
        plate.caption = Text(choice.caption);
        plate.role = "segment";
        Control& label =
            parts.AddText({part.x + 4, part.y, part.width - 8, part.height}, Text(choice.caption), look.text, 15, true);
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
    Control& value = parts.AddText(middle, "", look.text);
    value.align = Align::center;
    const auto addKey = [&](const char* name, const char* icon, int left, int step) -> OptionKey& {
        OptionKey& key = parts.AddKey();
        key.icon = icon;
        key.style = KeyStyle::quiet;
        key.onDown = [this, row, step] { BeginRepeat([this, row, step](int steps) { Step(row, step * steps); }); };
        key.onUp = [this] { repeatTimer.Stop(); };
        key.Make(form, std::string(option.name) + name, KeyIndex(option), {left, field.y, keyWidth, height}, look);
        return key;
    };
    OptionKey& less = addKey("Less", isChoice ? "left" : "minus", field.x, -1);
    OptionKey& more = addKey("More", isChoice ? "right" : "plus", field.x + field.width - keyWidth, 1);
    refreshers.push_back([this, row, isChoice, &value, &less, &more, middle] {
        const bool enabled = IsEnabled(rows[row]);
        const std::string text = isChoice ? ChoiceText(row) : values[row].empty() ? "-" : values[row];
        value.foreColor = enabled ? look.text : look.off;
        PlaceText(value, middle, text, look, isChoice ? 16 : 20, !isChoice);
        less.Enable(enabled);
        more.Enable(enabled);
    });
}

void OptionSheet::MakeTime(std::size_t row, Rect place) {
    const Option& option = rows[row];
    const int keyWidth = look.Scaled(62);
    const int digits = look.Scaled(40);
    const int part = 2 * keyWidth + digits;
    const int colon = look.Scaled(16);
    const int height = look.Scaled(48);
    const Rect beside = CaptionBeside(row, place, 2 * part + colon);
    const Rect field{beside.x, beside.y + (beside.height - height) / 2, beside.width, height};
    Control& ground = parts.AddPlate(std::string(option.name), field, look.Sunk());
    TellState(ground, row, "time");
    Control& between = parts.AddText({field.x + part, field.y, colon, height}, ":", look.text, 20, true);
    between.align = Align::center;
    for (const bool hours : {true, false}) {
        const int left = hours ? field.x : field.x + part + colon;
        const std::string name = std::string(option.name) + (hours ? "Hour" : "Min");
        const auto step = [this, row, hours](int by) {
            const long hour = std::strtol(values[row].substr(0, 2).c_str(), nullptr, 10);
            const long minute = std::strtol(values[row].substr(2).c_str(), nullptr, 10);
            const long newHour = hours ? (hour + by + 48) % 24 : hour;
            const long newMinute = hours ? minute : (minute + by + 120) % 60;
            Changed(row, TwoDigits(newHour) + TwoDigits(newMinute));
        };
        const Rect middle{left + keyWidth, field.y, digits, height};
        Control& value = parts.AddText(middle, "", look.text, 20, true);
        value.align = Align::center;
        const auto addKey = [&](const char* suffix, const char* icon, int x, int by) -> OptionKey& {
            OptionKey& key = parts.AddKey();
            key.icon = icon;
            key.onDown = [this, step, by] { BeginRepeat([step, by](int steps) { step(by * steps); }); };
            key.onUp = [this] { repeatTimer.Stop(); };
            key.Make(form, name + suffix, 0, {x, field.y, keyWidth, height}, look);
            return key;
        };
        OptionKey& less = addKey("Less", "minus", left, -1);
        OptionKey& more = addKey("More", "plus", left + part - keyWidth, 1);
        refreshers.push_back([this, row, hours, &value, &between, &less, &more, middle] {
            const bool enabled = IsEnabled(rows[row]);
            value.foreColor = enabled ? look.text : look.off;
            between.foreColor = value.foreColor.get();
            PlaceText(value, middle, values[row].size() == 4 ? values[row].substr(hours ? 0 : 2, 2) : "", look, 20,
                      true);
            less.Enable(enabled);
            more.Enable(enabled);
        });
    }
}

void OptionSheet::MakeSlider(std::size_t row, Rect place) {
    const Option& option = rows[row];
    const int valueWidth = look.Scaled(64);
    const int width = place.width * 3 / 5;
    const Rect beside = CaptionBeside(row, place, width + valueWidth);
    const Rect track{beside.x, beside.y, width, beside.height};
    const int knobSize = look.Scaled(44);
    const int grooveHeight = look.Scaled(11);
    Control& hit =
        parts.AddPlate(std::string(option.name), track, {look.well, look.well, 0, 0, 0, true}, KeyIndex(option));
    TellState(hit, row, "slider");
    Control& groove = parts.AddPlate("groove", {0, (track.height - grooveHeight) / 2, width, grooveHeight},
                                     {look.wellEdge, look.wellEdge, look.line, grooveHeight / 2, 1, true});
    groove.container = &hit;
    Control& knob = parts.AddPlate("knob", {}, {});
    knob.container = &hit;
    Control& mark = parts.AddPlate("mark", {}, {});
    mark.container = &hit;
    const Rect valuePlace{track.x + track.width, place.y, valueWidth, place.height};
    Control& value = parts.AddText(valuePlace, "", look.text);
    value.align = Align::right;
    const auto show = [this, row, &knob, &mark, &value, valuePlace, knobSize, track](bool pressed) {
        const Option& shown = rows[row];
        const bool enabled = IsEnabled(shown);
        const long number = std::strtol(values[row].c_str(), nullptr, 10);
        const int way = track.width - knobSize;
        const long left = way * (number - shown.lowest) / std::max(1, shown.highest - shown.lowest);
        const Rect at{static_cast<int>(left), (track.height - knobSize) / 2, knobSize, knobSize};
        knob.Move(at);
        knob.plate =
            pressed ? Plate{look.pressTop, look.pressBottom, look.pressEdge, look.Scaled(10), 2, true}
                    : Plate{look.keyTop, look.keyBottom, enabled ? look.silver : look.line, look.Scaled(10), 1, true};
        const Color ink = pressed ? look.pressInk : enabled ? look.accent : look.off;
        mark.plate = {ink, ink, 0, 2, 0, true};
        mark.Move({at.x + (knobSize - look.Scaled(4)) / 2, at.y + knobSize / 4, look.Scaled(4), knobSize / 2});
        value.foreColor = enabled ? look.text : look.off;
        PlaceText(value, valuePlace, shown.shown != nullptr ? shown.shown(values[row]) : values[row], look);
    };
    refreshers.push_back([show] { show(false); });
    const auto follow = [this, row, show, knobSize, track](Point p) {
        const Option& moved = rows[row];
        if (!IsEnabled(moved)) {
            return;
        }
        const int way = std::max(1, track.width - knobSize);
        const int x = std::clamp(p.x - knobSize / 2, 0, way);
        Changed(row, std::to_string(moved.lowest + (x * (moved.highest - moved.lowest) + way / 2) / way));
        show(true);
    };
    hit.events.onDown = follow;
    hit.events.onDrag = follow;
    hit.events.onUp = [show](Point) { show(false); };
}

void OptionSheet::MakeText(std::size_t row, Rect place) {
    const Option& option = rows[row];
    const int keyWidth = look.Scaled(76);
    const int gap = look.Scaled(8);
    const bool picks = option.picks != Picks::nothing;
    const int keysWidth = (picks ? 2 : 1) * (keyWidth + gap);
    const std::size_t length = Text(option.caption).size();
    const int captionWidth = length <= 3    ? look.Scaled(52)
                             : length <= 14 ? std::max(look.Scaled(96), place.width * 24 / 100)
                                            : place.width * 34 / 100;
    const Rect beside = CaptionBeside(row, place, place.width - captionWidth);
    const int height = look.Scaled(50);
    const Rect field{beside.x, place.y + (place.height - height) / 2, beside.width - keysWidth, height};
    Control& ground = parts.AddPlate(std::string(option.name) + "Field", field, look.Sunk());
    Control& box = form.Add(ControlKind::textBox, std::string(option.name), KeyIndex(option));
    box.Move({field.x + 5, field.y + 4, field.width - 10, field.height - 8});
    box.backColor = look.wellEdge;
    box.font = look.TextFont(16);
    TellState(box, row, "text");
    box.events.onChange = [this, row, &box] { Changed(row, box.text->text); };
    refreshers.push_back([this, row, &box, &ground] {
        const bool enabled = IsEnabled(rows[row]);
        box.foreColor = enabled ? look.text : look.off;
        box.SetReadOnly(!enabled);
        ground.plate = look.Sunk();
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
    addKey("Keyboard", "keyboard", [this, &box] {
        form.focus = &box;
        program.dispatchCommand("externalapps.onscreenkeyboard");
    });
    if (picks) {
        addKey("Pick", option.picks == Picks::command ? "list" : "open-folder", [this, row] {
            if (onPick) {
                onPick(row);
            }
        });
    }
}

void OptionSheet::MakeAction(std::size_t row, Rect place) {
    const Option& option = rows[row];
    const int width = look.Scaled(220);
    const Rect beside = CaptionBeside(row, place, width);
    const int height = look.Scaled(48);
    OptionKey& key = parts.AddKey();
    const auto text = [this, row] {
        const std::string own = keyText ? keyText(row) : std::string();
        return own.empty() ? Text(rows[row].keyCaption) : own;
    };
    key.swatch = keySwatch ? keySwatch(row) : std::nullopt;
    key.text = text();
    key.text = key.text.empty() && !key.swatch ? " " : key.text;
    key.style = KeyStyle::raised;
    key.onClick = [this, row] {
        if (onAction) {
            onAction(row);
        }
    };
    key.Make(form, std::string(option.name), 0, {beside.x, place.y + (place.height - height) / 2, width, height}, look);
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
