#include "apps/externalappsctl.h"

#include "core/program.h"
#include "core/settings.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/text.h"

#include <algorithm>

namespace zvr {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view floatingWord = "floating";
constexpr std::string_view normalWord = "normal";

std::string LineOf(const ExternalApp& app) {
    return app.name + "\t" + app.command + "\t" + std::string(app.docked ? "docked" : floatingWord) + "\t" +
           std::string(app.maximized ? "maximized" : normalWord) + "\r\n";
}

}  // namespace

std::string ExternalAppsCtl::ListFile() const {
    return program.place.folder + "/externalapps.dat";
}

void ExternalAppsCtl::LoadAppList() {
    externalApps.clear();
    const auto read = files::Read(ListFile());
    listWasUnread = !read && files::Attributes(ListFile());
    const std::string content = read.value_or("");
    for (std::string_view line : text::Lines(content)) {
        // Also in the middle: of lists that were put one behind the other.
        while (line.starts_with(byteOrderMark)) {
            line.remove_prefix(byteOrderMark.size());
        }
        const std::vector<std::string_view> fields = text::Split(line, '\t');
        // Three fields: a list of the time before programs could start in a normal window.
        if (fields.size() < 3 || fields.size() > 4 || AppNameExists(fields[0])) {
            continue;
        }
        externalApps.push_back({std::string(fields[0]), std::string(fields[1]), fields[2] != floatingWord,
                                fields.size() == 3 || fields[3] != normalWord});
    }
}

void ExternalAppsCtl::SaveAppList() {
    if (listWasUnread && !KeepAsBad(ListFile()).empty()) {
        return;  // better an old list than none
    }
    listWasUnread = false;
    std::string content;
    for (const ExternalApp& app : externalApps) {
        content += LineOf(app);
    }
    static_cast<void>(files::WriteAtomic(ListFile(), content));  // the log has it
}

bool ExternalAppsCtl::AppNameExists(std::string_view name) const {
    return std::any_of(externalApps.begin(), externalApps.end(), [name](const auto& app) { return app.name == name; });
}

bool ExternalAppsCtl::WaitForProcess(ProcessId processId) {
    return program.platform.loop.WaitUntil("program", [&] { return !program.platform.processes.Lives(processId); });
}

void ExternalAppsCtl::RunLauncherCommand(const std::string& command, bool fromOptions) {
    if (command.empty()) {
        Tell(program.languageText("OPT_APPLAUNCHER_NOCOMMAND"), fromOptions);
    } else if (!program.platform.processes.Start(command)) {
        Tell(program.languageText("OPT_APPLAUNCHER_COULDNOTLAUNCH") + " \n\n" + command, fromOptions);
    }
}

void ExternalAppsCtl::Tell(const std::string& text, bool fromOptions) {
    if (fromOptions) {
        program.platform.dialogs.ShowPlain(text);
    } else {
        program.showMessage(text);
    }
}

}  // namespace zvr
