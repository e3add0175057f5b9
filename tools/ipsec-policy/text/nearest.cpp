#include "nearest.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace {

const std::size_t FURTHEST    = 2;
const std::size_t LEAST_PIECE = 3; // shorter pieces are in too many words

/// How many characters must be put in, left out or exchanged to make one of the other.
std::size_t distance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> row(b.size() + 1); // from so much of `a` to each start of `b`
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char c : a) {
        std::size_t diagonal = row[0]++;
        for (std::size_t i = 0; i < b.size(); ++i) {
            const std::size_t exchanged = diagonal + (c == b[i] ? 0 : 1);
            diagonal                    = row[i + 1];
            row[i + 1]                  = std::min({exchanged, row[i] + 1, row[i + 1] + 1});
        }
    }
    return row.back();
}

} // namespace

std::string nearest(std::string_view word, const std::vector<std::string>& words)
{
    if (word.size() > 64) // whatever that is, nobody typed it
        return "";
    std::string best;
    std::size_t least = FURTHEST + 1;
    for (const std::string& candidate : words)
        if (const std::size_t far = distance(word, candidate); far < least && 2 * far < candidate.size()) {
            best  = candidate;
            least = far;
        }
    if (!best.empty() || word.size() < LEAST_PIECE)
        return best;
    const auto whole = std::find_if(words.begin(), words.end(), [word](const std::string& candidate) {
        return candidate.find(word) != std::string::npos;
    });
    return whole == words.end() ? "" : *whole;
}
