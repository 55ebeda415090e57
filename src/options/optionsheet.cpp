#include "options/optionsheet.h"

#include "core/godfather.h"
#include "core/program.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "platform/textmeasure.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace zvr {
namespace {

constexpr std::array<const char*, optionTabs> tabIcons{"settings", "day",      "player",      "sound",      "programs",
                                                       "phone",    "keyboard", "task-switch", "open-folder"};
constexpr Milliseconds repeatAfter{400};
constexpr Milliseconds repeatEvery{100};
constexpr int quickAfter = 16;  ///< repeats: about two seconds
constexpr int quickSteps = 10;

/// What a control of that kind can hold.
std::string WithinRule(const Option& option, const std::string& value) {
    if (option.kind == OptionKind::toggle) {
        return value == "1" ? "1" : "0";
    }
    if (option.kind != OptionKind::number && option.kind != OptionKind::slider) {
        return value;
    }
    if (option.mayBeEmpty && value.empty()) {
        return value;
    }
    if (value.empty() && option.whenEmpty != 0) {
        return std::to_string(option.whenEmpty);
    }
    return std::to_string(std::clamp<long>(NumberOf(value), option.lowest, option.highest));
}

}  // namespace

OptionSheet::OptionSheet(Program& program, Form& form)
    : program(program), form(form), parts(program, form), repeatTimer(program.platform.loop, [this] {
          repeatTimer.SetInterval(repeatEvery);
          repeated(++repeats < quickAfter ? 1 : quickSteps);
      }) {
    form.onTouch = [this](const Control* touched) { LeaveBox(touched); };
    form.onKeyDown = [this](const KeyEvent& key) {
        if (this->form.focus != nullptr && (key.key == Key::enter || key.key == Key::escape)) {
            LeaveBox(nullptr);
        } else if (key.key == Key::escape) {
            onCancel();
        } else if (key.key == Key::pageUp || key.key == Key::pageDown) {
            ShowPage(Page() + (key.key == Key::pageUp ? -1 : 1));
        }
    };
}

std::string OptionSheet::Text(std::string_view key) const {
    return program.languageText(key);
}

std::size_t OptionSheet::RowNamed(std::string_view name, int element) const {
    const auto found = std::find_if(rows.begin(), rows.end(), [name, element](const Option& row) {
        return row.name == name && (element == 0 || row.element == element);
    });
    return static_cast<std::size_t>(found - rows.begin());
}

const std::string& OptionSheet::ValueOf(std::string_view name) const {
    static const std::string none;
    const std::size_t row = RowNamed(name);
    return row < values.size() ? values[row] : none;
}

void OptionSheet::SetValue(std::size_t row, const std::string& value) {
    values[row] = WithinRule(rows[row], value);
    Refresh();
}

void OptionSheet::Changed(std::size_t row, const std::string& value) {
    const std::string kept = WithinRule(rows[row], value);
    if (values[row] != kept) {
        values[row] = kept;
        if (onChange) {
            onChange(row);
        }
    }
    Refresh();
}

void OptionSheet::Refresh() {
    for (const auto& refresh : refreshers) {
        refresh();
    }
}

bool OptionSheet::IsEnabled(const Option& option) const {
    if (option.offered != nullptr && !option.offered(program)) {
        return false;
    }
    const std::size_t equals = option.enabledBy.find('=');
    const std::size_t other = RowNamed(option.enabledBy.substr(0, equals));
    if (equals == std::string_view::npos || other == rows.size()) {
        return true;
    }
    const std::string_view wanted = option.enabledBy.substr(equals + 1);
    const bool holds =
        wanted.starts_with('*') ? text::Lower(values[other]).ends_with(wanted.substr(1)) : values[other] == wanted;
    return holds && IsEnabled(rows[other]);
}

std::vector<OptionChoice> OptionSheet::EntriesFor(std::size_t row) const {
    return choices ? choices(row) : std::vector<OptionChoice>{};
}

std::string OptionSheet::ChoiceText(std::size_t row) const {
    for (const OptionChoice& choice : EntriesFor(row)) {
        if (choice.value == values[row]) {
            return Text(choice.caption);
        }
    }
    return values[row];
}

