#pragma once

#include "options/optioneditors.h"
#include "options/optionsheet.h"
#include "platform/eventloop.h"
#include "ui/form.h"

#include <memory>

namespace zvr {

class Program;

/// Where the user edits the settings. It holds copies: nothing takes effect until OK or Apply, but for the system's
/// volume. Costs nothing before it is opened for the first time.
class OptionsDialog {
public:
    explicit OptionsDialog(Program& program);
    ~OptionsDialog();

    Form form{"options"};

    void Show();  ///< doesn't wait; nothing while it, or another dialog, is open
    void Ok();
    void Cancel();
    void Apply();  ///< waits while a refused skin is told

    [[nodiscard]] bool IsOpen() const;
    [[nodiscard]] OptionSheet& Sheet() { return *sheet; }        ///< after it was opened once
    [[nodiscard]] OptionEditors& Editors() { return *editors; }  ///< the same

private:
    void Make();
    void Later(std::function<void()> task);
    void LoadAll();
    void SaveAll();
    void PutInForce();
    void TakeSkin(std::string_view list, std::string& variable);
    void Unload();
    void LoadFittingSkin();

    [[nodiscard]] std::string KeyText(std::size_t row) const;
    [[nodiscard]] bool MayAct(std::size_t row) const;
    void Act(std::size_t row);
    void Pick(std::size_t row);
    void Edit(std::size_t row, int entry);
    void Remove(std::size_t row, int entry);
    void TakeEntry(std::size_t row, int entry, const std::string& value);
    void ValueChanged(std::size_t row);

    void Try(std::string_view slider);
    void TrialTick();
    void PutRampBack();
    void GetPhonebooks();
    void MakeIndex();
    void SwitchAllModules(bool on);

    Program& program;
    std::unique_ptr<OptionSheet> sheet;
    std::unique_ptr<OptionEditors> editors;
    std::vector<std::vector<OptionChoice>> offered;  ///< by row, as it was when the dialog opened
    Timer tmrReset;                                  ///< 999 ms, while a brightness is tried
    std::string_view tried;                          ///< slider of that
    int countdown = 0;                               ///< -4 to 0
    int savedLevel = 0;                              ///< in force when the ramp was saved
    bool busy = false;                               ///< something of ours waits
    bool cancelledMeanwhile = false;
    bool awaitsPhonebooks = false;
    Lifetime lifetime;
};

}  // namespace zvr
