#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

struct XmlTree;

/// An element of a parsed document. Copies refer to the same element; it and its texts are good while the document
/// lives.
class XmlElement {
public:
    XmlElement() = default;  ///< none
    [[nodiscard]] explicit operator bool() const { return tree != nullptr; }
    [[nodiscard]] std::string_view Name() const;
    [[nodiscard]] std::string_view Text() const;             ///< all text inside, of children too
    [[nodiscard]] std::vector<XmlElement> Children() const;  ///< elements only, in order
    [[nodiscard]] XmlElement Child(std::string_view name) const;
    [[nodiscard]] std::string_view Attribute(std::string_view name) const;  ///< empty if it has none of that name
    [[nodiscard]] int Line() const;  ///< that its tag begins in, from 1; 0 for none

private:
    friend class XmlDocument;
    XmlElement(const XmlTree& tree, std::uint32_t node) : tree(&tree), node(node) {}
    const XmlTree* tree = nullptr;
    std::uint32_t node = 0;
};

/// What keeps a text from being XML.
struct XmlFault {
    int line = 1;
    std::string reason;  ///< for authors, in English
};

/// What a text may be at most.
struct XmlLimits {
    std::size_t bytes = 16U << 20U;
    std::size_t elements = 4U << 20U;
};

/// A whole document, read strictly: what is not well-formed XML in UTF-8, UTF-16, Latin-1 or ASCII is no document.
class XmlDocument {
public:
    XmlDocument();
    ~XmlDocument();
    XmlDocument(XmlDocument&&) noexcept;
    XmlDocument& operator=(XmlDocument&&) noexcept;

    /// Empty (no elements at all) if the file is missing, larger than 16 MB or not well formed.
    static XmlDocument Load(const std::string& path);
    static XmlDocument Parse(std::string_view text);
    /// The same for a text that is UTF-8 whatever it calls itself.
    static XmlDocument ParseUtf8(std::string_view text, const XmlLimits& limits);
    [[nodiscard]] bool IsEmpty() const;
    [[nodiscard]] XmlElement Root() const;        ///< none if the document is empty
    [[nodiscard]] const XmlFault& Fault() const;  ///< of an empty document
    /// First element in document order at a path such as "general/width", its first part standing anywhere.
    [[nodiscard]] XmlElement First(std::string_view path) const;
    [[nodiscard]] std::vector<XmlElement> All(std::string_view name) const;  ///< of that name, in document order

private:
    static XmlDocument Read(std::string_view text, const XmlLimits& limits, const char* encoding);

    std::unique_ptr<XmlTree> tree;
};

}  // namespace zvr
