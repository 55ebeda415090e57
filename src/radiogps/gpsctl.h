#pragma once

#include <string>
#include <string_view>

namespace zvr {

/// What the sentences of a receiver say: text all of it, as received, whatever their checksums and the fix.
class GPSctl {
public:
    /// The last $GPRMC: where, how fast, when.
    struct Rmc {
        std::string name;
        std::string time;
        std::string status;
        std::string latitude;
        std::string northOrSouth;
        std::string longitude;
        std::string eastOrWest;
        std::string speed;  ///< knots
        std::string course;
        std::string date;
        std::string checksum;
    };
    /// The last $GPGGA: how good.
    struct Gga {
        std::string name;
        std::string quality;
        std::string satellites;
        std::string altitude;  ///< metres above the sea
        std::string checksum;
    };

    Rmc rmc;
    Gga gga;
    std::string buffer;  ///< what was received and not parsed yet

    static constexpr std::size_t enough = 600;  ///< characters that hold at least one of each sentence
    /// The receiver has said all that it says in one second, as far as can be told.
    [[nodiscard]] bool BurstIsIn() const;
    [[nodiscard]] bool HasEnough() const { return buffer.size() >= enough; }
    /// Takes the first sentence of each kind and forgets the rest. A kind that isn't there empties its fields.
    void ParseBuffer();

    // True if the checksum is the sentence's own. The fields count either way.
    bool ParseRMC(std::string sentence);
    bool ParseGGA(std::string sentence);

    /// The n-th of the pieces between separators, counted from 1; empty if there are fewer.
    [[nodiscard]] static std::string_view Field(std::string_view text, int n, std::string_view separator);
    /// From the first `start`, with it, to the first `end` behind it, without it. Empty if one of them isn't there.
    [[nodiscard]] static std::string_view Between(std::string_view text, std::string_view start, std::string_view end);
    /// In hexadecimal capitals without a leading zero. Takes the "$" off the sentence.
    [[nodiscard]] static std::string NmeaChecksum(std::string& sentence);
};

}  // namespace zvr
