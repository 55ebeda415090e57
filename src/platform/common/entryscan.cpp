#include "platform/entryscan.h"

#include "platform/common/entryscankernel.h"

#include <algorithm>
#include <future>
#include <system_error>
#include <thread>
#include <utility>

#if defined(__SSE2__)
#include <emmintrin.h>
#elif defined(__ARM_NEON) && defined(__aarch64__)
#include <arm_neon.h>
#endif

namespace zvr {
namespace {

#if defined(__SSE2__)

struct Plain {
    __m128i parts[4];

    static Plain Equal(const char* text, char letter) {
        const __m128i letters = _mm_set1_epi8(letter);
        Plain result;
        for (std::size_t i = 0; i < 4; ++i) {
            result.parts[i] = _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(text + 16 * i)), letters);
        }
        return result;
    }
    Plain operator&(const Plain& other) const {
        Plain result;
        for (std::size_t i = 0; i < 4; ++i) {
            result.parts[i] = _mm_and_si128(parts[i], other.parts[i]);
        }
        return result;
    }
    [[nodiscard]] std::uint64_t Bits() const {
        std::uint64_t bits = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            bits |= std::uint64_t{static_cast<std::uint32_t>(_mm_movemask_epi8(parts[i]))} << (16 * i);
        }
        return bits;
    }
};

#elif defined(__ARM_NEON) && defined(__aarch64__)

struct Plain {
    uint8x16_t parts[4];

    static Plain Equal(const char* text, char letter) {
        const uint8x16_t letters = vdupq_n_u8(static_cast<std::uint8_t>(letter));
        Plain result;
        for (std::size_t i = 0; i < 4; ++i) {
            result.parts[i] = vceqq_u8(vld1q_u8(reinterpret_cast<const std::uint8_t*>(text + 16 * i)), letters);
        }
        return result;
    }
    Plain operator&(const Plain& other) const {
        Plain result;
        for (std::size_t i = 0; i < 4; ++i) {
            result.parts[i] = vandq_u8(parts[i], other.parts[i]);
        }
        return result;
    }
    [[nodiscard]] std::uint64_t Bits() const {
        // A bit of its own for each byte of eight; neighbours are added up until eight of them are one byte.
        const uint8x16_t own = vreinterpretq_u8_u64(vdupq_n_u64(0x8040201008040201U));
        const uint8x16_t low = vpaddq_u8(vandq_u8(parts[0], own), vandq_u8(parts[1], own));
        const uint8x16_t high = vpaddq_u8(vandq_u8(parts[2], own), vandq_u8(parts[3], own));
        const uint8x16_t all = vpaddq_u8(low, high);
        return vgetq_lane_u64(vreinterpretq_u64_u8(vpaddq_u8(all, all)), 0);
    }
};

#else

struct Plain {
    std::uint64_t bits;

    static Plain Equal(const char* text, char letter) {
        Plain result{0};
        for (std::size_t i = 0; i < scan::blockSize; ++i) {
            result.bits |= std::uint64_t{text[i] == letter} << i;
        }
        return result;
    }
    Plain operator&(const Plain& other) const { return {bits & other.bits}; }
    [[nodiscard]] std::uint64_t Bits() const { return bits; }
};

#endif

scan::ScanPart BestScan() {
    static const scan::ScanPart best = [] {
        const scan::ScanPart wide = scan::WideScan();
        return wide == nullptr ? scan::PlainScan() : wide;
    }();
    return best;
}

constexpr char entryEnd = '\0';

/// Longer words are looked for without vectors: no name has them.
constexpr std::size_t longestWord = 256;

scan::Word Probed(const std::string& word) {
    scan::Word probed{word.data(), word.size(), 0, {}};
    probed.probes = static_cast<int>(std::min<std::size_t>(word.size(), scan::mostProbes));
    const auto last = static_cast<std::size_t>(probed.probes - 1);
    for (std::size_t i = 0; i <= last; ++i) {
        // All of a short word; of a long one letters that lie apart, for many words begin alike.
        probed.places[i] = last == 0 ? 0 : i * (word.size() - 1) / last;
    }
    return probed;
}

/// How often the words stand in samples of the text.
std::size_t Frequency(std::string_view text, const std::string& word) {
    constexpr std::size_t samples = 8;
    constexpr std::size_t sampleSize = 2048;
    std::size_t count = 0;
    for (std::size_t i = 0; i < samples; ++i) {
        const std::string_view sample = text.substr(text.size() / samples * i, sampleSize);
        for (std::size_t at = sample.find(word); at != sample.npos; at = sample.find(word, at + 1)) {
            ++count;
        }
    }
    return count;
}

bool HoldsAll(std::string_view entry, const std::vector<std::string>& words, std::size_t from) {
    return std::all_of(words.begin() + static_cast<std::ptrdiff_t>(from), words.end(),
                       [entry](const std::string& word) { return entry.find(word) != entry.npos; });
}

std::string_view EntryAt(std::string_view text, std::size_t place) {
    return text.substr(place, text.find(entryEnd, place) - place);
}

/// A stretch of whole entries, looked through by one thread.
class Slice {
public:
    /// From the beginning of an entry to the end of one.
    Slice(std::string_view text, const std::vector<std::string>& words, std::size_t from, std::size_t stop)
        : text(text), words(words), from(from), at(from), stop(stop) {}

