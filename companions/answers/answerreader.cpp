#include "answers/answerreader.h"

#include <charconv>
#include <cstdlib>

namespace zvr {
namespace {

void AppendUtf8(std::string& out, std::uint32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

}  // namespace

bool AnswerReader::Take(std::string_view expected) {
    if (!text.starts_with(expected)) {
        return false;
    }
    text.remove_prefix(expected.size());
    return true;
}

std::optional<std::string> AnswerReader::TakeString() {
    if (!Take("\"")) {
        return std::nullopt;
    }
    std::string decoded;
    while (!text.empty() && text.front() != '"') {
        const char c = text.front();
        text.remove_prefix(1);
        if (c != '\\') {
            decoded += c;
        } else if (!TakeEscape(decoded)) {
            return std::nullopt;
        }
    }
    return Take("\"") ? std::optional(decoded) : std::nullopt;
}

std::optional<int> AnswerReader::TakeNumber() {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

bool AnswerReader::TakeEscape(std::string& decoded) {
    if (text.empty()) {
        return false;
    }
    const char c = text.front();
    text.remove_prefix(1);
    constexpr std::string_view letters = "\"\\/bfnrt";
    constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
    if (const auto place = letters.find(c); place != std::string_view::npos) {
        decoded += meanings[place];
        return true;
    }
    std::uint32_t code = 0;
    if (c != 'u' || !TakeHex(code)) {
        return false;
    }
    std::uint32_t low = 0;
    if (code >= 0xD800 && code < 0xDC00 && Take("\\u") && TakeHex(low)) {
        code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
    }
    AppendUtf8(decoded, code);
    return true;
}

bool AnswerReader::TakeHex(std::uint32_t& code) {
    if (text.size() < 4) {
        return false;
    }
    const std::string digits(text.substr(0, 4));
    char* end = nullptr;
    code = static_cast<std::uint32_t>(std::strtoul(digits.c_str(), &end, 16));
    text.remove_prefix(4);
    return *end == '\0';
}

}  // namespace zvr
