#include "platform/common/discimage.h"

#include "platform/files.h"
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>

namespace zvr {
namespace {

constexpr std::string_view scheme = "cdda://";
/// Between the music and the data of a disc that has both.
constexpr long sectorsBetweenSessions = 11400;
constexpr std::size_t mostTracks = 99;
constexpr std::size_t largestCue = 1U << 20U;

// An ISO 9660 file system.
constexpr long dataSectorSize = 2048;
constexpr long descriptorSector = 16;
constexpr std::size_t rootEntry = 156;
constexpr std::uint32_t largestFolder = 1U << 20U;

bool IsPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("/-_.~").find(c) != std::string_view::npos;
}

std::string_view TakeWord(std::string_view& line) {
    constexpr std::string_view blanks = " \t\r";
    line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
    const bool quoted = line.starts_with('"');
    const std::size_t end = std::min(quoted ? line.find('"', 1) : line.find_first_of(blanks), line.size());
    const std::string_view word = line.substr(quoted ? 1 : 0, quoted ? end - 1 : end);
    line.remove_prefix(std::min(quoted ? end + 1 : end, line.size()));
    return word;
}

/// "mm:ss:ff", ff being sectors; none for anything else.
std::optional<long> SectorOf(std::string_view time) {
    std::array<long, 3> parts{};
    const char* at = time.data();
    const char* const end = time.data() + time.size();
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const auto [stop, error] = std::from_chars(at, end, parts[i]);
        const bool last = i + 1 == parts.size();
        if (error != std::errc{} || parts[i] < 0 || parts[i] > 999 ||
            (last ? stop != end : stop == end || *stop != ':')) {
            return std::nullopt;
        }
        at = last ? stop : stop + 1;
    }
    return (parts[0] * 60 + parts[1]) * sectorsASecond + parts[2];
}

std::uint32_t LittleEndian(std::string_view bytes) {
    std::uint32_t value = 0;
    for (int i = 3; i >= 0; --i) {
        value = value << 8U | static_cast<unsigned char>(bytes[static_cast<std::size_t>(i)]);
    }
    return value;
}

std::string ReadAt(std::ifstream& file, std::uint64_t place, std::size_t length) {
    std::string bytes(length, '\0');
    file.seekg(static_cast<std::streamoff>(place));
    file.read(bytes.data(), static_cast<std::streamsize>(length));
    return file ? bytes : std::string{};
}

bool HasVideoFolder(const std::string& folder) {
    bool found = false;
    files::Enumerate(folder, [&found](const files::Found& entry) {
        found = (entry.attributes & files::attributeDirectory) != 0 && text::EqualAscii(entry.name, "video_ts");
        return !found;
    });
    return found;
}

CueSheet SheetAt(const std::string& path) {
    return ReadCue(files::Read(path, largestCue).value_or(""));
}

/// An absolute image stays as it is; empty for none.
std::string ImagePath(const std::string& path, const CueSheet& sheet) {
    return sheet.image.empty() ? sheet.image : (std::filesystem::path(path).parent_path() / sheet.image).string();
}

Disc DiscOfCue(const std::string& path) {
    const CueSheet sheet = SheetAt(path);
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(ImagePath(path, sheet), error);
    if (error) {
        return {};
    }
    return DiscOfToc(path, sheet.entries,
                     static_cast<long>(std::min<std::uintmax_t>(size / soundSectorSize, 1U << 30U)));
}

}  // namespace

std::string DiscTrack::Address() const {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string address(scheme);
    for (const char c : disc) {
        if (IsPlain(c)) {
            address += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            address += {'%', digits[byte >> 4U], digits[byte & 15U]};
        }
    }
    return address + '#' + std::to_string(number);
}

std::string DiscTrack::Name() const {
    return "Track " + std::to_string(number);
}

std::optional<DiscTrack> TrackOf(std::string_view address) {
    const std::size_t mark = address.rfind('#');
    if (!address.starts_with(scheme) || mark == address.npos) {
        return std::nullopt;
    }
    DiscTrack track;
    const std::string_view digits = address.substr(mark + 1);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), track.number);
    if (error != std::errc{} || end != digits.data() + digits.size() || track.number < 1) {
        return std::nullopt;
    }
    track.disc = text::PercentDecoded(address.substr(scheme.size(), mark - scheme.size()));
    return track;
}

