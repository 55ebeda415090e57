#include "radiogps/gpsctl.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace zvr {
namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr std::size_t nameLength = 5;  ///< "GPRMC"

std::string Last(std::string_view text, std::size_t count) {
    return std::string(text.substr(text.size() - std::min(count, text.size())));
}

}  // namespace

bool GPSctl::BurstIsIn() const {
    return HasEnough() || buffer.find("$GPGSA") != std::string::npos;
}

void GPSctl::ParseBuffer() {
    // A wrong checksum is no reason to show nothing: the next second brings another sentence.
    ParseRMC(std::string(Between(buffer, "$GPRMC", lineEnd)));
    ParseGGA(std::string(Between(buffer, "$GPGGA", lineEnd)));
    buffer = " ";
}

bool GPSctl::ParseRMC(std::string sentence) {
    const auto field = [&sentence](int n) { return std::string(Field(sentence, n, ",")); };
    rmc = {Last(field(1), nameLength),
           field(2),
           field(3),
           field(4),
           field(5),
           field(6),
           field(7),
           field(8),
           field(9),
           field(10),
           std::string(Field(sentence, 2, "*"))};
    return NmeaChecksum(sentence) == rmc.checksum;
}

bool GPSctl::ParseGGA(std::string sentence) {
    const auto field = [&sentence](int n) { return std::string(Field(sentence, n, ",")); };
    gga = {Last(field(1), nameLength), field(7), field(8), field(10), std::string(Field(sentence, 2, "*"))};
    return NmeaChecksum(sentence) == gga.checksum;
}

std::string_view GPSctl::Field(std::string_view text, int n, std::string_view separator) {
    if (n < 1 || separator.empty()) {
        return {};
    }
    for (int i = 1; i < n; ++i) {
        const auto at = text.find(separator);
        if (at == text.npos) {
            return {};
        }
        text.remove_prefix(at + separator.size());
    }
    return text.substr(0, text.find(separator));
}

std::string_view GPSctl::Between(std::string_view text, std::string_view start, std::string_view end) {
    const auto from = text.find(start);
    const auto to = from == text.npos ? from : text.find(end, from + start.size());
    return to == text.npos ? std::string_view{} : text.substr(from, to - from);
}

std::string GPSctl::NmeaChecksum(std::string& sentence) {
    if (sentence.starts_with('$')) {
        sentence.erase(0, 1);
    }
    unsigned sum = sentence.empty() ? 0 : static_cast<unsigned char>(sentence[0]);
    // Up to the asterisk and its two digits.
    for (std::size_t i = 1; i + 3 < sentence.size(); ++i) {
        sum ^= static_cast<unsigned char>(sentence[i]);
    }
    char digits[2];
    std::string text(std::begin(digits), std::to_chars(std::begin(digits), std::end(digits), sum, 16).ptr);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text;
}

}  // namespace zvr
