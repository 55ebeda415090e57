#include "platform/xml.h"

#include "platform/common/utf8.h"
#include "platform/files.h"

#include <pugixml.hpp>

#include <unordered_map>

namespace zvr {
namespace {

constexpr std::size_t largestFile = 16U << 20U;

pugi::xml_node NodeOf(void* node) {
    return pugi::xml_node(static_cast<pugi::xml_node_struct*>(node));
}

/// The next node in document order inside of `top`, or none. Walking so needs no stack: files may nest deeply.
pugi::xml_node Next(pugi::xml_node node, pugi::xml_node top) {
    if (const pugi::xml_node child = node.first_child()) {
        return child;
    }
    while (node != top) {
        if (const pugi::xml_node sibling = node.next_sibling()) {
            return sibling;
        }
        node = node.parent();
    }
    return {};
}

bool IsText(pugi::xml_node node) {
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

/// One element at the top and no text beside it.
bool HasOneRoot(const pugi::xml_document& document) {
    int elements = 0;
    for (const pugi::xml_node node : document.children()) {
        if (IsText(node)) {
            return false;
        }
        elements += node.type() == pugi::node_element ? 1 : 0;
    }
    return elements == 1;
}

/// False if a text refers to a character that doesn't exist: the parser takes any number.
bool HasValidTexts(const pugi::xml_document& document) {
    for (pugi::xml_node node = Next(document, document); node; node = Next(node, document)) {
        if (IsText(node) && !utf8::IsValid(node.value())) {
            return false;
        }
    }
    return true;
}

/// True if the text is well formed; else `fault` is where it isn't, if that can be told.
bool ParseInto(pugi::xml_document& document, std::string_view text, std::ptrdiff_t& fault) {
    // As a fragment, so that text beside the root is seen here and not skipped.
    constexpr unsigned options = pugi::parse_default | pugi::parse_fragment;
    pugi::xml_encoding encoding = pugi::encoding_latin1;
    if (text.starts_with("\xFF\xFE")) {
        encoding = pugi::encoding_utf16_le;
    } else if (text.starts_with("\xFE\xFF")) {
        encoding = pugi::encoding_utf16_be;
    } else if (text.find('\0') != text.npos) {
        return false;  // the parser takes it for the end
    } else if (utf8::IsValid(text)) {
        encoding = pugi::encoding_utf8;
    }
    // Appending, unlike loading, leaves an element's place unknown: in the recoded text it is another one.
    const pugi::xml_parse_result result = encoding == pugi::encoding_utf8
                                              ? document.load_buffer(text.data(), text.size(), options, encoding)
                                              : document.append_buffer(text.data(), text.size(), options, encoding);
    if (!result && encoding == pugi::encoding_utf8) {
        fault = result.offset;
    }
    return result && HasOneRoot(document) && HasValidTexts(document);
}

/// True if the element and its ancestors bear the names of the path, read from its end.
bool Fits(pugi::xml_node element, std::string_view path) {
    while (true) {
        const std::size_t slash = path.rfind('/');
        const std::string_view name = slash == path.npos ? path : path.substr(slash + 1);
        if (element.type() != pugi::node_element || name != element.name()) {
            return false;
        }
        if (slash == path.npos) {
            return true;
        }
        path = path.substr(0, slash);
        element = element.parent();
    }
}

}  // namespace

struct XmlDocument::State {
    /// An element's name, with its parent's or an empty one. Many elements are called "posx", few in a "medialist".
    struct Names {
        std::string_view parent;
        std::string_view own;
        bool operator==(const Names&) const = default;
    };
    struct Hash {
        std::size_t operator()(const Names& names) const {
            const std::hash<std::string_view> hash;
            return hash(names.own) * 31 + hash(names.parent);
        }
    };

    pugi::xml_document document;
    std::ptrdiff_t fault = -1;
    /// Elements in document order; made when first asked, since a skin is asked hundreds of times.
    std::unordered_map<Names, std::vector<pugi::xml_node_struct*>, Hash> byNames;

    void FillByNames() {
        for (pugi::xml_node node = Next(document, document); node; node = Next(node, document)) {
            if (node.type() == pugi::node_element) {
                byNames[{"", node.name()}].push_back(node.internal_object());
                byNames[{node.parent().name(), node.name()}].push_back(node.internal_object());
            }
        }
    }
};

std::string XmlElement::Name() const {
    return NodeOf(node).name();
}

std::string XmlElement::Text() const {
    const pugi::xml_node top = NodeOf(node);
    std::string text;
    for (pugi::xml_node inner = top ? Next(top, top) : top; inner; inner = Next(inner, top)) {
        if (IsText(inner)) {
            text += inner.value();
        }
    }
    return text;
}

std::vector<XmlElement> XmlElement::Children() const {
    std::vector<XmlElement> children;
    for (const pugi::xml_node child : NodeOf(node).children()) {
        if (child.type() == pugi::node_element) {
            children.push_back(XmlElement(child.internal_object()));
        }
    }
    return children;
}

XmlElement XmlElement::Child(std::string_view name) const {
    for (const pugi::xml_node child : NodeOf(node).children()) {
        if (child.type() == pugi::node_element && name == child.name()) {
            return XmlElement(child.internal_object());
        }
    }
    return {};
}

std::ptrdiff_t XmlElement::Offset() const {
    const std::ptrdiff_t ofName = NodeOf(node).offset_debug();
    return ofName > 0 ? ofName - 1 : -1;
}

XmlDocument::XmlDocument() : state(std::make_unique<State>()) {}
XmlDocument::~XmlDocument() = default;
XmlDocument::XmlDocument(XmlDocument&&) noexcept = default;
XmlDocument& XmlDocument::operator=(XmlDocument&&) noexcept = default;

XmlDocument XmlDocument::Load(const std::string& path) {
    return Parse(files::Read(path, largestFile).value_or(""));
}

XmlDocument XmlDocument::Parse(std::string_view text) {
    XmlDocument parsed;
    // A fault leaves the tree up to it in the document.
    if (text.size() > largestFile || !ParseInto(parsed.state->document, text, parsed.state->fault)) {
        parsed.state->document.reset();
    }
    return parsed;
}

bool XmlDocument::IsEmpty() const {
    return state == nullptr || !state->document.first_child();
}

XmlElement XmlDocument::Root() const {
    if (IsEmpty()) {
        return {};
    }
    for (const pugi::xml_node node : state->document.children()) {
        if (node.type() == pugi::node_element) {
            return XmlElement(node.internal_object());
        }
    }
    return {};
}

std::ptrdiff_t XmlDocument::FaultOffset() const {
    return state == nullptr ? -1 : state->fault;
}

XmlElement XmlDocument::First(std::string_view path) const {
    if (path.starts_with("//")) {
        path.remove_prefix(2);
    }
    if (IsEmpty()) {
        return {};
    }
    if (state->byNames.empty()) {
        state->FillByNames();
    }
    const std::size_t slash = path.rfind('/');
    State::Names names{"", path};
    if (slash != path.npos) {
        const std::size_t before = slash == 0 ? path.npos : path.rfind('/', slash - 1);
        names.own = path.substr(slash + 1);
        names.parent = path.substr(before + 1, slash - before - 1);
    }
    const auto found = state->byNames.find(names);
    if (found != state->byNames.end()) {
        for (pugi::xml_node_struct* element : found->second) {
            if (Fits(pugi::xml_node(element), path)) {
                return XmlElement(element);
            }
        }
    }
    return {};
}

}  // namespace zvr
