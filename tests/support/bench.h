#pragma once

#include "core/program.h"
#include "platform/headless/desk.h"
#include "platform/headless/eventloop.h"
#include "platform/headless/screen.h"
#include "platform/platform.h"
#include "support/matchers.h"
#include "support/temporaryfolder.h"

#include <map>
#include <memory>
#include <string>

namespace zvr {

/// Bytes that the headless decoder takes for a PNG of that size.
[[nodiscard]] std::string PngBytes(int width, int height);

/// One button of the test skin: 100 x 50 pixels.
struct SkinButton {
    int x = 0;
    int y = 0;
    std::string command;
};

/// The smallest whole skin: every form with its required parts, and on each form the given buttons and labels.
/// `extra` is XML that goes to the front of a form's section; the first element of a name wins.
class TestSkin {
public:
    std::string version = "1.2";
    std::map<std::string, std::vector<SkinButton>> buttons;  ///< by form
    std::map<std::string, std::vector<std::string>> labels;  ///< by form: texts or tokens
    std::map<std::string, std::string> extra;                ///< by form
    std::string general = "<width>800</width><height>600</height><background-color>#101010</background-color>";

    [[nodiscard]] std::string Xml() const;
    void WriteTo(const TemporaryFolder& folder, const std::string& skinName) const;
};

/// A headless program in a folder of its own, and the driver's finger.
class Bench {
public:
    Bench();
    ~Bench();

    TemporaryFolder folder;
    TestSkin skin;
    std::string settings;  ///< content of the settings file at the start; empty for none
    std::vector<std::string> arguments;
    Platform platform;
    std::unique_ptr<Program> program;

    EventLoop::State& loop;
    Dialogs::State& dialogs;
    Screen::State& screen;

    /// Writes skin, settings and language files and runs until the first screen (or the end).
    void Start();
    /// Again, in the same folder, after an end.
    void Restart();
    void Advance(Milliseconds duration) { loop.Advance(duration); }

    // The finger, in pixels of the root, or on the first button whose tag is the command.
    void Down(Point p);
    void Move(Point p);
    void Up(Point p);
    void Tap(Point p);
    void DoubleTap(Point p);
    void Press(const std::string& command);  ///< finger down on the front form's button
    void Release();
    void Tap(const std::string& command);
    void TypeKey(Key key, bool modifier = false);

    [[nodiscard]] Control* ButtonOf(const std::string& command);
    [[nodiscard]] Point MiddleOf(const Control& control);
    [[nodiscard]] std::string Front() const;  ///< name of the form in front, empty for none
    [[nodiscard]] std::string LabelText(const Form& form, const std::string& token) const;

    /// Answers each message box that opens from now on, and notes its text.
    void AnswerMessages(const std::string& word = "ok");
    std::vector<std::string> messages;

private:
    void Begin();

    std::string answer;
    std::unique_ptr<Timer> answerTimer;
    Point finger;
};

}  // namespace zvr
