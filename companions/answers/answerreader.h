#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zvr {

/// Reads the flat answers of the control socket. Good for {"key":true,"key":"text","key":{"key":"text"}} in that
/// dialect.
class AnswerReader {
public:
    explicit AnswerReader(std::string_view text) : text(text) {}  ///< which outlives this

    /// Goes on behind `expected` if that comes next.
    bool Take(std::string_view expected);
    /// A quoted text, decoded to UTF-8.
    std::optional<std::string> TakeString();
    std::optional<int> TakeNumber();

private:
    bool TakeEscape(std::string& decoded);
    bool TakeHex(std::uint32_t& code);

    std::string_view text;
};

}  // namespace zvr
