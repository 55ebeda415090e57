#include "skin/check/newskin.h"

#include "core/commanddispatcher.h"
#include "skin/skintable.h"

#include <algorithm>
#include <array>

namespace zvr {
namespace {

constexpr int margin = 8;
constexpr int leastKey = 76;
constexpr int mostKey = 140;
constexpr int keyColumns = 5;
constexpr int textHeight = 48;
constexpr int sliderHeight = 60;
constexpr int knobWidth = 44;
constexpr Size messageSize{560, 300};

struct Key {
    std::string command;
    std::string caption;
};

/// What optional elements are worth giving, by their name.
constexpr std::array<std::pair<std::string_view, std::string_view>, 11> standards{{
    {"font-face", "Roboto"},
    {"font-size", "18"},
    {"row-height", "52"},
    {"font-color", "#F1F4F6"},
    {"background-color", "#14181B"},
    {"background-color-alt", "#191E22"},
    {"selection-font-color", "#FFFFFF"},
    {"selection-background-color", "#84461B"},
    {"slider-width", "44"},
    {"slider-image", "images/knob.png"},
    {"align", "left"},
}};

std::string Tagged(std::string_view name, const std::string& value, int depth) {
    const std::string tag(name);
    return std::string(static_cast<std::size_t>(depth) * 2, ' ') + "<" + tag + ">" + value + "</" + tag + ">\n";
}

std::string Group(std::string_view name, const std::string& inside, int depth) {
    const std::string blanks(static_cast<std::size_t>(depth) * 2, ' ');
    return Tagged(name, "\n" + inside + blanks, depth);
}

std::string PlaceXml(const Rect& place, int depth) {
    return Tagged("posx", std::to_string(place.x), depth) + Tagged("posy", std::to_string(place.y), depth) +
           Tagged("width", std::to_string(place.width), depth) + Tagged("height", std::to_string(place.height), depth);
}

bool IsPlaced(const SkinPart& part) {
    return part.area == SkinArea::touched || part.area == SkinArea::covers;
}

class Drawer {
public:
    explicit Drawer(Size screen) : screen(screen), keyHeight(std::clamp(screen.height / 6, leastKey, mostKey)) {}

    NewSkin Draw() {
        std::string inside =
            Group("about", Tagged("for-app-version", SkinVersionTaken(), 2), 1) +
            Group("general",
                  Tagged("width", std::to_string(screen.width), 2) + Tagged("height", std::to_string(screen.height), 2),
                  1);
        const auto forms = SkinForms();
        std::for_each(forms.rbegin(), forms.rend(), [&](const SkinFormRow& row) { inside += FormXml(row); });
        skin.data = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + Group("skin", inside, 0);
        skin.pictures.push_back({"images/knob.png", {knobWidth, sliderHeight}, "", false});
        return std::move(skin);
    }

private:
    std::string FormXml(const SkinFormRow& row) {
        const std::string form(row.name);
        const bool bar = form.starts_with("quickbar");
        const Size size = bar                   ? Size{screen.width, keyHeight + 2 * margin}
                          : !row.needed.empty() ? Size{std::min(screen.width, messageSize.width),
                                                       std::min(screen.height, messageSize.height)}
                                                : screen;
        std::string inside = Tagged("background-color", "#14181B", 2);
        for (const SkinPart& part : SkinParts()) {
            if (part.form == form && part.area == SkinArea::box) {
                inside += BoxXml(part, size);
            }
        }
        const std::vector<Key> keys = KeysOf(row);
        const int columns = std::min(keyColumns, static_cast<int>(keys.size()));
        const int rows = (static_cast<int>(keys.size()) + columns - 1) / columns;
        const int top = size.height - rows * (keyHeight + margin);
        inside += PartsXml(form, {margin, margin, size.width - 2 * margin, top - 2 * margin});
        inside += Group("buttons", KeysXml(form, keys, {margin, top, size.width - margin, keyHeight}, columns), 2);
        inside += Group("labels", LabelsXml(form, {margin, margin, size.width - 2 * margin, textHeight}), 2);
        return Group(form, inside, 1);
    }

    static std::string BoxXml(const SkinPart& part, Size size) {
        std::string xml;
        for (const SkinElement& element : part.elements) {
            xml += Tagged(element.name, std::to_string(element.name == "width" ? size.width : size.height), 2);
        }
        return xml;
    }

