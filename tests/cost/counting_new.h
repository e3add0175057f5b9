#ifndef IPSECIMPL_TESTS_COST_COUNTING_NEW_H
#define IPSECIMPL_TESTS_COST_COUNTING_NEW_H

#include <cstddef>

namespace ipsecimpl {

/// Number of heap blocks allocated so far, those that were given back included.
std::size_t blocksAllocated();

/// Number of blocks that `call()` allocates.
template <class Call>
std::size_t blocksOf(Call&& call)
{
    const std::size_t before = blocksAllocated();
    call();
    return blocksAllocated() - before;
}

} // namespace ipsecimpl

#endif
