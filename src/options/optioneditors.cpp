#include "options/optioneditors.h"

#include "core/numbers.h"
#include "core/program.h"
#include "options/commandreference.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "ui/stage.h"

#include <algorithm>
#include <array>

namespace zvr {
namespace {

using K = OptionKind;

Option Row(std::string_view name, K kind, std::string_view caption, Picks picks = Picks::nothing) {
    Option row{name, OptionTab::general, kind, caption};
    row.picks = picks;
    return row;
}

Option ColorRow(std::string_view name, std::string_view caption) {
    Option row = Row(name, K::slider, caption);
    row.highest = 255;
    return row;
}

/// A good choice behind a movie; what the user mixes himself comes behind them.
constexpr auto palette = std::to_array<Color>({
    RgbColor(0, 0, 0),
    RgbColor(64, 64, 64),
    RgbColor(128, 128, 128),
    RgbColor(192, 192, 192),
    RgbColor(255, 255, 255),
    RgbColor(32, 38, 43),
    RgbColor(132, 70, 27),
    RgbColor(255, 148, 71),
    RgbColor(160, 30, 30),
    RgbColor(230, 190, 60),
    RgbColor(40, 120, 70),
    RgbColor(40, 120, 130),
    RgbColor(30, 70, 150),
    RgbColor(90, 50, 130),
    RgbColor(170, 60, 120),
});

std::vector<OptionChoice> SwatchesWith(const std::string& own) {
    std::vector<OptionChoice> all;
    for (const Color color : palette) {
        all.push_back({std::to_string(color), ""});
    }
    const bool known =
        std::any_of(all.begin(), all.end(), [&own](const OptionChoice& choice) { return choice.value == own; });
    all.push_back({known ? std::to_string(RgbColor(80, 50, 30)) : own, ""});
    return all;
}

constexpr std::string_view notInExtensions = "\\/:*?\"<>|;.";

}  // namespace

OptionEditors::OptionEditors(Program& program)
    : optionsfileext(program, "optionsfileext"),
      optionsquickjump(program, "optionsquickjump"),
      optionsextapp(program, "optionsextapp"),
      bcmdref(program, "bcmdref"),
      colorpicker(program, "colorpicker"),
      browseforfolder(program, "browseforfolder"),
      browseforfile(program, "browseforfile"),
      program(program) {
    for (OptionEditor* editor : {&optionsquickjump, &optionsextapp}) {
        editor->sheet.onPick = [this, editor](std::size_t row) {
            this->program.platform.loop.Post(lifetime.Guard([this, editor, row] {
                if (this->program.stage.ModalForm() == &editor->form) {
                    PickInto(*editor, row);
                }
            }));
        };
    }
    optionsextapp.sheet.choices = [](std::size_t row) {
        return row == 2 ? std::vector<OptionChoice>{{"docked", "OPT_EXTAPP_QUICKBAR_DOCKED"},
                                                    {"floating", "OPT_EXTAPP_QUICKBAR_FLOATING"}}
                        : std::vector<OptionChoice>{{"normal", "OPT_EXTAPP_WINDOW_NORMAL"},
                                                    {"maximized", "OPT_EXTAPP_WINDOW_MAXIMIZED"}};
    };
    colorpicker.sheet.choices = [this](std::size_t) { return SwatchesWith(colorpicker.sheet.values[0]); };
    colorpicker.sheet.onChange = [this](std::size_t row) { MixColor(row == 0); };
    bcmdref.sheet.choices = [this](std::size_t) { return CommandReference(bcmdref.sheet.values[0]); };
    bcmdref.sheet.onSecondTap = [this](std::size_t) { bcmdref.sheet.onOk(); };
}

void OptionEditors::PickInto(OptionEditor& editor, std::size_t row) {
    const auto take = [this, &editor, row](const std::string& value) {
        editor.sheet.SetValue(row, value);
        if (&editor == &optionsextapp && editor.sheet.values[0].empty()) {
            editor.sheet.SetValue(0, browseforfile.Marked());  // nobody likes to type
        }
    };
    if (editor.sheet.rows[row].picks == Picks::command) {
        AskForCommand(take);
    } else {
        AskForPlace(editor.sheet.rows[row].picks, editor.sheet.values[row], take);
    }
}

void OptionEditors::AskForExtension(const std::string& present, Done done) {
    optionsfileext.sheet.title = program.languageText("OPT_ADDFILEEXT_TITLE");
    optionsfileext.fault = [this](const OptionEditor::Values& values) {
        if (values[0].empty()) {
            return program.languageText("OPT_ADDFILEEXT_ENTERANEXTENSION");
        }
        const std::size_t wrong = values[0].find_first_of(notInExtensions);
        return wrong == std::string::npos ? std::string()
                                          : "\"" + values[0].substr(wrong, 1) + "\" " +
                                                program.languageText("OPT_ADDFILEEXT_ISNOTANALLOWEDCHAR") + "\n\n" +
                                                program.languageText("OPT_ADDFILEEXT_ILLEGALCHARS");
    };
    optionsfileext.done = [done = std::move(done)](const OptionEditor::Values& values) {
        done(text::Lower(values[0]));
    };
    optionsfileext.Open({Row("txtFileExt", K::text, "OPT_ADDFILEEXT_TITLE")}, {present});
}

void OptionEditors::AskForQuickJump(const std::string& entry, Done done) {
    const auto fields = text::Split(entry, '\t');
    const bool isNew = fields.size() != 2;
    optionsquickjump.sheet.title = program.languageText(isNew ? "OPT_QUICKJUMP_ADDTITLE" : "OPT_QUICKJUMP_MODIFYTITLE");
    optionsquickjump.fault = [this](const OptionEditor::Values& values) {
        return values[0].empty()   ? program.languageText("OPT_QUICKJUMP_ENTERANAME")
               : values[1].empty() ? program.languageText("OPT_QUICKJUMP_ENTERACOMMAND")
                                   : std::string();
    };
    optionsquickjump.done = [done = std::move(done)](const OptionEditor::Values& values) {
        done(values[0] + "\t" + values[1]);
    };
    optionsquickjump.Open(
        {Row("txtName", K::text, "OPT_QUICKJUMP_NAME"),
         Row("txtCommand", K::text, "OPT_QUICKJUMP_COMMAND", Picks::command)},
        isNew ? OptionEditor::Values{"", ""} : OptionEditor::Values{std::string(fields[0]), std::string(fields[1])});
}

void OptionEditors::AskForProgram(const std::string& entry, Done done) {
    const auto fields = text::Split(entry, '\t');
    const bool isNew = fields.size() != 4;
    optionsextapp.sheet.title = program.languageText(isNew ? "OPT_ADDEXTAPP_ADDTITLE" : "OPT_ADDEXTAPP_MODIFYTITLE");
    optionsextapp.fault = [this](const OptionEditor::Values& values) {
        return values[0].empty()   ? program.languageText("OPT_ADDEXTAPP_ENTERATITLE")
               : values[1].empty() ? program.languageText("OPT_ADDEXTAPP_ENTERAPATH")
                                   : std::string();
    };
    optionsextapp.done = [done = std::move(done)](const OptionEditor::Values& values) {
        done(values[0] + "\t" + values[1] + "\t" + values[2] + "\t" + values[3]);
    };
    OptionEditor::Values values{"", "", "docked", "maximized"};
    if (!isNew) {
        values.assign(fields.begin(), fields.end());
    }
    optionsextapp.Open(
        {Row("txtTitle", K::text, "OPT_EXTAPP_TITLE"), Row("txtPath", K::text, "OPT_EXTAPP_PATH", Picks::program),
         Row("optQuickbar", K::segments, "OPT_EXTAPP_QUICKBAR"), Row("optWindow", K::segments, "OPT_EXTAPP_WINDOW")},
        std::move(values));
}

void OptionEditors::AskForCommand(Done done) {
    bcmdref.sheet.title = program.languageText("OPT_COMMANDS_LIST");
    bcmdref.done = [done = std::move(done)](const OptionEditor::Values& values) {
        if (!values[1].empty()) {
            done(values[1]);
        }
    };
    bcmdref.Open({Row("txtFilter", K::text, "OPT_FKEYS_COMMAND"), Row("cmdlist", K::list, "")}, {"", ""});
}

void OptionEditors::AskForColor(const std::string& color, Done done) {
    colorpicker.sheet.title = program.languageText("OPT_USERPIC_FLASH_BGCOL");
    colorpicker.done = [done = std::move(done)](const OptionEditor::Values& values) { done(values[0]); };
    const auto present = std::to_string(static_cast<Color>(LeadingNumber(color)));
    colorpicker.Open({Row("swColor", K::swatches, ""), ColorRow("sldRed", "OPT_CHOOSER_RED"),
                      ColorRow("sldGreen", "OPT_CHOOSER_GREEN"), ColorRow("sldBlue", "OPT_CHOOSER_BLUE")},
                     {present, "", "", ""});
    MixColor(true);
}

/// The sliders show what is in the swatch, or the swatch what the sliders mix.
void OptionEditors::MixColor(bool bySwatch) {
    OptionEditor::Values& values = colorpicker.sheet.values;
    const auto part = [&values](std::size_t i) { return static_cast<int>(LeadingNumber(values[i])); };
    if (bySwatch) {
        const auto color = static_cast<Color>(LeadingNumber(values[0]));
        values = {values[0], std::to_string(RedOf(color)), std::to_string(GreenOf(color)),
                  std::to_string(BlueOf(color))};
    } else {
        values[0] = std::to_string(RgbColor(part(1), part(2), part(3)));
    }
    colorpicker.sheet.Refresh();
}

void OptionEditors::AskForPlace(Picks picks, const std::string& present, Done done) {
    (picks == Picks::folder ? browseforfolder : browseforfile).Open(picks, present, std::move(done));
}

}  // namespace zvr
