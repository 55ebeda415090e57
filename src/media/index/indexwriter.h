#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zvr {

/// Puts an index together in memory.
class IndexWriter {
public:
    /// False for what a line or a text of the index can't carry: a line's end, or bytes that are no UTF-8.
    [[nodiscard]] static bool CanHold(std::string_view name);

    /// The folder's number. None when the index has as many as it can have. `path` ends in the separator.
    [[nodiscard]] std::optional<int> AddFolder(std::string_view path);
    void AddEntry(std::string_view name, int folder);

    /// A place to go back to: all that was added since then is taken out again.
    struct Mark {
        std::size_t entries = 0;
        std::size_t folders = 0;
        int folderCount = 0;
        friend bool operator==(const Mark&, const Mark&) = default;
    };
    [[nodiscard]] Mark Now() const { return {entries.size(), folders.size(), folderCount}; }
    void GoBack(const Mark& mark);

    /// The whole file. The writer is empty afterwards.
    [[nodiscard]] std::string TakeText();

private:
    std::string entries;
    std::string folders;
    int folderCount = 0;
};

}  // namespace zvr
