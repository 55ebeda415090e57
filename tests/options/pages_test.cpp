// Each page of the options and each form over them, small by night and large by day. First by rule, then as pages.txt
// keeps it: a line a page, some digits for each control and for the page under each touch. After a wanted change:
//   ZVR_WRITE_PAGES=1 build/zvr_tests --gtest_filter='OptionPages*'
#include "options/options.h"
#include "platform/headless/drives.h"
#include "platform/headless/screen.h"
#include "platform/text.h"
#include "platform/textmeasure.h"
#include "support/bench.h"
#include "support/paths.h"
#include "ui/stage.h"

#include <fstream>
#include <sstream>

namespace zvr {
namespace {

using namespace std::chrono_literals;

/// Where it is painted: of a label, where its letters stand.
Rect PlaceOf(const Control& control) {
    Rect place = control.Place();
    if (control.kind == ControlKind::label) {
        int longest = 0;
        for (const std::string_view line : text::Lines(control.caption.get())) {
            longest = std::max(longest, TextSize(control.font, line).width);
        }
        const int spare = place.width - longest;  // below 0 the text is cut, and lies across its neighbours here
        const int above = static_cast<int>(control.font->points * 0.45);
        place.x += control.align == Align::left ? 0 : control.align == Align::right ? spare : spare / 2;
        place = {place.x, place.y + above, longest, place.height - 2 * above};
    }
    return place;
}

/// What is wrong with a form, whatever it shows: a target for no finger, a part that leaves its whole, things half in
/// and half out of others, and texts over texts.
std::vector<std::string> Faults(const Form& form, double scale) {
    std::vector<std::string> faults;
    std::vector<const Control*> behind;
    for (const Control* control : form.Controls()) {
        const Rect a = PlaceOf(*control);
        if (!control->IsShown() || a.width <= 1 || a.height <= 1) {
            continue;
        }
        const bool isTarget = control->events.onDown != nullptr;
        const std::string name = control->name + " \"" + control->caption.get() + "\"";
        if (isTarget && (a.width < 56 * scale - 5 || a.height < 42 * scale - 1)) {
            faults.push_back(name + " is too small for a finger");
        }
        for (const Control* other :
             control->container == nullptr ? behind : std::vector<const Control*>{control->container}) {
            const Rect b = PlaceOf(*other);
            const int width = std::min(a.x + a.width, b.x + b.width) - std::max(a.x, b.x);
            const int height = std::min(a.y + a.height, b.y + b.height) - std::max(a.y, b.y);
            const bool within = (width == a.width && height == a.height) || (width == b.width && height == b.height);
            const bool alike = control->kind == ControlKind::label ? other->kind == ControlKind::label
                                                                   : isTarget && other->events.onDown != nullptr;
            const bool apart = width <= 0 || height <= 0;
            if (apart ? control->container != nullptr || other == behind.front() : alike || !within) {
                faults.push_back(name + " lies across " + other->name + " \"" + other->caption.get() + "\"");
            }
        }
        if (control->container == nullptr) {
            behind.push_back(control);
        }
    }
    return faults;
}

std::string Digits(const std::string& text) {
    std::uint32_t sum = 2166136261U;
    for (const unsigned char c : text) {
        sum = (sum ^ c) * 16777619U;
    }
    return " " + std::to_string(1000 + (sum >> 8U) % 9000);
}

class OptionPages : public testing::Test {
protected:
    void Look(const std::string& page) {
        Bench& b = *bench;
        const Form& form = *b.program->stage.ModalForm();
        EXPECT_THAT(Faults(form, scale), IsEmpty()) << page;
        std::string line = page + ":";
        const auto note = [&](const std::string& seen) {
            std::string plain = seen;  // but for the test's own folder, which has another name each time
            for (auto at = plain.find(b.folder.path); at != plain.npos; at = plain.find(b.folder.path)) {
                plain.replace(at, b.folder.path.size(), "~");
            }
            line += Digits(plain);
            isKept = isKept && kept.starts_with(now + line);
            EXPECT_TRUE(isKept || isTold) << page << " is painted otherwise: " << plain;
            isTold = isTold || !isKept;
        };
        const std::string atRest = SceneOf(form);
        for (const std::string_view control : text::Lines(atRest)) {
            note(std::string(control));
        }
        for (int round = 0; round < 2; ++round) {  // the second with all switches the other way
            for (const Control* control : form.Controls()) {
                if (control->events.onDown && control->IsShown()) {
                    b.Down(b.MiddleOf(*control));
                    note("under a touch on " + control->name + "\n" + SceneOf(form));
                    const bool chooses = control->role == "switch" || control->role == "segment" ||
                                         control->role == "row" || control->name.find("Move") != std::string::npos;
                    chooses ? b.Release() : b.program->stage.PointerCancel();
                }
            }
        }
        now += line + "\n";
    }

