// What reading, storing and editing cost, counted and not timed, must not grow faster than the document or the
// configuration: heap blocks, bytes in all blocks, and the most of them at a time. `scripts/growth` counts instructions
// in the same way.

#include "hostile/growth_cases.h"
#include "hostile/growth_operations.h"

#include "memory/counting_heap.h"

#include <ipsecimpl/xml.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>

namespace ipsecimpl {
namespace {

struct Cost {
    std::size_t blocks;
    std::size_t total; ///< bytes of all blocks, also of those that were given back
    std::size_t peak;  ///< bytes in use at most
};

Cost difference(const bench::Heap& before, const bench::Heap& after)
{
    return {after.blocks - before.blocks, after.total - before.total, after.peak - before.bytes};
}

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
    return difference(before, after);
}

Cost costOf(const GrowthOperation& growth, std::size_t size)
{
    const bench::Heap empty = bench::heap();
    Cost              cost{};
    {
        const std::function<void()> operation = growth.prepare(size);
        bench::resetPeak();
        const bench::Heap before = bench::heap();
        EXPECT_NO_THROW(operation()) << growth.name;
        cost = difference(before, bench::heap());
    }
    EXPECT_EQ(bench::heap().bytes, empty.bytes) << growth.name;
    return cost;
}

/// Does each of `cases` cost more in proportion only?
template <class Cases>
void expectProportion(const Cases& cases)
{
    constexpr std::size_t size = 100'000;
    for (const auto& growth : cases) {
        const Cost once = costOf(growth, size);
        const Cost more = costOf(growth, 4 * size);
        // A string that grows doubles its room, so that up to twice the proportion can come by chance.
        EXPECT_LE(more.blocks, 4 * once.blocks + 50) << growth.name;
        EXPECT_LE(more.total, 8 * once.total + 5000) << growth.name;
        EXPECT_LE(more.peak, 8 * once.peak + 5000) << growth.name;
    }
}

/// The one of `cases` that is called so.
template <class Cases>
const auto& caseOf(const Cases& cases, const std::string& name)
{
    const auto growth =
        std::find_if(std::begin(cases), std::end(cases), [&name](const auto& each) { return each.name == name; });
    if (growth == std::end(cases))
        throw std::invalid_argument("no case is called " + name);
    return *growth;
}

TEST(Growth, OfADocumentInAnyDirectionMakesReadingCostMoreInProportionOnly)
{
    expectProportion(growthCases());
}

TEST(Growth, OfWhatIsReadAndNotKeptCostsNoMemory)
{
    for (const char* name : {"elements with nothing in them", "attributes of one element", "attributes without a value",
                             "white space in front of the document", "white space in a tag", "white space between tags",
                             "equal host selectors", "equal protocol selectors with names", "next IDs"}) {
        const GrowthCase& growth = caseOf(growthCases(), name);
        EXPECT_EQ(costOf(growth, 400'000).peak, costOf(growth, 100'000).peak) << name;
    }
}

// From here on the heap has gaps. A block that malloc finds in one can be some bytes larger than another of the same
// request, so what compares peaks to the byte stands above.

TEST(Growth, OfAConfigurationMakesWhatIsDoneWithItCostMoreInProportionOnly)
{
    expectProportion(growthOperations());
}

TEST(Growth, OfAConfigurationDoesNotMakeStoringRemovingAndMovingTakeMemory)
{
    for (const char* name : {"storing host groups", "storing protocol groups", "storing actions", "storing policies",
                             "storing a host group of many selectors", "storing a protocol group of many selectors",
                             "storing an action of many proposals", "storing one text",
                             "removing entries from the front", "removing entries from the back",
                             "removing entries in no order", "iterating", "assigning a configuration by moving"}) {
        EXPECT_EQ(costOf(caseOf(growthOperations(), name), 400'000).blocks, 0U) << name;
    }
}

} // namespace
} // namespace ipsecimpl
