#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zvr::osk {

/// What a key does.
enum class Act { nothing, sign, shift, backspace, page, layout, edge, hide, enter, left, right };

struct Key {
    Act act = Act::nothing;
    char32_t sign = 0;   ///< of a key that types
    double columns = 1;  ///< how wide it is
};

struct Layout {
    std::string_view name;      ///< as its key shows it
    std::string_view language;  ///< how the names of its language files begin
    std::array<std::u32string_view, 3> letters;
};

enum class Page { letters, signs };

struct KeyRows {
    double columns = 0;  ///< of each row
    std::array<std::vector<Key>, 4> rows;
};

[[nodiscard]] std::span<const Layout> Layouts();
[[nodiscard]] std::size_t LayoutOfLanguage(std::string_view language);  ///< the first one if it has none
[[nodiscard]] KeyRows RowsOf(const Layout& layout, Page page);
/// What a key of this sign goes through when it is held, after the sign itself.
[[nodiscard]] std::u32string_view AlternativesOf(char32_t sign);
/// All that the keys of a layout type without being held, of both pages, capitals too.
[[nodiscard]] std::u32string SignsOf(const Layout& layout);

}  // namespace zvr::osk
