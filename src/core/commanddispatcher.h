#pragma once

#include "ui/form.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace zvr {

class Program;

/// When a button with the command acts.
enum class Acts {
    onClick,            ///< the finger has lifted inside
    onPressAndRepeats,  ///< at once, and again while the finger stays down
};

/// One action of the user: its name, what it runs, what the command reference says of it, and when a button acts.
struct Command {
    std::string_view name;
    void (*run)(Program&);
    std::string_view description;
    Acts acts = Acts::onClick;
};

/// A command that carries a last word: its name before the last dot, and what it does with the word.
struct ParameterCommand {
    std::string_view name;
    bool (*run)(Program&, std::string_view parameter);  ///< false: the word is not acceptable
    std::string_view description;
};

/// The six scroll commands of one list: the module's name, a dot, and one of scrollWords.
struct ScrollFamily {
    std::string_view module;
    Control* (*list)(Program&);    ///< null while the module isn't in use
    void (*afterwards)(Program&);  ///< null for nothing
    std::string_view description;  ///< of the list
};

struct ScrollWord {
    std::string_view word;
    std::string_view description;
};

[[nodiscard]] std::span<const Command> Commands();
[[nodiscard]] std::span<const ParameterCommand> ParameterCommands();
[[nodiscard]] std::span<const ScrollFamily> ScrollFamilies();
[[nodiscard]] std::span<const ScrollWord> ScrollWords();
/// Each command in full, but for those that end in a word of their own, which stand without it.
void ForEachCommand(const std::function<void(std::string_view)>& visit);
/// True for a text that some row of the tables would run, its letters in any case.
[[nodiscard]] bool IsKnownCommand(std::string_view command);
/// As the row of that very name says; on the click for any other text.
[[nodiscard]] Acts ActsOf(std::string_view command);

/// The one entry of everything that the user can do.
class CommandDispatcher {
public:
    explicit CommandDispatcher(Program& program);

    /// Runs the command, or says in a message box why not. The text is lower-cased in place, and a scroll
    /// command is cut to its last word.
    void dispatchCommand(std::string& command);

    /// Called by the screens as they come to the front.
    void pushModuleHistory(std::string_view name);
    void goBack();  ///< to the screen before; without one to the main menu
    void dispatchFunctionKey(const KeyEvent& key);

    /// Moves the selected row; `command` is cut to the word behind its last dot.
    void scrollList(Control& list, std::string& command);
    /// Uncovers the other one of two buttons on one spot, on every screen.
    void SendButtonBehind(std::string_view command);
    void ShowButton(Form& form, std::string_view command, bool visible);

    std::string olderModule;  ///< of the last two screens in front
    std::string newerModule;

    long dispatched = 0;      ///< commands so far, whatever became of them
    std::string lastCommand;  ///< of them, in small letters

private:
    bool RunCommand(const std::string& command);
    bool RunScrollCommand(std::string& command);
    bool RunParameterCommand(std::string_view command);

    Program& program;
};

}  // namespace zvr
