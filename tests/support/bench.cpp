#include "support/bench.h"
#include "core/godfather.h"
#include "core/messagebox.h"
#include "platform/platform.h"
#include "support/paths.h"
#include "ui/stage.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace zvr {
namespace {

std::string BigEndian(int value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes += static_cast<char>(value >> shift);
    }
    return bytes;
}

std::string Element(const std::string& name, const std::string& content) {
    return "<" + name + ">" + content + "</" + name + ">";
}

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        escaped += c == '&' ? "&amp;" : c == '<' ? "&lt;" : std::string(1, c);
    }
    return escaped;
}

std::string Place(int x, int y, int width, int height) {
    return Element("posx", std::to_string(x)) + Element("posy", std::to_string(y)) +
           Element("width", std::to_string(width)) + Element("height", std::to_string(height));
}

/// What each form must have for a load without a fault.
const std::map<std::string, std::string>& RequiredParts() {
    static const std::string place = Place(10, 10, 300, 200);
    static const std::string list = place + "<row-height>40</row-height>";
    static const std::string box = Place(400, 10, 300, 40);
    static const std::string knob = "<slider-image>knob.png</slider-image><slider-width>40</slider-width>";
    static const std::map<std::string, std::string> parts{
        {"mediaplayer", Element("vis", Place(0, 300, 200, 100)) + Element("medialist", list) +
                            Element("posslider", Place(0, 450, 400, 40) + knob) +
                            Element("volslider", Place(450, 450, 240, 40) + knob)},
        {"playlists", Element("playlistlist", list) + Element("namebox", box)},
        {"messagebox", "<width>500</width><height>300</height>"},
        {"mainmenu", ""},
        {"phone", Element("phonebooklist", list) + Element("numberbox", box)},
        {"smsbox", "<width>500</width><height>300</height>" + Element("smsnumberbox", Place(0, 0, 300, 40)) +
                       Element("smstextbox", Place(0, 50, 300, 140))},
        {"dvdplayer", Element("dvdcontent", place)},
        {"externalapps", Element("applist", list)},
        {"quickbardocked", "<height>80</height>"},
        {"quickbarfloating", "<width>200</width><height>100</height>"},
        {"gallery", Element("imglist", list) + Element("imgdisplay", Element("preview", place))},
        {"mediasearch", Element("resultlist", list) + Element("searchtermbox", box)},
        {"gps", Element("dash", place)},
        {"radio", ""},
    };
    return parts;
}

}  // namespace

std::string PngBytes(int width, int height) {
    return std::string("\x89PNG\r\n\x1a\n") + std::string("\0\0\0\rIHDR", 8) + BigEndian(width) + BigEndian(height) +
           std::string("\x08\x06\0\0\0", 5) + "crc." + std::string("\0\0\0\0IEND", 8) + "crc.";
}

std::string TestSkin::Xml() const {
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><skin>" +
                      Element("about", Element("for-app-version", version)) + Element("general", general);
    for (const auto& [form, parts] : RequiredParts()) {
        std::string section = extra.contains(form) ? extra.at(form) : "";
        section += "<background-color>#202020</background-color>" + parts;
        std::string children;
        for (const SkinButton& button : buttons.contains(form) ? buttons.at(form) : std::vector<SkinButton>{}) {
            children +=
                Element("b", Element("posx", std::to_string(button.x)) + Element("posy", std::to_string(button.y)) +
                                 Element("command", Escaped(button.command)) + Element("normal-image", "normal.png") +
                                 Element("active-image", "active.png"));
        }
        section += Element("buttons", children);
        children.clear();
        int y = 0;
        for (const std::string& text : labels.contains(form) ? labels.at(form) : std::vector<std::string>{}) {
            children += Element(
                "l", Place(0, y, 200, 20) + "<shadow-distance>0</shadow-distance>" + Element("text", Escaped(text)));
            y += 20;
        }
        xml += Element(form, section + Element("labels", children));
    }
    return xml + "</skin>";
}

void TestSkin::WriteTo(const TemporaryFolder& folder, const std::string& skinName) const {
    const std::string base = "skins/" + skinName + "/";
    folder.Write(base + "skindata.xml", Xml());
    folder.Write(base + "normal.png", PngBytes(100, 50));
    folder.Write(base + "active.png", PngBytes(100, 50));
    folder.Write(base + "knob.png", PngBytes(40, 40));
}