void OptionSheet::Step(std::size_t row, int steps) {
    const Option& option = rows[row];
    if (option.kind == OptionKind::choice) {
        const auto all = EntriesFor(row);
        const auto now = std::find_if(all.begin(), all.end(),
                                      [&](const OptionChoice& choice) { return choice.value == values[row]; });
        const auto count = static_cast<long>(all.size());
        if (count > 0) {
            const long place =
                now == all.end() ? (steps > 0 ? 0 : count - 1) : (now - all.begin()) + (steps > 0 ? 1 : -1);
            Changed(row, all[static_cast<std::size_t>(std::clamp(place, 0L, count - 1))].value);
        }
        return;
    }
    const std::string& now = values[row];
    if (option.mayBeEmpty && (now.empty() || (steps < 0 && NumberOf(now) <= option.lowest))) {
        Changed(row, steps < 0 ? "" : std::to_string(option.lowest));
        return;
    }
    Changed(row, std::to_string(NumberOf(now) + steps * option.step));
}

void OptionSheet::BeginRepeat(std::function<void(int)> step) {
    repeated = std::move(step);
    repeats = 0;
    repeated(1);
    repeatTimer.SetInterval(repeatAfter);
    repeatTimer.Start();
}

/// What was typed is settled, and a keyboard on the screen goes with its box and uncovers what it hid.
void OptionSheet::LeaveBox(const Control* touched) {
    while (touched != nullptr && touched->container != nullptr) {
        touched = touched->container;
    }
    const bool toItsKeyboard = touched != nullptr && touched->name.ends_with("Keyboard");
    if (form.focus != nullptr && form.focus != touched && !toItsKeyboard) {
        form.focus = nullptr;
        Refresh();
    }
}

void OptionSheet::OpenKeyboardFor(Control& box) {
    form.focus = &box;
    program.dispatchCommand("externalapps.onscreenkeyboard");
    Refresh();
}

int OptionSheet::HeightOf(const Option& option, int room) const {
    switch (option.kind) {
        case OptionKind::heading:
            return look.heading;
        case OptionKind::legend:
            return look.Scaled(22);
        case OptionKind::list:
        case OptionKind::editList:
            return std::max(look.row * 4, room);
        case OptionKind::segments:
            return option.caption.empty() ? 2 * look.row + look.Scaled(8) : look.row;
        case OptionKind::swatches:
            return 2 * look.Scaled(76);
        default:
            return look.row;
    }
}

/// Those that have a row of their own on the screen.
std::vector<std::size_t> OptionSheet::RowsOfTab() const {
    std::vector<std::size_t> all;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if ((!hasTabs || static_cast<int>(rows[row].tab) == tab) && rows[row].partOf.empty()) {
            all.push_back(row);
        }
    }
    return all;
}

std::vector<std::size_t> OptionSheet::PartsOf(std::size_t row) const {
    std::vector<std::size_t> found;
    for (std::size_t part = row + 1; part < rows.size() && rows[part].partOf == rows[row].name; ++part) {
        if (!rows[part].partOf.empty()) {
            found.push_back(part);
        }
    }
    return found;
}

/// Of a row and what stays with it: a heading has what follows, others what they say.
int OptionSheet::UnitHeight(const std::vector<std::size_t>& all, std::size_t first, int room) const {
    int height = 0;
    bool goesOn = true;
    for (std::size_t i = first; i < all.size() && goesOn; ++i) {
        const Option& option = rows[all[i]];
        height += HeightOf(option, room - height);
        goesOn = option.kind == OptionKind::heading || option.withNext;
    }
    return height;
}

/// Of a heading with all that belongs to it.
int OptionSheet::GroupHeight(const std::vector<std::size_t>& all, std::size_t first, int room) const {
    int height = 0;
    for (std::size_t i = first; i < all.size() && (i == first || rows[all[i]].kind != OptionKind::heading); ++i) {
        height += HeightOf(rows[all[i]], room - height);
    }
    return height;
}

