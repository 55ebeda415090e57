#include "system/fsoperation.h"

#include "core/dialogqueue.h"
#include "core/godfather.h"
#include "core/language.h"
#include "core/numbers.h"
#include "core/program.h"
#include "platform/filecopy.h"
#include "platform/platform.h"
#include "ui/stage.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace zvr {
namespace {

constexpr Milliseconds shortestShow{1000};
constexpr Milliseconds noEstimateBefore{3000};
constexpr std::uint64_t secondsOfEstimate = 10;  ///< its steps

// As drawn for the smallest screens, in pixels.
constexpr Size box{560, 300};
constexpr int side = 30;
constexpr int barHeight = 20;
constexpr double titlePoints = 20;
constexpr double textPoints = 17;

std::string InOneLine(const std::string& name) {
    std::string line;
    for (const char letter : name) {
        line += letter == ' ' ? "\u00a0" : std::string(1, letter);
    }
    return line;
}

}  // namespace

FsOperation::FsOperation(Program& program)
    : program(program), copier(program.platform.loop), tmrEnd(program.platform.loop, [this] {
          tmrEnd.Stop();
          if (dialog != nullptr) {
              this->program.dialogs.End(*dialog, "");
          }
      }) {}

void FsOperation::Load() {
    const auto picture = [this](const char* id) { return &form.Add(ControlKind::picture, id); };
    const auto label = [this](const char* id) { return &form.Add(ControlKind::label, id); };
    picGround = &AddDialogGround(form);
    picIconBehind = picture("picIconBehind");
    picIcon = picture("picIcon");
    lblTitle = &AddDialogTitle(form, "OPT_FOLDERCOPY_FRAME");
    lblPair = label("lblPair");
    lblPair->align = Align::right;
    lblName = label("lblName");
    lblName->overflow = Overflow::ellipsis;
    picBar = picture("picBar");
    picDone = picture("picDone");
    lblPercent = label("lblPercent");
    lblRest = label("lblRest");
    lblRest->align = Align::right;
    const auto close = [this] { program.dialogs.Settle(form, ""); };
    cancel = AddDialogButton(form, "picCancel", "lblCancel", 0, "QUICKJUMP_CANCEL", look, close);
    translateControls(program.language, form);
    form.onKeyDown = [close](const KeyEvent& key) {
        if (key.key == Key::escape) {
            close();
        }
    };
    program.stage.Add(form);
}

void FsOperation::StartFolderCopy() {
    if (std::exchange(running, true)) {
        return;
    }
    cancelled = false;
    if (program.showMessage(program.languageText("FOLDERCOPY_ASKFORSTART"), MessageButtons::yesNo) ==
        MessageAnswer::yes) {
        std::string report = program.languageText("FOLDERCOPY_RESULTHEADER") + "\n\n";
        const auto pairs = program.godfather.folderCopy;
        for (pair = 1; pair <= static_cast<int>(pairs.size()); ++pair) {
            const FolderCopyPair& folders = pairs[static_cast<std::size_t>(pair) - 1];
            report += std::to_string(pair) + ": " + CopyPair(folders.folderCopySource, folders.folderCopyTarget) + "\n";
        }
        program.showMessage(report);
    }
    running = false;
}

std::string FsOperation::CopyPair(std::string source, std::string target) {
    if (source.empty() || target.empty()) {
        return program.languageText("FOLDERCOPY_NOTCONFIGURED");
    }
    for (std::string* const folder : {&source, &target}) {
        if (folder->back() != files::separator) {
            *folder += files::separator;
        }
    }
    if (!files::IsFolder(source)) {
        return program.languageText("FOLDERCOPY_SOURCENOTFOUND");
    }
    if (!files::IsFolder(target)) {
        return program.languageText("FOLDERCOPY_TARGETNOTFOUND");
    }
    const int result = cancelled ? ECANCELED : ShellCopy(source, target);
    return result == 0 ? program.languageText("FOLDERCOPY_SUCCESSFUL")
                       : program.languageText("FOLDERCOPY_ERROR") + " (" + std::to_string(result) + ")";
}

int FsOperation::ShellCopy(const std::string& from, const std::string& to) {
    const auto copy = std::make_shared<FileCopy>(from, to);
    current = copy;
    begin = program.platform.loop.Monotonic();
    name.clear();
    bytesDone = bytesInAll = 0;
    result.reset();
    DialogRequest request{form, [this] { Dress(); }};
    request.givesWay = true;
    dialog = &request;
    Continue(copy);
    (void)program.dialogs.Show(request);
    dialog = nullptr;
    tmrEnd.Stop();
    current.reset();  // what still runs of it finds that nobody waits
    cancelled = !result;
    return result.value_or(ECANCELED);
}