Bench::Bench() : loop(*platform.loop.state), dialogs(*platform.dialogs.state), screen(*platform.screen.state) {
    skin.buttons["messagebox"] = {
        {20, 200, "messagebox.ok"}, {140, 200, "messagebox.yes"}, {260, 200, "messagebox.no"}};
    skin.labels["messagebox"] = {"**MESSAGEBOXTEXT**"};
    settings = "[general]\nSHOWWARNING=0\n[mediaplayer]\nAUDIOFOLDER=" + folder.path + "/music\n";
}

Bench::~Bench() {
    loop.quitting = true;
    answerTimer.reset();
    program.reset();
}

void Bench::Start() {
    std::filesystem::create_directories(folder.path + "/music");
    if (!folder.Has("lang/en.ini")) {
        std::filesystem::create_directories(folder.path + "/lang");
        const std::filesystem::path english = ZVR_SOURCE_DIR "/data/lang/en.ini";
        std::filesystem::copy_file(english, folder.path + "/lang/en.ini");
    }
    if (!folder.Has("skins/Dark&Silver 800x600/skindata.xml")) {
        skin.WriteTo(folder, "Dark&Silver 800x600");
    }
    if (!settings.empty() && !folder.Has("zvr.ini")) {
        folder.Write("zvr.ini", settings);
    }
    Begin();
}

void Bench::Restart() {
    program.reset();
    loop.quitting = false;
    loop.posted.clear();
    Begin();
}

void Bench::Begin() {
    program = std::make_unique<Program>(platform, ProgramPlace{folder.path, "zvr"});
    program->Start(arguments);
    Advance(Milliseconds{1500});
}

void Bench::Down(Point p) {
    finger = p;
    program->stage.PointerDown(program->godfather.form, p);
}

void Bench::Move(Point p) {
    finger = p;
    program->stage.PointerMove(program->godfather.form, p);
}

void Bench::Up(Point p) {
    program->stage.PointerUp(program->godfather.form, p);
}

void Bench::Tap(Point p) {
    Down(p);
    Advance(Milliseconds{60});
    Up(p);
}

void Bench::DoubleTap(Point p) {
    Tap(p);
    Advance(Milliseconds{100});
    Tap(p);
}

Control* Bench::ButtonOf(const std::string& command) {
    Form* const form = program->stage.ActiveForm();
    if (form == nullptr) {
        return nullptr;
    }
    for (Control* control : form->Controls()) {
        if (control->name == "abutton" && control->IsShown() && control->Tag() == command) {
            return control;
        }
    }
    return nullptr;
}

Point Bench::MiddleOf(const Control& control) {
    const Rect place = control.VisiblePlace();
    const Rect form = control.form.Place();
    return {form.x + place.x + place.width / 2, form.y + place.y + place.height / 2};
}

void Bench::Press(const std::string& command) {
    Control* const button = ButtonOf(command);
    if (button == nullptr) {
        throw std::runtime_error("no button with the command " + command);
    }
    Down(MiddleOf(*button));
}

void Bench::Release() {
    Up(finger);
}

void Bench::Tap(const std::string& command) {
    Press(command);
    Advance(Milliseconds{60});
    Release();
}

void Bench::TypeKey(Key key, bool modifier) {
    program->stage.KeyDown(program->godfather.form, {key, modifier});
}

std::string Bench::Front() const {
    const Form* const form = program->stage.FrontForm();
    return form == nullptr ? "" : form->name;
}

std::string Bench::LabelText(const Form& form, const std::string& token) const {
    for (const Control* control : form.Controls()) {
        if (control->kind == ControlKind::label && control->Tag() == token) {
            return control->caption;
        }
    }
    return "(no such label)";
}

void Bench::AnswerMessages(const std::string& word) {
    answer = word;
    answerTimer = std::make_unique<Timer>(platform.loop, [this] {
        if (program && program->stage.ModalForm() == &program->messagebox.form) {
            const std::string& question = program->godfather.msgBoxCommVar;
            messages.push_back(question.substr(0, question.rfind('\t')));
            program->dispatchCommand("messagebox." + answer);
        }
    });
    answerTimer->SetInterval(Milliseconds{20});
    answerTimer->Start();
}

}  // namespace zvr