    std::vector<std::uint32_t> Scan() {
        std::vector<std::uint32_t> found;
        while (at < stop) {
            ScanPart(found);
        }
        return found;
    }

private:
    void ScanPart(std::vector<std::uint32_t>& found);
    void ScanEntry(std::vector<std::uint32_t>& found);

    std::string_view text;
    const std::vector<std::string>& words;
    std::size_t from;
    std::size_t at;
    std::size_t stop;
    std::string tail;  ///< of the text, with room behind it
};

void Slice::ScanPart(std::vector<std::uint32_t>& found) {
    const std::size_t reach = std::min(scan::partSize, stop - at);
    const std::size_t lastEnd = text.substr(at, reach).rfind(entryEnd);
    if (lastEnd == text.npos || words.front().size() > longestWord) {
        return ScanEntry(found);
    }
    const std::size_t length = lastEnd + 1;
    const char* part = text.data() + at;
    if (text.size() - at < scan::partSize + scan::blockSize + longestWord) {
        tail.assign(text.substr(at));
        tail.append(scan::partSize + scan::blockSize + longestWord, '\0');
        part = tail.data();
    }
    const bool single = words.size() == 1 || words[1].size() > longestWord;
    const scan::Word second = single ? scan::Word{} : Probed(words[1]);
    scan::Found places;
    BestScan()(part, length, Probed(words.front()), single ? nullptr : &second, places);
    const std::size_t looked = single ? 1 : 2;
    const std::size_t before = found.size();
    if (found.capacity() < before + places.count) {
        // For as many as there will be if it goes on so: growing step by step would move megabytes.
        const double parts = static_cast<double>(stop - from) / static_cast<double>(at + length - from);
        found.reserve(static_cast<std::size_t>(1.1 * parts * static_cast<double>(before + places.count)) + 1);
    }
    found.resize(before + places.count);
    for (std::size_t i = 0; i < places.count; ++i) {
        found[before + i] = static_cast<std::uint32_t>(at + places.places[i]);
    }
    if (words.size() > looked) {
        const auto lacks = [&](std::uint32_t place) { return !HoldsAll(EntryAt(text, place), words, looked); };
        found.erase(std::remove_if(found.begin() + static_cast<std::ptrdiff_t>(before), found.end(), lacks),
                    found.end());
    }
    at += length;
}

void Slice::ScanEntry(std::vector<std::uint32_t>& found) {
    const std::string_view entry = text.substr(at, EntryAt(text, at).size() + 1);  // with its end, which is a word too
    if (HoldsAll(entry, words, 0)) {
        found.push_back(static_cast<std::uint32_t>(at));
    }
    at += entry.size();
}

/// Behind the end of the entry that the byte before `place` belongs to.
std::size_t EntryEndAt(std::string_view text, std::size_t place) {
    return place == 0 ? 0 : std::min(text.find(entryEnd, place - 1), text.size() - 1) + 1;
}

std::size_t Threads() {
    return std::clamp(std::thread::hardware_concurrency(), 1U, 4U);
}

/// A thread for less would take longer to begin than to search.
constexpr std::size_t smallestShare = std::size_t{512} << 10U;

/// Where there can be no other thread, when the result is asked for.
std::future<std::vector<std::uint32_t>> InAThread(Slice slice) {
    try {
        return std::async(std::launch::async, &Slice::Scan, slice);
    } catch (const std::system_error&) {
        return std::async(std::launch::deferred, &Slice::Scan, std::move(slice));
    }
}

void Append(std::vector<std::uint32_t>& all, std::vector<std::uint32_t> more) {
    if (all.empty()) {
        all = std::move(more);
    } else {
        all.insert(all.end(), more.begin(), more.end());
    }
}

}  // namespace

scan::ScanPart scan::PlainScan() {
    return &Kernel<Plain>::Scan;
}

EntryScan::EntryScan(std::string_view text, std::vector<std::string> given) : text(text), words(std::move(given)) {
    std::erase(words, std::string{});
    std::vector<std::pair<std::size_t, std::string>> byFrequency;
    for (std::string& word : words) {
        const std::size_t frequency = words.size() < 2 ? 0 : Frequency(text, word);
        byFrequency.emplace_back(frequency, std::move(word));
    }
    std::stable_sort(byFrequency.begin(), byFrequency.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    words.clear();
    for (auto& [frequency, word] : byFrequency) {
        words.push_back(std::move(word));
    }
    if (words.empty()) {
        words.emplace_back(1, '\0');  // that is in every entry's end
    }
}

bool EntryScan::Continue(std::size_t bytes, std::vector<std::uint32_t>& found) {
    const std::size_t stop = EntryEndAt(text, at + std::min(bytes, text.size() - at));
    std::vector<std::future<std::vector<std::uint32_t>>> others;
    const std::size_t share = std::max((stop - at) / Threads(), smallestShare);
    const std::size_t firstStop = EntryEndAt(text, std::min(at + share, stop));
    for (std::size_t from = firstStop; from < stop;) {
        const std::size_t end = EntryEndAt(text, std::min(from + share, stop));
        others.push_back(InAThread(Slice(text, words, from, end)));
        from = end;
    }
    Append(found, Slice(text, words, at, firstStop).Scan());
    for (auto& other : others) {
        Append(found, other.get());
    }
    at = stop;
    return at < text.size();
}

}  // namespace zvr