void FsOperation::Continue(const std::shared_ptr<FileCopy>& copy) {
    const auto more = std::make_shared<bool>();
    copier.Do([copy, more] { *more = copy->Step(); }, [this, copy, more] { Stepped(copy, *more); });
}

void FsOperation::Stepped(const std::shared_ptr<FileCopy>& copy, bool more) {
    if (current != copy) {
        copier.Do([copy] { copy->Break(); }, [] {});  // over there: to remove a big piece takes its time
        return;
    }
    name = copy->Name();
    bytesDone = copy->BytesDone();
    bytesInAll = copy->BytesInAll();
    if (more) {
        Continue(copy);
    } else {
        result = copy->Fault();
        bytesDone = bytesInAll = std::max<std::uint64_t>(bytesInAll, 1);
        const Milliseconds shown = program.platform.loop.Monotonic() - begin;
        tmrEnd.SetInterval(std::max(shortestShow - shown, Milliseconds{1}));
        tmrEnd.Start();
    }
    ShowProgress();
}

void FsOperation::ShowProgress() {
    const int percent = bytesInAll == 0 ? 0 : static_cast<int>(100.0 * static_cast<double>(bytesDone) / bytesInAll);
    lblPair->caption = std::to_string(pair) + " " + program.languageText("FOLDERCOPY_OF") + " " +
                       std::to_string(program.godfather.folderCopy.size());
    lblName->caption = InOneLine(name);
    lblPercent->caption = std::to_string(percent) + "%";
    lblRest->caption = RestOfTime();
    const Rect bar = picBar->Place();
    const int width = (bar.width - 2) * std::min(percent, 100) / 100;
    picDone->visible = width >= bar.height;  // less than its round ends is nothing yet
    picDone->Move({bar.x + 1, bar.y + 1, std::max(width, bar.height), bar.height - 2});
}

std::string FsOperation::RestOfTime() const {
    const Milliseconds elapsed = program.platform.loop.Monotonic() - begin;
    if (elapsed < noEstimateBefore || bytesDone == 0 || bytesDone >= bytesInAll) {
        return {};
    }
    const double rest = static_cast<double>(elapsed.count()) / 1000 * static_cast<double>(bytesInAll - bytesDone) /
                        static_cast<double>(bytesDone);
    const auto seconds = (static_cast<std::uint64_t>(rest) / secondsOfEstimate + 1) * secondsOfEstimate;
    return (seconds >= 60 ? std::to_string(seconds / 60) + " min " : "") + std::to_string(seconds % 60) + " s " +
           program.languageText("FOLDERCOPY_LEFT");
}

void FsOperation::Dress() {
    look = LookOfSkin(program);
    FrameDialog(program, form, *picGround, {look.Scaled(box.width), look.Scaled(box.height)}, look);
    const auto place = [this](int x, int y, int width, int height) {
        return Rect{look.Scaled(x), look.Scaled(y), look.Scaled(width), look.Scaled(height)};
    };
    const auto sheet = [this](Control& control, Rect where) {
        control.Move(where);
        control.plate = {look.ground, look.ground, look.accent, look.Scaled(5), look.Scaled(3), true};
    };
    sheet(*picIconBehind, place(side, 34, 22, 22));
    sheet(*picIcon, place(side + 10, 44, 22, 22));
    const Color bright = look.text;
    const auto text = [this](Control& label, Rect where, double points, Color color) {
        label.font = look.TextFont(points);
        label.foreColor = color;
        PlaceDialogText(label, where);
    };
    text(*lblTitle, place(84, 34, 300, 32), titlePoints, bright);
    Font medium = *lblTitle->font;
    medium.face = "Roboto Medium";
    lblTitle->font = medium;
    text(*lblPair, place(400, 34, 130, 32), textPoints, look.dim);
    text(*lblName, place(side, 80, 500, 32), textPoints, bright);
    text(*lblPercent, place(side, 150, 120, 32), textPoints, bright);
    text(*lblRest, place(200, 150, 330, 32), textPoints, look.dim);
    picBar->Move(place(side, 121, 500, barHeight));
    picBar->plate = {RgbColor(10, 10, 10), RgbColor(10, 10, 10), look.key.bottom, picBar->Place().height / 2, 1, true};
    picDone->plate = {look.accent, look.accent, look.accent, picBar->Place().height / 2 - 1, 0, true};
    cancel.Dress(place(146, 198, 268, 84), look);
    ShowProgress();
}

}  // namespace zvr
