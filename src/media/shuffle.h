#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace zvr {

/// A walk through the numbers below a count that may grow: in random order, none twice in one round, and back the way
/// it came.
class Shuffle {
public:
    explicit Shuffle(std::uint64_t seed) : random(seed) {}

    void Clear();  ///< forgets where it was
    /// The walk is at `number` now.
    void Choose(int number, int count);
    [[nodiscard]] int Next(int count);  ///< `count` at least 1
    /// Before the walk's beginning lies a number that it hasn't come by in this round.
    [[nodiscard]] int Previous(int count);

private:
    void Admit(int count);
    void AddRound(int count);
    void MixFrom(std::size_t begin);

    std::vector<int> order;  ///< the way so far, up to `place`, and what is still to come in this round
    int place = -1;
    int admitted = 0;  ///< numbers below it are in the order
    std::mt19937_64 random;
};

}  // namespace zvr
