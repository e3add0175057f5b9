#ifndef IPSECIMPL_TESTS_FAULTS_FAILING_NEW_H
#define IPSECIMPL_TESTS_FAULTS_FAILING_NEW_H

/// \file
/// An operator new that runs out of memory when it is told to.

#include <cstddef>

namespace ipsecimpl {

/// While an object of this class lives, the allocation after the first `successes` ones fails, and only that one.
/// Objects must not overlap.
class FailingAllocation {
  public:
    explicit FailingAllocation(std::size_t successes);
    ~FailingAllocation();

    FailingAllocation(const FailingAllocation&)            = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    /// Whether it came to that.
    bool happened() const;
};

/// Number of heap blocks in use.
std::size_t blocksInUse();

} // namespace ipsecimpl

#endif
