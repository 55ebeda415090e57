// What the keys of the options do beside changing a value.
#include "options/options.h"

#include "core/godfather.h"
#include "core/numbers.h"
#include "core/program.h"
#include "media/mediasearch.h"
#include "options/optionlists.h"
#include "phone/phone.h"
#include "platform/platform.h"
#include "system/setgamma.h"

#include <algorithm>
#include <array>

namespace zvr {
namespace {

constexpr int trialSeconds = 4;
constexpr int phonebookRounds = 100;
constexpr Milliseconds phonebookRound{100};

/// What a list of entries asks and says.
struct ListTexts {
    std::string_view list;
    const char* alreadyThere;
    const char* askToRemove;
};
constexpr std::array listTexts{
    ListTexts{"lstQuickJump", "OPT_ADDQUICKJUMP_ALREADYEXISTS", "OPT_REMQUICKJUMP_ASKUSER"},
    ListTexts{"lstApps", "OPT_ADDEXTAPP_ALREADYEXISTS", "OPT_REMEXTAPP_ASKUSER"},
    ListTexts{"", "OPT_ADDFILEEXT_ALREADYEXISTS", "OPT_REMFILEEXT_ASKUSER"},
};

const ListTexts& TextsOf(std::string_view list) {
    return *std::find_if(listTexts.begin(), listTexts.end(),
                         [list](const ListTexts& texts) { return texts.list == list || texts.list.empty(); });
}

/// Fields in a setting are parted by ";", among the forms by a tab; what would part them elsewhere becomes a blank.
std::string QuickJumpEntryOf(std::string fields) {
    std::replace_if(
        fields.begin(), fields.end(), [](char c) { return c == ';' || c == '|'; }, ' ');
    std::replace(fields.begin(), fields.end(), '\t', ';');
    return fields;
}

}  // namespace

void OptionsDialog::ValueChanged(std::size_t row) {
    const Option& option = sheet->rows[row];
    if (!option.actsAtOnce) {
        return;
    }
    SaveOption(program, option, sheet->values[row]);
    if (option.kind == OptionKind::toggle) {
        const std::size_t balance = sheet->RowNamed("sldVolBalance");
        sheet->values[balance] = LoadOption(program, sheet->rows[balance]);
    }
}

std::string OptionsDialog::KeyText(std::size_t row) const {
    const std::string_view name = sheet->rows[row].name;
    const bool isTried = tmrReset.Enabled() && ((name == "cmdTestDay" && tried == "sldDay") ||
                                                (name == "cmdTestNight" && tried == "sldNight"));
    if (isTried) {
        return std::to_string(countdown);
    }
    if (name == "cmdRefreshIndex" && program.mediasearch.creatingIndex) {
        return program.languageText("OPT_MEDIASEARCH_REFRESHINGNOW");
    }
    return {};
}

bool OptionsDialog::MayAct(std::size_t row) const {
    const std::string_view name = sheet->rows[row].name;
    if (name.starts_with("cmdTest")) {
        return !tmrReset.Enabled();
    }
    if (name == "cmdGetPhonebooks") {
        return !awaitsPhonebooks;
    }
    return name != "cmdRefreshIndex" || (program.mediasearch.form.loaded && !program.mediasearch.creatingIndex);
}

void OptionsDialog::Act(std::size_t row) {
    const std::string_view name = sheet->rows[row].name;
    if (name == "cmdTestDay" || name == "cmdTestNight") {
        Try(name == "cmdTestDay" ? "sldDay" : "sldNight");
    } else if (name == "cmdDay" || name == "cmdNight") {
        program.dispatchCommand(name == "cmdDay" ? "app.day" : "app.night");
    } else if (name == "cmdSelectAllModules" || name == "cmdDeselectAllModules") {
        SwitchAllModules(name == "cmdSelectAllModules");
    } else if (name == "cmdGetPhonebooks") {
        program.platform.loop.Post(lifetime.Guard([this] { GetPhonebooks(); }));
    } else if (name == "cmdRefreshIndex") {
        MakeIndex();
    } else if (name == "cmdUserPicFlashBGcolor") {
        editors->AskForColor(sheet->values[row],
                             [this, row](const std::string& color) { sheet->SetValue(row, color); });
    }
}

void OptionsDialog::SwitchAllModules(bool on) {
    for (std::size_t row = 0; row < sheet->rows.size(); ++row) {
        if (sheet->rows[row].name.starts_with("chkModule")) {
            sheet->values[row] = on ? "1" : "0";
        }
    }
    sheet->Refresh();
}

void OptionsDialog::Try(std::string_view slider) {
    if (tmrReset.Enabled()) {
        return;
    }
    // The display alone: what is in force for the clock stays as it is.
    program.gamma.SetBrightness(static_cast<int>(LeadingNumber(sheet->ValueOf(slider))));
    tried = slider;
    countdown = -trialSeconds - 1;
    tmrReset.Start();
    TrialTick();
}

void OptionsDialog::TrialTick() {
    if (++countdown == 0) {
        PutRampBack();
    }
    if (IsOpen()) {
        sheet->Refresh();
    }
}

/// The phone takes up to ten seconds, and the dialog can be used and closed meanwhile.
void OptionsDialog::GetPhonebooks() {
    if (awaitsPhonebooks) {
        return;
    }
    if (program.phone.form.loaded) {
        awaitsPhonebooks = true;
        sheet->Refresh();
        program.phone.phonebooksString.clear();
        program.phone.GetPhonebooks();
        for (int round = 0; round < phonebookRounds && program.phone.phonebooksString.empty() && IsOpen(); ++round) {
            program.platform.loop.Wait(phonebookRound);
        }
        awaitsPhonebooks = false;
    }
    if (program.platform.loop.IsQuitting() || !IsOpen()) {
        return;
    }
    sheet->Refresh();
    if (program.phone.phonebooksString.empty()) {
        (void)program.showMessage(program.languageText("OPT_PHONE_NOPHONEBOOKSRETRIEVED"));
        return;
    }
    const std::size_t row = sheet->RowNamed("cboPhonebookName");
    offered[row] = sheet->rows[row].choices(program);
    sheet->Refresh();
}

/// Takes minutes, and goes on if the dialog is closed.
void OptionsDialog::MakeIndex() {
    program.platform.loop.Post(lifetime.Guard([this] {
        program.mediasearch.CreateIndex();
        if (!program.platform.loop.IsQuitting() && IsOpen()) {
            sheet->Refresh();
        }
    }));
    program.platform.loop.Post(lifetime.Guard([this] {
        if (IsOpen()) {
            sheet->Refresh();
        }
    }));
}

void OptionsDialog::Pick(std::size_t row) {
    const auto take = [this, row](const std::string& value) { sheet->SetValue(row, value); };
    const Option& option = sheet->rows[row];
    if (option.picks == Picks::command) {
        editors->AskForCommand(take);
    } else {
        editors->AskForPlace(option.picks, sheet->values[row], take);
    }
}

void OptionsDialog::Edit(std::size_t row, int entry) {
    const std::string_view list = sheet->rows[row].name;
    const auto entries = EntriesOf(sheet->values[row], sheet->rows[row].separator);
    const std::string present =
        entry >= 0 && entry < static_cast<int>(entries.size()) ? entries[static_cast<std::size_t>(entry)] : "";
    const auto take = [this, row, entry](const std::string& value) {
        Later([this, row, entry, value] { TakeEntry(row, entry, value); });
    };
    if (list == "lstQuickJump") {
        std::string fields = present;
        std::replace(fields.begin(), fields.end(), ';', '\t');
        editors->AskForQuickJump(fields, [take](const std::string& value) { take(QuickJumpEntryOf(value)); });
    } else if (list == "lstApps") {
        editors->AskForProgram(present, take);
    } else {
        editors->AskForExtension(present, take);
    }
}

void OptionsDialog::TakeEntry(std::size_t row, int entry, const std::string& value) {
    auto entries = EntriesOf(sheet->values[row], sheet->rows[row].separator);
    const std::string title = EntryText(value, false);
    for (int i = 0; i < static_cast<int>(entries.size()); ++i) {
        if (i != entry && EntryText(entries[static_cast<std::size_t>(i)], false) == title) {
            (void)program.showMessage(program.languageText(TextsOf(sheet->rows[row].name).alreadyThere));
            return;
        }
    }
    const bool isNew = entry < 0 || entry >= static_cast<int>(entries.size());
    if (isNew) {
        entries.push_back(value);
    } else {
        entries[static_cast<std::size_t>(entry)] = value;
    }
    sheet->SetValue(row, JoinedEntries(entries, sheet->rows[row].separator));
    sheet->ShowEntry(row, isNew ? static_cast<int>(entries.size()) - 1 : entry);
}

void OptionsDialog::Remove(std::size_t row, int entry) {
    const char* const question = TextsOf(sheet->rows[row].name).askToRemove;
    const MessageAnswer answer = program.showMessage(program.languageText(question), MessageButtons::yesNo);
    auto entries = EntriesOf(sheet->values[row], sheet->rows[row].separator);
    if (program.platform.loop.IsQuitting() || answer != MessageAnswer::yes || entry < 0 ||
        entry >= static_cast<int>(entries.size())) {
        return;
    }
    entries.erase(entries.begin() + entry);
    sheet->SetValue(row, JoinedEntries(entries, sheet->rows[row].separator));
}

}  // namespace zvr
