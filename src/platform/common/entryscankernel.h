#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

// The scan of one part of a text, for whatever vectors a processor has. Included by files that are compiled for one
// kind of processor each. The linker keeps one version for all of an inline function, so none is called in here: all is
// a template over the vectors, and the arrays are plain ones.

namespace zvr::scan {

inline constexpr std::size_t blockSize = 64;
inline constexpr std::size_t mostBlocks = 64;
inline constexpr std::size_t partSize = blockSize * mostBlocks;
inline constexpr int mostProbes = 3;
/// With the rarer word in no more blocks the other one is looked for around it alone.
inline constexpr std::size_t fewBlocks = 24;

/// A word, and the letters of it that are compared first: all, if it has no more than three.
struct Word {
    const char* letters = nullptr;
    std::size_t length = 0;
    int probes = 0;
    std::size_t places[mostProbes] = {};
};

/// Where entries of a part begin that hold the words.
struct Found {
    std::uint16_t places[partSize + 1];
    std::size_t count = 0;
};

/// Looks through the first `length` bytes, which are whole entries; reads more. `first` is the rarer word, `second` may
/// be null.
using ScanPart = void (*)(const char* text, std::size_t length, const Word& first, const Word* second, Found& found);

/// For processors with vectors of 32 bytes; null on others.
ScanPart WideScan();
/// For every processor.
ScanPart PlainScan();

/// Vector: the 64 results of a comparison. `Equal` compares 64 bytes with one, `&` joins two, `Bits` gives a bit each.
template <typename Vector>
class Kernel {
public:
    static void Scan(const char* text, std::size_t length, const Word& first, const Word* second, Found& found) {
        const std::size_t blocks = (length + blockSize - 1) / blockSize;
        const std::uint64_t inside = ~std::uint64_t{0} >> (blocks * blockSize - length);
        Marks firsts;
        Mark(text, blocks, inside, first, firsts);
        found.count = 0;
        if (firsts.busyCount == 0) {
            return;
        }
        if (firsts.busyCount <= fewBlocks) {
            Pick(text, firsts, second, found);
            return;
        }
        std::uint64_t ends[mostBlocks];
        for (std::size_t i = 0; i < blocks; ++i) {
            ends[i] = Vector::Equal(text + i * blockSize, '\0').Bits();
        }
        ends[blocks - 1] &= inside;
        if (second == nullptr) {
            Join(text, blocks, firsts.bits, firsts.bits, ends, found);
            return;
        }
        Marks seconds;
        Mark(text, blocks, inside, *second, seconds);
        Join(text, blocks, firsts.bits, seconds.bits, ends, found);
    }

private:
    /// A bit for each place where a word begins, and the blocks that have any.
    struct Marks {
        std::uint64_t bits[mostBlocks];
        std::uint8_t busy[mostBlocks];
        std::size_t busyCount;
    };

    /// `inside`: the bits of the last block that count.
    static void Mark(const char* text, std::size_t blocks, std::uint64_t inside, const Word& word, Marks& marks) {
        switch (word.probes) {
            case 1:
                MarkBy<1>(text, blocks, word, marks);
                break;
            case 2:
                MarkBy<2>(text, blocks, word, marks);
                break;
            default:
                MarkBy<3>(text, blocks, word, marks);
        }
        marks.bits[blocks - 1] &= inside;
        marks.busyCount = 0;
        for (std::size_t i = 0; i < blocks; ++i) {
            marks.busy[marks.busyCount] = static_cast<std::uint8_t>(i);
            marks.busyCount += static_cast<std::size_t>(marks.bits[i] != 0);
        }
        if (word.length > static_cast<std::size_t>(word.probes)) {
            Verify(text, word, marks);
        }
    }

    template <int probes>
    static void MarkBy(const char* text, std::size_t blocks, const Word& word, Marks& marks) {
        char letters[probes];
        for (int i = 0; i < probes; ++i) {
            letters[i] = word.letters[word.places[i]];
        }
        for (std::size_t i = 0; i < blocks; ++i) {
            const char* const block = text + i * blockSize;
            Vector equal = Vector::Equal(block + word.places[0], letters[0]);
            for (int probe = 1; probe < probes; ++probe) {
                equal = equal & Vector::Equal(block + word.places[probe], letters[probe]);
            }
            marks.bits[i] = equal.Bits();
        }
    }

    static void Verify(const char* text, const Word& word, Marks& marks) {
        std::size_t busyCount = 0;
        for (std::size_t i = 0; i < marks.busyCount; ++i) {
            const std::size_t block = marks.busy[i];
            std::uint64_t rest = marks.bits[block];
            std::uint64_t right = 0;
            do {
                const std::size_t place = block * blockSize + static_cast<std::size_t>(__builtin_ctzll(rest));
                right |= Same(text + place, word) ? rest & -rest : 0;
                rest &= rest - 1;
            } while (rest != 0);
            marks.bits[block] = right;
            marks.busy[busyCount] = static_cast<std::uint8_t>(block);
            busyCount += static_cast<std::size_t>(right != 0);
        }
        marks.busyCount = busyCount;
    }

