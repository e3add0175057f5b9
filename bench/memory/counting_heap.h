#ifndef IPSECIMPL_BENCH_MEMORY_COUNTING_HEAP_H
#define IPSECIMPL_BENCH_MEMORY_COUNTING_HEAP_H

#include <cstddef>

namespace bench {

/// What operator new gave to the whole program. A program that holds counting_heap.cpp has an operator new that counts.
struct Heap {
    std::size_t blocks; ///< that were ever allocated
    std::size_t total;  ///< bytes that were ever allocated
    std::size_t bytes;  ///< in use now, as large as the blocks really are
    std::size_t peak;   ///< the most bytes in use since resetPeak()
};

Heap heap();

/// What is in use now is the peak.
void resetPeak();

} // namespace bench

#endif
