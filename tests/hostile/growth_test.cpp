// What reading costs, counted and not timed, must not grow faster than the document: heap blocks, bytes in all blocks,
// and the most of them at a time. `scripts/growth` counts instructions in the same way.

#include "hostile/growth_cases.h"

#include "memory/counting_heap.h"

#include <ipsecimpl/xml.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <sstream>
#include <string>

namespace ipsecimpl {
namespace {

struct Cost {
    std::size_t blocks;
    std::size_t total; ///< bytes of all blocks, also of those that were given back
    std::size_t peak;  ///< bytes in use at most
};

Cost costOf(const GrowthCase& growth, std::size_t size)
{
    std::istringstream in(growth.make(size));
    bench::resetPeak();
    const bench::Heap before = bench::heap();
    try {
        growth.read(in);
        EXPECT_FALSE(growth.refused) << growth.name;
    } catch (const ParseError& error) {
        EXPECT_TRUE(growth.refused) << growth.name << ": " << error.what();
    }
    const bench::Heap after = bench::heap();
    EXPECT_EQ(after.bytes, before.bytes) << growth.name;
    return {after.blocks - before.blocks, after.total - before.total, after.peak - before.bytes};
}

TEST(Growth, OfADocumentInAnyDirectionMakesReadingCostMoreInProportionOnly)
{
    constexpr std::size_t size = 100'000;
    for (const GrowthCase& growth : growthCases()) {
        const Cost once = costOf(growth, size);
        const Cost more = costOf(growth, 4 * size);
        // A string that grows doubles its room, so that up to twice the proportion can come by chance.
        EXPECT_LE(more.blocks, 4 * once.blocks + 50) << growth.name;
        EXPECT_LE(more.total, 8 * once.total + 5000) << growth.name;
        EXPECT_LE(more.peak, 8 * once.peak + 5000) << growth.name;
    }
}

TEST(Growth, OfWhatIsReadAndNotKeptCostsNoMemory)
{
    for (const char* name : {"elements with nothing in them", "attributes of one element", "attributes without a value",
                             "white space in front of the document", "white space in a tag", "white space between tags",
                             "equal host selectors", "equal protocol selectors with names", "next IDs"}) {
        const auto& cases  = growthCases();
        const auto  growth = std::find_if(std::begin(cases), std::end(cases),
                                          [name](const GrowthCase& each) { return each.name == std::string(name); });
        ASSERT_NE(growth, std::end(cases)) << name;
        EXPECT_EQ(costOf(*growth, 400'000).peak, costOf(*growth, 100'000).peak) << name;
    }
}

} // namespace
} // namespace ipsecimpl
