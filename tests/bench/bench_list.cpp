#include "core/godfather.h"
#include "media/mediaplayer.h"
#include "support/minimal.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

namespace {

/// A folder of that many media files, names as albums have them. Made once: making it takes far longer than reading it.
std::string FolderOf(long files) {
    static const zvr::TemporaryFolder all;
    const std::string folder = all.path + "/" + std::to_string(files);
    if (std::filesystem::create_directories(folder)) {
        for (long i = 0; i < files; ++i) {
            std::ofstream(folder + "/" + std::to_string(i * 7919 % files) + " - A Name of Usual Length.mp3");
        }
    }
    return folder;
}

void FolderListed(benchmark::State& state, bool sorted) {
    const auto bench = zvr::RunningBench();
    const std::string folder = FolderOf(state.range(0));
    zvr::MediaPlayer& player = bench->program->mediaplayer;
    bench->program->godfather.postSortDirectoryListings = sorted;
    for (auto _ : state) {
        player.ReadDirectory(folder);
    }
    if (player.medialist->grid->RowCount() != state.range(0) + 1) {
        state.SkipWithError("rows are missing");
    }
}
BENCHMARK_CAPTURE(FolderListed, as_scanned, false)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FolderListed, sorted, true)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void PlayingFileMarked(benchmark::State& state) {
    const auto bench = zvr::RunningBench();
    zvr::MediaPlayer& player = bench->program->mediaplayer;
    player.ReadDirectory(FolderOf(state.range(0)));
    player.medialist->grid->Select(2);
    player.PlaySelectedFile();
    for (auto _ : state) {
        player.Next();
        bench->Advance(zvr::Milliseconds{1});
    }
}
BENCHMARK(PlayingFileMarked)->Arg(100'000)->Unit(benchmark::kMillisecond);

void FolderQueued(benchmark::State& state) {
    const auto bench = zvr::RunningBench();
    zvr::MediaPlayer& player = bench->program->mediaplayer;
    player.ReadDirectory(FolderOf(state.range(0)));
    player.medialist->grid->Select(2);
    for (auto _ : state) {
        player.PlaySelectedFile();
    }
}
BENCHMARK(FolderQueued)->Arg(10'000)->Unit(benchmark::kMillisecond);

void FolderAddedToPlaylist(benchmark::State& state) {
    const auto bench = zvr::RunningBench();
    zvr::MediaPlayer& player = bench->program->mediaplayer;
    const std::string folder = FolderOf(state.range(0));
    player.currentPlaylistFile = bench->folder.Write("many.m3u", "");
    for (auto _ : state) {
        state.PauseTiming();
        bench->folder.Write("many.m3u", "");
        state.ResumeTiming();
        player.AddThis2Playlist(folder, zvr::files::attributeDirectory);
    }
}
BENCHMARK(FolderAddedToPlaylist)->Arg(10'000)->Unit(benchmark::kMillisecond);

}  // namespace
