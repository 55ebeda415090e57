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
    std::uint64_t settingsFile = 0;    ///< fingerprint of the settings file that `settings` is to replace
    int fadeInVolume = 0;              ///< percent that a fade under way is to reach, 0 for none
    std::string current;               ///< of the player's state the lines of the current item
    std::optional<std::string> items;  ///< and those of the queue; none when an end would leave restore.dat alone
};

// It lies in two files, since a long queue is too much to write again for each step of its position. The journal is
// whole by itself; the update says what has changed since, and names the one journal that it belongs to.

[[nodiscard]] std::string JournalText(const JournalContent& content);
/// `journal` is the fingerprint of the journal's text, `before` its content. The items are the same `now`.
[[nodiscard]] std::string JournalUpdateText(std::uint64_t journal, const JournalContent& before,
                                            const JournalContent& now);
/// None for anything that isn't a whole journal. An update that is none, or of another journal, counts for nothing.
/// Any bytes will do.
[[nodiscard]] std::optional<JournalContent> ParseJournal(std::string_view journal, std::string_view update);

/// Tells contents from one another.
[[nodiscard]] std::uint64_t Fingerprint(std::string_view content);

/// In a car the usual end is that the power goes. This file stands in for the save that then never happens: it is
/// there only while the program runs, so a start that finds it knows that the last run had no end. Nothing is written
/// while nothing changed, and never from the thread of the screen, since a memory card may take its time.
class Journal {
public:
    explicit Journal(Program& program);
    ~Journal();  ///< waits for a write on its way
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /// Puts what a run without an end left into the settings file and restore.dat. Before either is read. A settings
    /// file that somebody has edited since stays as it is. A fade that was cut off is due again.
    void Recover();
    void Start();      ///< from here on the journal follows; does nothing when it does
    void Flush();      ///< waits for the disk: what was written so far lies on it
    void WriteSoon();  ///< something changed that must not wait for the next ten seconds
    void WriteNow();   ///< the same, and waits for the disk
    void End();        ///< what it stood in for has been saved

    [[nodiscard]] bool IsIdle() const;  ///< no write is on its way or due
    std::uint64_t bytesWritten = 0;     ///< since the start
    std::uint64_t filesWritten = 0;

private:
    [[nodiscard]] std::string Path() const;
    [[nodiscard]] std::string UpdatePath() const;
    [[nodiscard]] bool IsWriting() const;
    [[nodiscard]] JournalContent Content() const;
    void Write();
    void WriteFile(const std::string& path, std::string text);
    void RemoveFiles() const;

    Program& program;
    bool running = false;
    std::optional<JournalContent> inJournal;  ///< none when the file on disk is not known to be whole
    std::uint64_t journalFingerprint = 0;
    std::string update;         ///< that says what the disk holds
    std::future<bool> writing;  ///< whether it succeeded
    Timer tmrRegular;
    Timer tmrRetry;
};

}  // namespace zvr
