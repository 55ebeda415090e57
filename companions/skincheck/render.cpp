#include "render.h"

#include "apps/quickbars.h"
#include "core/godfather.h"
#include "core/language.h"
#include "core/mainmenu.h"
#include "core/program.h"
#include "platform/linux/renderform.h"
#include "platform/platform.h"
#include "skin/skinner.h"

#include <cstdlib>

namespace skincheck {
namespace {

namespace fs = std::filesystem;

/// A folder as the program has one, with nothing in it but the skin and the languages. Goes at the end.
class ProgramFolder {
public:
    ProgramFolder(const fs::path& skin, const fs::path& languages) {
        std::string pattern = (fs::temp_directory_path() / "skincheck-XXXXXX").string();
        if (mkdtemp(pattern.data()) != nullptr) {
            path = pattern;
            std::error_code error;
            fs::create_directories(path / "skins", error);
            fs::create_directory_symlink(skin, path / "skins" / "skin", error);
            fs::create_directory_symlink(languages, path / "lang", error);
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

}  // namespace

std::string Render(zvr::Platform& platform, const fs::path& skin, const fs::path& programFolder,
                   const RenderWish& wish) {
    std::error_code error;
    fs::create_directories(wish.out, error);
    const ProgramFolder folder(fs::canonical(skin, error), programFolder / "lang");
    zvr::Program program(platform, {folder.path.string(), "skincheck"});
    program.usedLanguage = wish.language;
    if (const std::string fault = program.language.loadLanguage(folder.path.string(), wish.language); !fault.empty()) {
        return fault;
    }
    program.godfather.modules.usedModules = zvr::ModuleSet::optional;
    program.godfather.modules.FixForThisRun();
    program.CreateForms();
    program.skinner.LoadSkin("skin");
    // As wide as the screen that it is docked to.
    program.quickbars.docked.width = program.mainmenu.form.width.get();
    zvr::FillWithSamples(program, wish.state);
    for (const zvr::Form* form : program.ModuleForms()) {
        const fs::path file = wish.out / (form->name + ".png");
        if (!zvr::RenderForm(*form, file.string(), wish.outlines)) {
            return file.string() + " can't be written";
        }
    }
    return {};
}

}  // namespace skincheck
