#pragma once

#include "platform/eventloop.h"

#include <cstdint>
#include <future>
#include <optional>
#include <string>
#include <string_view>

namespace zvr {

class Program;

/// What the journal holds: the settings file and the player's state as an orderly end would leave them now.
struct JournalContent {
    std::string settings;
    std::optional<std::string> playerState;  ///< none when an end would leave restore.dat alone
};

[[nodiscard]] std::string JournalText(const JournalContent& content);
/// None for anything that isn't a whole journal. Any bytes will do.
[[nodiscard]] std::optional<JournalContent> ParseJournal(std::string_view text);

/// In a car the usual end is that the power goes. This file stands in for the save that then never happens: it is
/// there only while the program runs, so a start that finds it knows that the last run had no end. Nothing is written
/// while nothing changed, and never from the thread of the screen, since a memory card may take its time.
class Journal {
public:
    explicit Journal(Program& program);
    ~Journal();  ///< waits for a write on its way
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /// Puts what a run without an end left into the settings file and restore.dat. Before either is read.
    void Recover();
    void Start();      ///< from here on the journal follows; does nothing when it does
    void WriteSoon();  ///< something changed that must not wait for the next ten seconds
    void End();        ///< what it stood in for has been saved

    [[nodiscard]] bool IsIdle() const;  ///< no write is on its way or due
    std::uint64_t bytesWritten = 0;     ///< since the start

private:
    [[nodiscard]] std::string Path() const;
    [[nodiscard]] bool IsWriting() const;
    void Write();

    Program& program;
    bool running = false;
    std::string written;
    std::future<void> writing;
    Timer tmrRegular;
    Timer tmrRetry;
};

}  // namespace zvr
