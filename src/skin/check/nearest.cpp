#include "skin/check/nearest.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace zvr {
namespace {

/// Letters that are missing, too many, wrong, or swapped with their neighbour.
std::size_t Slips(std::string_view a, std::string_view b) {
    std::vector<std::size_t> before(b.size() + 1);
    std::vector<std::size_t> row(b.size() + 1);
    std::vector<std::size_t> next(b.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (std::size_t i = 0; i < a.size(); ++i) {
        next[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            next[j + 1] = std::min({row[j + 1] + 1, next[j] + 1, row[j] + (a[i] == b[j] ? 0 : 1)});
            if (i > 0 && j > 0 && a[i] == b[j - 1] && a[i - 1] == b[j]) {
                next[j + 1] = std::min(next[j + 1], before[j - 1] + 1);
            }
        }
        before.swap(row);
        row.swap(next);
    }
    return row.back();
}

}  // namespace

// Counted by the last word: "stop" and "show" are two words, not one with two slips.
NearestName::NearestName(std::string_view wanted)
    : wanted(wanted), slips(wanted.size() - (wanted.find_last_of("./") + 1) < 6 ? 2 : 3) {}

void NearestName::Consider(std::string_view name) {
    const std::size_t apart = std::max(name.size(), wanted.size()) - std::min(name.size(), wanted.size());
    if (apart >= slips) {
        return;  // no need to look closer
    }
    if (const std::size_t own = Slips(wanted, name); own < slips) {
        slips = own;
        found = name;
    }
}

}  // namespace zvr
