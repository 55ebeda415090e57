#include "core/splash.h"

#include "core/dialogqueue.h"
#include "core/godfather.h"
#include "core/language.h"
#include "core/program.h"
#include "core/settings.h"
#include "platform/platform.h"
#include "skin/clsstyle.h"
#include "ui/stage.h"

namespace zvr {
namespace {

constexpr int width = 460;
constexpr int height = 240;

Control& AddText(Form& form, const char* name, Rect place, double points, Color color, bool bold = false) {
    Control& label = form.Add(ControlKind::label, name);
    label.Move(place);
    Font font;
    font.face = "Roboto";
    font.points = points;
    font.bold = bold;
    label.font = font;
    label.foreColor = color;
    return label;
}

std::string VersionText() {
    return std::to_string(ZVR_VERSION_MAJOR) + "." + std::to_string(ZVR_VERSION_MINOR) + "." +
           std::to_string(ZVR_VERSION_REVISION);
}

}  // namespace

Splash::Splash(Program& program)
    : program(program),
      timer(program.platform.loop, [this] { Finish(); }),
      tmrActivity(program.platform.loop, [this] { ShowActivity(); }) {
    timer.SetInterval(Milliseconds{1000});
    tmrActivity.SetInterval(Milliseconds{333});
}

void Splash::Load() {
    if (!MediaControl::IsAvailable()) {
        program.platform.dialogs.ShowCritical(
            "A current version of Windows Media Player\u00AE was not found. Version 9 or newer is required.\n\n"
            "On this system libVLC 3 takes its place. Please install the packages libvlc5, libvlc-bin and "
            "vlc-plugin-base; see https://www.videolan.org/vlc/.");
        program.EndAtOnce(1);
        return;
    }
    program.usedLanguage = ReadUsedLanguage(program);
    const std::string missing = program.language.loadLanguage(program.place.folder, program.usedLanguage);
    if (!missing.empty()) {
        program.platform.dialogs.ShowCritical(missing);
        program.EndAtOnce(1);
        return;
    }
    const Color bright = RgbColor(0xF1, 0xF4, 0xF6);
    const Color dim = RgbColor(0xAE, 0xB8, 0xBF);
    form.backColor = RgbColor(0x14, 0x18, 0x1B);
    Control& edge = form.Add(ControlKind::picture, "picEdge");
    edge.backColor = RgbColor(0xFF, 0x94, 0x47);
    edge.Move({32, 92, 48, 4});
    AddText(form, "lblName", {32, 26, 300, 60}, 36, bright, true).caption = "zVR";
    Control& version = AddText(form, "lblVersion", {width - 152, 46, 120, 30}, 15, dim);
    version.caption = VersionText();
    version.align = Align::right;
    AddText(form, "lblWaitMsg", {32, 112, width - 64, 32}, 15, bright).caption =
        program.languageText("SPLASH_PLEASEWAIT");
    lblLoadingMsg = &AddText(form, "lblLoadingMsg", {32, 142, width - 64, 32}, 15, dim);
    AddText(form, "lblCoderName", {32, 184, width - 64, 48}, 11, dim).caption =
        "The front end of the PC in your car\nMade by the zVR authors";

    const Size screen = program.platform.screen.PixelSize();
    form.Resize({width, height});
    form.left = Twips((screen.width - width) / 2);
    form.top = Twips((screen.height - height) / 2);
    clsStyle style(program.platform.screen);
    style.Client = &form;
    style.SetTopMost(true);
    SetFormAlpha(form, 220);
    ShowActivity();
    program.stage.Add(form);
    program.stage.Show(form);
    program.platform.screen.Open(program.stage);
    timer.Start();
    tmrActivity.Start();
}

void Splash::ShowActivity() {
    if (program.dialogs.modalBoxOpen()) {
        Close();  // it would cover the keys, and the start waits for the answer
        return;
    }
    lblLoadingMsg->caption =
        program.languageText("SPLASH_LOADING") + std::string(static_cast<std::size_t>(activity), '.');
    activity = activity >= 3 ? 0 : activity + 1;
}

void Splash::Finish() {
    timer.Stop();
    program.LoadRoot();
    if (program.platform.loop.IsQuitting()) {
        return;
    }
    program.platform.loop.LetPendingEventsRun();
    Close();
    program.godfather.tmrPostLoad.Start();
}

void Splash::Close() {
    timer.Stop();
    tmrActivity.Stop();
    if (form.loaded) {
        form.topMost = false;
        program.stage.Remove(form);
    }
}

}  // namespace zvr
