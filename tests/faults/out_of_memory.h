#ifndef IPSECIMPL_TESTS_FAULTS_OUT_OF_MEMORY_H
#define IPSECIMPL_TESTS_FAULTS_OUT_OF_MEMORY_H

#include "faults/failing_new.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iostream>
#include <new>
#include <string>

namespace ipsecimpl {

/// Runs `operation(target)` again and again, each time on a new target from `make()`, with the first, the second, the
/// third ... allocation failing, until none is left to fail.
///
/// A failure must be seen as std::bad_alloc, leave the target as it was (`stateOf` tells) and no block behind, and the
/// operation must succeed on the same target right afterwards. Returns the number of failures.
template <class Make, class Operation, class StateOf>
std::size_t failEachAllocation(const Make& make, const Operation& operation, const StateOf& stateOf)
{
    auto succeeded = make();
    operation(succeeded);
    const std::string stateAfter = stateOf(succeeded);

    for (std::size_t n = 0;; ++n) {
        auto              target      = make();
        const std::string stateBefore = stateOf(target);
        const std::size_t blocks      = blocksInUse();
        bool              happened    = false;
        bool              seen        = false;
        {
            const FailingAllocation failing(n);
            try {
                operation(target);
            } catch (const std::bad_alloc&) {
                seen = true;
            }
            happened = failing.happened();
        }
        EXPECT_EQ(seen, happened) << "allocation " << n;
        if (!happened) {
            EXPECT_EQ(stateOf(target), stateAfter);
            return n;
        }
        EXPECT_EQ(blocksInUse(), blocks) << "allocation " << n;
        EXPECT_EQ(stateOf(target), stateBefore) << "allocation " << n;
        operation(target);
        EXPECT_EQ(stateOf(target), stateAfter) << "after allocation " << n;
        if (::testing::Test::HasFailure())
            return n;
    }
}

/// Prints how many failures a test has injected, for whoever collects the figures.
inline void report(std::size_t failures)
{
    ::testing::Test::RecordProperty("failures", std::to_string(failures));
    std::cout << "allocations that failed: " << failures << '\n';
}

} // namespace ipsecimpl

#endif
