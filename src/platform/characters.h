#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zvr::text {

/// One character of a text, for whoever goes through texts by himself. See text.h for whole ones.
struct Character {
    std::int32_t code = 0;   ///< code point, or -1 for a byte that belongs to no valid sequence
    std::size_t length = 0;  ///< in bytes; 1 for an invalid byte
};

/// The character at byte `at`, which must lie inside of the text.
[[nodiscard]] Character CharacterAt(std::string_view text, std::size_t at);
void AppendCharacter(std::string& text, std::int32_t code);

/// The one small or capital letter that stands for this one in every locale; any other character is its own.
[[nodiscard]] std::int32_t SmallLetter(std::int32_t code);
[[nodiscard]] std::int32_t CapitalLetter(std::int32_t code);

}  // namespace zvr::text
