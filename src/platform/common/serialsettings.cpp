#include "platform/serialport.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zvr {
namespace {

constexpr std::size_t fieldCount = 4;

/// The fields between the commas, without the blanks around them. None if there aren't four.
std::optional<std::array<std::string_view, fieldCount>> FieldsOf(std::string_view text) {
    std::array<std::string_view, fieldCount> fields;
    for (std::size_t i = 0; i < fieldCount; ++i) {
        const auto comma = text.find(',');
        if ((comma == text.npos) != (i + 1 == fieldCount)) {
            return std::nullopt;
        }
        std::string_view field = text.substr(0, comma);
        field.remove_prefix(std::min(field.find_first_not_of(' '), field.size()));
        fields[i] = field.substr(0, field.find_last_not_of(' ') + 1);
        text.remove_prefix(std::min(comma, text.size() - 1) + 1);
    }
    return fields;
}

std::optional<int> WholeNumber(std::string_view text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = error == std::errc{} && end == text.data() + text.size();
    return whole && value > 0 ? std::optional(value) : std::nullopt;
}

std::optional<Parity> ParityOf(std::string_view letter) {
    if (letter.size() != 1) {
        return std::nullopt;
    }
    switch (text::LowerAscii(letter.front())) {
        case 'n':
            return Parity::none;
        case 'e':
            return Parity::even;
        case 'o':
            return Parity::odd;
        case 'm':
            return Parity::mark;
        case 's':
            return Parity::space;
        default:
            return std::nullopt;
    }
}

}  // namespace

std::optional<SerialSettings> ParseSerialSettings(std::string_view text) {
    const auto fields = text.empty() ? std::nullopt : FieldsOf(text);
    if (!fields) {
        return std::nullopt;
    }
    const auto baud = WholeNumber((*fields)[0]);
    const auto parity = ParityOf((*fields)[1]);
    const auto dataBits = WholeNumber((*fields)[2]);
    const std::string_view stopBits = (*fields)[3];
    if (!baud || !parity || !dataBits || *dataBits < 5 || *dataBits > 8 ||
        (stopBits != "1" && stopBits != "1.5" && stopBits != "2")) {
        return std::nullopt;
    }
    return SerialSettings{*baud, *parity, *dataBits, stopBits != "1"};
}

}  // namespace zvr
