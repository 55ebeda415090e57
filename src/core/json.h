#pragma once

#include "ui/geometry.h"

#include <string>
#include <string_view>

namespace zvr {

/// Writes JSON text: commas and quoting are seen to, the order of calls is the caller's.
class JsonWriter {
public:
    std::string text;

    void BeginObject() { Begin('{'); }
    void EndObject() { End('}'); }
    void BeginList() { Begin('['); }
    void EndList() { End(']'); }
    void Key(std::string_view name) {
        String(name);
        text += ':';
        first = true;
    }
    void String(std::string_view value);
    void Number(long value) { Plain(std::to_string(value)); }
    void Boolean(bool value) { Plain(value ? "true" : "false"); }
    void Null() { Plain("null"); }

private:
    void Begin(char bracket) {
        Comma();
        text += bracket;
        first = true;
    }
    void End(char bracket) {
        text += bracket;
        first = false;
    }
    void Plain(std::string_view value) {
        Comma();
        text += value;
    }
    void Comma() {
        if (!first) {
            text += ',';
        }
        first = false;
    }

    bool first = true;
};

/// Its four members, into the object that is open.
void WritePlace(JsonWriter& json, Rect place);

}  // namespace zvr