Disc DiscOfToc(const std::string& path, const std::vector<TocEntry>& entries, long leadOut) {
    Disc disc;
    for (std::size_t i = 0; i < std::min(entries.size(), mostTracks); ++i) {
        if (!entries[i].isAudio) {
            continue;
        }
        const bool last = i + 1 == entries.size();
        long end = last ? leadOut : entries[i + 1].firstSector;
        if (!last && !entries[i + 1].isAudio && end - entries[i].firstSector > sectorsBetweenSessions) {
            end -= sectorsBetweenSessions;
        }
        const long sectors = std::max(end - entries[i].firstSector, 0L);
        disc.tracks.push_back(
            {path, static_cast<int>(i + 1), static_cast<double>(sectors) / sectorsASecond, entries[i].firstSector});
        disc.kind = DiscKind::audio;
    }
    return disc;
}

CueSheet ReadCue(std::string_view text) {
    CueSheet sheet;
    bool waits = false;  // for the track's beginning
    text = text::WithoutByteOrderMark(text);
    while (!text.empty()) {
        std::string_view line = text::TakePiece(text, '\n');
        const std::string_view word = TakeWord(line);
        if (text::EqualAscii(word, "FILE")) {
            if (!sheet.image.empty()) {
                break;  // the player reads a disc out of one file
            }
            sheet.image = TakeWord(line);
        } else if (text::EqualAscii(word, "TRACK") && sheet.entries.size() < mostTracks) {
            (void)TakeWord(line);
            sheet.entries.push_back({0, text::EqualAscii(TakeWord(line), "AUDIO")});
            waits = true;
        } else if (text::EqualAscii(word, "INDEX") && waits && TakeWord(line) == "01") {
            sheet.entries.back().firstSector = SectorOf(TakeWord(line)).value_or(0);
            waits = false;
        }
    }
    if (waits) {
        sheet.entries.pop_back();
    }
    return sheet;
}

std::string ImageOfCue(const std::string& path) {
    return ImagePath(path, SheetAt(path));
}

bool HoldsVideo(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string descriptor = ReadAt(file, descriptorSector * dataSectorSize, dataSectorSize);
    if (descriptor.empty() || descriptor.substr(1, 5) != "CD001") {
        return false;
    }
    const std::string_view root = std::string_view(descriptor).substr(rootEntry);
    const std::uint64_t place = std::uint64_t{LittleEndian(root.substr(2))} * dataSectorSize;
    const std::string folder = ReadAt(file, place, std::min(LittleEndian(root.substr(10)), largestFolder));
    // Entries: length, 24 bytes, flags, six bytes, length of the name, the name. None goes beyond its sector.
    constexpr std::size_t flags = 25;
    constexpr std::size_t nameLength = 32;
    for (std::size_t at = 0; at + nameLength < folder.size();) {
        const auto length = static_cast<unsigned char>(folder[at]);
        if (length <= nameLength) {
            at = (at / dataSectorSize + 1) * dataSectorSize;
            continue;
        }
        const auto characters = static_cast<unsigned char>(folder[at + nameLength]);
        const std::string_view name = std::string_view(folder).substr(at + nameLength + 1).substr(0, characters);
        if ((static_cast<unsigned char>(folder[at + flags]) & 2U) != 0 && text::EqualAscii(name, "video_ts")) {
            return true;
        }
        at += length;
    }
    return false;
}

Disc DiscOfPath(const std::string& path) {
    bool video = false;
    if (files::IsFolder(path)) {
        video = HasVideoFolder(path);
    } else if (std::error_code error; !std::filesystem::is_regular_file(path, error)) {
        return {};
    } else if (text::EndsWithAscii(path, ".cue")) {
        return DiscOfCue(path);
    } else {
        video = HoldsVideo(path);
    }
    return {video ? DiscKind::video : DiscKind::none, {}};
}

}  // namespace zvr
