#ifndef IPSECIMPL_TESTS_FAULTS_FAILING_NEW_H
#define IPSECIMPL_TESTS_FAULTS_FAILING_NEW_H

/// \file
/// An operator new that runs out of memory when it is told to. One thread at a time.

#include <cstddef>
#include <ostream>

namespace ipsecimpl {

/// How long memory is short: for one allocation, so that what comes after it finds memory again, or from there on, so
/// that cleaning up finds none either.
enum class Shortage { Once, Lasting };

std::ostream& operator<<(std::ostream& out, Shortage shortage);

/// While an object of this class lives, the allocation after the first `successes` ones fails, and if the shortage
/// lasts all that follow. Objects must not overlap.
class FailingAllocation {
  public:
    FailingAllocation(std::size_t successes, Shortage shortage);
    ~FailingAllocation();

    FailingAllocation(const FailingAllocation&)            = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    /// Whether it came to that.
    bool happened() const;
};

/// What is allocated and not yet freed.
struct MemoryInUse {
    std::size_t blocks;
    std::size_t bytes;
};

inline bool operator==(const MemoryInUse& a, const MemoryInUse& b)
{
    return a.blocks == b.blocks && a.bytes == b.bytes;
}

std::ostream& operator<<(std::ostream& out, const MemoryInUse& memory);

MemoryInUse memoryInUse();

/// The most bytes that were in use at once since the last call, or since the program began.
std::size_t takePeakBytes();

} // namespace ipsecimpl

#endif