    /// The parts share what the boxes and sliders leave.
    static std::string PartsXml(const std::string& form, Rect room) {
        const auto fixed = [](const SkinPart& part) {
            return part.path.ends_with("slider") ? sliderHeight : part.title == "Text boxes" ? textHeight : 0;
        };
        int sharing = 0;
        int left = room.height;
        for (const SkinPart& part : SkinParts()) {
            if (part.form == form && IsPlaced(part)) {
                left -= fixed(part) + margin;
                sharing += fixed(part) == 0 ? 1 : 0;
            }
        }
        std::string xml;
        std::string group;  // elements of the parts that lie in one more element
        std::string_view groupName;
        for (const SkinPart& part : SkinParts()) {
            if (part.form != form || part.area == SkinArea::box) {
                continue;
            }
            std::string inside;
            if (IsPlaced(part)) {
                room.height = fixed(part) > 0 ? fixed(part) : left / sharing;
                inside = PlaceXml(room, 3);
                room.y += room.height + margin;
            }
            inside += ValuesXml(part);
            if (const auto slash = part.path.find('/'); inside.empty() || slash == part.path.npos) {
                xml += inside.empty() ? "" : Group(part.path, inside, 2);
            } else {
                groupName = part.path.substr(0, slash);
                group += Group(part.path.substr(slash + 1), inside, 2);
            }
        }
        return xml + (group.empty() ? "" : Group(groupName, group, 2));
    }

    /// Of a part without a place only the colours that would be black.
    static std::string ValuesXml(const SkinPart& part) {
        std::string xml;
        for (const SkinElement& element : part.elements) {
            const auto standard = std::find_if(standards.begin(), standards.end(),
                                               [&element](const auto& pair) { return pair.first == element.name; });
            if (standard != standards.end() && (IsPlaced(part) || element.value.kind == SkinKind::color)) {
                xml += Tagged(element.name, std::string(standard->second), 3);
            }
        }
        return xml;
    }

    static std::vector<Key> KeysOf(const SkinFormRow& row) {
        const std::string form(row.name);
        std::vector<Key> keys;
        if (form == "mainmenu") {
            for (const SkinFormRow& other : SkinForms()) {
                if (other.leads && !other.name.starts_with("quickbar")) {
                    keys.push_back({std::string(other.name) + ".show", std::string(other.name)});
                }
            }
            keys.push_back({"app.exit", "exit"});
        } else if (!row.needed.empty()) {
            for (const std::string_view needed : row.needed) {
                keys.push_back({std::string(needed), std::string(needed.substr(needed.find('.') + 1))});
            }
        } else if (form.starts_with("quickbar")) {
            const bool known = IsKnownCommand("externalapps.backtomainmenu");
            keys.push_back({known ? "externalapps.backtomainmenu" : "mainmenu.show", "menu"});
        } else {
            keys.push_back({"app.goback", "back"});
            const auto families = ScrollFamilies();
            if (std::any_of(families.begin(), families.end(), [&](const auto& row) { return row.module == form; })) {
                keys.push_back({form + ".scrollup", "up"});
                keys.push_back({form + ".scrolldown", "down"});
            }
            if (form == "mediaplayer") {
                keys.push_back({"mediaplayer.listselect", "open"});
                keys.push_back({"mediaplayer.playpausetoggle", "play"});
            }
        }
        return keys;
    }

    std::string KeysXml(const std::string& form, const std::vector<Key>& keys, Rect room, int columns) {
        const int width = room.width / columns - margin;
        std::string xml;
        int number = 0;
        for (const Key& key : keys) {
            const int x = room.x + number % columns * (width + margin);
            const int y = room.y + number / columns * (keyHeight + margin);
            const std::string image = "images/" + form + "-" + key.caption;
            skin.pictures.push_back({image + ".png", {width, keyHeight}, key.caption, false});
            skin.pictures.push_back({image + "-down.png", {width, keyHeight}, key.caption, true});
            xml += Group("key-" + key.caption,
                         Tagged("posx", std::to_string(x), 4) + Tagged("posy", std::to_string(y), 4) +
                             Tagged("command", key.command, 4) + Tagged("normal-image", image + ".png", 4) +
                             Tagged("active-image", image + "-down.png", 4),
                         3);
            ++number;
        }
        return xml;
    }

    static std::string LabelsXml(const std::string& form, Rect place) {
        const std::string text = form == "mainmenu"     ? "**TIME_SHORT**"
                                 : form == "messagebox" ? "**MESSAGEBOXTEXT**"
                                                        : "";
        if (text.empty()) {
            return {};
        }
        return Group("text",
                     PlaceXml(place, 4) + Tagged("text", text, 4) + Tagged("shadow-distance", "0", 4) +
                         Tagged("font-face", "Roboto", 4) + Tagged("font-size", "18", 4) +
                         Tagged("font-color", "#F1F4F6", 4) + Tagged("align", "center", 4),
                     3);
    }

    const Size screen;
    const int keyHeight;
    NewSkin skin;
};

}  // namespace

NewSkin SmallestSkin(Size screen) {
    return Drawer(screen).Draw();
}

}  // namespace zvr
