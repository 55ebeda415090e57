#include "target.h"

#include "platform/xml.h"

#include <string>
#include <string_view>
#include <vector>

using namespace zvr;

namespace {

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        escaped += c == '<' || c == '&' || c == '\r' || c == ']' ? "&#" + std::to_string(c) + ";" : std::string(1, c);
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
void zvr::Try(std::string_view input) {
    const XmlDocument document = XmlDocument::Parse(input);
    if (document.IsEmpty()) {
        return;
    }
    (void)document.First(input.substr(0, input.find('>')));
    (void)document.First("//general/width");
    const XmlElement root = document.First("general") ? document.First("general") : document.First("r");
    if (!root) {
        return;
    }
    for (const XmlElement& element : Elements(root)) {
        const std::string name(element.Name());
        Require(name.find('/') != name.npos || document.First(name).Name() == name);
        Require(element.Line() >= 1 && static_cast<std::size_t>(element.Line()) <= input.size() + 1);
        const std::string text(element.Text());
        const bool blank = text.find_first_not_of(" \t\r\n") == text.npos;
        Require(blank || text.find('\0') != text.npos ||
                XmlDocument::Parse("<t>" + Escaped(text) + "</t>").First("t").Text() == text);
    }
}
