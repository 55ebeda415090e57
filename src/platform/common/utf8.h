#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zvr::utf8 {

struct Character {
    std::int32_t code = 0;   ///< code point, or -1 for a byte that belongs to no valid sequence
    std::size_t length = 0;  ///< in bytes; 1 for an invalid byte
};

/// The character at byte `at`, which must lie inside of the text.
[[nodiscard]] Character At(std::string_view text, std::size_t at);

[[nodiscard]] bool IsValid(std::string_view text);

/// Every byte read as the character of that number.
[[nodiscard]] std::string FromLatin1(std::string_view bytes);

}  // namespace zvr::utf8
