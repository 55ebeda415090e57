#include "zvr_osk/keycodes.h"

#include "platform/characters.h"

#include <algorithm>
#include <bit>
#include <set>
#include <string>

namespace zvr::osk {
namespace {

bool IsKnown(const std::vector<KeyMeaning>& meanings, char32_t character) {
    const Symbol symbol = SymbolOf(character);
    return std::any_of(meanings.begin(), meanings.end(), [symbol](const KeyMeaning& m) { return m.symbol == symbol; });
}

/// Each letter once, in its small form, and each other character that has no key.
std::vector<char32_t> Missing(std::u32string_view characters, const std::vector<KeyMeaning>& meanings) {
    std::vector<char32_t> missing;
    for (const char32_t character : characters) {
        const auto small = static_cast<char32_t>(text::SmallLetter(static_cast<std::int32_t>(character)));
        if (!IsKnown(meanings, character) && std::find(missing.begin(), missing.end(), small) == missing.end()) {
            missing.push_back(small);
        }
    }
    return missing;
}

}  // namespace

Symbol SymbolOf(char32_t character) {
    // Latin-1 is numbered as it always was, all others by their code points.
    const bool latin1 = (character >= 0x20 && character < 0x7F) || (character >= 0xA0 && character < 0x100);
    return latin1 ? static_cast<Symbol>(character) : 0x1000000 + static_cast<Symbol>(character);
}

std::optional<KeyStroke> FindStroke(const std::vector<KeyMeaning>& meanings, Symbol symbol, unsigned presentGroup) {
    const KeyStroke* best = nullptr;
    const auto cost = [presentGroup](const KeyStroke& stroke) {
        return (stroke.group == presentGroup ? 0 : 16) + 4 * std::popcount(stroke.modifiers) +
               ((stroke.modifiers & withLevel3) != 0 ? 1 : 0);
    };
    for (const KeyMeaning& meaning : meanings) {
        if (meaning.symbol == symbol && (best == nullptr || cost(meaning.stroke) < cost(*best))) {
            best = &meaning.stroke;
        }
    }
    return best == nullptr ? std::nullopt : std::optional(*best);
}

void SpareKeys::SetCodes(std::vector<std::uint8_t> newCodes) {
    // Those that it has keep their turn.
    std::erase_if(
        codes, [&](std::uint8_t code) { return std::find(newCodes.begin(), newCodes.end(), code) == newCodes.end(); });
    std::erase_if(newCodes,
                  [&](std::uint8_t code) { return std::find(codes.begin(), codes.end(), code) != codes.end(); });
    codes.insert(codes.begin(), newCodes.begin(), newCodes.end());
}

std::vector<Binding> SpareKeys::Bind(std::u32string_view characters, const std::vector<KeyMeaning>& meanings) {
    std::vector<Binding> bindings;
    for (const char32_t small : Missing(characters, meanings)) {
        if (bindings.size() == codes.size()) {
            break;
        }
        const auto capital = static_cast<char32_t>(text::CapitalLetter(static_cast<std::int32_t>(small)));
        bindings.push_back({codes[bindings.size()], SymbolOf(small), SymbolOf(capital)});
    }
    std::rotate(codes.begin(), codes.begin() + static_cast<std::ptrdiff_t>(bindings.size()), codes.end());
    return bindings;
}

void SpareKeys::Used(std::uint8_t code) {
    if (const auto found = std::find(codes.begin(), codes.end(), code); found != codes.end()) {
        std::rotate(found, found + 1, codes.end());
    }
}

std::size_t MissingKeys(std::u32string_view characters, const std::vector<KeyMeaning>& meanings) {
    return Missing(characters, meanings).size();
}

}  // namespace zvr::osk
