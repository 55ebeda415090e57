#include "core/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>

namespace zvr {
namespace {

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

double Hexadecimal(std::string_view digits) {
    std::uint64_t value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    return result.ec == std::errc{} ? static_cast<double>(value) : 0;
}

}  // namespace

long RoundHalfEven(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    const double rounded = std::nearbyint(value);
    // The largest long has no double of its own; the comparison takes the next one above it.
    if (rounded >= static_cast<double>(std::numeric_limits<long>::max())) {
        return std::numeric_limits<long>::max();
    }
    if (rounded <= static_cast<double>(std::numeric_limits<long>::min())) {
        return std::numeric_limits<long>::min();
    }
    return static_cast<long>(rounded);
}

double LeadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    if (text.size() > 2 && text[0] == '&' && (text[1] == 'H' || text[1] == 'h')) {
        return Hexadecimal(text.substr(2));
    }
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    // from_chars would also take a second sign, "inf" and "nan".
    if (text.empty() || !(IsDigit(text[0]) || text[0] == '.')) {
        return 0;
    }
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        const std::string_view number(text.data(), static_cast<std::size_t>(result.ptr - text.data()));
        const bool tiny = number.find("e-") != number.npos || number.find("E-") != number.npos || number[0] == '.';
        value = tiny ? 0 : std::numeric_limits<double>::max();
    } else if (result.ec != std::errc{}) {
        return 0;
    }
    return negative ? -value : value;
}

std::string NumberText(double value) {
    char digits[32];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
    return {std::begin(digits), end};
}

}  // namespace zvr
