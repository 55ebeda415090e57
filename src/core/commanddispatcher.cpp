#include "core/commanddispatcher.h"

#include "core/godfather.h"
#include "core/program.h"
#include "platform/text.h"
#include "skin/skinner.h"
#include "ui/stage.h"

#include <algorithm>

namespace zvr {
namespace {

/// The command without its last word, and the word. Empty base: no parameter stands in it.
struct SplitCommand {
    std::string_view base;
    std::string_view parameter;
};

SplitCommand SplitAtLastDot(std::string_view command) {
    const auto first = command.find('.');
    const auto last = command.rfind('.');
    if (first == std::string_view::npos || first == 0 || last + 1 == command.size()) {
        return {};
    }
    return {command.substr(0, last), command.substr(last + 1)};
}

/// Null for none.
const Command* RowOf(std::string_view name) {
    const auto commands = Commands();
    const auto row =
        std::find_if(commands.begin(), commands.end(), [name](const Command& row) { return row.name == name; });
    return row == commands.end() ? nullptr : &*row;
}

}  // namespace

CommandDispatcher::CommandDispatcher(Program& program) : program(program) {}

void CommandDispatcher::dispatchCommand(std::string& command) {
    command = text::Lower(command);
    ++dispatched;
    lastCommand = command;
    const auto dot = command.find('.');
    if (dot != std::string::npos && dot > 0) {
        const std::string module = command.substr(0, dot);
        if (!program.isModuleActive(module) && module != "app") {
            program.showMessage(program.languageText("GENERAL_INACTIVEMODULE") + "\n" + module);
            return;
        }
    }
    if (RunCommand(command) || RunScrollCommand(command) || RunParameterCommand(command)) {
        program.skinner.pairs.Refresh(program);
        return;
    }
    program.showMessage(program.languageText("GENERAL_UNKNOWNCOMMAND") + "\n\n" + command);
}

bool CommandDispatcher::RunCommand(const std::string& command) {
    const Command* const row = RowOf(command);
    if (row != nullptr) {
        row->run(program);
    }
    return row != nullptr;
}

bool CommandDispatcher::RunScrollCommand(std::string& command) {
    for (const ScrollFamily& family : ScrollFamilies()) {
        if (!command.starts_with(family.module) || command.size() <= family.module.size() ||
            command[family.module.size()] != '.') {
            continue;
        }
        const std::string_view word = std::string_view(command).substr(family.module.size() + 1);
        const auto words = ScrollWords();
        if (std::none_of(words.begin(), words.end(), [word](const ScrollWord& row) { return row.word == word; })) {
            return false;
        }
        if (Control* const list = family.list(program); list != nullptr) {
            scrollList(*list, command);
            if (family.afterwards != nullptr) {
                family.afterwards(program);
            }
        }
        return true;
    }
    return false;
}

bool CommandDispatcher::RunParameterCommand(std::string_view command) {
    const SplitCommand split = SplitAtLastDot(command);
    const auto rows = ParameterCommands();
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&split](const ParameterCommand& candidate) { return candidate.name == split.base; });
    return row != rows.end() && row->run(program, split.parameter);
}

void CommandDispatcher::pushModuleHistory(std::string_view name) {
    if (!newerModule.empty()) {
        olderModule = newerModule;
    }
    newerModule = name;
}

void CommandDispatcher::goBack() {
    if (olderModule.empty()) {
        program.dispatchCommand("mainmenu.show");
        return;
    }
    const std::string module = olderModule;
    olderModule.clear();
    program.dispatchCommand(module + ".show");
}

void CommandDispatcher::dispatchFunctionKey(const KeyEvent& key) {
    const bool mainmenuEnabled = program.stage.ModalForm() == nullptr;
    if (!mainmenuEnabled || key.modifier || key.key < Key::f1 || key.key > Key::f12) {
        return;
    }
    std::string& command =
        program.godfather.hotkeyCommands[static_cast<std::size_t>(key.key) - static_cast<std::size_t>(Key::f1)];
    if (!command.empty()) {
        // The stored text itself: what the dispatcher makes of it is what the settings keep.
        dispatchCommand(command);
    }
}

void CommandDispatcher::scrollList(Control& list, std::string& command) {
    command.erase(0, command.rfind('.') + 1);
    Grid& grid = *list.grid;
    const int row = grid.Row();
    const int last = grid.RowCount();
    const int page = grid.VisibleRows();
    const bool upwards = command == "scrollup" || command == "scrollpageup";
    if ((upwards || command == "scrolldown" || command == "scrollpagedown") && grid.SelectInView(upwards)) {
        return;
    }
    if (command == "scrolltop") {
        grid.Select(1);
    } else if (command == "scrollbottom") {
        grid.Select(last);
    } else if (command == "scrollpageup") {
        grid.Select(row > page ? row - page : 1);
    } else if (command == "scrollpagedown") {
        grid.Select(row < last - page ? row + page : last);
    } else if (command == "scrollup" && row >= 2) {
        grid.Select(row - 1);
    } else if (command == "scrolldown" && row < last) {
        grid.Select(row + 1);
    }
}

void CommandDispatcher::SendButtonBehind(std::string_view command) {
    for (Form* form : program.stage.Forms()) {
        if (!program.isModuleActive(form->name)) {
            continue;
        }
        const std::vector<Control*> controls = form->Controls();
        for (Control* control : controls) {
            if (control->Tag() == command) {
                form->SendToBack(*control);
            }
        }
    }
}

void CommandDispatcher::ShowButton(Form& form, std::string_view command, bool visible) {
    for (Control* control : form.Controls()) {
        if (control->Tag() == command) {
            control->visible = visible;
        }
    }
}

Acts ActsOf(std::string_view command) {
    const Command* const row = RowOf(command);
    return row == nullptr ? Acts::onClick : row->acts;
}

void ForEachCommand(const std::function<void(std::string_view)>& visit) {
    for (const Command& row : Commands()) {
        visit(row.name);
    }
    for (const ScrollFamily& family : ScrollFamilies()) {
        for (const ScrollWord& word : ScrollWords()) {
            visit(std::string(family.module) + "." + std::string(word.word));
        }
    }
    for (const ParameterCommand& row : ParameterCommands()) {
        visit(row.name);
    }
}

bool IsKnownCommand(std::string_view command) {
    const std::string name = text::Lower(command);
    if (RowOf(name) != nullptr) {
        return true;
    }
    const SplitCommand split = SplitAtLastDot(name);
    const auto words = ScrollWords();
    const auto families = ScrollFamilies();
    const auto parameters = ParameterCommands();
    return (std::any_of(families.begin(), families.end(), [&](const auto& row) { return row.module == split.base; }) &&
            std::any_of(words.begin(), words.end(), [&](const auto& row) { return row.word == split.parameter; })) ||
           std::any_of(parameters.begin(), parameters.end(), [&](const auto& row) { return row.name == split.base; });
}

}  // namespace zvr
