#pragma once

#include "options/optionsheet.h"

namespace zvr {

/// A small form over the options: some controls, OK and Cancel. Doesn't wait.
class OptionEditor {
public:
    OptionEditor(Program& program, std::string formName);

    Form form;
    OptionSheet sheet;

    using Values = std::vector<std::string>;
    /// What is wrong with the values, as a message to the user; empty when they are fine.
    std::function<std::string(const Values&)> fault;
    std::function<void(const Values&)> done;  ///< after OK, the form is closed

    /// Nothing while a dialog stands.
    void Open(std::vector<Option> newRows, Values values);
    void Accept();  ///< as OK does
    void Close();

private:
    Program& program;
    std::vector<Option> rows;
    bool asking = false;
    Lifetime lifetime;
};

}  // namespace zvr
