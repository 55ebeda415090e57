#include "platform/linux/png.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace zvr {
namespace {

/// Decoders refuse more; such a file counts as broken.
constexpr std::uint64_t mostDecodedBytes = 128ULL * 1024 * 1024;

constexpr std::array<std::array<std::uint32_t, 256>, 8> MakeTables() {
    std::array<std::array<std::uint32_t, 256>, 8> tables{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit) {
            value = (value & 1U) != 0 ? 0xEDB88320U ^ (value >> 1U) : value >> 1U;
        }
        tables[0][i] = value;
    }
    for (std::size_t table = 1; table < 8; ++table) {
        for (std::size_t i = 0; i < 256; ++i) {
            tables[table][i] = tables[0][tables[table - 1][i] & 0xFFU] ^ (tables[table - 1][i] >> 8U);
        }
    }
    return tables;
}
constexpr auto tables = MakeTables();
static_assert(std::endian::native == std::endian::little);

/// Eight bytes a step: the check sums of a whole skin are on the way of every start.
std::uint32_t CheckSum(std::string_view bytes) {
    std::uint32_t sum = 0xFFFFFFFFU;
    while (bytes.size() >= 8) {
        std::uint32_t low = 0;
        std::uint32_t high = 0;
        std::memcpy(&low, bytes.data(), 4);
        std::memcpy(&high, bytes.data() + 4, 4);
        low ^= sum;
        sum = tables[7][low & 0xFFU] ^ tables[6][low >> 8U & 0xFFU] ^ tables[5][low >> 16U & 0xFFU] ^
              tables[4][low >> 24U] ^ tables[3][high & 0xFFU] ^ tables[2][high >> 8U & 0xFFU] ^
              tables[1][high >> 16U & 0xFFU] ^ tables[0][high >> 24U];
        bytes.remove_prefix(8);
    }
    for (const char byte : bytes) {
        sum = tables[0][(sum ^ static_cast<unsigned char>(byte)) & 0xFFU] ^ (sum >> 8U);
    }
    return ~sum;
}

std::uint32_t Number(std::string_view bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        value = value << 8U | static_cast<unsigned char>(bytes[at + i]);
    }
    return value;
}

struct Header {
    Size size;
    bool palette = false;
};

std::optional<Header> ReadHeader(std::string_view data) {
    if (data.size() != 13) {
        return std::nullopt;
    }
    const std::uint64_t width = Number(data, 0);
    const std::uint64_t height = Number(data, 4);
    const int depth = static_cast<unsigned char>(data[8]);
    const int kind = static_cast<unsigned char>(data[9]);
    const bool small = depth == 1 || depth == 2 || depth == 4;
    const bool depthFits = kind == 0   ? small || depth == 8 || depth == 16
                           : kind == 3 ? small || depth == 8
                                       : (kind == 2 || kind == 4 || kind == 6) && (depth == 8 || depth == 16);
    const bool methodsFit = data[10] == 0 && data[11] == 0 && static_cast<unsigned char>(data[12]) <= 1;
    if (!depthFits || !methodsFit || width == 0 || height == 0 || width > 0xFFFF || height > 0xFFFF ||
        width * height * (depth == 16 ? 8 : 4) > mostDecodedBytes) {
        return std::nullopt;
    }
    return Header{{static_cast<int>(width), static_cast<int>(height)}, kind == 3};
}

}  // namespace

std::optional<Size> CheckPng(std::string_view file) {
    constexpr std::string_view signature("\x89PNG\r\n\x1a\n", 8);
    if (!file.starts_with(signature)) {
        return std::nullopt;
    }
    file.remove_prefix(signature.size());
    std::optional<Header> header;
    bool palette = false;
    bool data = false;
    while (file.size() >= 12) {
        const std::size_t length = Number(file, 0);
        if (length > file.size() - 12 || CheckSum(file.substr(4, length + 4)) != Number(file, length + 8)) {
            return std::nullopt;
        }
        const std::string_view name = file.substr(4, 4);
        if (!header) {
            header = name == "IHDR" ? ReadHeader(file.substr(8, length)) : std::nullopt;
            if (!header) {
                return std::nullopt;
            }
        } else if (name == "PLTE") {
            palette = length > 0 && length % 3 == 0;
        } else if (name == "IDAT") {
            data = data || length > 0;
        } else if (name == "IEND") {
            return data && (palette || !header->palette) ? std::optional(header->size) : std::nullopt;
        }
        file.remove_prefix(length + 12);
    }
    return std::nullopt;
}

}  // namespace zvr
