#include "skin/skinner.h"

#include "apps/externalapps.h"
#include "apps/quickbars.h"
#include "core/commanddispatcher.h"
#include "core/dialogqueue.h"
#include "core/godfather.h"
#include "core/mainmenu.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/program.h"
#include "core/splash.h"
#include "media/dvdplayer.h"
#include "media/gallery.h"
#include "media/mediaplayer.h"
#include "media/mediasearch.h"
#include "media/playlists.h"
#include "phone/phone.h"
#include "phone/smsbox.h"
#include "platform/platform.h"
#include "radiogps/gps.h"
#include "radiogps/radio.h"
#include "skin/elements.h"
#include "skin/layouts.h"
#include "ui/stage.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zvr {
namespace {

/// No screen is as wide; beyond it places would not fit the numbers of a screen.
constexpr double farthestPixel = 1'000'000;

bool IsOneOf(const Form& form, std::initializer_list<const Form*> forms) {
    return std::find(forms.begin(), forms.end(), &form) != forms.end();
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

bool Skinner::IsOver(unsigned load) const {
    return load != loads || program.platform.loop.IsQuitting();
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
    skinBeingLoaded = name;
    if (!loadedSkin.empty()) {
        ClearSkin();
    }
    skinFailed = false;
    ReportVersion(CheckSkinVersion(name));
    if (IsOver(load)) {
        return;
    }
    skinFolder = FolderOf(name);
    skinDocument = XmlDocument::Load(skinFolder + "skindata.xml");
    pictures.clear();
    ApplyGeneral();
    ApplyForms(load);
    if (IsOver(load)) {
        return;
    }
    UncoverToggles();
    pictures.clear();
    skinBeingLoaded.clear();
    if (!skinFailed) {
        loadedSkin = name;
    }
    program.dialogs.Refill();
}

void Skinner::ApplyForms(unsigned load) {
    const std::array<std::pair<std::string_view, Form*>, 14> forms{{
        {"radio", &program.radio.form},
        {"mediasearch", &program.mediasearch.form},
        {"dvdplayer", &program.dvdplayer.form},
        {"gallery", &program.gallery.form},
        {"gps", &program.gps.form},
        {"phone", &program.phone.form},
        {"phone", &program.smsbox.form},
        {"externalapps", &program.externalapps.form},
        {"externalapps", &program.quickbars.docked},
        {"externalapps", &program.quickbars.floating},
        {"mediaplayer", &program.mediaplayer.form},
        {"playlists", &program.playlists.form},
        {"messagebox", &program.messagebox.form},
        {"mainmenu", &program.mainmenu.form},
    }};
    for (const auto& [module, form] : forms) {
        if (!IsOver(load) && program.isModuleActive(module) && form->loaded) {
            SkinForm(program, *form);
        }
    }
    for (const ModuleLayout& layout : ModuleLayouts()) {
        if (!IsOver(load) && program.isModuleActive(layout.module)) {
            layout.apply(program);
        }
    }
}

void Skinner::UncoverToggles() {
    CommandDispatcher& dispatcher = program.commanddispatcher;
    if (program.mediaplayer.wmp.GetMode("shuffle")) {
        dispatcher.SendButtonBehind("mediaplayer.mode.shuffle");
    }
    dispatcher.SendButtonBehind(program.mediaplayer.showingPlaylist ? "mediaplayer.add2playlist"
                                                                    : "mediaplayer.removefromplaylist");
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

void Skinner::CenterForms() {
    const Form& root = program.godfather.form;
    const Form* const front = program.stage.FrontForm();
    const Form* const modal = program.stage.ModalForm();
    for (Form* form : program.stage.Forms()) {
        if (IsOneOf(*form, {&root, &program.messagebox.form, &program.quickbars.docked, &program.quickbars.floating,
                            &program.splash.form}) ||
            !program.isModuleActive(form->name)) {
            continue;
        }
        // What the driver looks at is moved as it stands: to come up again would count as a visit to it.
        if (form != front && form != modal) {
            program.stage.Hide(*form);
        }
        form->left = std::max(0.0, (root.width - form->width) / 2);
        form->top = std::max(0.0, (root.height - form->height) / 2);
    }
}

double Skinner::GeneralSize(std::string_view path, SkinFault fault) {
    const double pixels = SkinNumber(ReadSkinValue(path));
    if (pixels <= 100) {
        ReportSkinError(fault);
        return 0;
    }
    return static_cast<double>(RoundHalfEven(pixels * twipsPerPixel));
}

void Skinner::ApplyGeneral() {
    CenterForms();
    const double width = GeneralSize("//general/width", SkinFault::generalWidth);
    const double height = GeneralSize("//general/height", SkinFault::generalHeight);
    const Color color = ParseSkinColor(ReadSkinValue("//general/background-color"));
    const SkinPicture background = FindPicture(ReadSkinValue("//general/background-image"));
    for (Form* form : program.stage.Forms()) {
        if (IsOneOf(*form, {&program.quickbars.floating, &program.quickbars.docked, &program.splash.form,
                            &program.godfather.form}) ||
            !program.isModuleActive(form->name)) {
            continue;
        }
        if (width > 0) {
            form->width = width;
        }
        if (height > 0) {
            form->height = height;
        }
        form->backColor = color;
        if (background.exists && background.picture == nullptr) {
            // The first form has its size by now, the others don't, and nothing is centred.
            ReportSkinError(SkinFault::generalBackground);
            return;
        }
        if (background.exists) {
            form->background = background.picture;
        }
    }
    CenterForms();
}

SkinVersion Skinner::CheckSkinVersion(const std::string& skinName) const {
    const XmlDocument document = XmlDocument::Load(FolderOf(skinName) + "skindata.xml");
    if (document.IsEmpty()) {
        return SkinVersion::unreadable;
    }
    const std::string version = document.First("//about/for-app-version").Text();
    if (version.empty()) {
        return SkinVersion::none;
    }
    const std::string ours = std::to_string(ZVR_VERSION_MAJOR) + "." + std::to_string(ZVR_VERSION_MINOR);
    return version == ours ? SkinVersion::good : SkinVersion::other;
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
    return skinDocument.First(path).Text();
}

SkinPicture Skinner::FindPicture(const std::string& text) {
    if (text.empty()) {
        return {};
    }
    if (const auto known = pictures.find(text); known != pictures.end()) {
        return known->second;
    }
    std::string path = skinFolder + text;
    if (!files::Exists(path)) {
        std::replace(path.begin() + static_cast<std::ptrdiff_t>(skinFolder.size()), path.end(), '\\', files::separator);
    }
    SkinPicture found;
    found.exists = files::Exists(path);
    if (found.exists) {
        found.picture = LoadPicture(path);
    }
    pictures.emplace(text, found);
    return found;
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

Color ParseSkinColor(std::string_view text) {
    if (text.size() != 7 || text[0] != '#') {
        return 0;
    }
    unsigned value = 0;
    const auto end = text.data() + text.size();
    const auto result = std::from_chars(text.data() + 1, end, value, 16);
    if (result.ec != std::errc{} || result.ptr != end) {
        return 0;
    }
    return RgbColor(static_cast<int>(value >> 16U), static_cast<int>(value >> 8U & 0xFFU),
                    static_cast<int>(value & 0xFFU));
}

double SkinNumber(std::string_view text) {
    return std::clamp(LeadingNumber(text), -farthestPixel, farthestPixel);
}

}  // namespace zvr
