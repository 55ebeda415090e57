#include "platform/xml.h"

#include "platform/files.h"

#include <expat.h>

#include <algorithm>
#include <unordered_map>

namespace zvr {
namespace {

constexpr XmlLimits fileLimits;
constexpr const char* undefined = "undefined entity ";
constexpr const char* instead = ": write the character itself, or its number such as &#160;";
constexpr std::uint32_t none = 0xFFFFFFFF;

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

}  // namespace

/// The elements of a document, in its order. All text stands in one string, so that an element's is a piece of it.
struct XmlTree {
    struct Node {
        std::uint32_t name;  ///< into `names`
        std::uint32_t parent;
        std::uint32_t firstChild = none;
        std::uint32_t sibling = none;
        std::uint32_t nextAlike = none;  ///< the next one of its name whose parent is called alike
        std::uint32_t textBegin = 0;
        std::uint32_t textEnd = 0;
        std::uint32_t firstAttribute = 0;  ///< its own end where the next node's begin
        std::int32_t line = 0;
    };
    struct Attribute {
        std::uint32_t name;  ///< into `names`
        std::uint32_t valueBegin;
        std::uint32_t valueEnd;
    };
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };
    /// First and last element of one name below parents of one name.
    struct Alike {
        std::uint32_t first;
        std::uint32_t last;
    };

    std::vector<Node> nodes;
    std::string text;
    std::vector<Attribute> attributes;    ///< in the order of the nodes
    std::string values;                   ///< of the attributes
    std::vector<std::string_view> names;  ///< into the keys below
    std::unordered_map<std::string, std::uint32_t, Hash, std::equal_to<>> nameNumbers;
    std::unordered_map<std::uint64_t, Alike> alike;  ///< by parent's name and own
    XmlFault fault;

    [[nodiscard]] std::uint32_t NumberOf(std::string_view name) const {
        const auto found = nameNumbers.find(name);
        return found == nameNumbers.end() ? none : found->second;
    }
    std::uint32_t NumberOfNew(std::string_view name) {
        const auto known = nameNumbers.emplace(name, static_cast<std::uint32_t>(names.size())).first;
        names.push_back(known->first);
        return known->second;
    }
    static std::uint64_t Pair(std::uint32_t parentName, std::uint32_t name) {
        return std::uint64_t{parentName} << 32U | name;
    }
    [[nodiscard]] std::uint32_t NameOf(std::uint32_t node) const { return node == none ? none : nodes[node].name; }
};

namespace {

/// Fills a tree from what the parser reports.
class TreeBuilder {
public:
    TreeBuilder(XmlTree& tree, std::string_view source, const XmlLimits& limits)
        : tree(tree), source(source), limits(limits) {}

    /// False, and told in the tree's fault, if the source is not well formed. `encoding` null: the one that it names.
    bool Build(const char* encoding) {
        const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> owner(XML_ParserCreate(encoding),
                                                                                 XML_ParserFree);
        parser = owner.get();
        if (parser == nullptr) {
            tree.fault.reason = "out of memory";
            return false;
        }
        XML_SetUserData(parser, this);
        XML_SetElementHandler(
            parser,
            [](void* self, const char* name, const char** attributes) noexcept { Of(self).Begin(name, attributes); },
            [](void* self, const char*) noexcept { Of(self).End(); });
        XML_SetCharacterDataHandler(parser, [](void* self, const char* text, int length) noexcept {
            Of(self).Add({text, static_cast<std::size_t>(length)});
        });
        // What stands in another file is not fetched, and what may be defined there is not guessed.
        XML_SetExternalEntityRefHandler(
            parser, [](XML_Parser, const char*, const char*, const char*, const char*) noexcept -> int { return 0; });
        XML_SetSkippedEntityHandler(parser, [](void* self, const char* name, int) noexcept {
            Of(self).Stop(undefined + std::string("&") + name + ";" + instead);
        });
        XML_SetUnknownEncodingHandler(
            parser,
            [](void* self, const char* name, XML_Encoding*) noexcept -> int {
                static_cast<TreeBuilder*>(self)->unknownEncoding = name;
                return 0;
            },
            this);
        if (XML_Parse(parser, source.data(), static_cast<int>(source.size()), 1) == XML_STATUS_OK) {
            return true;
        }
        tree.fault.line = static_cast<int>(XML_GetCurrentLineNumber(parser));
        tree.fault.reason = Reason();
        return false;
    }

private:
    static TreeBuilder& Of(void* self) { return *static_cast<TreeBuilder*>(self); }

