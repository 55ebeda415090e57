#include "media/index/foldcase.h"
#include "media/index/indexwriter.h"
#include "media/index/mediaindex.h"
#include "platform/entryscan.h"
#include "platform/text.h"
#include "support/bench.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <random>

namespace {

using zvr::MediaIndex;

constexpr int names = 1'000'000;
constexpr int folders = 20'000;

/// As drivers type them: rare, common, hardly anything, nothing at all, other scripts, the beginnings of words.
constexpr std::array<const char*, 20> terms{
    "harbour lights", "the of", "e a",         "mp3 live", "love you",       "lo yo",      "0 1",
    "night mp3",      "zz qq",  "über straße", "ночь",     "summer remix",   "a mp3",      "01 the",
    "rain",           "er en",  "moon river",  "ve love",  "blue xylophone", "in the dark"};

std::string Title(std::mt19937& random) {
    static constexpr std::array words{"The",   "Night", "Love",   "You",   "of",     "in",     "Harbour", "Lights",
                                      "River", "Moon",  "Summer", "Rain",  "Blue",   "Dark",   "Heart",   "Dance",
                                      "Fire",  "Live",  "Remix",  "Über",  "Straße", "Ночь",   "Дорога",  "Étoile",
                                      "Sweet", "Home",  "Road",   "Time",  "World",  "Little", "Girl",    "Morning",
                                      "Star",  "Wind",  "Shadow", "Dream", "Golden", "Silver", "Angel",   "Train",
                                      "City",  "Ocean", "Winter", "Song",  "for",    "a",      "Without", "Always"};
    std::string title;
    for (std::size_t i = 2 + random() % 4; i > 0; --i) {
        title += std::string(title.empty() ? "" : " ") + words[random() % words.size()];
    }
    return title;
}

struct Files {
    Files();

    zvr::TemporaryFolder folder;
    std::string index;
    std::string lines;  ///< the same names, one a line
};

Files::Files() {
    std::mt19937 random(1);
    zvr::IndexWriter writer;
    std::string allNames;
    for (int i = 0; i < names; ++i) {
        if (i % (names / folders) == 0) {
            (void)writer.AddFolder("/home/driver/Music/" + Title(random) + "/" + Title(random) + "/");
        }
        const std::string number = std::to_string(101 + i % 30).substr(1);
        const std::string name = number + " - " + Title(random) + " - " + Title(random) + ".mp3";
        writer.AddEntry(name, i / (names / folders));
        allNames += name + "\n";
    }
    index = folder.Write("zvrmedia.dat", writer.TakeText());
    lines = folder.Write("lines", allNames);
}

const Files& Million() {
    static const Files files;
    return files;
}

double Seconds(std::chrono::steady_clock::time_point since) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

template <typename Sorted>
double Median(const Sorted& values) {
    return values[values.size() / 2];
}

void IndexRead(benchmark::State& state) {
    const std::string file = Million().index;
    std::size_t memory = 0;
    std::size_t bytes = 0;
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        const zvr::IndexReading reading = MediaIndex::Read(file);
        state.SetIterationTime(Seconds(begin));
        memory = reading.index->MemoryUsed();
        bytes = std::filesystem::file_size(file);
    }
    state.counters["memory a byte"] = static_cast<double>(memory) / static_cast<double>(bytes);
    state.counters["MB"] = static_cast<double>(bytes) / 1e6;
}
BENCHMARK(IndexRead)->Unit(benchmark::kMillisecond)->UseManualTime();

/// The slowest of the terms, each by the median of its rounds, as long as a driver waits.
void KeystrokeSearched(benchmark::State& state) {
    const auto index = MediaIndex::Read(Million().index).index;
    std::array<std::array<double, 15>, terms.size()> taken{};
    for (std::size_t round = 0; round < taken[0].size(); ++round) {
        for (std::size_t i = 0; i < terms.size(); ++i) {
            const auto begin = std::chrono::steady_clock::now();
            std::vector<std::string> words;
            for (const std::string_view word : zvr::text::Words(terms[i])) {
                words.push_back(zvr::FoldedText(word));
            }
            std::vector<MediaIndex::Place> places;
            zvr::EntryScan scan(index->SearchedText(), std::move(words));
            while (scan.Continue(std::size_t{16} << 20U, places)) {
            }
            taken[i][round] = Seconds(begin);
            benchmark::DoNotOptimize(places.data());
        }
    }
    std::size_t slowest = 0;
    for (std::size_t i = 0; i < terms.size(); ++i) {
        std::sort(taken[i].begin(), taken[i].end());
        slowest = Median(taken[i]) > Median(taken[slowest]) ? i : slowest;
    }
    for (auto _ : state) {
        state.SetIterationTime(Median(taken[slowest]));
    }
    state.SetLabel(terms[slowest]);
}
BENCHMARK(KeystrokeSearched)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);

/// What a user would take instead, for two rare words and for two common ones.
void KeystrokeGrepped(benchmark::State& state, const char* command) {
    const std::string line = "cd " + Million().folder.path + " && " + command;
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        FILE* const pipe = popen(line.c_str(), "r");
        char count[32] = "";
        const bool counted = std::fgets(count, sizeof count, pipe) != nullptr;
        pclose(pipe);
        state.SetIterationTime(Seconds(begin));
        if (!counted) {
            state.SkipWithError("it said nothing");
            break;
        }
    }
}
BENCHMARK_CAPTURE(KeystrokeGrepped, rare, "LC_ALL=C.UTF-8 grep -i harbour lines | LC_ALL=C.UTF-8 grep -ic lights")
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
BENCHMARK_CAPTURE(KeystrokeGrepped, common, "LC_ALL=C.UTF-8 grep -i a lines | LC_ALL=C.UTF-8 grep -ic mp3")
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();

}  // namespace
