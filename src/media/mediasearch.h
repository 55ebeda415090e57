#pragma once

#include "media/index/mediaindex.h"
#include "platform/eventloop.h"
#include "platform/lifetime.h"
#include "ui/form.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zvr {

class Program;

/// The screen of the search over the user's media: finds files by words of their names in an index that is held in
/// memory. A program of its own writes the index.
class MediaSearch {
public:
    explicit MediaSearch(Program& program);

    Form form{"mediasearch"};
    Control* resultlist = nullptr;
    Control* txtSearchTerm = nullptr;

    std::string indexBaseFolder = "*";  ///< "*": all fixed drives
    int refreshTimespan = 0;            ///< 0 never, 1 day, 2 week, 3 month
    bool askBeforeIndexBuild = false;
    std::string mediaSearchResult;  ///< what the status label shows
    bool creatingIndex = false;
    Timer tmrCheckIndex;  ///< each second, from the load of a skin on

    void Load();
    void TypeCharacter(std::string_view character);  ///< replaces the selection of the search box
    void ClearSearchTerm();

    /// Has the index written anew and waits for that, with events running; a second call meanwhile does nothing. What
    /// it wrote is read at the next visit.
    void CreateIndex();
    /// Of the selected row: plays the file in place of the queue, or shows its folder in the player. Asks and runs
    /// events.
    void PlaySelectedSearchresult(bool jumpToFolder);
    void AddSelectedSearchresult2Playlist();

private:
    struct Results;
    struct Chosen {
        std::string folder;  ///< with the separator
        std::string fullName;
        std::uint32_t attributes = 0;
    };

    [[nodiscard]] std::string IndexFile() const;
    void ReadIndexIfNewer();
    void IndexWasRead(const IndexReading& reading);
    void SearchAsTyped();
    void Search(std::string_view term);
    void ShowResults(std::shared_ptr<const Results> results);
    void ShowReadiness();
    void ShowCount();
    [[nodiscard]] std::optional<Chosen>
    Selected();  ///< none without a row, or after a message that it can't be reached
    void ShowFolder(const std::string& folder);
    void CheckIndexAge();
    [[nodiscard]] bool IsOutOfDate() const;

    Program& program;
    std::shared_ptr<const MediaIndex> index;  ///< the last that could be read, null before the first
    bool indexIsLoaded = false;
    bool readingIndex = false;
    std::optional<LocalTime> timeOfReading;
    std::uint8_t searchGeneration = 0;  ///< a search that finds another number here has been overtaken
    std::shared_ptr<const Results> shown;
    bool checkingAge = false;
    bool checkedAge = false;  ///< once, since the program began
    int checkTicks = 0;
    Lifetime lifetime;
};

}  // namespace zvr