    void Begin(const char* name, const char** attributes) {
        DropBlanks();
        if (tree.nodes.size() == limits.elements) {
            Stop(tooMuchInside);
            return;
        }
        const std::uint32_t own = NumberOf(name);
        const auto number = static_cast<std::uint32_t>(tree.nodes.size());
        const auto at = static_cast<std::uint32_t>(tree.text.size());
        tree.nodes.push_back({own, open, none, none, none, at, at, static_cast<std::uint32_t>(tree.attributes.size()),
                              static_cast<std::int32_t>(XML_GetCurrentLineNumber(parser))});
        for (; *attributes != nullptr; attributes += 2) {
            AddAttribute(attributes[0], attributes[1]);
        }
        if (open != none) {
            (lastChild == none ? tree.nodes[open].firstChild : tree.nodes[lastChild].sibling) = number;
        }
        const auto [entry, first] =
            tree.alike.try_emplace(XmlTree::Pair(tree.NameOf(open), own), XmlTree::Alike{number, number});
        if (!first) {
            tree.nodes[entry->second.last].nextAlike = number;
            entry->second.last = number;
        }
        open = number;
        lastChild = none;
        pieceBegin = tree.text.size();
    }

    [[nodiscard]] std::uint32_t NumberOf(const char* name) {
        const std::uint32_t known = tree.NumberOf(name);
        return known == none ? tree.NumberOfNew(name) : known;
    }

    void AddAttribute(const char* name, std::string_view value) {
        if (tree.values.size() + value.size() > limits.bytes || tree.attributes.size() == limits.elements) {
            Stop(tooMuchInside);
            return;
        }
        const auto at = static_cast<std::uint32_t>(tree.values.size());
        tree.values += value;
        tree.attributes.push_back({NumberOf(name), at, static_cast<std::uint32_t>(tree.values.size())});
    }

    void Add(std::string_view piece) {
        if (tree.text.size() + piece.size() > limits.bytes) {
            Stop(tooMuchInside);
        } else {
            tree.text += piece;
        }
    }

    void End() {
        if (!stopped.empty()) {
            return;  // the parser ends what it has begun
        }
        DropBlanks();
        tree.nodes[open].textEnd = static_cast<std::uint32_t>(tree.text.size());
        lastChild = open;
        open = tree.nodes[open].parent;
        pieceBegin = tree.text.size();
    }

    /// Blanks alone between two tags are how a file is laid out, no text.
    void DropBlanks() {
        if (std::all_of(tree.text.begin() + static_cast<std::ptrdiff_t>(pieceBegin), tree.text.end(), IsBlank)) {
            tree.text.resize(pieceBegin);
        }
    }

    void Stop(std::string reason) {
        stopped = std::move(reason);
        XML_StopParser(parser, XML_FALSE);
    }

    [[nodiscard]] std::string Reason() const {
        const XML_Error error = XML_GetErrorCode(parser);
        if (error == XML_ERROR_UNKNOWN_ENCODING) {
            return "the encoding " + unknownEncoding + " is not read; write the file as UTF-8";
        }
        if (error == XML_ERROR_ABORTED) {
            return stopped;
        }
        const auto at = static_cast<std::size_t>(std::max<XML_Index>(0, XML_GetCurrentByteIndex(parser)));
        const std::string_view rest = source.substr(std::min(at, source.size()));
        if (error == XML_ERROR_UNDEFINED_ENTITY) {
            return undefined + std::string(rest.substr(0, std::min<std::size_t>(rest.find(';'), 40) + 1)) + instead;
        }
        const bool bareAnd = at > 0 && at <= source.size() && (source[at - 1] == '&' || rest.starts_with('&'));
        const std::string hint = bareAnd ? ": & is written &amp;" : "";
        return XML_ErrorString(error) + hint;
    }

    static constexpr const char* tooMuchInside = "what its entities stand for makes it too large";

    XmlTree& tree;
    const std::string_view source;
    const XmlLimits& limits;
    XML_Parser parser = nullptr;
    std::uint32_t open = none;       ///< the element that is being read
    std::uint32_t lastChild = none;  ///< of it
    std::size_t pieceBegin = 0;      ///< of the text since the last tag
    std::string unknownEncoding;
    std::string stopped;  ///< why
};

/// True if the element and its ancestors bear the names of the path, read from its end.
bool Fits(const XmlTree& tree, std::uint32_t node, std::string_view path) {
    while (node != none) {
        const std::size_t slash = path.rfind('/');
        if (tree.names[tree.nodes[node].name] != (slash == path.npos ? path : path.substr(slash + 1))) {
            return false;
        }
        if (slash == path.npos) {
            return true;
        }
        path = path.substr(0, slash);
        node = tree.nodes[node].parent;
    }
    return false;
}

}  // namespace

std::string_view XmlElement::Name() const {
    return tree == nullptr ? std::string_view() : tree->names[tree->nodes[node].name];
}

std::string_view XmlElement::Text() const {
    if (tree == nullptr) {
        return {};
    }
    const XmlTree::Node& own = tree->nodes[node];
    return std::string_view(tree->text).substr(own.textBegin, own.textEnd - own.textBegin);
}

