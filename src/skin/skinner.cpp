#include "skin/skinner.h"

#include "apps/externalapps.h"
#include "apps/quickbars.h"
#include "core/dialogqueue.h"
#include "core/godfather.h"
#include "core/messagebox.h"
#include "core/program.h"
#include "core/splash.h"
#include "options/options.h"
#include "platform/platform.h"
#include "skin/skinload.h"
#include "ui/stage.h"

#include <algorithm>

namespace zvr {
namespace {

SkinVersion VersionOf(const XmlDocument& document) {
    if (document.IsEmpty()) {
        return SkinVersion::unreadable;
    }
    const std::string_view version = SkinText(document.First("//about/for-app-version"));
    return version.empty() ? SkinVersion::none : version == SkinVersionTaken() ? SkinVersion::good : SkinVersion::other;
}

void ClearControl(Control& control) {
    if (control.name == "albl") {
        control.visible = false;
        control.caption = std::string();
        control.SetTag("");
        control.helpId = 0;
        control.titleCharacters = 0;
    } else if (control.name == "abutton") {
        control.visible = false;
        control.normalPicture = nullptr;
        control.activePicture = nullptr;
    } else if (control.name == "picPosition" || control.name == "picVolume" || control.name == "picPosSlider" ||
               control.name == "picVolSlider") {
        control.picture = PicturePointer();
        control.backColor = 0;
    }
}

}  // namespace

Skinner::Skinner(Program& program) : program(program) {}

std::string Skinner::FolderOf(const std::string& skinName) const {
    return program.place.folder + files::separator + "skins" + files::separator + skinName + files::separator;
}

void Skinner::LoadSkin(const std::string& skinName) {
    // The second: a skin whose fault has its box open is asked for again by the clock behind the box.
    if (skinName == loadedSkin || (!skinName.empty() && skinName == skinBeingLoaded)) {
        return;
    }
    Apply(skinName);
}

void Skinner::ReloadSkin() {
    if (!loadedSkin.empty() && skinBeingLoaded.empty()) {
        Apply(loadedSkin);
    }
}

void Skinner::Apply(const std::string& skinName) {
    const std::string name = skinName;  // may be the setting itself, which a fault changes
    const unsigned load = ++loads;
    const auto isOver = [this, load] { return load != loads || program.platform.loop.IsQuitting(); };
    skinBeingLoaded = name;
    if (!loadedSkin.empty()) {
        ClearSkin();
    }
    skinFailed = false;
    auto document = std::make_shared<const XmlDocument>(XmlDocument::Load(FolderOf(name) + skinDataFile));
    if (const auto fault = FileFaultOf(*document)) {
        LogSkinFault(FolderOf(name), fault->line, fault->place, fault->reason);
    }
    ReportVersion(VersionOf(*document));
    if (isOver()) {
        return;
    }
    skinFolder = FolderOf(name);
    skinDocument = std::move(document);
    SkinLoad(program, skinDocument, skinFolder).Apply();
    if (isOver()) {
        return;
    }
    pairs.RefreshAll(program);
    program.externalapps.SkinApplied();
    skinBeingLoaded.clear();
    if (!skinFailed) {
        loadedSkin = name;
    }
    program.dialogs.Refill();
}

void Skinner::ClearSkin() {
    for (Form* form : program.ModuleForms()) {
        if (!form->loaded) {
            continue;
        }
        form->backColor = 0;
        form->background = PicturePointer();
        for (Control* control : form->Controls()) {
            ClearControl(*control);
        }
    }
}

bool Skinner::TakesGeneral(const Form& form) const {
    const auto others = {&program.godfather.form, &program.quickbars.docked, &program.quickbars.floating,
                         &program.splash.form, &program.options.form};
    return std::find(others.begin(), others.end(), &form) == others.end() && program.isModuleActive(form.name);
}

void Skinner::CenterForms() {
    const Form& root = program.godfather.form;
    const Form* const front = program.stage.FrontForm();
    const Form* const modal = program.stage.ModalForm();
    for (Form* form : program.stage.Forms()) {
        if (!TakesGeneral(*form) || form == &program.messagebox.form) {
            continue;
        }
        // What the driver looks at is moved as it stands: to come up again would count as a visit to it.
        if (form != front && form != modal) {
            program.stage.Hide(*form);
        }
        form->left = std::max(0.0, Centred(root.width, form->width));
        form->top = std::max(0.0, Centred(root.height, form->height));
    }
}

SkinVersion Skinner::CheckSkinVersion(const std::string& skinName) const {
    return VersionOf(XmlDocument::Load(FolderOf(skinName) + skinDataFile));
}

void Skinner::ReportVersion(SkinVersion version) {
    std::string text;
    switch (version) {
        case SkinVersion::good:
            break;
        case SkinVersion::unreadable:
            text = program.languageText("SKINNING_CONFIGFILEERROR");
            break;
        case SkinVersion::none:
            text = program.languageText("SKINNING_NOVERSIONINFO");
            break;
        case SkinVersion::other:
            text = program.languageText("SKINNING_WRONGVERSION");
            break;
    }
    if (!text.empty()) {
        ReportSkinError(text);
    }
}

std::string Skinner::ReadSkinValue(std::string_view path) const {
    return skinDocument == nullptr ? std::string() : std::string(SkinText(skinDocument->First(path)));
}

void Skinner::ReportSkinError(const std::string& text) {
    skinFailed = true;
    if (program.platform.loop.IsQuitting()) {
        return;
    }
    std::string shown = text;
    if (text.starts_with('=')) {
        shown = program.languageText("SKINNING_GENERALSKINERROR") + "\n\n(ErrCode" + text + ")";
    }
    program.CloseSplash();
    program.platform.dialogs.ShowCritical(shown + "\n\n" + program.languageText("SKINNING_PLEASESELECTANOTHERSKIN"));
    if (loadedSkin.empty()) {
        if (program.godfather.hideWindowsTaskbar) {
            program.godfather.ShowTaskbar();
        }
        program.EndAtOnce(1);
        return;
    }
    // Not loaded again: it counts as applied, though it is cleared. Whoever reported goes on with the faulty one.
    program.godfather.usedSkin = loadedSkin;
}

}  // namespace zvr
