#pragma once

#include "platform/characters.h"

#include <string>
#include <string_view>

namespace zvr::utf8 {

using text::Character;

/// The character at byte `at`, which must lie inside of the text.
[[nodiscard]] Character At(std::string_view text, std::size_t at);

[[nodiscard]] bool IsValid(std::string_view text);

/// Every byte read as the character of that number.
[[nodiscard]] std::string FromLatin1(std::string_view bytes);

}  // namespace zvr::utf8