std::vector<XmlElement> XmlElement::Children() const {
    std::vector<XmlElement> children;
    for (std::uint32_t child = tree == nullptr ? none : tree->nodes[node].firstChild; child != none;
         child = tree->nodes[child].sibling) {
        children.push_back(XmlElement(*tree, child));
    }
    return children;
}

XmlElement XmlElement::Child(std::string_view name) const {
    for (std::uint32_t child = tree == nullptr ? none : tree->nodes[node].firstChild; child != none;
         child = tree->nodes[child].sibling) {
        if (tree->names[tree->nodes[child].name] == name) {
            return {*tree, child};
        }
    }
    return {};
}

std::string_view XmlElement::Attribute(std::string_view name) const {
    if (tree == nullptr) {
        return {};
    }
    const std::uint32_t wanted = tree->NumberOf(name);
    const std::size_t end =
        node + 1 < tree->nodes.size() ? tree->nodes[node + 1].firstAttribute : tree->attributes.size();
    for (std::size_t i = tree->nodes[node].firstAttribute; i < end; ++i) {
        if (const XmlTree::Attribute& own = tree->attributes[i]; own.name == wanted) {
            return std::string_view(tree->values).substr(own.valueBegin, own.valueEnd - own.valueBegin);
        }
    }
    return {};
}

int XmlElement::Line() const {
    return tree == nullptr ? 0 : tree->nodes[node].line;
}

XmlDocument::XmlDocument() : tree(std::make_unique<XmlTree>()) {}
XmlDocument::~XmlDocument() = default;
XmlDocument::XmlDocument(XmlDocument&&) noexcept = default;
XmlDocument& XmlDocument::operator=(XmlDocument&&) noexcept = default;

XmlDocument XmlDocument::Load(const std::string& path) {
    files::ErrorText fault;
    const auto text = files::Read(path, fileLimits.bytes, fault);
    XmlDocument document;
    if (text) {
        return Parse(*text);
    }
    document.tree->fault.reason = fault.empty() ? "there is no such file" : fault;
    return document;
}

XmlDocument XmlDocument::Parse(std::string_view text) {
    return Read(text, fileLimits, nullptr);
}

XmlDocument XmlDocument::ParseUtf8(std::string_view text, const XmlLimits& limits) {
    return Read(text, limits, "UTF-8");
}

XmlDocument XmlDocument::Read(std::string_view text, const XmlLimits& limits, const char* encoding) {
    XmlDocument parsed;
    if (text.size() > limits.bytes) {
        parsed.tree->fault.reason = "larger than " + std::to_string(limits.bytes >> 20U) + " MB";
        return parsed;
    }
    parsed.tree->text.reserve(text.size() / 4);
    if (!TreeBuilder(*parsed.tree, text, limits).Build(encoding)) {
        XmlFault fault = std::move(parsed.tree->fault);
        parsed.tree = std::make_unique<XmlTree>();
        parsed.tree->fault = std::move(fault);
    }
    return parsed;
}

bool XmlDocument::IsEmpty() const {
    return tree == nullptr || tree->nodes.empty();
}

XmlElement XmlDocument::Root() const {
    return IsEmpty() ? XmlElement() : XmlElement(*tree, 0);
}

const XmlFault& XmlDocument::Fault() const {
    return tree->fault;
}

XmlElement XmlDocument::First(std::string_view path) const {
    if (path.starts_with("//")) {
        path.remove_prefix(2);
    }
    if (IsEmpty()) {
        return {};
    }
    const std::size_t slash = path.rfind('/');
    const std::uint32_t own = tree->NumberOf(slash == path.npos ? path : path.substr(slash + 1));
    if (own == none) {
        return {};
    }
    if (slash == path.npos) {
        const auto found = std::find_if(tree->nodes.begin(), tree->nodes.end(),
                                        [own](const XmlTree::Node& node) { return node.name == own; });
        return {*tree, static_cast<std::uint32_t>(found - tree->nodes.begin())};
    }
    const std::size_t before = slash == 0 ? path.npos : path.rfind('/', slash - 1);
    const std::uint32_t parent = tree->NumberOf(path.substr(before + 1, slash - before - 1));
    const auto alike = tree->alike.find(XmlTree::Pair(parent, own));
    if (parent == none || alike == tree->alike.end()) {
        return {};
    }
    for (std::uint32_t node = alike->second.first; node != none; node = tree->nodes[node].nextAlike) {
        if (Fits(*tree, node, path)) {
            return {*tree, node};
        }
    }
    return {};
}

std::vector<XmlElement> XmlDocument::All(std::string_view name) const {
    std::vector<XmlElement> found;
    const std::uint32_t own = tree->NumberOf(name);
    for (std::size_t node = 0; own != none && node < tree->nodes.size(); ++node) {
        if (tree->nodes[node].name == own) {
            found.push_back(XmlElement(*tree, static_cast<std::uint32_t>(node)));
        }
    }
    return found;
}

}  // namespace zvr
