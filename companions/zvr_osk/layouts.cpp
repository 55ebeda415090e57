#include "zvr_osk/layouts.h"

#include "platform/characters.h"

#include <algorithm>
#include <string>

namespace zvr::osk {
namespace {

constexpr std::array layouts{
    Layout{"EN", "en", {U"qwertyuiop", U"asdfghjkl", U"zxcvbnm"}},
    Layout{"DE", "de", {U"qwertzuiopü", U"asdfghjklöä", U"yxcvbnmß"}},
};
constexpr std::array<std::u32string_view, 3> signs{U"1234567890", U"-_'&()!?@#", U"+=%:;/"};
constexpr double signColumns = 10;

struct Alternatives {
    char32_t sign;
    std::u32string_view others;
};
constexpr std::array alternatives{
    Alternatives{U'a', U"äàáâãåæ"}, Alternatives{U'c', U"çćč"},  Alternatives{U'e', U"éèê€ëę"},
    Alternatives{U'i', U"íìîï"},    Alternatives{U'l', U"ł"},    Alternatives{U'n', U"ñń"},
    Alternatives{U'o', U"öóòôõøœ"}, Alternatives{U's', U"ßśš"},  Alternatives{U'u', U"üúùû"},
    Alternatives{U'y', U"ýÿ"},      Alternatives{U'z', U"žźż"},  Alternatives{U'-', U"–~"},
    Alternatives{U'\'', U"\"`´"},   Alternatives{U'&', U"$€£§"}, Alternatives{U'(', U"[{<"},
    Alternatives{U')', U"]}>"},     Alternatives{U'!', U"¡"},    Alternatives{U'?', U"¿"},
    Alternatives{U'#', U"^°"},      Alternatives{U'+', U"*×"},   Alternatives{U'=', U"≠"},
    Alternatives{U'/', U"\\|"},     Alternatives{U'%', U"‰"},    Alternatives{U'.', U"…"},
};

std::vector<Key> KeysOf(std::u32string_view line) {
    std::vector<Key> keys;
    for (const char32_t sign : line) {
        keys.push_back({Act::sign, sign});
    }
    return keys;
}

void Enclose(std::vector<Key>& row, Key first, Key last) {
    row.insert(row.begin(), first);
    row.push_back(last);
}

std::vector<Key> FootRow(double columns) {
    const bool roomy = columns > signColumns;
    const double outer = roomy ? 1.5 : 1.25;
    const double enter = roomy ? outer : outer + 0.25;
    constexpr double inner = 5;
    return {{Act::page, 0, outer}, {Act::layout}, {Act::sign, U','}, {Act::sign, U' ', columns - outer - enter - inner},
            {Act::sign, U'.'},     {Act::edge},   {Act::hide},       {Act::enter, 0, enter}};
}

}  // namespace

std::span<const Layout> Layouts() {
    return layouts;
}

std::size_t LayoutOfLanguage(std::string_view language) {
    const auto found = std::find_if(layouts.begin(), layouts.end(),
                                    [&](const Layout& layout) { return language.starts_with(layout.language); });
    return found == layouts.end() ? 0 : static_cast<std::size_t>(found - layouts.begin());
}

KeyRows RowsOf(const Layout& layout, Page page) {
    KeyRows all;
    const bool letters = page == Page::letters;
    all.columns = letters ? static_cast<double>(layout.letters[0].size()) : signColumns;
    for (std::size_t i = 0; i < 3; ++i) {
        all.rows[i] = KeysOf(letters ? layout.letters[i] : signs[i]);
    }
    if (letters) {
        if (const double rest = all.columns - static_cast<double>(all.rows[1].size()); rest > 0) {
            Enclose(all.rows[1], {Act::nothing, 0, rest / 2}, {Act::nothing, 0, rest / 2});
        }
        const double side = (all.columns - static_cast<double>(all.rows[2].size())) / 2;
        Enclose(all.rows[2], {Act::shift, 0, side}, {Act::backspace, 0, side});
    } else {
        Enclose(all.rows[2], {Act::right}, {Act::backspace, 0, 2});
        all.rows[2].insert(all.rows[2].begin(), {Act::left});
    }
    all.rows[3] = FootRow(all.columns);
    return all;
}

std::u32string_view AlternativesOf(char32_t sign) {
    const auto found = std::find_if(alternatives.begin(), alternatives.end(),
                                    [sign](const Alternatives& row) { return row.sign == sign; });
    return found == alternatives.end() ? std::u32string_view() : found->others;
}

std::u32string SignsOf(const Layout& layout) {
    std::u32string all = U" ,.";
    for (const std::u32string_view row : signs) {
        all += row;
    }
    for (const std::u32string_view row : layout.letters) {
        for (const char32_t sign : row) {
            all += sign;
            if (const auto capital = static_cast<char32_t>(text::CapitalLetter(static_cast<std::int32_t>(sign)));
                capital != sign) {
                all += capital;
            }
        }
    }
    return all;
}

}  // namespace zvr::osk
