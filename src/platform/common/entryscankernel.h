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
inline constexpr std::size_t fewBlocks = 16;

/// A word, and the letters of it that are compared first.
struct Word {
    const char* letters = nullptr;
    std::size_t length = 0;
    int probes = 0;
    std::size_t places[mostProbes] = {};
};

/// Where entries of a part begin that hold the words.
struct Found {
    std::uint16_t places[partSize / 2 + 1];
    std::size_t count = 0;
};

/// Looks through the first `length` bytes, which are whole entries; reads more. `first` is the rarer word, `second` may
/// be null.
using ScanPart = void (*)(const char* text, std::size_t length, const Word& first, const Word* second, Found& found);

/// For processors with vectors of 32 bytes; null on others.
ScanPart WideScan();

/// Vector: the 64 results of a comparison. `Equal` compares 64 bytes with one, `&` joins two, `Bits` gives a bit each.
template <typename Vector>
class Kernel {
public:
    static void Scan(const char* text, std::size_t length, const Word& first, const Word* second, Found& found) {
        const std::size_t blocks = (length + blockSize - 1) / blockSize;
        std::uint64_t firsts[mostBlocks];
        Mark(text, blocks, first, firsts);
        std::size_t busyBlocks = 0;
        for (std::size_t i = 0; i < blocks; ++i) {
            busyBlocks += static_cast<std::size_t>(firsts[i] != 0);
        }
        found.count = 0;
        if (busyBlocks == 0) {
            return;
        }
        if (busyBlocks <= fewBlocks) {
            Pick(text, length, blocks, firsts, second, found);
            return;
        }
        std::uint64_t ends[mostBlocks];
        for (std::size_t i = 0; i < blocks; ++i) {
            ends[i] = Vector::Equal(text + i * blockSize, '\0').Bits();
        }
        ends[blocks - 1] &= ~std::uint64_t{0} >> (blocks * blockSize - length);
        if (second == nullptr) {
            Join(blocks, firsts, firsts, ends, found);
            return;
        }
        std::uint64_t seconds[mostBlocks];
        Mark(text, blocks, *second, seconds);
        Join(blocks, firsts, seconds, ends, found);
    }

private:
    /// A bit for each place where the word begins.
    static void Mark(const char* text, std::size_t blocks, const Word& word, std::uint64_t* masks) {
        switch (word.probes) {
            case 1:
                return MarkBy<1>(text, blocks, word, masks);
            case 2:
                return MarkBy<2>(text, blocks, word, masks);
            default:
                return MarkBy<3>(text, blocks, word, masks);
        }
    }

    template <int probes>
    static void MarkBy(const char* text, std::size_t blocks, const Word& word, std::uint64_t* masks) {
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
            masks[i] = equal.Bits();
        }
        if (word.length > mostProbes) {
            Verify(text, blocks, word, masks);
        }
    }

    static void Verify(const char* text, std::size_t blocks, const Word& word, std::uint64_t* masks) {
        for (std::size_t i = 0; i < blocks; ++i) {
            for (std::uint64_t rest = masks[i]; rest != 0; rest &= rest - 1) {
                const std::size_t place = i * blockSize + static_cast<std::size_t>(__builtin_ctzll(rest));
                if (std::memcmp(text + place, word.letters, word.length) != 0) {
                    masks[i] &= ~(rest & -rest);
                }
            }
        }
    }

    /// The entries around the first word in which the second one begins as well.
    static void Pick(const char* text, std::size_t length, std::size_t blocks, const std::uint64_t* firsts,
                     const Word* second, Found& found) {
        std::size_t done = 0;
        for (std::size_t i = 0; i < blocks; ++i) {
            for (std::uint64_t hits = firsts[i]; hits != 0; hits &= hits - 1) {
                const std::size_t hit = i * blockSize + static_cast<std::size_t>(__builtin_ctzll(hits));
                if (hit < done || hit >= length) {
                    continue;
                }
                const std::size_t begin = BeginBefore(text, done, hit);
                done = EndBehind(text, hit) + 1;
                if (second == nullptr || Holds(text, begin, done, *second)) {
                    found.places[found.count++] = static_cast<std::uint16_t>(begin);
                }
            }
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
        std::uint64_t any = 0;
        for (std::size_t at = begin; at < end && any == 0; at += blockSize) {
            Mark(text + at, 1, word, &any);
            if (end - at < blockSize) {
                any &= ~(~std::uint64_t{0} << (end - at));
            }
        }
        return any != 0;
    }

    /// An entry counts if both words begin in it. With few branches: half of them would be guessed wrong.
    static void Join(std::size_t blocks, const std::uint64_t* firsts, const std::uint64_t* seconds,
                     const std::uint64_t* ends, Found& found) {
        std::size_t begin = 0;
        std::uint64_t hasFirst = 0;
        std::uint64_t hasSecond = 0;
        for (std::size_t i = 0; i < blocks; ++i) {
            std::uint64_t rest = ~std::uint64_t{0};
            for (std::uint64_t end = ends[i]; end != 0; end &= end - 1) {
                const std::uint64_t upTo = end ^ (end - 1);
                hasFirst |= firsts[i] & upTo & rest;
                hasSecond |= seconds[i] & upTo & rest;
                found.places[found.count] = static_cast<std::uint16_t>(begin);
                found.count += static_cast<std::size_t>((hasFirst != 0) & (hasSecond != 0));
                hasFirst = hasSecond = 0;
                rest = ~upTo;
                begin = i * blockSize + static_cast<std::size_t>(__builtin_ctzll(end)) + 1;
            }
            hasFirst |= firsts[i] & rest;
            hasSecond |= seconds[i] & rest;
        }
    }
};

}  // namespace zvr::scan