/// As many whole rows a page as fit. What stays together does, and so does a group that fits on a page of its own.
void OptionSheet::Deal(int room) {
    pages.assign(1, {});
    int left = room;
    const auto all = RowsOfTab();
    bool together = false;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const Option& option = rows[all[i]];
        const bool isHeading = option.kind == OptionKind::heading;
        const bool isList = option.kind == OptionKind::list || option.kind == OptionKind::editList;
        const int group = isHeading ? GroupHeight(all, i, room) : 0;
        const bool fits = (group > room || group <= left) && UnitHeight(all, i, room) <= left;
        if (!together && !fits && !pages.back().empty() && !(isList && left >= look.row * 4)) {
            pages.emplace_back();
            left = room;
        }
        const int height = isList ? left : HeightOf(option, room);
        pages.back().push_back({all[i], height});
        left -= height;
        together = isHeading || option.withNext;
    }
    for (std::size_t i = 1; i < pages.size(); ++i) {
        JoinLonelyRow(pages[i - 1], pages[i]);
    }
}

/// A row that would have a screen of its own looks lost there: the one above comes along.
void OptionSheet::JoinLonelyRow(std::vector<PlacedRow>& before, std::vector<PlacedRow>& page) const {
    const auto kind = [this](const PlacedRow& placed) { return rows[placed.row].kind; };
    const bool lonely =
        page.size() == 1 && kind(page.front()) != OptionKind::list && kind(page.front()) != OptionKind::editList;
    if (lonely && before.size() > 2 && kind(before[before.size() - 2]) != OptionKind::heading) {
        page.insert(page.begin(), before.back());
        before.pop_back();
    }
}

int OptionSheet::Page() const {
    return std::clamp(pageOfTab[static_cast<std::size_t>(tab)], 0, std::max(0, Pages() - 1));
}

void OptionSheet::ShowTab(int number) {
    if (number >= 0 && number < optionTabs && number != tab) {
        tab = number;
        Turn();
    }
}

void OptionSheet::ShowPage(int number) {
    if (number >= 0 && number < Pages() && number != Page()) {
        pageOfTab[static_cast<std::size_t>(tab)] = number;
        Turn();
    }
}

void OptionSheet::Turn() {
    repeatTimer.Stop();
    program.platform.loop.Post(lifetime.Guard([this] {
        if (form.loaded && form.visible) {
            Build();
        }
    }));
}

void OptionSheet::Forget() {
    repeatTimer.Stop();
    lifetime.Renew();
    refreshers.clear();
    parts.Forget();
    lists.clear();
    tab = 0;
    pageOfTab.assign(optionTabs, 0);
}

void OptionSheet::Build() {
    repeatTimer.Stop();
    refreshers.clear();
    parts.Begin();
    if (hasTabs) {
        MakeTabs(form.Place().height - 2 * look.margin);
    }
    const Rect page = parts.PageBeside(hasTabs ? look.tabWidth : 0);
    parts.AddWell("picOptContainer", page);
    int top = page.y + look.Scaled(4);
    int room = page.height - look.Scaled(12);
    if (!title.empty()) {
        parts.AddText({page.x + look.Scaled(16), top, page.width - look.Scaled(36), look.heading}, title, look.text, 17,
                      true);
        top += look.heading;
        room -= look.heading;
    }
    Deal(room);
    const int right = look.Scaled(20);
    const auto& shown = pages[static_cast<std::size_t>(Page())];
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const Rect place{page.x + look.Scaled(16), top, page.width - look.Scaled(16) - right, shown[i].height};
        const OptionKind kind = rows[shown[i].row].kind;
        const bool beforeLegend = i + 1 < shown.size() && rows[shown[i + 1].row].kind == OptionKind::legend;
        const bool line = i + 1 < shown.size() && kind != OptionKind::list && !beforeLegend;
        MakeRow(shown[i].row, place);
        top += shown[i].height;
        if (line || kind == OptionKind::heading) {
            const bool beforeHeading = i + 1 < shown.size() && rows[shown[i + 1].row].kind == OptionKind::heading;
            if (!beforeHeading) {
                parts.AddLine(place.x, top - 1, place.width);
            }
        }
    }
    parts.AddMarks(page, Pages(), Page());
    MakeFoot(page);
    Refresh();
}

