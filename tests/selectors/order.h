#ifndef IPSECIMPL_TESTS_SELECTORS_ORDER_H
#define IPSECIMPL_TESTS_SELECTORS_ORDER_H

/// \file
/// What must hold for the order of either kind of selectors.

#include "selectors/fields.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <vector>

namespace ipsecimpl {

/// compare() says `result`, the other way round the opposite, and the operators say the same.
template <class Selector>
void expectOrder(const Selector& a, const Selector& b, int result)
{
    SCOPED_TRACE(fieldsOf(a) + "\nand " + fieldsOf(b));
    EXPECT_EQ(a.compare(b), result);
    EXPECT_EQ(b.compare(a), -result);
    EXPECT_EQ(a < b, result < 0);
    EXPECT_EQ(a <= b, result <= 0);
    EXPECT_EQ(a > b, result > 0);
    EXPECT_EQ(a >= b, result >= 0);
}

template <class Selector>
struct Ordered {
    Selector first;
    Selector second;
};

template <class Selector>
void expectFirstBeforeSecond(const std::vector<Ordered<Selector>>& rows)
{
    for (const Ordered<Selector>& row : rows)
        expectOrder(row.first, row.second, -1);
}

/// Random triples, many of whose fields are equal, are ordered as a set needs it, and as `less` says.
template <class Selector, class Make, class Less>
void expectStrictWeakOrder(Make make, Less less)
{
    std::mt19937 random(20);
    int          equivalents = 0;
    int          chains      = 0;
    for (int i = 0; i < 20000; ++i) {
        const Selector a = make(random);
        const Selector b = make(random);
        const Selector c = make(random);
        expectOrder(a, a, 0);
        expectOrder(a, b, less(a, b) ? -1 : (less(b, a) ? 1 : 0));
        if (a.compare(b) == 0) {
            ++equivalents;
            expectOrder(a, c, b.compare(c));
        }
        if (a < b && b < c) {
            ++chains;
            expectOrder(a, c, -1);
        }
        if (testing::Test::HasFailure())
            return;
    }
    EXPECT_GT(equivalents, 100) << "too few to show anything";
    EXPECT_GT(chains, 1000) << "too few to show anything";
}

/// One of `values`.
template <class Value>
Value pick(std::mt19937& random, const std::vector<Value>& values)
{
    return values[random() % values.size()];
}

} // namespace ipsecimpl

#endif
