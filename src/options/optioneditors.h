#pragma once

#include "options/optioneditor.h"
#include "options/placechooser.h"
#include "platform/lifetime.h"

namespace zvr {

/// The forms that the options open for one entry, one command, one place, one colour. Each tells `done` what the user
/// has chosen, and nobody if he cancels.
class OptionEditors {
public:
    using Done = std::function<void(const std::string&)>;

    explicit OptionEditors(Program& program);

    OptionEditor optionsfileext;
    OptionEditor optionsquickjump;
    OptionEditor optionsextapp;
    OptionEditor bcmdref;
    OptionEditor colorpicker;
    PlaceChooser browseforfolder;
    PlaceChooser browseforfile;

    void AskForExtension(const std::string& present, Done done);
    void AskForQuickJump(const std::string& entry, Done done);  ///< name and command, a tab between them
    void AskForProgram(const std::string& entry, Done done);    ///< four fields, tabs between them
    void AskForCommand(Done done);
    void AskForColor(const std::string& color, Done done);
    void AskForPlace(Picks picks, const std::string& present, Done done);

private:
    void MixColor(bool bySwatch);
    void PickInto(OptionEditor& editor, std::size_t row);

    Program& program;
    Lifetime lifetime;
};

}  // namespace zvr
