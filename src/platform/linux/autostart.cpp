#include "platform/autostart.h"

#include "platform/files.h"
#include "platform/log.h"
#include "platform/text.h"

#include <algorithm>

namespace zvr {
namespace {

std::string PathOf(const std::string& name) {
    return files::ConfigFolder() + "/autostart/" + name + ".desktop";
}

/// As a quoted argument wants it, and then all of it as a value wants it.
std::string Quoted(const std::string& path) {
    std::string value = "\"";
    for (const char letter : path) {
        switch (letter) {
            case '\\':
                value += "\\\\\\\\";
                break;
            case '"':
            case '`':
            case '$':
                value += "\\\\";
                value += letter;
                break;
            default:
                value += letter;
        }
    }
    return value + '"';
}

}  // namespace

struct Autostart::State {};

Autostart::Autostart() = default;
Autostart::~Autostart() = default;

bool Autostart::IsSet(const std::string& name) const {
    const std::string path = PathOf(name);
    const std::string entry = files::Exists(path) ? files::Read(path, 1U << 20U).value_or("") : "";
    bool started = false;
    for (const std::string_view line : text::Lines(entry)) {
        // How desktops switch one off without removing it.
        if (line == "Hidden=true" || line == "X-GNOME-Autostart-enabled=false") {
            return false;
        }
        started = started || line.starts_with("Exec=");
    }
    return started;
}

void Autostart::Set(const std::string& name, const std::string& programFile) {
    const auto isUnspeakable = [](unsigned char letter) { return letter == '%' || letter < ' '; };
    if (std::any_of(programFile.begin(), programFile.end(), isUnspeakable)) {
        Log::Warning("the session can't start {}: of its path no entry can be written", programFile);
        return;
    }
    const std::string path = PathOf(name);
    if (files::MakeFolder(files::FolderOf(path)).empty()) {
        (void)files::WriteAtomic(
            path, "[Desktop Entry]\nType=Application\nName=zVR\nExec=" + Quoted(programFile) + "\nTerminal=false\n");
    }
}

void Autostart::Clear(const std::string& name) {
    if (files::Exists(PathOf(name))) {
        (void)files::Remove(PathOf(name));
    }
}

}  // namespace zvr
