// Lists: the rows that show, two keys below them if there are more, and what is done to the chosen one beside them.
#include "options/optionlists.h"
#include "options/optionsheet.h"

#include "core/program.h"

#include <algorithm>

namespace zvr {
namespace {

/// From 0; -1 if it isn't offered.
int PlaceOf(const std::vector<OptionChoice>& all, const std::string& value) {
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const OptionChoice& choice) { return choice.value == value; });
    return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}

}  // namespace

int OptionSheet::ChosenEntry(std::size_t row) const {
    const auto found = lists.find(row);
    return found == lists.end() ? -1 : found->second.chosen;
}

void OptionSheet::ShowEntry(std::size_t row, int entry) {
    ListPlace& list = lists[row];
    list.chosen = entry;
    list.top = std::max(0, entry - 1);
    Refresh();
}

void OptionSheet::MoveEntry(std::size_t row, int by) {
    const char separator = rows[row].separator;
    auto entries = EntriesOf(values[row], separator);
    const int from = ChosenEntry(row);
    const int to = from + by;
    if (from < 0 || to < 0 || to >= static_cast<int>(entries.size())) {
        return;
    }
    std::swap(entries[static_cast<std::size_t>(from)], entries[static_cast<std::size_t>(to)]);
    lists[row].chosen = to;
    Changed(row, JoinedEntries(entries, separator));
}

/// Two lists side by side, each below its caption; the second is switched by the part between them.
void OptionSheet::MakeListPair(std::size_t row, Rect place) {
    const auto others = PartsOf(row);
    const int gap = look.Scaled(12);
    const int half = (place.width - gap) / 2;
    const int caption = look.Scaled(54);
    const Rect right{place.x + half + gap, place.y, half, caption};
    (void)CaptionBeside(row, {place.x, place.y, half, caption}, 0);
    MakeToggle(others.front(), right);
    MakeOneList(row, {place.x, place.y + caption, half, place.height - caption});
    MakeOneList(others.back(), {right.x, place.y + caption, half, place.height - caption});
}

void OptionSheet::MakeList(std::size_t row, Rect place) {
    if (PartsOf(row).empty()) {
        MakeOneList(row, place);
    } else {
        MakeListPair(row, place);
    }
}

std::vector<OptionChoice> OptionSheet::ListEntries(std::size_t row) const {
    if (rows[row].kind != OptionKind::editList) {
        return EntriesFor(row);
    }
    std::vector<OptionChoice> all;
    for (const std::string& entry : EntriesOf(values[row], rows[row].separator)) {
        all.push_back({entry, entryText ? entryText(entry, false) : entry, entryText ? entryText(entry, true) : ""});
    }
    return all;
}

void OptionSheet::MakeOneList(std::size_t row, Rect place) {
    const Option& option = rows[row];
    const bool edits = option.kind == OptionKind::editList;
    place.y += look.Scaled(6);
    place.height -= look.Scaled(8);
    const int gap = look.Scaled(8);
    Rect field = place;
    if (edits) {
        field.width -= 2 * (look.Scaled(84) + gap) + look.Scaled(4);
    }
    Control& ground = parts.AddPlate(std::string(option.name), field, look.Sunk());
    TellState(ground, row, edits ? "list to edit" : "list");
    const auto all = ListEntries(row);
    const bool remarks =
        edits ? option.separator != ';'
              : std::any_of(all.begin(), all.end(), [](const auto& choice) { return !choice.remark.empty(); });
    const int rowHeight = look.Scaled(remarks ? 60 : 52);
    const int count = static_cast<int>(all.size());
    const int inner = field.height - 6;
    int shown = std::max(1, inner / rowHeight);
    if (count > shown) {
        shown = std::max(1, (inner - look.Scaled(56)) / rowHeight);
    }
    ListPlace& list = lists.try_emplace(row).first->second;
    if (!edits) {
        list.chosen = PlaceOf(all, values[row]);
        if (list.top == 0 && list.chosen >= shown) {
            list.top = list.chosen - shown + 1;
        }
    }
    list.top = std::clamp(list.top, 0, std::max(0, count - shown));
    MakeListRows(row, field, rowHeight, shown);
    if (edits) {
        MakeListKeys(row,
                     {field.x + field.width + gap + look.Scaled(4), place.y, 2 * look.Scaled(84) + gap, place.height});
    }
}

