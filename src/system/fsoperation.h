#pragma once

#include "core/dialoglook.h"
#include "platform/background.h"
#include "platform/eventloop.h"
#include "ui/form.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace zvr {

class FileCopy;
class Program;
struct DialogRequest;

/// Copies the folders of the settings, on a thread of its own, and shows how far it is.
class FsOperation {
public:
    explicit FsOperation(Program& program);

    Form form{"foldercopy"};

    void Load();
    /// Asks, copies the three pairs one after the other and reports. Waits; asked for meanwhile it does nothing.
    void StartFolderCopy();
    /// The line of the report. Waits. The target is never made here.
    [[nodiscard]] std::string CopyPair(std::string source, std::string target);
    /// Copies what is in a folder; nothing that is there already is replaced. Waits, with its dialog open for a second
    /// at least. 0, or the system's number of what went wrong: ECANCELED when the driver or the program's end broke it.
    [[nodiscard]] int ShellCopy(const std::string& from, const std::string& to);

private:
    void Dress();
    void Continue(const std::shared_ptr<FileCopy>& copy);
    void Stepped(const std::shared_ptr<FileCopy>& copy, bool more);
    void ShowProgress();
    [[nodiscard]] std::string RestOfTime() const;

    Program& program;
    Background copier;
    Timer tmrEnd;  ///< the dialog's second is over
    DialogLook look;
    Control* picGround = nullptr;
    Control* picIconBehind = nullptr;
    Control* picIcon = nullptr;
    Control* lblTitle = nullptr;
    Control* lblPair = nullptr;
    Control* lblName = nullptr;
    Control* picBar = nullptr;
    Control* picDone = nullptr;
    Control* lblPercent = nullptr;
    Control* lblRest = nullptr;
    DialogButton cancel;

    bool running = false;
    bool cancelled = false;
    std::optional<int> result;          ///< of the copy at hand, once it has come to its end
    int pair = 0;                       ///< 1 to 3
    std::shared_ptr<FileCopy> current;  ///< belongs to the thread while a step of it runs
    DialogRequest* dialog = nullptr;    ///< of the copy at hand
    Milliseconds begin{};               ///< of the copy at hand
    std::string name;                   ///< of the file at hand
    std::uint64_t bytesDone = 0;
    std::uint64_t bytesInAll = 0;
};

}  // namespace zvr
