#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// Finds the entries of a long text that hold all of some words, at nearly the speed of the memory and on as many as
/// four processors. Each entry of the text ends in a zero byte and holds none before. Bytes are compared as they are.
class EntryScan {
public:
    /// `text` outlives this object. Empty words are everywhere.
    EntryScan(std::string_view text, std::vector<std::string> words);

    /// Looks through the next entries, `bytes` of them or a little more, and appends where those begin that hold all
    /// words. Waits for that. False when the text has been looked through.
    bool Continue(std::size_t bytes, std::vector<std::uint32_t>& found);

private:
    std::string_view text;
    std::vector<std::string> words;  ///< at least one, the rarest first
    std::size_t at = 0;              ///< what was looked through
};

}  // namespace zvr
