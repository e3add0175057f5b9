#ifndef IPSECIMPL_TESTS_HOSTILE_SWEEP_H
#define IPSECIMPL_TESTS_HOSTILE_SWEEP_H

/// \file
/// Sweeps over every byte of a document. Some are too long for a run under sanitizers or an emulator; there, and in
/// every ordinary run, they look at some of the places alone. `scripts/sweeps` has them look at all.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace ipsecimpl {

/// Are long sweeps to be whole?
inline bool wholeSweeps()
{
    return std::getenv("IPSECIMPL_WHOLE_SWEEPS") != nullptr;
}

/// The numbers from `first` to `last`: all of them if sweeps are whole, else every one in `step`, and `last`.
inline std::vector<std::size_t> places(std::size_t first, std::size_t last, std::size_t step)
{
    std::vector<std::size_t> all;
    for (std::size_t place = first; place < last; place += wholeSweeps() ? 1 : step)
        all.push_back(place);
    all.push_back(last);
    return all;
}

/// Prints how many cases a test has tried, for whoever collects the figures.
inline void reportCases(std::size_t cases)
{
    ::testing::Test::RecordProperty("cases", std::to_string(cases));
    std::cout << "cases: " << cases << '\n';
}

} // namespace ipsecimpl

#endif
