#include "options/options.h"

#include "apps/externalapps.h"
#include "core/dialogqueue.h"
#include "core/godfather.h"
#include "core/mainmenu.h"
#include "core/numbers.h"
#include "core/program.h"
#include "core/settings.h"
#include "options/optionlists.h"
#include "platform/platform.h"
#include "skin/skinner.h"
#include "system/setgamma.h"
#include "ui/stage.h"

#include <algorithm>

namespace zvr {
namespace {

constexpr Milliseconds trialStep{999};

bool IsSkinList(const Option& option) {
    return option.name == "lstSkins" || option.name == "lstNightSkins";
}

}  // namespace

OptionsDialog::OptionsDialog(Program& program)
    : program(program), tmrReset(program.platform.loop, [this] { TrialTick(); }) {
    tmrReset.SetInterval(trialStep);
}

OptionsDialog::~OptionsDialog() = default;

bool OptionsDialog::IsOpen() const {
    return program.dialogs.IsOpenBelow(form);
}

void OptionsDialog::Make() {
    sheet = std::make_unique<OptionSheet>(program, form);
    editors = std::make_unique<OptionEditors>(program);
    program.stage.Add(form);
    sheet->hasTabs = true;
    sheet->hasApply = true;
    sheet->rows = OptionRows();
    sheet->choices = [this](std::size_t row) { return offered[row]; };
    sheet->onChange = [this](std::size_t row) { ValueChanged(row); };
    // From the loop: what these do may end the control that was touched.
    sheet->onOk = [this] { Later([this] { Ok(); }); };
    sheet->onApply = [this] { Later([this] { Apply(); }); };
    sheet->onCancel = [this] {
        cancelledMeanwhile = busy;
        Later([this] { Cancel(); });
    };
    sheet->onAction = [this](std::size_t row) { Later([this, row] { Act(row); }); };
    sheet->onPick = [this](std::size_t row) { Later([this, row] { Pick(row); }); };
    sheet->onEdit = [this](std::size_t row, int entry) { Later([this, row, entry] { Edit(row, entry); }); };
    sheet->onRemove = [this](std::size_t row, int entry) { Later([this, row, entry] { Remove(row, entry); }); };
    sheet->keyText = [this](std::size_t row) { return KeyText(row); };
    sheet->keySwatch = [this](std::size_t row) {
        // An action with a value is a colour.
        return sheet->rows[row].key.empty() ? std::nullopt
                                            : std::optional(static_cast<Color>(LeadingNumber(sheet->values[row])));
    };
    sheet->mayAct = [this](std::size_t row) { return MayAct(row); };
    sheet->entryText = EntryText;
}

/// One at a time: a second tap that comes while the first one's question or editor stands is lost.
void OptionsDialog::Later(std::function<void()> task) {
    program.platform.loop.Post(lifetime.Guard([this, task = std::move(task)] {
        if (busy || !IsOpen() || program.stage.ModalForm() != &form) {
            return;
        }
        busy = true;
        task();
        busy = false;
        if (cancelledMeanwhile && IsOpen() && !program.platform.loop.IsQuitting()) {
            cancelledMeanwhile = false;
            Cancel();
        }
    }));
}

void OptionsDialog::Show() {
    if (program.dialogs.modalBoxOpen() || IsOpen() || program.platform.loop.IsQuitting()) {
        return;
    }
    if (!sheet) {
        Make();
    }
    if (!program.godfather.form.visible) {
        program.externalapps.LeaveProgram();  // its bar would lie over the first keys
    }
    program.gamma.SaveCurrentRamp();
    savedLevel = program.godfather.currentBrightness;
    cancelledMeanwhile = false;
    LoadAll();
    program.dialogs.OpenBelow(form, [this] { sheet->Build(); });
}

void OptionsDialog::LoadAll() {
    const auto rows = OptionRows();
    offered.assign(rows.size(), {});
    sheet->values.assign(rows.size(), "");
    for (std::size_t row = 0; row < rows.size(); ++row) {
        sheet->values[row] = LoadOption(program, rows[row]);
        if (rows[row].choices != nullptr) {
            offered[row] = rows[row].choices(program);
        }
    }
}

void OptionsDialog::Ok() {
    Apply();
    if (!program.platform.loop.IsQuitting()) {
        Unload();
    }
}

void OptionsDialog::Cancel() {
    Unload();
}

void OptionsDialog::Apply() {
    SaveAll();
    PutInForce();
    TakeSkin("lstSkins", program.godfather.usedSkin);
    TakeSkin("lstNightSkins", program.godfather.usedNightSkin);
    if (program.platform.loop.IsQuitting()) {
        return;
    }
    saveSettings(program);
    for (const char* slider : {"sldVolLevel", "sldVolBalance"}) {
        const std::size_t row = sheet->RowNamed(slider);
        sheet->values[row] = LoadOption(program, sheet->rows[row]);
    }
    sheet->Refresh();
}

void OptionsDialog::SaveAll() {
    for (std::size_t row = 0; row < sheet->rows.size(); ++row) {
        const Option& option = sheet->rows[row];
        if (!option.name.empty() && !option.actsAtOnce && !IsSkinList(option)) {
            SaveOption(program, option, sheet->values[row]);
        }
    }
}

void OptionsDialog::PutInForce() {
    GodFather& godfather = program.godfather;
    program.platform.screen.HidePointer(godfather.hideMouseCursor);
    if (godfather.justShowConfig) {
        return;
    }
    if (godfather.hideWindowsTaskbar) {
        godfather.HideTaskbar();
    } else {
        godfather.ShowTaskbar();
    }
    tmrReset.Stop();
    godfather.SetBrightness(godfather.brightnessIsDay ? godfather.brightnessDay : godfather.brightnessNight);
    program.gamma.SaveCurrentRamp();
    savedLevel = godfather.currentBrightness;
    program.mainmenu.LoadUserPic();
}

void OptionsDialog::TakeSkin(std::string_view list, std::string& variable) {
    const std::size_t row = sheet->RowNamed(list);
    const std::string chosen = sheet->values[row];
    const auto& skins = offered[row];
    const bool isSelected = std::any_of(skins.begin(), skins.end(),
                                        [&chosen](const OptionChoice& choice) { return choice.value == chosen; });
    if (!isSelected || program.platform.loop.IsQuitting()) {
        return;  // the folder of the present one may be missing: that is no choice of today
    }
    const char* fault = nullptr;
    switch (program.skinner.CheckSkinVersion(chosen)) {
        case SkinVersion::good:
            variable = chosen;
            return;
        case SkinVersion::unreadable:
            fault = "SKINNING_CONFIGFILEERROR";
            break;
        case SkinVersion::none:
            fault = "SKINNING_NOVERSIONINFO";
            break;
        case SkinVersion::other:
            fault = "SKINNING_WRONGVERSION";
            break;
    }
    sheet->SetValue(row, variable);
    (void)program.showMessage(program.languageText("OPT_SKINSELECTION_ERROR") + "\r\n\r\n" +
                              program.languageText(fault));
}

void OptionsDialog::PutRampBack() {
    tmrReset.Stop();
    // The clock or a key may have switched meanwhile: then that is what the display goes back to.
    const int level = program.godfather.currentBrightness;
    if (level == savedLevel) {
        program.gamma.RestoreSavedRamp();
    } else {
        program.gamma.SetBrightness(level);
    }
}

void OptionsDialog::Unload() {
    PutRampBack();
    program.dialogs.CloseBelow(form);
    sheet->Forget();
    if (program.godfather.justShowConfig) {
        program.gamma.RemoveRampFile();
        program.EndAtOnce(0);
        return;
    }
    LoadFittingSkin();
}

void OptionsDialog::LoadFittingSkin() {
    const GodFather& godfather = program.godfather;
    const std::string loaded = program.skinner.loadedSkin;
    const bool byClock = godfather.AutoSwitchDayNight;
    // Copies: a skin that fails puts the former name back into the variable.
    const std::string skin = godfather.usedSkin;
    const std::string nightSkin = godfather.usedNightSkin;
    if (skin != loaded && (!godfather.useNightSkin || !byClock)) {
        program.skinner.LoadSkin(skin);
    } else if (!byClock && godfather.useNightSkin && nightSkin != loaded) {
        program.skinner.LoadSkin(nightSkin);
    }
}

}  // namespace zvr
