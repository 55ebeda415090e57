#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zvr {

/// The letter that a search takes this one for: the small one. Never longer in UTF-8 than the letter itself, so that a
/// text can be folded where it lies.
[[nodiscard]] std::int32_t FoldedLetter(std::int32_t code);

/// A text as a search sees it. Bytes that are no UTF-8 stay as they are.
[[nodiscard]] std::string FoldedText(std::string_view text);

}  // namespace zvr
