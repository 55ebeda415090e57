#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// An element of a parsed document. Copies refer to the same element; good while the document lives.
class XmlElement {
public:
    XmlElement() = default;  ///< none
    [[nodiscard]] explicit operator bool() const { return node != nullptr; }
    [[nodiscard]] std::string Name() const;
    [[nodiscard]] std::string Text() const;                  ///< all text inside, of children too
    [[nodiscard]] std::vector<XmlElement> Children() const;  ///< elements only, in order
    [[nodiscard]] XmlElement Child(std::string_view name) const;
    [[nodiscard]] std::ptrdiff_t Offset() const;  ///< bytes from the start of the file, -1 if unknown

private:
    friend class XmlDocument;
    explicit XmlElement(void* node) : node(node) {}
    void* node = nullptr;
};

class XmlDocument {
public:
    XmlDocument();
    ~XmlDocument();
    XmlDocument(XmlDocument&&) noexcept;
    XmlDocument& operator=(XmlDocument&&) noexcept;

    /// Empty (no elements at all) if the file is missing, larger than 16 MB or not well formed.
    static XmlDocument Load(const std::string& path);
    static XmlDocument Parse(std::string_view text);
    [[nodiscard]] bool IsEmpty() const;
    [[nodiscard]] XmlElement Root() const;             ///< none if the document is empty
    [[nodiscard]] std::ptrdiff_t FaultOffset() const;  ///< where an empty document's text goes wrong, -1 if unknown
    /// First element in document order at a path such as "general/width", its first part standing anywhere.
    [[nodiscard]] XmlElement First(std::string_view path) const;

private:
    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr
