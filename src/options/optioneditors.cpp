#include "options/optioneditors.h"

#include "core/numbers.h"
#include "core/program.h"
#include "options/commandreference.h"
#include "platform/platform.h"
#include "platform/text.h"

#include <algorithm>

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

constexpr std::string_view notInExtensions = "\\/:*?\"<>|;.";

}  // namespace

OptionEditors::OptionEditors(Program& program)
    : optionsfileext(program, "optionsfileext"),
      optionsquickjump(program, "optionsquickjump"),
      optionsextapp(program, "optionsextapp"),
      bcmdref(program, "bcmdref"),
      browseforfolder(program, "browseforfolder"),
      browseforfile(program, "browseforfile"),
      colorpicker(program, "colorpicker"),
      program(program) {
    for (OptionEditor* editor : {&optionsquickjump, &optionsextapp}) {
        editor->sheet.onPick = [this, editor](std::size_t row) {
            this->program.platform.loop.Post([this, editor, row] { PickInto(*editor, row); });
        };
    }
    optionsextapp.sheet.choices = [](std::size_t row) {
        return row == 2 ? std::vector<OptionChoice>{{"docked", "OPT_EXTAPP_QUICKBAR_DOCKED"},
                                                    {"floating", "OPT_EXTAPP_QUICKBAR_FLOATING"}}
                        : std::vector<OptionChoice>{{"normal", "OPT_EXTAPP_WINDOW_NORMAL"},
                                                    {"maximized", "OPT_EXTAPP_WINDOW_MAXIMIZED"}};
    };
    bcmdref.sheet.choices = [this](std::size_t) { return CommandReference(bcmdref.sheet.values[0]); };
    bcmdref.sheet.onSecondTap = [this](std::size_t) { bcmdref.sheet.onOk(); };
    for (OptionEditor* browser : {&browseforfolder, &browseforfile}) {
        browser->sheet.extraKey = "folder-up";
        browser->sheet.onExtra = [this, browser] { BrowseUp(*browser); };
        browser->sheet.choices = [this](std::size_t) { return entries; };
        browser->sheet.onChange = [this, browser](std::size_t) {
            const std::string chosen = browser->sheet.values[0];
            if (chosen.ends_with(files::separator)) {
                Browse(*browser, chosen);
            }
        };
        browser->sheet.onSecondTap = [browser](std::size_t) {
            if (!browser->sheet.values[0].empty() && !browser->sheet.values[0].ends_with(files::separator)) {
                browser->sheet.onOk();
            }
        };
    }
}

void OptionEditors::PickInto(OptionEditor& editor, std::size_t row) {
    const auto take = [&editor, row](const std::string& value) { editor.sheet.SetValue(row, value); };
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
    const auto now = static_cast<Color>(LeadingNumber(color));
    colorpicker.sheet.title = program.languageText("OPT_USERPIC_FLASH_BGCOL");
    colorpicker.done = [done = std::move(done)](const OptionEditor::Values& values) {
        const auto part = [&values](std::size_t i) { return static_cast<int>(LeadingNumber(values[i])); };
        done(std::to_string(RgbColor(part(0), part(1), part(2))));
    };
    colorpicker.Open({ColorRow("sldRed", "R"), ColorRow("sldGreen", "G"), ColorRow("sldBlue", "B")},
                     {std::to_string(RedOf(now)), std::to_string(GreenOf(now)), std::to_string(BlueOf(now))});
}

void OptionEditors::AskForPlace(Picks picks, const std::string& present, Done done) {
    const bool folder = picks == Picks::folder;
    OptionEditor& browser = folder ? browseforfolder : browseforfile;
    browsedFor = picks;
    std::string begin = folder ? present : files::FolderOf(present);
    if (begin.ends_with(files::separator) && begin.size() > 1) {
        begin.pop_back();
    }
    browsed = !begin.empty() && files::IsFolder(begin) ? begin : "";
    if (!browsed.empty() && !browsed.ends_with(files::separator)) {
        browsed += files::separator;
    }
    entries = EntriesOfFolder();
    browser.sheet.title = browsed;
    browser.done = [this, folder, done = std::move(done)](const OptionEditor::Values& values) {
        std::string chosen = folder ? browsed : values[0];
        if (folder && chosen.size() > 1) {
            chosen.pop_back();  // settings name folders without the separator
        }
        if (!chosen.empty() && (folder || !chosen.ends_with(files::separator))) {
            done(chosen);
        }
    };
    browser.Open({Row("lstEntries", K::list, "")}, {""});
}

void OptionEditors::Browse(OptionEditor& browser, std::string folder) {
    browsed = std::move(folder);
    entries = EntriesOfFolder();
    browser.sheet.values[0].clear();
    browser.sheet.title = browsed;
    browser.sheet.ListBegins(0);
    browser.sheet.Turn();
}

void OptionEditors::BrowseUp(OptionEditor& browser) {
    if (browsed.empty()) {
        return;
    }
    if (browsed == "/" || program.platform.drives.IsRoot(browsed)) {
        Browse(browser, "");
        return;
    }
    Browse(browser, files::FolderOf(browsed.substr(0, browsed.size() - 1)));
}

std::vector<OptionChoice> OptionEditors::EntriesOfFolder() const {
    std::vector<OptionChoice> folders;
    if (browsed.empty()) {
        for (const std::string& place : {files::MusicFolder(), files::PicturesFolder(), files::DocumentsFolder()}) {
            const auto isThere = [&place](const OptionChoice& choice) { return choice.caption == place; };
            if (files::IsFolder(place) && std::none_of(folders.begin(), folders.end(), isThere)) {
                folders.push_back({place + files::separator, place});
            }
        }
        for (const Drive& drive : program.platform.drives.List()) {
            folders.push_back({drive.path, drive.path});
        }
        return folders;
    }
    std::vector<OptionChoice> others;
    const auto fits = [this](std::string_view name) {
        if (browsedFor != Picks::picture) {
            return browsedFor == Picks::program || browsedFor == Picks::file;
        }
        const std::string lower = text::Lower(name);
        const auto endings = {".jpg", ".jpeg", ".png", ".gif", ".bmp", ".swf"};
        return std::any_of(endings.begin(), endings.end(), [&lower](const char* end) { return lower.ends_with(end); });
    };
    (void)files::Enumerate(browsed, [&](const files::Found& found) {
        const std::string name(found.name);
        if (name == ".." || (found.attributes & files::attributeHidden) != 0) {
            return true;
        }
        if ((found.attributes & files::attributeDirectory) != 0) {
            folders.push_back({browsed + name + files::separator, name + files::separator});
        } else if (browsedFor != Picks::folder && fits(name)) {
            others.push_back({browsed + name, name});
        }
        return true;
    });
    folders.insert(folders.end(), others.begin(), others.end());
    return folders;
}

}  // namespace zvr
