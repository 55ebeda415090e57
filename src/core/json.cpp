#include "core/json.h"

#include "platform/text.h"

namespace zvr {

void JsonWriter::String(std::string_view value) {
    static constexpr char digits[] = "0123456789abcdef";
    Comma();
    text += '"';
    while (!value.empty()) {
        const std::string_view character = text::Mid(value, 0, 1);
        value.remove_prefix(character.size());
        const auto byte = static_cast<unsigned char>(character[0]);
        if (character == "\"" || character == "\\") {
            text += '\\';
            text += character;
        } else if (character.size() == 1 && (byte < 0x20 || byte >= 0x80)) {
            // A control character, or a byte that is no UTF-8: shown as the character of that number.
            text += "\\u00";
            text += digits[byte >> 4U];
            text += digits[byte & 15U];
        } else {
            text += character;
        }
    }
    text += '"';
}

void WritePlace(JsonWriter& json, Rect place) {
    json.Key("x");
    json.Number(place.x);
    json.Key("y");
    json.Number(place.y);
    json.Key("width");
    json.Number(place.width);
    json.Key("height");
    json.Number(place.height);
}

}  // namespace zvr
