#include "core/remotelook.h"

#include "core/dialoglook.h"
#include "core/godfather.h"
#include "core/json.h"
#include "core/program.h"
#include "platform/platform.h"
#include "skin/skinner.h"
#include "system/setgamma.h"
#include "ui/stage.h"

#include <cmath>

namespace zvr {
namespace {

/// The text box that takes the keys, or null.
const Control* TypedInto(const Program& program) {
    const Form* const form = program.stage.ActiveForm();
    if (form == nullptr || !program.godfather.form.visible) {
        return nullptr;
    }
    const Control* const focus = form->focus;
    return focus != nullptr && focus->text && !focus->text->readOnly && focus->IsShown() ? focus : nullptr;
}

Rect PlaceOnScreen(const Program& program, const Control& control) {
    Rect place = control.VisiblePlace();
    const Point root = program.platform.screen.RootOrigin();
    place.x += control.form.Place().x + root.x;
    place.y += control.form.Place().y + root.y;
    return place;
}

void WriteColor(JsonWriter& json, std::string_view key, Color color) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "#";
    for (const int part : {RedOf(color), GreenOf(color), BlueOf(color)}) {
        text += digits[static_cast<std::size_t>(part) / 16];
        text += digits[static_cast<std::size_t>(part) % 16];
    }
    json.Key(key);
    json.String(text);
}

}  // namespace

std::string RemoteLook(const Program& program) {
    const Skinner& skinner = program.skinner;
    const DialogLook look = LookOfSkin(program);
    JsonWriter json;
    json.BeginObject();
    json.Key("ok");
    json.Boolean(true);
    json.Key("language");
    json.String(program.usedLanguage);
    json.Key("skin");
    json.String(skinner.loadedSkin.empty() ? "" : skinner.FolderOf(skinner.loadedSkin));
    WriteColor(json, "background", ParseSkinColor(skinner.ReadSkinValue("general/background-color")));
    WriteColor(json, "text", look.text);
    WriteColor(json, "selection", look.selection);
    json.Key("dialog");
    json.Boolean(program.stage.ModalForm() != nullptr);
    json.Key("shown");
    json.Boolean(program.godfather.form.visible);
    json.Key("dim");
    json.Number(std::lround(program.gamma.DimmedBy() * 100));
    const Control* const typedInto = TypedInto(program);
    json.Key("digits");
    json.Boolean(typedInto != nullptr && typedInto->text->digits);
    json.Key("box");
    if (typedInto != nullptr) {
        const Rect box = PlaceOnScreen(program, *typedInto);
        json.BeginObject();
        WritePlace(json, box);
        json.EndObject();
    } else {
        json.Null();
    }
    json.EndObject();
    return json.text;
}

}  // namespace zvr