void OptionSheet::MakeListRows(std::size_t row, Rect field, int rowHeight, int shown) {
    const Option& option = rows[row];
    const bool edits = option.kind == OptionKind::editList;
    const auto entries = [this, row] { return ListEntries(row); };
    struct Line {
        Control* plate;
        Control* text;
        Control* remark;
        Control* line;
        Rect place;
    };
    const auto lines = std::make_shared<std::vector<Line>>();
    for (int i = 0; i < shown; ++i) {
        const Rect part{field.x + 3, field.y + 3 + i * rowHeight, field.width - 6, rowHeight};
        Control& plate = parts.AddPlate(std::string(option.name) + "Row", part, {}, i + 1);
        plate.role = "row";
        Control& text =
            parts.AddText({part.x + look.Scaled(13), part.y, part.width - look.Scaled(20), part.height}, "", look.text);
        Control& remark = parts.AddText({}, "", look.dim, 13);
        Control& line = parts.AddPlate(
            "line", {part.x + look.Scaled(13), part.y + part.height - 1, part.width - look.Scaled(26), 1},
            {look.line, look.line, 0, 0, 0, true});
        lines->push_back({&plate, &text, &remark, &line, part});
        plate.events.onDown = [this, row, &plate, &text, &remark](Point) {
            if (text.visible && IsEnabled(rows[row])) {
                plate.plate = {look.pressTop, look.pressBottom, look.pressEdge, look.Scaled(8), 2, true};
                text.foreColor = look.pressInk;
                remark.foreColor = look.pressInk;
            }
        };
        plate.events.onUp = [this](Point) { Refresh(); };
        plate.events.onClick = [this, row, i, edits, entries](Point) {
            const auto all = entries();
            ListPlace& list = lists[row];
            const int number = list.top + i;
            if (number >= static_cast<int>(all.size()) || !IsEnabled(rows[row])) {
                return;
            }
            const bool second = list.chosen == number;
            list.chosen = number;
            if (edits) {
                Refresh();
            } else {
                Changed(row, all[static_cast<std::size_t>(number)].value);
            }
            if (second && onSecondTap) {
                onSecondTap(row);
            }
        };
    }
    OptionKey* up = nullptr;
    OptionKey* down = nullptr;
    const bool hasKeys = static_cast<int>(entries().size()) > shown;
    if (hasKeys) {
        const int height = look.Scaled(50);
        const int half = (field.width - look.Scaled(12)) / 2;
        const int top = field.y + field.height - height - 3;
        const auto addKey = [&](const char* name, const char* icon, int left, int by) {
            OptionKey& key = parts.AddKey();
            key.icon = icon;
            const auto scroll = [this, row, by, shown, entries](int times) {
                ListPlace& list = lists[row];
                const int count = static_cast<int>(entries().size());
                list.top = std::clamp(list.top + times * by * std::max(1, shown - 1), 0, std::max(0, count - shown));
                Refresh();
            };
            key.onDown = [this, scroll] { BeginRepeat(scroll); };
            key.onUp = [this] { repeatTimer.Stop(); };
            key.Make(form, std::string(option.name) + name, 0, {left, top, half, height}, look);
            return &key;
        };
        up = addKey("Up", "up", field.x + look.Scaled(4), -1);
        down = addKey("Down", "down", field.x + field.width - half - look.Scaled(4), 1);
    }
    refreshers.push_back([this, row, lines, entries, edits, shown, up, down] {
        const auto all = entries();
        const int count = static_cast<int>(all.size());
        ListPlace& list = lists[row];
        if (!edits) {
            list.chosen = PlaceOf(all, values[row]);
        }
        list.chosen = std::min(list.chosen, count - 1);
        list.top = std::clamp(list.top, 0, std::max(0, count - shown));
        const bool enabled = IsEnabled(rows[row]);
        for (int i = 0; i < shown; ++i) {
            const Line& line = (*lines)[static_cast<std::size_t>(i)];
            const int number = list.top + i;
            const bool there = number < count;
            const bool chosen = there && number == list.chosen;
            const OptionChoice entry = there ? all[static_cast<std::size_t>(number)] : OptionChoice{};
            const Color ground = chosen && enabled ? look.accentDeep : look.wellEdge;
            line.plate->plate = {ground, ground, 0, look.Scaled(8), 0, true};
            line.plate->caption = Text(entry.caption);
            line.plate->SetTag(chosen ? "1" : "0");
            line.text->visible = there;
            line.line->visible = there && !chosen && number + 1 < count && number + 1 != list.chosen && i + 1 < shown;
            line.remark->visible = there && !entry.remark.empty();
            if (!there) {
                continue;
            }
            const Rect& p = line.place;
            const int left = p.x + look.Scaled(13);
            const int width = p.width - look.Scaled(20);
            const bool two = !entry.remark.empty();
            line.text->foreColor = !enabled ? look.off : chosen ? look.onDeep : look.text;
            PlaceText(*line.text, {left, p.y, width, two ? p.height * 55 / 100 : p.height}, Text(entry.caption), look,
                      16);
            if (two) {
                line.remark->foreColor = chosen ? look.onDeep : look.dim;
                PlaceText(*line.remark, {left, p.y + p.height / 2, width, p.height * 45 / 100}, entry.remark, look, 13);
            }
        }
        if (edits && count > shown && up == nullptr) {
            Turn();  // it has grown and needs keys
        }
        if (up != nullptr) {
            up->Enable(list.top > 0);
            down->Enable(list.top + shown < count);
        }
    });
}

