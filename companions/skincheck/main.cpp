// skincheck: what is wrong with a skin, and how it looks. docs/skins.md is its guide.

#include "apps/quickbars.h"
#include "core/godfather.h"
#include "core/mainmenu.h"
#include "core/program.h"
#include "platform/linux/renderform.h"
#include "platform/platform.h"
#include "skin/check/samples.h"
#include "skin/check/skincheck.h"
#include "skin/skinner.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int exitUsage = 3;
constexpr int exitNotWritten = 4;

constexpr const char* usage =
    "Usage: skincheck DIR                  says what is wrong with the skin in the folder, a line each\n"
    "       skincheck --render OUT DIR     and writes a picture of each screen to the folder OUT\n"
    "       skincheck --reference          prints all that a skin can hold, as markdown\n"
    "Exit: 0 clean, 1 warnings, 2 the program would not load it, 3 wrong call, 4 pictures can't be written\n";

int Fail(int exitCode, const std::string& why) {
    std::fprintf(stderr, "skincheck: %s\n", why.c_str());
    return exitCode;
}

/// A folder as the program has one, with nothing in it but the skin. Goes at the end.
class ProgramFolder {
public:
    explicit ProgramFolder(const fs::path& skin) {
        std::string pattern = (fs::temp_directory_path() / "skincheck-XXXXXX").string();
        if (mkdtemp(pattern.data()) != nullptr) {
            path = pattern;
            std::error_code error;
            fs::create_directories(path / "skins", error);
            fs::create_directory_symlink(skin, path / "skins" / "skin", error);
        }
    }
    ~ProgramFolder() {
        std::error_code error;
        fs::remove_all(path, error);
    }
    ProgramFolder(const ProgramFolder&) = delete;
    ProgramFolder& operator=(const ProgramFolder&) = delete;

    fs::path path;
};

int Render(zvr::Platform& platform, const fs::path& skin, const fs::path& out) {
    std::error_code error;
    fs::create_directories(out, error);
    const ProgramFolder folder(fs::canonical(skin, error));
    zvr::Program program(platform, {folder.path.string(), "skincheck"});
    program.godfather.modules.usedModules = zvr::ModuleSet::optional;
    program.godfather.modules.FixForThisRun();
    program.CreateForms();
    program.skinner.LoadSkin("skin");
    // As wide as the screen that it is docked to.
    program.quickbars.docked.width = program.mainmenu.form.width.get();
    zvr::FillWithSamples(program);
    for (const zvr::Form* form : program.ModuleForms()) {
        const fs::path file = out / (form->name + ".png");
        if (!zvr::RenderForm(*form, file.string())) {
            return Fail(exitNotWritten, file.string() + " can't be written");
        }
    }
    return 0;
}

int Run(const std::string& folder, const std::string& out) {
    zvr::Platform platform;
    const zvr::SkinReport report = zvr::CheckSkin(folder, {});
    for (const zvr::SkinFinding& finding : report.findings) {
        std::printf("%s\n", zvr::LineOf(finding, folder).c_str());
    }
    std::fflush(stdout);
    if (!out.empty()) {
        if (!report.WouldLoad()) {
            std::fprintf(stderr, "skincheck: no pictures of a skin that would not load\n");
        } else if (const int result = Render(platform, folder, out); result != 0) {
            return result;
        }
    }
    return report.ExitCode();
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
    const bool renders = words.size() == 3 && words[0] == "--render";
    if (!renders && (words.size() != 1 || words[0].starts_with('-'))) {
        std::fputs(usage, stderr);
        return exitUsage;
    }
    std::string folder = words.back();
    while (folder.size() > 1 && folder.ends_with('/')) {
        folder.pop_back();
    }
    if (!fs::is_directory(folder)) {
        return Fail(exitUsage, folder + " is no folder");
    }
    // Nothing of it is shown; so it needs no display, and looks the same with any.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    return Run(folder, renders ? words[1] : "");
}
