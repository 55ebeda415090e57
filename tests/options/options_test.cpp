#include "options/options.h"

#include "core/autostart.h"
#include "core/commanddispatcher.h"
#include "core/dialogqueue.h"
#include "core/godfather.h"
#include "core/settings.h"
#include "options/commandreference.h"
#include "phone/phone.h"
#include "platform/headless/display.h"
#include "platform/headless/drives.h"
#include "platform/headless/processes.h"
#include "skin/skinner.h"
#include "support/bench.h"
#include "system/setgamma.h"
#include "system/sysvolume.h"
#include "ui/stage.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <set>

namespace zvr {
namespace {

using namespace std::chrono_literals;

class OptionsTest : public testing::Test {
protected:
    void Open() {
        bench.skin.WriteTo(bench.folder, "Other skin");
        bench.Start();
        bench.program->dispatchCommand("app.options");
        ASSERT_TRUE(bench.program->options.IsOpen());
    }
    OptionSheet& Sheet() { return bench.program->options.Sheet(); }
    void Set(std::string_view name, const std::string& value) { Sheet().SetValue(Sheet().RowNamed(name), value); }
    void TapControl(const std::string& name, int index = 0) {
        Form* const form = bench.program->stage.ModalForm();
        Control* const control = form->Find(name, index);
        ASSERT_NE(control, nullptr) << name;
        bench.Tap(bench.MiddleOf(*control));
        bench.Advance(20ms);
    }