void OptionSheet::MakeTabs(int height) {
    parts.AddWell("lstOpt", {look.margin, look.margin, look.tabWidth, height});
    const int room = height - look.Scaled(8);
    int top = look.margin + look.Scaled(4);
    for (int i = 0; i < optionTabs; ++i) {
        const int bottom = look.margin + look.Scaled(4) + room * (i + 1) / optionTabs;
        const bool chosen = i == tab;
        const Rect place{look.margin + look.Scaled(4), top, look.tabWidth - look.Scaled(8), bottom - top};
        const Plate plate = chosen ? Plate{look.accentDeep, look.accentDeep, 0, look.Scaled(8), 0, true}
                                   : Plate{look.well, look.well, 0, 0, 0, true};
        Control& row = parts.AddPlate("tab", place, plate, i + 1);
        const std::string caption = Text(OptionTabCaptions()[static_cast<std::size_t>(i)]);
        row.caption = caption;
        row.role = "tab";
        row.SetTag(chosen ? "1" : "0");
        const Color ink = chosen ? look.onDeep : look.text;
        parts.AddIcon(tabIcons[static_cast<std::size_t>(i)], place, 12, 24, ink, &row);
        parts.AddText({place.x + look.Scaled(42), top, place.width - look.Scaled(46), place.height}, caption, ink, 15,
                      true);
        row.events.onClick = [this, i](Point) { ShowTab(i); };
        top = bottom;
    }
}

void OptionSheet::MakeFoot(Rect page) {
    std::vector<FootKey> foot{
        {"cmdOK", "ok", Text("OPT_BUTTON_OK"), KeyStyle::primary, [this] { onOk(); }},
        {"cmdCancel", "close", Text("OPT_BUTTON_CANCEL"), KeyStyle::raised, [this] { onCancel(); }},
    };
    if (hasApply) {
        foot.push_back({"cmdApply", "apply", Text("OPT_BUTTON_APPLY"), KeyStyle::raised, [this] { onApply(); }});
    }
    foot.push_back({"cmdPageUp", "page-up", "", KeyStyle::quiet, [this] { ShowPage(Page() - 1); }, Page() > 0});
    foot.push_back(
        {"cmdPageDown", "page-down", "", KeyStyle::quiet, [this] { ShowPage(Page() + 1); }, Page() + 1 < Pages()});
    parts.AddFoot(page, foot);
}

Rect OptionSheet::CaptionBeside(std::size_t row, Rect place, int controlWidth, Control* on) {
    const Option& option = rows[row];
    const int gap = look.Scaled(12);
    Rect room{place.x, place.y, place.width - controlWidth - gap, place.height};
    // In half a row the words need the room.
    if (!option.icon.empty() && (option.kind == OptionKind::time || place.width > look.Scaled(300))) {
        parts.AddIcon(std::string(option.icon), room, 2, 28, look.dim, on);
        room.x += look.Scaled(40);
        room.width -= look.Scaled(40);
    }
    const bool remarked = !option.remark.empty();
    const int upper = remarked ? place.height * 55 / 100 : place.height;
    if (option.icon.empty() || room.width > look.Scaled(40)) {  // else the icon has to do
        Control& label = parts.AddText({room.x, room.y, room.width, upper}, Text(option.caption), look.text);
        refreshers.push_back([this, &label, row] { label.foreColor = IsEnabled(rows[row]) ? look.text : look.off; });
    }
    if (remarked) {
        parts.AddText({room.x, room.y + place.height / 2, room.width, place.height * 45 / 100}, Text(option.remark),
                      look.dim, 13);
    }
    return {place.x + place.width - controlWidth, place.y, controlWidth, place.height};
}

/// Boxes below each other begin below each other.
int OptionSheet::CaptionWidthOfTexts(std::size_t row, int most) const {
    const auto isText = [this, row](std::size_t i) {
        return rows[i].kind == OptionKind::text && rows[i].tab == rows[row].tab;
    };
    std::size_t first = row;
    while (first > 0 && isText(first - 1)) {
        --first;
    }
    int width = 0;
    for (std::size_t i = first; i < rows.size() && isText(i); ++i) {
        const std::string caption = Text(rows[i].caption);
        const int needed = TextSize(look.TextFont(17), caption).width;
        width = std::max(width, caption.empty() ? 0 : needed + look.Scaled(16));
    }
    return std::min(width, most);
}

void OptionSheet::TellState(Control& control, std::size_t row, const char* role) {
    control.role = role;
    control.caption = Text(rows[row].caption);
    refreshers.push_back([this, &control, row] { control.SetTag(values[row]); });
}

}  // namespace zvr
