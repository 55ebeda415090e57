#pragma once

#include "platform/xml.h"

#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zvr {

/// An element that is being written, in no namespace.
struct WrittenElement {
    std::string name;
    std::string text;
    std::vector<std::pair<std::string, std::string>> attributes;  ///< in the order of the text
    std::deque<WrittenElement> children;                          ///< behind its text
};

/// The new child of `parent`; good until that goes.
WrittenElement& AddElement(std::string_view name, std::string_view text, WrittenElement& parent);
void AddAttribute(std::string_view name, std::string_view value, WrittenElement& element);

/// The element as one line of UTF-8: of its texts each carriage return with its line feed is left out, and what is no
/// character of XML. Bytes that aren't UTF-8 are taken for Latin-1.
[[nodiscard]] std::string Serialised(const WrittenElement& element);

/// The attribute's text, empty if the element has none of that name. One that begins with "0x" has all its "0x" turned
/// into "&H", which LeadingNumber reads as hexadecimal: in names and phone numbers too.
[[nodiscard]] std::string GetAttribute(std::string_view name, const XmlElement& element);

}  // namespace zvr
