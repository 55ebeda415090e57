#include "platform/xml.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

using namespace zvr;

namespace {

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '<':
                escaped += "&lt;";
                break;
            case '&':
                escaped += "&amp;";
                break;
            case '\r':
                escaped += "&#13;";
                break;
            case ']':
                escaped += "&#93;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

/// All elements below, without recursion: a file may nest them as deep as it is long.
std::vector<XmlElement> Elements(const XmlElement& root) {
    std::vector<XmlElement> elements = {root};
    for (std::size_t i = 0; i < elements.size() && elements.size() < 1000; ++i) {
        for (const XmlElement& child : elements[i].Children()) {
            elements.push_back(child);
        }
    }
    return elements;
}

}  // namespace

// Any file at all: paths lead to what they name, and an element's text, written as XML, reads as the same text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const XmlDocument document = XmlDocument::Parse(input);
    if (document.IsEmpty()) {
        return 0;
    }
    (void)document.First(input.substr(0, input.find('>')));
    (void)document.First("//general/width");
    const XmlElement root = document.First("general") ? document.First("general") : document.First("r");
    if (!root) {
        return 0;
    }
    for (const XmlElement& element : Elements(root)) {
        const std::string name(element.Name());
        if (name.find('/') == name.npos && document.First(name).Name() != name) {
            std::abort();
        }
        if (element.Line() < 1 || static_cast<std::size_t>(element.Line()) > size + 1) {
            std::abort();
        }
        const std::string text(element.Text());
        const bool blank = text.find_first_not_of(" \t\r\n") == text.npos;
        if (!blank && text.find('\0') == text.npos &&
            XmlDocument::Parse("<t>" + Escaped(text) + "</t>").First("t").Text() != text) {
            std::abort();
        }
    }
    return 0;
}
