#pragma once

#include "platform/eventloop.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zvr::text {

/// Texts are UTF-8; characters are code points. Invalid bytes count as one character each and are carried through.

[[nodiscard]] std::string Lower(std::string_view text);
[[nodiscard]] constexpr char LowerAscii(char character) {  ///< for names and keywords of plain letters
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}
[[nodiscard]] constexpr bool EqualAscii(std::string_view a, std::string_view b) {  ///< the same, without case
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}
[[nodiscard]] constexpr bool EndsWithAscii(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() && EqualAscii(text.substr(text.size() - ending.size()), ending);
}
/// What stands behind the mark that some editors put in front of a file.
[[nodiscard]] constexpr std::string_view WithoutByteOrderMark(std::string_view text) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    while (text.starts_with(mark)) {
        text.remove_prefix(mark.size());
    }
    return text;
}
[[nodiscard]] constexpr bool IsUtf16(std::string_view file) {  ///< by the mark in front, of either byte order
    return file.starts_with("\xFF\xFE") || file.starts_with("\xFE\xFF");
}
[[nodiscard]] std::string Utf8Of(std::string file);  ///< one in UTF-16 converted, without the mark; any other as it is
[[nodiscard]] bool IsUtf8(std::string_view text);
[[nodiscard]] std::string FromLatin1(std::string_view bytes);
[[nodiscard]] int CompareWithoutCase(std::string_view a, std::string_view b);  ///< by the locale; below, at, above 0
[[nodiscard]] std::string SortKeyWithoutCase(std::string_view text);  ///< byte order of keys is CompareWithoutCase's
/// The first eight bytes of a sort key as a number that compares as they do; a shorter key is filled up with zeros.
[[nodiscard]] constexpr std::uint64_t Beginning(std::string_view key) {
    std::uint64_t beginning = 0;
    for (std::size_t i = 0; i < sizeof beginning; ++i) {
        beginning = beginning << 8U | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
    }
    return beginning;
}
[[nodiscard]] std::size_t Length(std::string_view text);
/// Up to `count` characters from character `start` (0-based) on.
[[nodiscard]] std::string_view Mid(std::string_view text, std::size_t start,
                                   std::size_t count = std::string_view::npos);

/// What stands before the separator, or all; it is cut off `rest`, and the separator with it.
[[nodiscard]] std::string_view TakePiece(std::string_view& rest, char separator);
/// What stands between the separators: "a;;b;" is "a", "", "b" and "". An empty text is one empty piece.
[[nodiscard]] std::vector<std::string_view> Split(std::string_view text, char separator);
/// What stands between blanks and tabs, never empty.
[[nodiscard]] std::vector<std::string_view> Words(std::string_view text);
/// Split at each line end: LF, CR, or both.
[[nodiscard]] std::vector<std::string_view> Lines(std::string_view text);
/// Each "%" with two hexadecimal digits behind it becomes the byte; any other stays.
[[nodiscard]] std::string PercentDecoded(std::string_view text);

/// The text itself if it is valid, else each byte as the character of that number: what other programs send in the old
/// one-byte way.
[[nodiscard]] std::string FromUtf8OrLatin1(std::string_view bytes);

enum class TimeFormat { shortTime, longTime, shortDate, longDate };
/// In the format of the user's locale.
[[nodiscard]] std::string Format(const LocalTime& time, TimeFormat format);

}  // namespace zvr::text