    // Whoever runs it has folders of his own.
    const Environment home{"HOME", "/nobody"};
    const Environment config{"XDG_CONFIG_HOME", ""};
    const std::string file = ZVR_SOURCE_DIR "/tests/options/pages.txt";
    const std::string kept = files::Read(file).value_or("");
    std::string now;
    bool isKept = true;
    const bool isWritten = std::getenv("ZVR_WRITE_PAGES") != nullptr;
    bool isTold = isWritten;
    std::unique_ptr<Bench> bench;
    double scale = 1;
};

TEST_F(OptionPages, AreSoundAndPaintedAsKept) {
    for (const auto& [size, night] : {std::pair{Size{800, 480}, true}, {Size{1280, 720}, false}}) {
        scale = size.height / (night ? 480.0 : 600.0);
        bench = std::make_unique<Bench>();
        std::string programs;
        for (const std::string name : {"Ab", "Cd", "Ef", "Gh", "Ij", "Kl", "Mn", "Op", "Qr"}) {
            const std::string drive = bench->folder.path + "/" + name + "/";
            bench->folder.Write(name + "/" + name + ".png", "");
            bench->folder.Write("Ab/" + name + "/b.txt", "");
            bench->platform.drives.state->mounted.push_back({drive, DriveType::network});
            programs += name + "\t/bin/" + name + "\tdocked\tnormal\n";
        }
        bench->folder.Write("externalapps.dat", programs);
        bench->Start();
        bench->screen.SetRootSize(size);
        for (const char* command : {night ? "app.night" : "app.day", "app.options"}) {
            bench->program->dispatchCommand(command);
        }
        OptionSheet& sheet = bench->program->options.Sheet();
        for (const auto& [name, value] : {std::pair{"sfrmchkSwitchDayNight", "1"}, {"txtUserPic", "/a.swf"}}) {
            sheet.SetValue(sheet.RowNamed(name), value);
        }
        for (int tab = 0; tab < optionTabs; ++tab) {
            sheet.ShowTab(tab);
            for (int page = 0; page == 0 || page < sheet.Pages(); ++page) {
                sheet.ShowPage(page);
                bench->Advance(10ms);
                Look(std::to_string(size.width) + " tab " + std::to_string(tab) + " page " + std::to_string(page));
            }
        }
        OptionEditors& editors = bench->program->options.Editors();
        const OptionEditors::Done nobody = [](const std::string&) {};
        const std::function<void()> openers[] = {
            [&] { editors.AskForExtension("mp3", nobody); },
            [&] { editors.AskForQuickJump("GPS\tgps.show", nobody); },
            [&] { editors.AskForProgram("", nobody); },
            [&] { editors.AskForCommand(nobody); },
            [&] { editors.AskForColor("255", nobody); },
            [&] { editors.AskForPlace(Picks::folder, bench->folder.path + "/Ab", nobody); },
            [&] { editors.AskForPlace(Picks::picture, bench->folder.path + "/Ab/Ab.png", nobody); },
        };
        for (const auto& open : openers) {
            open();
            Look(std::to_string(size.width) + " " + bench->program->stage.ModalForm()->name);
            bench->TypeKey(Key::escape);
            bench->Advance(10ms);
        }
    }
    EXPECT_TRUE(isTold || kept == now) << "pages.txt has more than these pages";
    if (isWritten) {
        std::ofstream(file) << now;
    }
}

}  // namespace
}  // namespace zvr
