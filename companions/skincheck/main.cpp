// skincheck: what is wrong with a skin, and how it looks. docs/skins.md is its guide.

#include "core/language.h"
#include "platform/linux/renderform.h"
#include "platform/platform.h"
#include "render.h"
#include "skin/check/newskin.h"
#include "skin/check/skincheck.h"
#include "watch.h"

#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <list>
#include <optional>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int exitUsage = 3;
constexpr int exitNotWritten = 4;

constexpr const char* usage =
    "Usage: skincheck DIR                    says what is wrong with the skin in the folder, a line each\n"
    "       skincheck --watch DIR            the same again at each save; a running zvr takes its skin anew\n"
    "       skincheck --render OUT DIR       and writes a picture of each screen to the folder OUT\n"
    "           --outlines                   with the edges of keys and areas, and what they are\n"
    "           --pressed --playing --muted  as it looks then\n"
    "           --longest                    with names and messages that are too long\n"
    "           --language NAME              in that language, such as de\n"
    "       skincheck --new DIR WIDTHxHEIGHT makes the smallest skin that loads, to begin from\n"
    "       skincheck --reference            prints all that a skin can hold, as markdown\n"
    "Exit: 0 clean, 1 warnings, 2 the program would not load it, 3 wrong call, 4 files can't be written\n";

int Fail(int exitCode, const std::string& why) {
    std::fprintf(stderr, "skincheck: %s\n", why.c_str());
    return exitCode;
}

struct Call {
    std::string folder;
    bool watches = false;
    std::optional<zvr::Size> newSize;
    std::optional<skincheck::RenderWish> render;
};

std::optional<zvr::Size> SizeIn(const std::string& word) {
    zvr::Size size;
    const char* const end = word.data() + word.size();
    const auto width = std::from_chars(word.data(), end, size.width);
    if (width.ec != std::errc() || width.ptr == end || *width.ptr != 'x') {
        return std::nullopt;
    }
    const auto height = std::from_chars(width.ptr + 1, end, size.height);
    return height.ec == std::errc() && height.ptr == end ? std::optional(size) : std::nullopt;
}

/// None for a wrong call.
std::optional<Call> ReadCall(const std::vector<std::string>& words) {
    Call call;
    skincheck::RenderWish wish;
    bool renders = false;
    bool wishes = false;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        const bool hasNext = i + 1 < words.size();
        const struct {
            const char* name;
            bool& on;
        } switches[] = {{"--outlines", wish.outlines},
                        {"--pressed", wish.state.pressed},
                        {"--playing", wish.state.playing},
                        {"--muted", wish.state.muted},
                        {"--longest", wish.state.longest}};
        const auto* const found = std::find_if(std::begin(switches), std::end(switches),
                                               [&word](const auto& one) { return word == one.name; });
        if (found != std::end(switches)) {
            found->on = wishes = true;
        } else if (word == "--language" && hasNext) {
            wish.language = words[++i];
            wishes = true;
        } else if (word == "--render" && hasNext) {
            wish.out = words[++i];
            renders = true;
        } else if (word == "--watch") {
            call.watches = true;
        } else if (word == "--new" && words.size() == 3 && i == 0) {
            call.newSize = SizeIn(words[2]);
            call.folder = words[1];
            return call.newSize ? std::optional(call) : std::nullopt;
        } else if (word.starts_with('-') || !call.folder.empty()) {
            return std::nullopt;
        } else {
            call.folder = word;
        }
    }
    if (renders) {
        call.render = wish;
    }
    return call.folder.empty() || (wishes && !renders) ? std::nullopt : std::optional(call);
}

fs::path ProgramFolder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

/// All that lie beside the program, so that a label is measured in each.
std::vector<zvr::SkinLanguage> Languages(std::list<zvr::LanguageTable>& tables) {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& file : fs::directory_iterator(ProgramFolder() / "lang", error)) {
        names.push_back(file.path().stem().string());
    }
    std::sort(names.begin(), names.end());
    std::vector<zvr::SkinLanguage> languages;
    for (const std::string& name : names) {
        if (tables.emplace_back().loadLanguage(ProgramFolder().string(), name).empty()) {
            languages.push_back({name, tables.back()});
        }
    }
    return languages;
}

