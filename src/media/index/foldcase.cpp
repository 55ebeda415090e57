#include "media/index/foldcase.h"

#include "platform/characters.h"

#include <array>

namespace zvr {
namespace {

int Utf8Length(std::int32_t code) {
    return code < 0x80 ? 1 : code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
}

std::int32_t Fold(std::int32_t code) {
    // By way of the capital: the Greek sigma has two small letters, and so has the Turkish I.
    const std::int32_t small = text::SmallLetter(text::CapitalLetter(code));
    if (Utf8Length(small) > Utf8Length(code)) {
        return code;
    }
    // The small one of such a pair becomes the shorter capital, then.
    const std::int32_t capital = text::CapitalLetter(small);
    const bool pairIsLonger = Utf8Length(capital) < Utf8Length(small) && text::SmallLetter(capital) == small;
    return pairIsLonger ? capital : small;
}

/// Latin, Greek, Cyrillic and the other scripts of two bytes: a look-up each would make a third of a large index's
/// read.
constexpr std::size_t tableSize = 0x800;

std::array<std::int16_t, tableSize> MakeTable() {
    std::array<std::int16_t, tableSize> table{};
    for (std::size_t code = 0; code < tableSize; ++code) {
        table[code] = static_cast<std::int16_t>(Fold(static_cast<std::int32_t>(code)));
    }
    return table;
}

/// Chinese, Japanese, Korean: no letter of theirs has a case.
bool HasNoCase(std::int32_t code) {
    return (code >= 0x2E80 && code < 0xA640) || (code >= 0xAC00 && code < 0xF900);
}

}  // namespace

std::int32_t FoldedLetter(std::int32_t code) {
    static const std::array<std::int16_t, tableSize> table = MakeTable();
    if (code < static_cast<std::int32_t>(tableSize)) {
        return table[static_cast<std::size_t>(code)];
    }
    return HasNoCase(code) ? code : Fold(code);
}

std::string FoldedText(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const text::Character character = text::CharacterAt(text, at);
        if (character.code < 0) {
            folded += text[at];
        } else {
            text::AppendCharacter(folded, FoldedLetter(character.code));
        }
        at += character.length;
    }
    return folded;
}

}  // namespace zvr
