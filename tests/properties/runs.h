#ifndef IPSECIMPL_TESTS_PROPERTIES_RUNS_H
#define IPSECIMPL_TESTS_PROPERTIES_RUNS_H

/// \file
/// How often a property is tried, and with which seeds.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

namespace ipsecimpl {

/// IPSECIMPL_PROPERTY_RUNS in the environment, or as many as take no time to speak of.
inline std::uint64_t propertyRuns()
{
    const char* const wanted = std::getenv("IPSECIMPL_PROPERTY_RUNS");
    return wanted == nullptr ? 300 : std::stoull(wanted);
}

/// Calls `holds(seed)` for the seeds 1, 2, 3 ... until one fails, whose failures then name it. To try it alone, give it
/// as IPSECIMPL_PROPERTY_SEED.
template <class Property>
void forEachSeed(const Property& holds)
{
    const char* const   only  = std::getenv("IPSECIMPL_PROPERTY_SEED");
    const std::uint64_t first = only == nullptr ? 1 : std::stoull(only);
    const std::uint64_t last  = only == nullptr ? propertyRuns() : first;
    for (std::uint64_t seed = first; seed <= last && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("IPSECIMPL_PROPERTY_SEED=" + std::to_string(seed));
        holds(seed);
    }
    testing::Test::RecordProperty("runs", std::to_string(last - first + 1));
    std::cout << "runs: " << last - first + 1 << '\n';
}

} // namespace ipsecimpl

#endif
