#include "phone/modxml.h"

#include "platform/text.h"

namespace zvr {
namespace {

/// The two code points that UTF-8 can say and XML can't.
bool IsNoCharacter(std::string_view sequence) {
    return sequence.starts_with("\xEF\xBF\xBE") || sequence.starts_with("\xEF\xBF\xBF");
}

void AppendEscaped(std::string& line, std::string_view value, bool inAttribute) {
    const std::string text = text::FromUtf8OrLatin1(value);
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        switch (c) {
            case '&':
                line += "&amp;";
                break;
            case '<':
                line += "&lt;";
                break;
            case '>':
                line += "&gt;";
                break;
            case '"':
                line += inAttribute ? "&quot;" : "\"";
                break;
            case '\r':
                if (at + 1 < text.size() && text[at + 1] == '\n') {
                    ++at;
                } else {
                    line += "&#13;";  // as it stands it would end the frame
                }
                break;
            case '\t':
                line += inAttribute ? "&#9;" : "\t";
                break;
            case '\n':
                line += inAttribute ? "&#10;" : "\n";
                break;
            default:
                if (IsNoCharacter(std::string_view(text).substr(at))) {
                    at += 2;
                } else if (static_cast<unsigned char>(c) >= ' ') {
                    line += c;
                }
        }
    }
}

void Append(std::string& line, const WrittenElement& element) {
    line += '<' + element.name;
    for (const auto& [name, value] : element.attributes) {
        line += ' ' + name + "=\"";
        AppendEscaped(line, value, true);
        line += '"';
    }
    if (element.text.empty() && element.children.empty()) {
        line += "/>";
        return;
    }
    line += '>';
    AppendEscaped(line, element.text, false);
    for (const WrittenElement& child : element.children) {
        Append(line, child);
    }
    line += "</" + element.name + '>';
}

}  // namespace

WrittenElement& AddElement(std::string_view name, std::string_view text, WrittenElement& parent) {
    return parent.children.emplace_back(WrittenElement{std::string(name), std::string(text), {}, {}});
}

void AddAttribute(std::string_view name, std::string_view value, WrittenElement& element) {
    element.attributes.emplace_back(name, value);
}

std::string Serialised(const WrittenElement& element) {
    std::string line;
    Append(line, element);
    return line;
}

std::string GetAttribute(std::string_view name, const XmlElement& element) {
    std::string value(element.Attribute(name));
    if (value.size() < 2 || value[0] != '0' || text::LowerAscii(value[1]) != 'x') {
        return value;
    }
    for (std::size_t at = value.find("0x"); at != value.npos; at = value.find("0x", at + 2)) {
        value.replace(at, 2, "&H");
    }
    return value;
}

}  // namespace zvr
