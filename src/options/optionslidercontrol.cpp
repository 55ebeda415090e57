// Sliders, with keys or a caption beside them and what their ends mean below.
#include "options/optionsheet.h"

#include <algorithm>

namespace zvr {

/// Its keys stand at its sides, or else its caption and what its value means.
void OptionSheet::MakeSlider(std::size_t row, Rect place) {
    const Option& option = rows[row];
    const int knobSize = look.Scaled(44);
    Rect track;
    Rect valuePlace;
    if (const auto ofIt = PartsOf(row); ofIt.empty()) {
        const int valueWidth = look.Scaled(64);
        const Rect beside = CaptionBeside(row, place, place.width * 3 / 5 + valueWidth);
        track = {beside.x, beside.y, beside.width - valueWidth, beside.height};
        valuePlace = {track.x + track.width, place.y, valueWidth, place.height};
    } else {
        const int height = look.Scaled(48);
        const int top = place.y + (place.height - height) / 2;
        const int left = look.Scaled(76);
        const int right = look.Scaled(92);
        const int gap = look.Scaled(12);
        MakeActionKey(ofIt.front(), {place.x, top, left, height});
        MakeActionKey(ofIt.back(), {place.x + place.width - right, top, right, height});
        track = {place.x + left + gap, place.y, place.width - left - right - 2 * gap, place.height};
    }
    Control& hit =
        parts.AddPlate(std::string(option.name), track, {look.well, look.well, 0, 0, 0, true}, KeyIndex(option));
    TellState(hit, row, "slider");
    const int way = std::max(1, track.width - knobSize);
    MakeGroove(hit, track, std::max(1, option.highest - option.lowest), way);
    Control& knob = parts.AddPlate("knob", {}, {});
    knob.container = &hit;
    Control& mark = parts.AddPlate("mark", {}, {});
    mark.container = &hit;
    Control* const value = valuePlace.width > 0 ? &parts.AddText(valuePlace, "", look.text) : nullptr;
    if (value != nullptr) {
        value->align = Align::right;
    }
    const auto show = [this, row, &knob, &mark, value, valuePlace, knobSize, way, track](bool pressed) {
        const Option& shown = rows[row];
        const bool enabled = IsEnabled(shown);
        const int span = std::max(1, shown.highest - shown.lowest);
        const long number = NumberOf(values[row]) - shown.lowest;
        const long left = way * (shown.reversed ? span - number : number) / span;
        const Rect at{static_cast<int>(left), (track.height - knobSize) / 2, knobSize, knobSize};
        knob.Move(at);
        knob.plate =
            pressed ? Plate{look.pressTop, look.pressBottom, look.pressEdge, look.Scaled(10), 2, true}
                    : Plate{look.keyTop, look.keyBottom, enabled ? look.silver : look.line, look.Scaled(10), 1, true};
        const Color ink = pressed ? look.pressInk : enabled ? look.accent : look.off;
        mark.plate = {ink, ink, 0, 2, 0, true};
        mark.Move({at.x + (knobSize - look.Scaled(4)) / 2, at.y + knobSize / 4, look.Scaled(4), knobSize / 2});
        if (value != nullptr) {
            value->foreColor = enabled ? look.text : look.off;
            PlaceText(*value, valuePlace, shown.shown != nullptr ? shown.shown(values[row]) : values[row], look);
        }
    };
    refreshers.push_back([show] { show(false); });
    const auto follow = [this, row, show, knobSize, way](Point p) {
        const Option& moved = rows[row];
        if (!IsEnabled(moved)) {
            return;
        }
        const int span = std::max(1, moved.highest - moved.lowest);
        const int number = (std::clamp(p.x - knobSize / 2, 0, way) * span + way / 2) / way;
        Changed(row, std::to_string(moved.lowest + (moved.reversed ? span - number : number)));
        show(true);
    };
    hit.events.onDown = follow;
    hit.events.onDrag = follow;
    hit.events.onUp = [show](Point) { show(false); };
}

/// With a tick under each place of few, else under the quarters.
void OptionSheet::MakeGroove(Control& hit, Rect track, int span, int way) {
    const int height = look.Scaled(11);
    const int knobSize = track.width - way;
    Control& groove = parts.AddPlate("groove", {0, (track.height - height) / 2, track.width, height},
                                     {look.wellEdge, look.wellEdge, look.line, height / 2, 1, true});
    groove.container = &hit;
    const int ticks = span < 10 ? span : 4;
    for (int i = 0; i <= ticks; ++i) {
        Control& tick = parts.AddPlate(
            "tick", {knobSize / 2 + way * i / ticks, (track.height + knobSize) / 2 - look.Scaled(5), 1, look.Scaled(5)},
            {look.line, look.line, 0, 0, 0, true});
        tick.container = &hit;
    }
}

/// Below the ends of the slider above.
void OptionSheet::MakeLegend(std::size_t row, Rect place) {
    std::size_t slider = row - 1;
    while (slider > 0 && !rows[slider].partOf.empty()) {
        --slider;
    }
    const Control* const track = form.Find(rows[slider].name, KeyIndex(rows[slider]));
    if (track == nullptr) {
        return;
    }
    const Rect span = track->Place();
    const Rect room{span.x, place.y - look.Scaled(4), span.width, place.height};
    for (const bool left : {true, false}) {
        Control& label = parts.AddText(room, Text(left ? rows[row].caption : rows[row].keyCaption), look.dim, 13, true);
        label.align = left ? Align::left : Align::right;
    }
}

}  // namespace zvr