int Check(zvr::Platform& platform, const Call& call) {
    std::list<zvr::LanguageTable> tables;
    const zvr::SkinReport report = zvr::CheckSkin(call.folder, Languages(tables));
    for (const zvr::SkinFinding& finding : report.findings) {
        std::printf("%s\n", zvr::LineOf(finding, call.folder).c_str());
    }
    std::fflush(stdout);
    if (call.render && !report.WouldLoad()) {
        std::fprintf(stderr, "skincheck: no pictures of a skin that would not load\n");
    } else if (call.render) {
        if (const std::string fault = Render(platform, call.folder, ProgramFolder(), *call.render); !fault.empty()) {
            return Fail(exitNotWritten, fault);
        }
    }
    return report.ExitCode();
}

/// A program that isn't running, or shows another skin, is none of the author's business here.
void ReloadInProgram() {
    const std::string control = (ProgramFolder() / "zvrctl").string();
    std::string words[] = {control, "skin", "reload"};
    char* arguments[] = {words[0].data(), words[1].data(), words[2].data(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", 1, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", 1, 0);
    pid_t child = 0;
    if (posix_spawn(&child, control.c_str(), &actions, nullptr, arguments, environ) == 0) {
        int status = 0;
        waitpid(child, &status, 0);
        std::printf("%s\n", WIFEXITED(status) && WEXITSTATUS(status) == 0 ? "shown" : "not shown by any zvr");
        std::fflush(stdout);
    }
    posix_spawn_file_actions_destroy(&actions);
}

[[noreturn]] void WatchSkin(zvr::Platform& platform, const Call& call) {
    skincheck::Watch(call.folder, [&] {
        const std::time_t now = std::time(nullptr);
        char time[16];
        std::strftime(time, sizeof time, "%H:%M:%S", std::localtime(&now));
        std::printf("-- %s %s\n", time, call.folder.c_str());
        const int result = Check(platform, call);
        if (result == 0) {
            std::printf("nothing to tell\n");
        }
        std::fflush(stdout);
        if (result < 2) {
            ReloadInProgram();
        }
    });
}

int MakeNew(const Call& call) {
    const auto within = [&call](zvr::Size least, zvr::Size most) {
        return call.newSize->width >= least.width && call.newSize->height >= least.height &&
               call.newSize->width <= most.width && call.newSize->height <= most.height;
    };
    if (!within(zvr::smallestScreen, zvr::largestScreen)) {
        return Fail(exitUsage, "a screen has from 640x400 to 4096x4096 pixels");
    }
    std::error_code error;
    if (fs::exists(call.folder, error)) {
        return Fail(exitUsage, call.folder + " is there already");
    }
    const zvr::NewSkin skin = zvr::SmallestSkin(*call.newSize);
    const fs::path folder = call.folder;
    fs::create_directories(folder, error);
    std::ofstream(folder / "skindata.xml") << skin.data;
    bool written = fs::exists(folder / "skindata.xml", error);
    for (const zvr::NewPicture& picture : skin.pictures) {
        const fs::path file = folder / picture.file;
        fs::create_directories(file.parent_path(), error);
        written = written && zvr::RenderKey(picture.caption, picture.size, picture.pressed, file.string());
    }
    return written ? 0 : Fail(exitNotWritten, call.folder + " can't be written");
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 1 && (words[0] == "--help" || words[0] == "-h")) {
        std::fputs(usage, stdout);
        return 0;
    }
    if (words.size() == 1 && words[0] == "--reference") {
        std::fputs(zvr::SkinReference().c_str(), stdout);
        return 0;
    }
    auto call = ReadCall(words);
    if (!call) {
        std::fputs(usage, stderr);
        return exitUsage;
    }
    // Nothing of it is shown; so it needs no display, and looks the same with any.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    zvr::Platform platform;
    if (call->newSize) {
        return MakeNew(*call);
    }
    while (call->folder.size() > 1 && call->folder.ends_with('/')) {
        call->folder.pop_back();
    }
    if (!fs::is_directory(call->folder)) {
        return Fail(exitUsage, call->folder + " is no folder");
    }
    if (call->watches) {
        WatchSkin(platform, *call);
    }
    return Check(platform, *call);
}
