#pragma once

#include "media/mediaplayer.h"
#include "platform/headless/drives.h"
#include "platform/headless/mediacontrol.h"
#include "platform/headless/mixer.h"
#include "platform/platform.h"
#include "support/bench.h"
#include "system/playervolume.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace zvr {

/// A bench with a folder of music and the player in front.
class PlayerBench : public ::testing::Test {
protected:
    Bench bench;
    MediaControl::State& media = *bench.platform.media.state;
    std::vector<Drive>& drives = bench.platform.drives.state->mounted;

    /// Empty files below the music folder.
    void Music(std::initializer_list<const char*> names) {
        for (const char* name : names) {
            bench.folder.Write(std::string("music/") + name, "");
        }
    }
    /// Starts the program and shows the player. Lists are sorted, so that tests know where a row is.
    void Open(const std::string& playerSettings = {}, const std::string& generalSettings = {}) {
        bench.settings = "[general]\nSHOWWARNING=0\nPOSTSORTDIRECTORYLISTINGS=1\n" + generalSettings +
                         "\n[mediaplayer]\nAUDIOFOLDER=" + MusicFolder() + "\n" + playerSettings;
        bench.Start();
        bench.AnswerMessages();
        bench.program->dispatchCommand("mediaplayer.show");
    }

    [[nodiscard]] MediaPlayer& Player() { return bench.program->mediaplayer; }
    [[nodiscard]] PlayQueue& Wmp() { return bench.program->mediaplayer.wmp; }
    [[nodiscard]] PlayerVolume& Volume() { return bench.program->playervolume; }
    [[nodiscard]] Grid& List() { return *Player().medialist->grid; }
    void Do(const std::string& command) { bench.program->dispatchCommand(command); }
    [[nodiscard]] std::string Text(const char* key) { return bench.program->languageText(key); }

    [[nodiscard]] std::string MusicFolder() const { return bench.folder.path + "/music"; }
    [[nodiscard]] std::string InMusic(const std::string& name) const { return MusicFolder() + "/" + name; }

    [[nodiscard]] static std::vector<std::string> RowsOf(const Grid& grid) {
        std::vector<std::string> rows;
        for (int row = 1; row <= grid.RowCount(); ++row) {
            rows.push_back(grid.RowAt(row).text);
        }
        return rows;
    }
    [[nodiscard]] std::vector<std::string> Rows() { return RowsOf(List()); }
    [[nodiscard]] std::string SelectedRow() { return List().Row() == 0 ? "" : List().RowAt(List().Row()).text; }
    [[nodiscard]] ListIcon IconOf(const std::string& name) { return List().RowAt(List().FindText(name)).icon; }

    void Select(const std::string& name) {
        ASSERT_GT(List().FindText(name), 0) << name << " is not in the list";
        List().Select(List().FindText(name));
    }
    /// Chooses the row as a double tap does.
    void Choose(const std::string& name) {
        Select(name);
        Player().PlaySelectedFile();
        bench.Advance(Milliseconds{200});
    }
    [[nodiscard]] std::vector<std::string> Queue() {
        std::vector<std::string> names;
        for (int i = 0; i < Wmp().Count(); ++i) {
            names.push_back(Wmp().Item(i).sourceURL);
        }
        return names;
    }
    [[nodiscard]] std::string Playing() {
        return Wmp().CurrentMedia() == nullptr ? "" : Wmp().CurrentMedia()->sourceURL;
    }
};

}  // namespace zvr
