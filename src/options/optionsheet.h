#pragma once

#include "options/optionparts.h"
#include "options/optionstable.h"
#include "platform/eventloop.h"
#include "platform/lifetime.h"

#include <cstdlib>
#include <map>
#include <memory>
#include <set>

namespace zvr {

class Program;

/// Number in its array of controls.
[[nodiscard]] inline int KeyIndex(const Option& option) {
    return option.element < 0 ? -option.element : option.element;
}

/// 0 for what is none.
[[nodiscard]] inline long NumberOf(const std::string& text) {
    return std::strtol(text.c_str(), nullptr, 10);
}

/// A dialog over the whole screen that deals rows of controls onto pages: the options themselves, and the editors over
/// them. It holds copies of the values; who owns it takes them over.
class OptionSheet {
public:
    OptionSheet(Program& program, Form& form);
    OptionSheet(const OptionSheet&) = delete;
    OptionSheet& operator=(const OptionSheet&) = delete;

    std::span<const Option> rows;     ///< of all tabs; the names in them outlive the sheet's use of them
    std::vector<std::string> values;  ///< one a row
    bool hasTabs = false;
    bool hasApply = false;
    std::string title;  ///< above a sheet without tabs; empty for none

    /// What a choice or list of the row offers.
    std::function<std::vector<OptionChoice>(std::size_t row)> choices;
    std::function<void(std::size_t row)> onChange;  ///< the user changed the value
    std::function<void(std::size_t row)> onAction;
    std::function<void(std::size_t row)> onPick;             ///< the key beside a text box
    std::function<void(std::size_t row, int entry)> onEdit;  ///< of a list; -1: a new one
    std::function<void(std::size_t row, int entry)> onRemove;
    std::function<void(std::size_t row)> onSecondTap;                ///< on the chosen row of a list
    std::function<std::string(std::size_t row)> keyText;             ///< of an action; empty: what the row says
    std::function<std::optional<Color>(std::size_t row)> keySwatch;  ///< of an action that shows a colour
    std::function<bool(std::size_t row)> mayAct;                     ///< an action can be pressed now
    std::function<std::string(std::string_view entry, bool second)> entryText;  ///< the two lines of a list's entry
    std::function<void()> onOk;
    std::function<void()> onCancel;
    std::function<void()> onApply;

    /// Makes the page's controls, in the size of the root and the language and light of now. Never from a control's own
    /// event: those Turn.
    void Build();
    /// The same, from the event loop.
    void Turn();
    /// Shows what the values are now, without making anything anew.
    void Refresh();
    void Forget();  ///< the controls and all places in lists; the next Build begins at the first page

    [[nodiscard]] std::size_t RowNamed(std::string_view name, int element = 0) const;  ///< rows.size() if there is none
    [[nodiscard]] const std::string& ValueOf(std::string_view name) const;
    void SetValue(std::size_t row, const std::string& value);  ///< as if the user had; without onChange
    void ShowTab(int number);
    void ShowPage(int number);
    [[nodiscard]] int Tab() const { return tab; }
    [[nodiscard]] int Page() const;
    [[nodiscard]] int Pages() const { return static_cast<int>(pages.size()); }
    void ShowEntry(std::size_t row, int entry);            ///< of a list to edit: chosen, and in view
    [[nodiscard]] int ChosenEntry(std::size_t row) const;  ///< of a list to edit, from 0; -1 for none

private:
    struct PlacedRow {
        std::size_t row = 0;
        int height = 0;
    };
    struct ListPlace {
        int top = 0;
        int chosen = -1;
    };

    void Deal(int room);
    void JoinLonelyRow(std::vector<PlacedRow>& before, std::vector<PlacedRow>& page) const;
    [[nodiscard]] std::vector<std::size_t> RowsOfTab() const;
    [[nodiscard]] int GroupHeight(const std::vector<std::size_t>& all, std::size_t first, int room) const;
    [[nodiscard]] int UnitHeight(const std::vector<std::size_t>& all, std::size_t first, int room) const;
    [[nodiscard]] std::vector<std::size_t> PartsOf(std::size_t row) const;
    [[nodiscard]] int HeightOf(const Option& option, int room) const;
    void MakeTabs(int height);
    void MakeFoot(Rect page);
    void MakeRow(std::size_t row, Rect place);
    void MakeHeading(std::size_t row, Rect place);
    void MakeToggle(std::size_t row, Rect place);
    void MakeSegments(std::size_t row, Rect place);
    void MakeStepper(std::size_t row, Rect place);
    void MakeTime(std::size_t row, Rect place);
    Control& MakeNumberBox(const std::string& name, std::size_t row, Rect place, std::function<std::string()> shown,
                           std::function<void(const std::string& digits)> typed);
    void AddStepKey(const std::string& name, std::size_t row, const char* icon, Rect place,
                    std::function<void(int)> step, bool less);
    void LeaveBox(const Control* touched);
    void OpenKeyboardFor(Control& box);
    void MakeSlider(std::size_t row, Rect place);
    void MakeText(std::size_t row, Rect place);
    void MakeAction(std::size_t row, Rect place);
    void MakeActionKey(std::size_t row, Rect place);
    void MakeGroove(Control& hit, Rect track, int span, int way);
    void MakeLegend(std::size_t row, Rect place);
    void MakeSwatches(std::size_t row, Rect place);
    void MakeList(std::size_t row, Rect place);
    void MakeListPair(std::size_t row, Rect place);
    void MakeOneList(std::size_t row, Rect place);
    [[nodiscard]] std::vector<OptionChoice> ListEntries(std::size_t row) const;
    void MakeListRows(std::size_t row, Rect place, int rowHeight, int shown);
    void MakeListKeys(std::size_t row, Rect place);

    /// The caption left of a control of that width; the rest of the row is the control's. Touched, it is `on`.
    Rect CaptionBeside(std::size_t row, Rect place, int controlWidth, Control* on = nullptr);
    [[nodiscard]] int CaptionWidthOfTexts(std::size_t row, int most) const;
    void TellState(Control& control, std::size_t row, const char* role);

    [[nodiscard]] bool IsEnabled(const Option& option) const;
    [[nodiscard]] std::string Text(std::string_view key) const;
    [[nodiscard]] std::string ChoiceText(std::size_t row) const;
    [[nodiscard]] std::vector<OptionChoice> EntriesFor(std::size_t row) const;
    void Changed(std::size_t row, const std::string& value);
    void Step(std::size_t row, int steps);
    void BeginRepeat(std::function<void(int)> step);
    void MoveEntry(std::size_t row, int by);

    Program& program;
    Form& form;
    OptionParts parts;
    const OptionLook& look = parts.look;
    int tab = 0;
    std::vector<int> pageOfTab = std::vector<int>(optionTabs, 0);
    std::vector<std::vector<PlacedRow>> pages;
    std::map<std::size_t, ListPlace> lists;
    std::vector<std::function<void()>> refreshers;
    Timer repeatTimer;
    std::function<void(int)> repeated;
    int repeats = 0;
    Lifetime lifetime;
};

}  // namespace zvr
