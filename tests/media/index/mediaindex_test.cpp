#include "media/index/mediaindex.h"

#include "media/index/foldcase.h"
#include "media/index/indexformat.h"
#include "media/index/indexwriter.h"
#include "platform/characters.h"
#include "platform/common/entryscankernel.h"
#include "platform/entryscan.h"
#include "platform/text.h"
#include "support/bench.h"

#include <random>

namespace zvr {
namespace {

using namespace std::string_literals;

std::vector<MediaIndex::Place> Places(const MediaIndex& index, std::vector<std::string> words, std::size_t step = 1) {
    std::vector<MediaIndex::Place> places;
    EntryScan scan(index.SearchedText(), std::move(words));
    while (scan.Continue(step, places)) {
    }
    return places;
}

std::vector<std::string> Found(const MediaIndex& index, std::string_view term) {
    std::vector<std::string> words;
    for (const std::string_view word : text::Words(term)) {
        words.push_back(FoldedText(word));
    }
    std::vector<std::string> names;
    for (const MediaIndex::Place place : Places(index, words)) {
        names.push_back(index.Folder(place) + index.Name(place));
    }
    return names;
}

TEST(MediaIndex, FindsAllWordsAnywhereInAnyOrderWithoutCase) {
    const IndexReading reading = MediaIndex::Parse(
        "ZVRIDX100Harbour Lights.mp3\0000\0\0LIGHT my Harbour.MP3\0001\0\0Ärger ΣΟΦΌΣ "
        "Дорога.mp3\0001\0\0albums\0000\r\n"
        "/m/\0\0/m/albums/\r\nmore\r\n"s);
    ASSERT_NE(reading.index, nullptr);
    EXPECT_THAT(Found(*reading.index, "light arb"),
                ElementsAre("/m/Harbour Lights.mp3", "/m/albums/LIGHT my Harbour.MP3"));
    EXPECT_THAT(Found(*reading.index, "ÄRGER дорОГА"), ElementsAre("/m/albums/Ärger ΣΟΦΌΣ Дорога.mp3"));
    EXPECT_THAT(Found(*reading.index, "σοφός"), ElementsAre("/m/albums/Ärger ΣΟΦΌΣ Дорога.mp3"));
    EXPECT_THAT(Found(*reading.index, "lbum"), ElementsAre("/m/albums"));
    EXPECT_THAT(Found(*reading.index, "sunset"), IsEmpty());
    // The number of the folder belongs to what is searched.
    EXPECT_THAT(Found(*reading.index, "1"),
                ElementsAre("/m/albums/LIGHT my Harbour.MP3", "/m/albums/Ärger ΣΟΦΌΣ Дорога.mp3"));
}

TEST(MediaIndex, PassesOverEntriesOfNoFolder) {
    const IndexReading reading = MediaIndex::Parse("ZVRIDX100a\0001\0\0b\0\0c\000x\0\0d\0000\0\0e\000-1\r\n/m/"s);
    ASSERT_NE(reading.index, nullptr);
    EXPECT_THAT(Found(*reading.index, ""), ElementsAre("/m/d"));
}

TEST(MediaIndex, GivesEachNameBackAsItWas) {
    IndexWriter writer;
    const int folder = *writer.AddFolder("/m/");
    std::vector<std::string> names;
    for (std::int32_t code = 1; code < 0x20000; ++code) {
        if (code < 0xD800 || code > 0xDFFF) {
            std::string name = "x";
            text::AppendCharacter(name, code);
            names.push_back(name);
            writer.AddEntry(name, folder);
        }
    }
    const IndexReading reading = MediaIndex::Parse(writer.TakeText());
    ASSERT_NE(reading.index, nullptr);
    const auto places = Places(*reading.index, {});
    ASSERT_EQ(places.size(), names.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        ASSERT_EQ(reading.index->Name(places[i]), names[i]) << "code point " << i;
    }
}

TEST(FoldedLetter, IsTheSameForBothCasesAndNeverLonger) {
    for (std::int32_t code = 1; code < 0x20000; code += code == 0xD7FF ? 0x801 : 1) {
        std::string letter;
        std::string folded;
        text::AppendCharacter(letter, code);
        text::AppendCharacter(folded, FoldedLetter(code));
        ASSERT_LE(folded.size(), letter.size()) << code;
        ASSERT_EQ(FoldedLetter(FoldedLetter(code)), FoldedLetter(code)) << code;
        ASSERT_EQ(FoldedText(letter), folded);
    }
    constexpr std::u32string_view pairs = U"AaÄäŸÿΩωΣςЯяIıİiԱաẞßȺⱥꙀꙁ";
    for (std::size_t i = 0; i < pairs.size(); i += 2) {
        EXPECT_EQ(FoldedLetter(static_cast<std::int32_t>(pairs[i])),
                  FoldedLetter(static_cast<std::int32_t>(pairs[i + 1])));
    }
}

// Against a search that nobody can get wrong: long and short entries, words that begin alike, and any step.
TEST(EntryScan, FindsWhatAPlainSearchFinds) {
    std::mt19937 random(7);
    const auto any = [&random](std::size_t below) { return static_cast<std::size_t>(random() % below); };
    for (int round = 0; round < 300; ++round) {
        std::vector<std::string> entries;
        std::string searched;
        for (std::size_t i = any(400); i > 0; --i) {
            std::string entry;
            for (std::size_t length = any(round % 10 == 0 ? 9000 : 40); length > 0; --length) {
                entry += static_cast<char>('a' + any(round % 2 == 0 ? 2 : 5));
            }
            searched += entry + '\0';
            entries.push_back(std::move(entry));
        }
        std::vector<std::string> words;
        for (std::size_t i = any(4); i > 0; --i) {
            // Mostly one that is there, or nearly: its last letter may be another one.
            const std::string from = entries.empty() ? "ab" : entries[any(entries.size())];
            std::string word = from.substr(any(from.size() + 1), any(round % 20 == 0 ? 400 : 20));
            if (!word.empty() && any(3) == 0) {
                word.back() = static_cast<char>('a' + any(2));
            }
            words.push_back(std::move(word));
        }
        std::vector<std::uint32_t> expected;
        std::uint32_t place = 0;
        for (const std::string& entry : entries) {
            if (std::all_of(words.begin(), words.end(),
                            [&](const std::string& word) { return entry.find(word) != entry.npos; })) {
                expected.push_back(place);
            }
            place += static_cast<std::uint32_t>(entry.size()) + 1;
        }
        std::vector<std::uint32_t> found;
        EntryScan scan(searched, words);
        while (scan.Continue(round % 20 == 0 ? searched.size() : any(20'000) + 1, found)) {
        }
        ASSERT_EQ(found, expected) << "round " << round;
    }
}

TEST(EntryScan, FindsTheSameOnEveryProcessor) {
    if (scan::WideScan() == nullptr) {
        GTEST_SKIP() << "this processor has only one way";
    }
    std::mt19937 random(11);
    for (int round = 0; round < 200; ++round) {
        const unsigned letters = 1U << random() % 6;
        std::string part(scan::partSize + 2 * scan::blockSize, '\0');
        for (char& letter : part) {
            letter = static_cast<char>(random() % 20 == 0 ? '\0' : 'a' + random() % letters);
        }
        part.front() = '\0';
        const std::size_t length = part.rfind('\0', random() % scan::partSize) + 1;
        const scan::Word first{"aabbaabb", 4 + random() % 5, 2, {0, 1}};
        const scan::Word second{"ba", 2, 2, {0, 1}};
        scan::Found wide;
        scan::Found plain;
        scan::WideScan()(part.data(), length, first, round % 2 == 0 ? nullptr : &second, wide);
        scan::PlainScan()(part.data(), length, first, round % 2 == 0 ? nullptr : &second, plain);
        ASSERT_TRUE(std::equal(wide.places, wide.places + wide.count, plain.places, plain.places + plain.count))
            << "round " << round;
    }
}

}  // namespace
}  // namespace zvr
