#include "platform/common/utf8.h"

#include <unicode/utf8.h>

#include <algorithm>

namespace zvr::utf8 {

Character At(std::string_view text, std::size_t at) {
    const auto first = static_cast<unsigned char>(text[at]);
    if (first < 0x80) {
        return {first, 1};
    }
    const std::string_view sequence = text.substr(at, 4);
    const auto size = static_cast<std::int32_t>(sequence.size());
    std::int32_t next = 0;
    UChar32 code = 0;
    U8_NEXT(sequence.data(), next, size, code);
    // A broken sequence may count several bytes for ICU; here each of them stands for itself.
    return code < 0 ? Character{-1, 1} : Character{code, static_cast<std::size_t>(next)};
}

bool IsValid(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const Character character = At(text, at);
        if (character.code < 0) {
            return false;
        }
        at += character.length;
    }
    return true;
}

std::string FromLatin1(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x80) {
            text += byte;
        } else {
            text += static_cast<char>(0xC0U | (code >> 6U));
            text += static_cast<char>(0x80U | (code & 0x3FU));
        }
    }
    return text;
}

}  // namespace zvr::utf8