    Bench bench;
};

bool HasValue(const Option& option) {
    return option.kind != OptionKind::heading && option.kind != OptionKind::legend &&
           (option.kind != OptionKind::action || !option.key.empty());
}

/// A value that the control can hold and the present one isn't.
std::string AnotherValue(Program& program, const Option& option, const std::string& now) {
    if (option.choices != nullptr) {
        for (const OptionChoice& choice : option.choices(program)) {
            if (choice.value != now && !choice.value.empty()) {
                return choice.value;
            }
        }
        return option.name == "cboCDDVDDrive" ? "e:" : "Family";
    }
    const int next = std::max(std::atoi(now.c_str()), option.lowest) + 1;
    switch (option.kind) {
        case OptionKind::toggle:
            return now == "1" ? "0" : "1";
        case OptionKind::number:
        case OptionKind::slider:
            return std::to_string(next <= option.highest ? next : option.lowest);
        case OptionKind::time:
            return "0631";
        case OptionKind::editList:
            return option.separator == '|'   ? "A;gps.show|B;radio.show"
                   : option.separator == ';' ? "one;two"
                                             : "Map\t/bin/map\tfloating\tnormal";
        case OptionKind::text:
            return "/some/" + std::string(option.name) + std::to_string(option.element);
        default:
            return "255";
    }
}

TEST(OptionTable, EverySettingHasAControlOrAReasonForNone) {
    std::set<std::string> shown;
    for (const Option& option : OptionRows()) {
        if (option.section.empty()) {
            continue;
        }
        EXPECT_NE(FindSetting(option.section, option.key), nullptr) << option.name;
        shown.insert(std::string(option.section) + "/" + std::string(option.key));
    }
    std::set<std::string> without;
    for (const SettingWithoutOption& setting : SettingsWithoutOption()) {
        without.insert(std::string(setting.section) + "/" + std::string(setting.key));
        EXPECT_NE(FindSetting(setting.section, setting.key), nullptr) << setting.key;
    }
    for (const Setting& setting : Settings()) {
        const std::string name = std::string(setting.section) + "/" + std::string(setting.key);
        EXPECT_NE(shown.contains(name), without.contains(name)) << name;
    }
}

TEST(OptionTable, EveryReferenceToAnotherControlLeadsToOne) {
    const auto rows = OptionRows();
    for (const Option& option : rows) {
        const std::string_view other = option.enabledBy.substr(0, option.enabledBy.find('='));
        EXPECT_TRUE(other.empty() ||
                    std::any_of(rows.begin(), rows.end(), [other](const Option& row) { return row.name == other; }))
            << option.name;
    }
}

TEST_F(OptionsTest, CancelChangesNothingAndOkAllForThisAndTheNextStart) {
    Open();
    const std::string file = bench.folder.ReadFile("zvr.ini");
    const auto loaded = [&] {
        std::map<std::string, std::string> values;
        for (const Option& option : OptionRows()) {
            if (HasValue(option) && !option.actsAtOnce) {
                values[std::string(option.name) + std::to_string(option.element)] = LoadOption(*bench.program, option);
            }
        }
        return values;
    };
    const auto before = loaded();
    auto wanted = before;
    const auto setAll = [&] {
        for (std::size_t row = 0; row < OptionRows().size(); ++row) {
            const Option& option = OptionRows()[row];
            if (const auto value = wanted.find(std::string(option.name) + std::to_string(option.element));
                value != wanted.end()) {
                value->second = AnotherValue(*bench.program, option, Sheet().values[row]);
                Sheet().SetValue(row, value->second);
                EXPECT_EQ(Sheet().values[row], value->second) << option.name;
            }
        }
    };
    setAll();
    bench.program->options.Cancel();
    EXPECT_EQ(loaded(), before);
    EXPECT_EQ(bench.folder.ReadFile("zvr.ini"), file);
    EXPECT_EQ(bench.program->skinner.loadedSkin, "Dark&Silver 800x600");
    bench.program->dispatchCommand("app.options");
    setAll();
    bench.AnswerMessages();  // what is wrong with such settings is told
    bench.program->options.Ok();
    EXPECT_FALSE(bench.program->options.IsOpen());
    EXPECT_EQ(loaded(), wanted);
    bench.Restart();
    EXPECT_EQ(loaded(), wanted);
}

TEST_F(OptionsTest, NumbersCanBeTyped) {
    Open();
    const auto type = [&](const std::string& name, std::string_view keys) {
        Control* const box = bench.program->options.form.Find(name);
        ASSERT_NE(box, nullptr) << name;
        bench.Tap(bench.MiddleOf(*box));
        EXPECT_EQ(bench.program->options.form.focus, box);
        for (const char key : keys) {
            key == '<' ? box->TakeBack() : box->TypeText(std::string(1, key));
            box->events.onChange();
        }
        EXPECT_TRUE(box->text->digits);
    };
    const auto expect = [&](const char* tab, const char* name, const char* box, const char* keys, const char* value) {
        TapControl("tab", std::atoi(tab));
        for (int page = 0; page < Sheet().Pages() && bench.program->options.form.Find(box) == nullptr; ++page) {
            Sheet().ShowPage(page);
            bench.Advance(10ms);
        }
        type(box, keys);
        *keys == 'a' ? bench.TypeKey(Key::enter) : bench.Tap(Point{2, 2});
        EXPECT_EQ(bench.program->options.form.focus, nullptr);
        EXPECT_EQ(Sheet().ValueOf(name), value) << name << " " << keys;
    };
    Set("sfrmchkSwitchDayNight", "1");
    Set("chkShowUserPic", "1");
    Set("txtUserPic", "/a.SWF");
    expect("4", "txtVolStepping", "txtVolSteppingBox", "150",
           "99");  // the first digit takes the place of the old number
    expect("4", "txtVolStepping", "txtVolSteppingBox", "a4-2", "42");
    expect("4", "txtStartupVolume", "txtStartupVolumeBox", "7<", "");
    expect("4", "txtVolInterval", "txtVolIntervalBox", "<", "5");
    expect("4", "txtSpeedMin", "txtSpeedMinBox", "<60", "60");  // an empty box holds 1 until the next digit
    expect("2", "txtNight", "txtNightHour", "19", "1900");
    expect("2", "txtNight", "txtNightMin", "75", "1959");
    expect("2", "txtUserPicFlashWidth", "txtUserPicFlashWidthBox", "120", "120");
    expect("2", "txtUserPicFlashWidth", "txtUserPicFlashWidthBox", "1", "10");
    EXPECT_EQ(bench.program->options.form.Find("txtUserPicFlashWidthBox")->text->text, "10");
}

TEST_F(OptionsTest, ASkinOfAnotherVersionIsRefused) {
    TestSkin wrong;
    wrong.version = "0.9";
    wrong.WriteTo(bench.folder, "Wrong");
    Open();
    bench.AnswerMessages();
    Set("lstSkins", "Wrong");
    bench.program->options.Apply();
    ASSERT_EQ(bench.messages.size(), 1U);
    EXPECT_EQ(bench.messages[0], bench.program->languageText("OPT_SKINSELECTION_ERROR") + "\r\n\r\n" +
                                     bench.program->languageText("SKINNING_WRONGVERSION"));
    EXPECT_EQ(bench.program->godfather.usedSkin, "Dark&Silver 800x600");
    EXPECT_EQ(Sheet().ValueOf("lstSkins"), "Dark&Silver 800x600");
    Set("lstSkins", "Other skin");
    bench.program->options.Ok();
    EXPECT_EQ(bench.program->skinner.loadedSkin, "Other skin");
}

TEST_F(OptionsTest, ABrightnessTrialEndsByItselfAndWithTheDialog) {
    Open();
    Display& display = bench.platform.display;
    const auto before = display.Ramp();
    Sheet().ShowTab(1);
    bench.Advance(10ms);
    const std::size_t test = Sheet().RowNamed("cmdTestNight");
    Set("sldNight", "3");
    Sheet().onAction(test);
    bench.Advance(10ms);
    EXPECT_EQ(Sheet().keyText(test), "-4");
    EXPECT_FALSE(Sheet().mayAct(Sheet().RowNamed("cmdTestDay")));
    EXPECT_NE(display.Ramp(), before);
    bench.Advance(2s);
    EXPECT_EQ(Sheet().keyText(test), "-2");
    bench.Advance(2s);
    EXPECT_EQ(Sheet().keyText(test), "");
    EXPECT_EQ(display.Ramp(), before);
    Sheet().onAction(test);
    bench.Advance(10ms);
    EXPECT_NE(display.Ramp(), before);
    bench.program->options.Ok();
    EXPECT_EQ(display.Ramp(), before);
    bench.Advance(5s);
    EXPECT_EQ(display.Ramp(), before);
}

TEST_F(OptionsTest, FingersReachTabsPagesAndControls) {
    Open();
    TapControl("chkShowWarning");
    EXPECT_EQ(Sheet().ValueOf("chkShowWarning"), "1");
    TapControl("tab", 4);
    EXPECT_EQ(Sheet().Tab(), 3);
    ASSERT_GT(Sheet().Pages(), 1);
    TapControl("cmdPageDown");
    EXPECT_EQ(Sheet().Page(), 1);
    TapControl("txtVolSteppingMore");
    EXPECT_EQ(Sheet().ValueOf("txtVolStepping"), "11");
    bench.Down(bench.MiddleOf(*bench.program->options.form.Find("txtVolSteppingMore")));
    bench.Advance(2s);
    bench.Release();
    EXPECT_GT(NumberOf(Sheet().ValueOf("txtVolStepping")), 20) << "held down";
    for (const auto& [key, page] : {std::pair{Key::pageUp, 0}, {Key::pageUp, 0}, {Key::pageDown, 1}}) {
        bench.TypeKey(key);
        bench.Advance(20ms);
        EXPECT_EQ(Sheet().Page(), page);
    }
    TapControl("icon");
    EXPECT_EQ(Sheet().Tab(), 0) << "a touch on a tab's icon is one on the tab";
    TapControl("tab", 1);
    TapControl("tab", 4);
    EXPECT_EQ(Sheet().Page(), 1);  // a tab remembers its page
    TapControl("cmdOK");
    EXPECT_FALSE(bench.program->options.IsOpen());
    EXPECT_EQ(bench.program->stage.ModalForm(), nullptr);
    EXPECT_TRUE(bench.program->godfather.showWarning);
    bench.program->dispatchCommand("app.options");
    EXPECT_EQ(Sheet().Tab() + Sheet().Page(), 0);
}

TEST_F(OptionsTest, ListsTakeEntriesAndRefuseDoubles) {
    Open();
    bench.AnswerMessages("yes");
    OptionEditors& editors = bench.program->options.Editors();
    const std::size_t row = Sheet().RowNamed("lstQuickJump");
    const auto add = [&](const char* name, const char* command) {
        Sheet().onEdit(row, -1);
        bench.Advance(10ms);
        editors.optionsquickjump.sheet.values = {name, command};
        editors.optionsquickjump.Accept();
        bench.Advance(50ms);
    };
    add("", "radio.show");
    ASSERT_EQ(bench.messages.size(), 1U);
    EXPECT_EQ(bench.messages[0], bench.program->languageText("OPT_QUICKJUMP_ENTERANAME"));
    editors.optionsquickjump.Close();
    add("New|one", "gps.show");
    EXPECT_TRUE(Sheet().values[row].ends_with("|New one;gps.show"));
    add("New one", "radio.show");
    EXPECT_EQ(bench.messages.back(), bench.program->languageText("OPT_ADDQUICKJUMP_ALREADYEXISTS"));
    Sheet().onRemove(row, 0);
    bench.Advance(50ms);
    EXPECT_TRUE(Sheet().values[row].starts_with("FM Radio;"));
    Sheet().SetValue(row, "A;a.a|B;b.b");
    Sheet().onEdit(row, 0);
    Sheet().onRemove(row, 0);  // from here on touches that came before the editor stood
    Sheet().onPick(Sheet().RowNamed("txtFKeyCommand", 1));
    Sheet().onOk();
    bench.Advance(500ms);
    editors.optionsquickjump.Accept();
    bench.Advance(50ms);
    EXPECT_EQ(bench.program->stage.ModalForm(), &bench.program->options.form);
    EXPECT_EQ(Sheet().values[row], "A;a.a|B;b.b");
    EXPECT_EQ(Sheet().entryText("Map; EU\tmap\tdocked\tnormal", false), "Map; EU");
}

TEST_F(OptionsTest, ALongListBeginsAtItsValueAndItsKeysTurnPages) {
    for (int i = 10; i < 40; ++i) {
        bench.skin.WriteTo(bench.folder, "Skin " + std::to_string(i));
    }
    bench.settings = "[general]\nSHOWWARNING=0\nUSEDSKIN=Skin 30\n";
    Open();
    Sheet().ShowTab(1);
    bench.Advance(10ms);
    const Form& form = bench.program->options.form;
    for (int page = 1; form.Find("lstSkinsRow", 1) == nullptr && page < Sheet().Pages(); ++page) {
        Sheet().ShowPage(page);
        bench.Advance(10ms);
    }
    const auto chosenAt = [&](const char* key, Milliseconds held) {
        bench.Down(bench.MiddleOf(*form.Find(key)));
        bench.Advance(held);
        bench.Release();
        bench.Advance(1s);  // nothing goes on behind the finger
        TapControl("lstSkinsRow", 1);
        return Sheet().ValueOf("lstSkins");
    };
    EXPECT_EQ(chosenAt("lstSkinsDown", 10ms), "Skin 30");
    EXPECT_EQ(chosenAt("lstSkinsUp", 10ms), "Skin 26");
    EXPECT_EQ(chosenAt("lstSkinsUp", 3s), "Dark&Silver 800x600");
    EXPECT_EQ(chosenAt("lstSkinsDown", 3s), "Skin 35");
}

TEST_F(OptionsTest, TheKeysOfAPageDoWhatTheySay) {
    Open();
    bench.AnswerMessages();
    Program& program = *bench.program;
    const auto act = [&](const char* key) {
        Sheet().onAction(Sheet().RowNamed(key));
        bench.Advance(20ms);
    };
    auto& autostart = bench.platform.autostart.state->entries;
    autostart["zVR11"] = "another version's";
    for (const std::string on : {"1", "0", "1"}) {
        act(on == "1" ? "cmdSelectAllModules" : "cmdDeselectAllModules");
        EXPECT_EQ(Sheet().ValueOf("chkModuleGPS") + Sheet().ValueOf("chkModuleMediasearch"), on + on);
        EXPECT_EQ(Sheet().ValueOf("chkShowWarning"), "0") << "it is no module";
        Set("chkAutostart", on);
        Set("chkHideMouseCursor", on);
        Set("chkHideTaskBar", on);
        program.options.Apply();
        EXPECT_EQ(isAutostartSet(program), on == "1");
        EXPECT_EQ(autostart.size(), on == "1" ? 2U : 1U) << "another version's is its own";
        EXPECT_EQ(bench.screen.pointerHidden, on == "1");
        EXPECT_EQ(bench.platform.desktop.state->taskbarShown, on == "0");
        Set("chkAlwaysCenterWaveBalance", on);
        Sheet().onChange(Sheet().RowNamed("chkAlwaysCenterWaveBalance"));
        EXPECT_EQ(program.godfather.alwaysCenterWaveBalance, on == "1") << "at once";
        Set("sldVolLevel", on + "7");
        Sheet().onChange(Sheet().RowNamed("sldVolLevel"));
        EXPECT_EQ(program.sysvolume.waveVolume, on == "1" ? 17 : 7);
    }
    EXPECT_EQ(autostart["zVR12"], bench.folder.path + "/zvr");
    Set("chkShowWarning", "1");
    bench.loop.At(1000ms, [&] {
        EXPECT_FALSE(Sheet().mayAct(Sheet().RowNamed("cmdGetPhonebooks")));
        Sheet().onApply();
    });
    bench.loop.At(1100ms, [&] { EXPECT_TRUE(program.godfather.showWarning) << "nobody waits for the phone"; });
    act("cmdGetPhonebooks");
    EXPECT_THAT(bench.messages, ElementsAre(program.languageText("OPT_PHONE_NOPHONEBOOKSRETRIEVED")));
    bench.loop.At(500ms, [&] { program.phone.phonebooksString = std::string("Home\0Work", 9); });
    act("cmdGetPhonebooks");
    const auto books = Sheet().choices(Sheet().RowNamed("cboPhonebookName"));
    ASSERT_EQ(books.size(), 3U);
    EXPECT_EQ(books[2].value, "Work");
    EXPECT_EQ(bench.messages.size(), 1U);
    const std::size_t refresh = Sheet().RowNamed("cmdRefreshIndex");
    bench.loop.At(5ms, [&] {
        EXPECT_EQ(Sheet().keyText(refresh), program.languageText("OPT_MEDIASEARCH_REFRESHINGNOW"));
        EXPECT_FALSE(Sheet().mayAct(refresh));
        bench.platform.processes.state->End(bench.platform.processes.state->running.begin()->first);
    });
    act("cmdRefreshIndex");
    EXPECT_THAT(bench.platform.processes.state->started, testing::SizeIs(1));

    OptionEditors& editors = program.options.Editors();
    act("cmdUserPicFlashBGcolor");
    editors.colorpicker.sheet.values[0] = "255";
    editors.colorpicker.Accept();
    EXPECT_EQ(Sheet().ValueOf("cmdUserPicFlashBGcolor"), "255");
    const auto opens = [&](const std::function<void()>& touch) {
        touch();
        bench.Advance(20ms);
        const std::string name = program.stage.ModalForm()->name;
        bench.TypeKey(Key::escape);
        return name;
    };
    EXPECT_EQ(opens([&] { Sheet().onPick(Sheet().RowNamed("txtUserPic")); }), editors.browseforfile.form.name);
    EXPECT_EQ(opens([&] { Sheet().onEdit(Sheet().RowNamed("lstApps"), -1); }), editors.optionsextapp.form.name);
}

TEST_F(OptionsTest, AnExtensionWithAForbiddenCharacterIsNamed) {
    Open();
    bench.AnswerMessages();
    OptionEditor& editor = bench.program->options.Editors().optionsfileext;
    std::string taken;
    bench.program->options.Editors().AskForExtension("", [&](const std::string& value) { taken = value; });
    editor.sheet.values[0] = "mp3;x";
    editor.Accept();
    ASSERT_EQ(bench.messages.size(), 1U);
    EXPECT_TRUE(bench.messages[0].starts_with("\";\" "));
    editor.sheet.values[0] = "OPUS";
    editor.Accept();
    EXPECT_EQ(taken, "opus");
    EXPECT_EQ(bench.program->stage.ModalForm(), &bench.program->options.form);
}

TEST_F(OptionsTest, AFolderAndAFileAreChosenWithTheFinger) {
    for (const char* file : {"stick/Music/Jazz/x.mp3", "stick/Music/Blues/x.mp3", "stick/Covers/b.jpg",
                             "stick/Covers/A.PNG", "stick/Covers/c.txt"}) {
        bench.folder.Write(file, "");
    }
    const std::string stick = bench.folder.path + "/stick/";
    bench.platform.drives.state->mounted.push_back({stick, DriveType::removable});
    Open();
    OptionEditors& editors = bench.program->options.Editors();
    std::string taken;
    const auto take = [&taken](const std::string& value) { taken = value; };
    const auto tapRow = [&](const std::string& caption, bool twice = false) {
        const auto& controls = bench.program->stage.ModalForm()->Controls();
        const auto row = std::find_if(controls.begin(), controls.end(), [&caption](const Control* control) {
            return control->role == "row" && control->caption.get() == caption;
        });
        ASSERT_NE(row, controls.end()) << caption;
        twice ? bench.DoubleTap(bench.MiddleOf(**row)) : bench.Tap(bench.MiddleOf(**row));
        bench.Advance(320ms);  // rows that have just come take no touch
    };

    editors.AskForPlace(Picks::folder, stick + "Music/Jazz", take);
    TapControl("cmdFolderUp");
    TapControl("cmdFolderUp");
    EXPECT_EQ(editors.browseforfolder.Folder(), stick);
    TapControl("cmdFolderUp");
    EXPECT_EQ(editors.browseforfolder.Folder(), stick) << "the place's root";
    tapRow("Music", true);
    TapControl("cmdOK");
    EXPECT_EQ(taken, stick + "Music");

    editors.AskForPlace(Picks::picture, stick + "Covers/gone.jpg", take);
    TapControl("cmdOK");
    EXPECT_NE(bench.program->stage.ModalForm(), &bench.program->options.form) << "nothing is marked";
    tapRow("A.PNG");
    tapRow("b.jpg");
    tapRow("b.jpg");
    EXPECT_EQ(taken, stick + "Covers/b.jpg");

    editors.AskForProgram("Map\t/bin/map\tfloating\tnormal", take);
    EXPECT_THAT(editors.optionsextapp.sheet.values, ElementsAre("Map", "/bin/map", "floating", "normal"));
    editors.optionsextapp.Close();
    editors.AskForProgram("", take);
    editors.optionsextapp.sheet.SetValue(1, stick + "Covers/");
    TapControl("txtPathPick");
    tapRow("c.txt");
    TapControl("cmdOK");
    TapControl("cmdOK");
    EXPECT_EQ(taken, "c.txt\t" + stick + "Covers/c.txt\tdocked\tmaximized") << "titled by its file";

    editors.AskForPlace(Picks::folder, stick + "Music", take);
    bench.platform.drives.state->mounted.pop_back();
    bench.Advance(2s);
    EXPECT_EQ(editors.browseforfolder.Folder(), files::HomeFolder() + "/") << "the stick was pulled";
    bench.program->UnloadRoot(true);
    EXPECT_TRUE(bench.platform.loop.IsQuitting());
}

TEST(OptionForms, OutliveWhatHappensMeanwhileAndEndWithTheProgram) {
    const OptionEditors::Done nobody = [](const std::string&) {};
    const auto openers = std::to_array<std::function<void(OptionEditors&)>>({
        [&](OptionEditors&) {},  // the options alone
        [&](OptionEditors& editors) { editors.AskForExtension("mp3", nobody); },
        [&](OptionEditors& editors) { editors.AskForQuickJump("GPS\tgps.show", nobody); },
        [&](OptionEditors& editors) { editors.AskForProgram("", nobody); },
        [&](OptionEditors& editors) { editors.AskForCommand(nobody); },
        [&](OptionEditors& editors) { editors.AskForColor("255", nobody); },
        [&](OptionEditors& editors) { editors.AskForPlace(Picks::folder, "", nobody); },
        [&](OptionEditors& editors) { editors.AskForPlace(Picks::program, "", nobody); },
    });
    for (const auto& open : openers) {
        Bench bench;
        bench.skin.WriteTo(bench.folder, "Night");
        bench.settings =
            "[general]\nSHOWWARNING=0\nUSEDSKIN=Dark&Silver 800x600\nUSENIGHTSKIN=1\nUSEDNIGHTSKIN=Night\n";
        bench.Start();
        bench.AnswerMessages();
        Program& program = *bench.program;
        const auto before = bench.platform.display.Ramp();
        program.dispatchCommand("app.options");
        program.options.Sheet().onAction(program.options.Sheet().RowNamed("cmdTestNight"));
        bench.Advance(10ms);
        EXPECT_NE(bench.platform.display.Ramp(), before);
        open(program.options.Editors());
        Form* const form = program.stage.ModalForm();
        ASSERT_NE(form, nullptr);
        ASSERT_EQ(form == &program.options.form, &open == &openers[0]);
        OptionSheet& sheet = program.options.Sheet();
        sheet.SetValue(sheet.RowNamed("txtVolStepping"), "42");
        program.dispatchCommand("app.options");
        open(program.options.Editors());
        program.dispatchCommand("app.night");
        EXPECT_EQ(program.skinner.loadedSkin, "Night") << form->name;
        EXPECT_EQ(program.showMessage("A call"), MessageAnswer::ok);
        EXPECT_EQ(program.stage.ModalForm(), form) << form->name;
        EXPECT_EQ(sheet.ValueOf("txtVolStepping"), "42") << form->name;
        if (form != &program.options.form) {
            program.options.Cancel();  // a script, below the editor
        }
        EXPECT_EQ(bench.messages, std::vector<std::string>{"A call"});
        bench.Advance(2s);
        program.UnloadRoot(true);
        EXPECT_TRUE(bench.platform.loop.IsQuitting());
        EXPECT_EQ(bench.platform.display.Ramp(), before) << form->name;
    }
}

TEST_F(OptionsTest, AloneItEndsTheProgramWithoutASkin) {
    bench.arguments = {"-config"};
    bench.settings = "[general]\nUSEDSKIN=None\n";
    bench.Start();
    ASSERT_TRUE(bench.program->options.IsOpen());
    EXPECT_TRUE(bench.program->skinner.loadedSkin.empty());
    Set("chkShowCovers", "1");
    bench.program->options.Ok();
    EXPECT_TRUE(bench.dialogs.plain.empty());
    EXPECT_TRUE(bench.platform.loop.IsQuitting());
    EXPECT_NE(bench.folder.ReadFile("zvr.ini").find("SHOWCOVERS=1"), std::string::npos);
}

TEST(CommandReferenceTable, SaysWhatEachCommandDoes) {
    const auto rows = CommandReference();
    for (const OptionChoice& row : rows) {
        const bool isMissing = row.value == "app.startfoldercopy" && !IsKnownCommand(row.value);
        EXPECT_EQ(row.remark.empty(), isMissing) << row.value;
    }
    const auto find = [&rows](std::string_view name) {
        return std::find_if(rows.begin(), rows.end(), [name](const OptionChoice& row) { return row.value == name; })
            ->remark;
    };
    EXPECT_EQ(find("app.volumemute"), "Increase system's wave volume.");  // swapped on purpose
    EXPECT_EQ(find("app.volumeup"), "Mute the wave channel.");
    EXPECT_EQ(CommandReference("scrollpageup").size(), 6U);
}

}  // namespace
}  // namespace zvr