void OptionSheet::MakeListKeys(std::size_t row, Rect place) {
    const Option& option = rows[row];
    const int gap = look.Scaled(8);
    const int width = (place.width - gap) / 2;
    const int height = (place.height - 2 * gap) / 3;
    const auto addKey = [&](const char* name, const char* icon, int column, int line, KeyStyle style, int keyWidth,
                            std::function<void()> onClick) -> OptionKey& {
        OptionKey& key = parts.AddKey();
        key.icon = icon;
        key.style = style;
        key.onClick = std::move(onClick);
        key.Make(form, std::string(option.name) + name, 0,
                 {place.x + column * (width + gap), place.y + line * (height + gap), keyWidth, height}, look);
        return key;
    };
    const auto edit = [this, row](int entry) {
        if (onEdit) {
            onEdit(row, entry);
        }
    };
    addKey("Add", "plus", 0, 0, KeyStyle::raised, width, [edit] { edit(-1); });
    const auto onChosen = [this, row](OptionKey& key) {
        refreshers.push_back([this, row, &key] { key.Enable(ChosenEntry(row) >= 0); });
    };
    onChosen(addKey("Rename", "rename", 1, 0, KeyStyle::raised, width, [this, row, edit] { edit(ChosenEntry(row)); }));
    onChosen(addKey("MoveUp", "move-up", 0, 1, KeyStyle::quiet, width, [this, row] { MoveEntry(row, -1); }));
    onChosen(addKey("MoveDown", "move-down", 1, 1, KeyStyle::quiet, width, [this, row] { MoveEntry(row, 1); }));
    onChosen(addKey("Remove", "delete", 0, 2, KeyStyle::quiet, place.width, [this, row] {
        if (onRemove) {
            onRemove(row, ChosenEntry(row));
        }
    }));
}

}  // namespace zvr
