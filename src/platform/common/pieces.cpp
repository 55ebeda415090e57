// Texts in pieces, and pieces written another way.

#include "platform/text.h"

#include <charconv>

namespace zvr::text {

std::string_view TakePiece(std::string_view& rest, char separator) {
    const std::string_view piece = rest.substr(0, rest.find(separator));
    rest.remove_prefix(std::min(piece.size() + 1, rest.size()));
    return piece;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    for (auto end = text.find(separator); end != text.npos; end = text.find(separator)) {
        pieces.push_back(TakePiece(text, separator));
    }
    pieces.push_back(text);
    return pieces;
}

std::vector<std::string_view> Words(std::string_view text) {
    std::vector<std::string_view> words;
    constexpr std::string_view blanks = " \t";
    for (auto begin = text.find_first_not_of(blanks); begin != text.npos; begin = text.find_first_not_of(blanks)) {
        text.remove_prefix(begin);
        words.push_back(text.substr(0, text.find_first_of(blanks)));
        text.remove_prefix(words.back().size());
    }
    return words;
}

std::vector<std::string_view> Lines(std::string_view text) {
    std::vector<std::string_view> lines;
    for (auto end = text.find_first_of("\r\n"); end != text.npos; end = text.find_first_of("\r\n")) {
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + (text.substr(end).starts_with("\r\n") ? 2 : 1));
    }
    lines.push_back(text);
    return lines;
}

std::string PercentDecoded(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned char value = 0;
        const char* const digits = text.data() + i + 1;
        if (text[i] == '%' && i + 2 < text.size() && std::from_chars(digits, digits + 2, value, 16).ptr == digits + 2) {
            decoded += static_cast<char>(value);
            i += 2;
        } else {
            decoded += text[i];
        }
    }
    return decoded;
}

}  // namespace zvr::text
