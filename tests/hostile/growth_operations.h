#ifndef IPSECIMPL_TESTS_HOSTILE_GROWTH_OPERATIONS_H
#define IPSECIMPL_TESTS_HOSTILE_GROWTH_OPERATIONS_H

/// \file
/// What a program does with a configuration that can be made as large as one likes, other than reading it, to see that
/// what it costs grows no faster than the configuration.

#include <cstddef>
#include <functional>
#include <vector>

namespace ipsecimpl {

struct GrowthOperation {
    const char* name;

    /// Makes what is operated on, with one entry, selector or the like for each 100 of `size`, and returns the
    /// operation. To be called once; throws `std::logic_error` if it did not do what it is called after.
    std::function<void()> (*prepare)(std::size_t size);
};

const std::vector<GrowthOperation>& growthOperations();

} // namespace ipsecimpl

#endif