    static bool Same(const char* text, const Word& word) {
        if (word.length > 2 * sizeof(std::uint64_t)) {
            return std::memcmp(text, word.letters, word.length) == 0;
        }
        return word.length < sizeof(std::uint64_t) ? SameEnds<std::uint32_t>(text, word)
                                                   : SameEnds<std::uint64_t>(text, word);
    }

    /// Its beginning and its end, which overlap.
    template <typename Piece>
    static bool SameEnds(const char* text, const Word& word) {
        const std::size_t last = word.length - sizeof(Piece);
        return ((Load<Piece>(text) ^ Load<Piece>(word.letters)) |
                (Load<Piece>(text + last) ^ Load<Piece>(word.letters + last))) == 0;
    }

    template <typename Piece>
    static Piece Load(const char* from) {
        Piece piece;
        std::memcpy(&piece, from, sizeof piece);
        return piece;
    }

    /// The entries around the first word in which the second one begins as well.
    static void Pick(const char* text, const Marks& firsts, const Word* second, Found& found) {
        std::size_t done = 0;
        for (std::size_t i = 0; i < firsts.busyCount; ++i) {
            const std::size_t block = firsts.busy[i];
            std::uint64_t hits = firsts.bits[block];
            do {
                const std::size_t hit = block * blockSize + static_cast<std::size_t>(__builtin_ctzll(hits));
                if (hit >= done) {
                    const std::size_t begin = BeginBefore(text, done, hit);
                    done = EndBehind(text, hit) + 1;
                    found.places[found.count] = static_cast<std::uint16_t>(begin);
                    found.count += static_cast<std::size_t>(second == nullptr || Holds(text, begin, done, *second));
                }
                hits &= hits - 1;
            } while (hits != 0);
        }
    }

    /// Of the entry around `place`, looked for back to `limit`.
    static std::size_t BeginBefore(const char* text, std::size_t limit, std::size_t place) {
        while (place >= limit + blockSize) {
            const std::uint64_t ends = Vector::Equal(text + place - blockSize, '\0').Bits();
            if (ends != 0) {
                return place - static_cast<std::size_t>(__builtin_clzll(ends));
            }
            place -= blockSize;
        }
        while (place > limit && text[place - 1] != '\0') {
            --place;
        }
        return place;
    }

    static std::size_t EndBehind(const char* text, std::size_t place) {
        while (true) {
            const std::uint64_t ends = Vector::Equal(text + place, '\0').Bits();
            if (ends != 0) {
                return place + static_cast<std::size_t>(__builtin_ctzll(ends));
            }
            place += blockSize;
        }
    }

    static bool Holds(const char* text, std::size_t begin, std::size_t end, const Word& word) {
        Marks marks;
        for (std::size_t at = begin; at < end; at += blockSize) {
            const std::size_t left = end - at;
            Mark(text + at, 1, left < blockSize ? ~(~std::uint64_t{0} << left) : ~std::uint64_t{0}, word, marks);
            if (marks.busyCount != 0) {
                return true;
            }
        }
        return false;
    }

    /// An entry counts if both words begin in it. Without a branch for each: half of them would be guessed wrong.
    static void Join(const char* text, std::size_t blocks, const std::uint64_t* firsts, const std::uint64_t* seconds,
                     const std::uint64_t* ends, Found& found) {
        std::uint64_t firstCarry = 0;
        std::uint64_t secondCarry = 0;
        std::size_t begin = 0;
        for (std::size_t i = 0; i < blocks; ++i) {
            const std::uint64_t end = ends[i];
            // The next part, while this loop waits for nothing: the processor's own reading ahead ends with a page.
            __builtin_prefetch(text + partSize + i * blockSize);
            std::uint64_t both = EndsBehind(firsts[i], end, firstCarry) & EndsBehind(seconds[i], end, secondCarry);
            const std::size_t behind = i * blockSize;
            // Nearly always there are two at most, and writing one in vain is cheaper than asking.
            Write(both, end, behind, begin, found);
            both &= both - 1;
            Write(both, end, behind, begin, found);
            for (both &= both - 1; both != 0; both &= both - 1) {
                Write(both, end, behind, begin, found);
            }
            begin = BeginBelow(end, behind, begin);
        }
    }

    /// The ends of those entries that have a mark. Added to the ones of an entry, a mark runs over into its end, and at
    /// most once however many there are.
    static std::uint64_t EndsBehind(std::uint64_t marks, std::uint64_t ends, std::uint64_t& carry) {
        const std::uint64_t sum = ~ends + marks;
        const std::uint64_t result = sum + carry;
        carry = static_cast<std::uint64_t>(sum < marks) | static_cast<std::uint64_t>(result < sum);
        return result & ends;
    }

    /// Notes where the entry of the lowest mark begins, if there is one.
    static void Write(std::uint64_t marks, std::uint64_t ends, std::size_t behind, std::size_t begin, Found& found) {
        found.places[found.count] = static_cast<std::uint16_t>(BeginBelow(ends & ~marks & (marks - 1), behind, begin));
        found.count += static_cast<std::size_t>(marks != 0);
    }

    /// What begins behind the highest of some ends; without any `begin`.
    static std::size_t BeginBelow(std::uint64_t ends, std::size_t behind, std::size_t begin) {
        return ends == 0 ? begin : behind + blockSize - static_cast<std::size_t>(__builtin_clzll(ends | 1U));
    }
};

}  // namespace zvr::scan
