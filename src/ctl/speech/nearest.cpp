#include "ctl/speech/nearest.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace kzq::ctl {
namespace {

/// How many letters have to be added, removed, replaced or swapped with their neighbour.
std::size_t distance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> before;
    std::vector<std::size_t> last(b.size() + 1);
    std::iota(last.begin(), last.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::vector<std::size_t> row(b.size() + 1, i);
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({row[j - 1] + 1, last[j] + 1, replaced});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                row[j] = std::min(row[j], before[j - 2] + 1);
            }
        }
        before = std::exchange(last, std::move(row));
    }
    return last.back();
}

}  // namespace

std::string nearest(const std::string& word, const std::vector<std::string>& candidates) {
    constexpr std::size_t shortest = 3;
    std::string best;
    std::size_t least = std::max(word.size(), shortest) / 3 + 1;  // a third of the letters may be wrong
    for (const auto& candidate : candidates) {
        const bool begun = word.size() >= shortest && candidate.starts_with(word);
        const std::size_t steps = begun ? 0 : distance(word, candidate);
        if (steps < least) {
            least = steps;
            best = candidate;
        }
    }
    return best;
}

}  // namespace kzq::ctl
