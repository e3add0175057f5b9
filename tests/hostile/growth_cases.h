#ifndef IPSECIMPL_TESTS_HOSTILE_GROWTH_CASES_H
#define IPSECIMPL_TESTS_HOSTILE_GROWTH_CASES_H

/// \file
/// Documents that can be made as large as one likes, each in another direction, to see that what reading one costs
/// grows no faster than the document.

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace ipsecimpl {

struct GrowthCase {
    const char* name;
    std::string (*make)(std::size_t size); ///< about `size` bytes
    void (*read)(std::istream& in);        ///< throws ParseError where the document is one that is refused
    bool refused;                          ///< whether it is
};

const std::vector<GrowthCase>& growthCases();

/// Reads one element, whatever is in it, with the parser's own operations, and keeps nothing of it.
void readAnything(std::istream& in);

} // namespace ipsecimpl

#endif
