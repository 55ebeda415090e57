#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

/// How a character is typed on a keyboard that others have laid out: by which of its keys, held with which others.
namespace zvr::osk {

using Symbol = std::uint32_t;  ///< a number of X's table of key symbols

inline constexpr unsigned withShift = 1;
inline constexpr unsigned withLevel3 = 2;  ///< the key that Germans call Alt Gr

struct KeyStroke {
    std::uint8_t code = 0;
    std::uint8_t group = 0;  ///< the layout, of those that the keyboard has at once
    unsigned modifiers = 0;
    friend bool operator==(const KeyStroke&, const KeyStroke&) = default;
};
struct KeyMeaning {
    KeyStroke stroke;
    Symbol symbol = 0;
};

/// The symbol of a character.
[[nodiscard]] Symbol SymbolOf(char32_t character);

/// The stroke that disturbs least: in the present group if it can be, with few modifiers.
[[nodiscard]] std::optional<KeyStroke> FindStroke(const std::vector<KeyMeaning>& meanings, Symbol symbol,
                                                  unsigned presentGroup);

/// A key that nobody uses, and what it is to mean without and with shift.
struct Binding {
    std::uint8_t code = 0;
    Symbol plain = 0;
    Symbol shifted = 0;
    friend bool operator==(const Binding&, const Binding&) = default;
};

/// Characters for keys that nobody uses. A key keeps its meaning for as long as it can: a program that is slow looks up
/// what a key means when it gets round to it, and not when the key was struck.
class SpareKeys {
public:
    void SetCodes(std::vector<std::uint8_t> codes);  ///< those that nobody uses; the next one to take first
    [[nodiscard]] std::size_t Count() const { return codes.size(); }
    /// Keys for those of the characters that have no stroke yet, a letter and its capital on one; the least recently
    /// taken first, and no more than there are.
    [[nodiscard]] std::vector<Binding> Bind(std::u32string_view characters, const std::vector<KeyMeaning>& meanings);
    void Used(std::uint8_t code);

private:
    std::vector<std::uint8_t> codes;  ///< least recently used first
};

/// How many keys the characters need beyond those that there are.
[[nodiscard]] std::size_t MissingKeys(std::u32string_view characters, const std::vector<KeyMeaning>& meanings);

}  // namespace zvr::osk
