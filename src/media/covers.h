#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// Which picture of a folder is its cover, by the names alone.
class CoverRanking {
public:
    /// `words` is ";" separated: a picture whose name holds an earlier one, in any case, is the better cover.
    explicit CoverRanking(std::string_view words);

    /// A file of the folder. One that can't be a cover doesn't count. Any bytes will do.
    void Add(std::string_view fileName);
    /// As they are to be tried: the best one if a name holds a word, of equal ones the first; then all others as they
    /// were added.
    [[nodiscard]] std::vector<std::string> Order() const;

private:
    static constexpr std::size_t lowestRank = 255;

    std::vector<std::string> words;
    std::vector<std::string> names;
    std::size_t best = 0;  ///< index of the name with that rank
    std::size_t bestRank = lowestRank;
};

}  // namespace zvr
