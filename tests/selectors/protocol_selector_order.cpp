#include "selectors/order.h"

#include <ipsecimpl/selectors.h>

#include <gtest/gtest.h>

#include <random>
#include <tuple>
#include <vector>

namespace ipsecimpl {
namespace {

using Selector = ProtocolSelector;

// A selector's numbers are protocol, destination port, source port. In each row what is looked at later says the
// opposite.
// clang-format off
TEST(ProtocolSelectorOrder, PutsAnyProtocolLast)
{
    expectFirstBeforeSecond<Selector>({
        {Selector(65535, 0, 0, PROTO_INOUT, true), Selector(0, 0, 0, PROTO_IN, false)},
        {Selector(65535, 0, 0, PROTO_INOUT, true), Selector(0, 1, 1, PROTO_IN, false)},
        {Selector(1,     0, 0, PROTO_OUT,   true), Selector(0, 1, 1, PROTO_OUT, false)},
    });
}

TEST(ProtocolSelectorOrder, PutsAnyPortLastLookingAtTheFirstPortBeforeTheSecond)
{
    expectFirstBeforeSecond<Selector>({
        {Selector(6, 9, 0, PROTO_INOUT, true), Selector(5, 0, 1, PROTO_IN, false)},
        {Selector(6, 9, 0, PROTO_IN,    true), Selector(5, 0, 1, PROTO_IN, false)},
        {Selector(6, 0, 9, PROTO_OUT,   true), Selector(5, 1, 0, PROTO_OUT, false)},
    });
}

TEST(ProtocolSelectorOrder, PutsAnySecondPortLastNext)
{
    expectFirstBeforeSecond<Selector>({
        {Selector(6, 9, 9, PROTO_INOUT, true), Selector(5, 1, 0, PROTO_IN, false)},
        {Selector(6, 0, 9, PROTO_INOUT, true), Selector(5, 0, 0, PROTO_IN, false)},
        {Selector(6, 9, 9, PROTO_OUT,   true), Selector(5, 0, 1, PROTO_OUT, false)},
    });
}

TEST(ProtocolSelectorOrder, TakesTheSourcePortFirstForOutOnly)
{
    expectFirstBeforeSecond<Selector>({
        {Selector(17, 53, 0,  PROTO_IN,    true), Selector(17, 53, 0,  PROTO_OUT,   true)},
        {Selector(17, 53, 0,  PROTO_INOUT, true), Selector(17, 53, 0,  PROTO_OUT,   true)},
        {Selector(17, 0,  53, PROTO_OUT,   true), Selector(17, 0,  53, PROTO_IN,    true)},
        {Selector(17, 0,  53, PROTO_OUT,   true), Selector(17, 0,  53, PROTO_INOUT, true)},
    });
}

TEST(ProtocolSelectorOrder, PutsMirroredSelectorsAfterTheOthersNext)
{
    expectFirstBeforeSecond<Selector>({
        {Selector(6, 9, 9, PROTO_INOUT, false), Selector(5, 1, 1, PROTO_IN, true)},
        {Selector(6, 0, 0, PROTO_INOUT, false), Selector(5, 0, 0, PROTO_IN, true)},
        {Selector(0, 9, 9, PROTO_INOUT, false), Selector(0, 1, 1, PROTO_IN, true)},
    });
}

TEST(ProtocolSelectorOrder, LooksAtTheDirectionNext)
{
    expectFirstBeforeSecond<Selector>({
        {Selector(6, 9, 9, PROTO_IN,  false), Selector(5, 1, 1, PROTO_OUT,   false)},
        {Selector(6, 9, 9, PROTO_OUT, false), Selector(5, 1, 1, PROTO_INOUT, false)},
        {Selector(6, 9, 9, PROTO_IN,  true),  Selector(5, 1, 1, PROTO_INOUT, true)},
        {Selector(0, 9, 9, PROTO_IN,  false), Selector(0, 1, 1, PROTO_OUT,   false)},
    });
}

TEST(ProtocolSelectorOrder, LooksAtTheProtocolNextWithoutASign)
{
    expectFirstBeforeSecond<Selector>({
        {Selector(6,     9, 9, PROTO_IN,    false), Selector(17,    1, 1, PROTO_IN,    false)},
        {Selector(1,     9, 9, PROTO_OUT,   false), Selector(65535, 1, 1, PROTO_OUT,   false)},
        {Selector(32767, 9, 9, PROTO_INOUT, false), Selector(32768, 1, 1, PROTO_INOUT, false)},
    });
}

TEST(ProtocolSelectorOrder, LooksAtTheFirstPortNextWithoutASign)
{
    expectFirstBeforeSecond<Selector>({
        {Selector(6, 1,     9, PROTO_IN,    false), Selector(6, 2,     1,     PROTO_IN,    false)},
        {Selector(6, 32767, 9, PROTO_INOUT, false), Selector(6, 32768, 1,     PROTO_INOUT, false)},
        {Selector(6, 9,     1, PROTO_OUT,   false), Selector(6, 1,     65535, PROTO_OUT,   false)},
        {Selector(6, 1,     0, PROTO_IN,    false), Selector(6, 2,     0,     PROTO_IN,    false)},
    });
}

TEST(ProtocolSelectorOrder, LooksAtTheSecondPortLastWithoutASign)
{
    expectFirstBeforeSecond<Selector>({
        {Selector(6, 1, 2, PROTO_IN,    false), Selector(6, 1,     3,     PROTO_IN,    false)},
        {Selector(6, 0, 1, PROTO_INOUT, false), Selector(6, 0,     65535, PROTO_INOUT, false)},
        {Selector(6, 1, 2, PROTO_OUT,   false), Selector(6, 32768, 2,     PROTO_OUT,   false)},
    });
}
// clang-format on

TEST(ProtocolSelectorOrder, IgnoresTheName)
{
    expectOrder(Selector("a", 6, 80, 0, PROTO_IN, true), Selector("b", 6, 80, 0, PROTO_IN, true), 0);
    expectOrder(Selector("b", 6, 80, 0, PROTO_IN, true), Selector("a", 6, 81, 0, PROTO_IN, true), -1);
}

TEST(ProtocolSelectorOrder, IgnoresThePortsOfAnyProtocol)
{
    expectOrder(Selector(0, 80, 81, PROTO_IN, true), Selector(0, 0, 0, PROTO_IN, true), 0);
    expectOrder(Selector(0, 80, 0, PROTO_OUT, true), Selector(0, 0, 90, PROTO_OUT, true), 0);
}

TEST(ProtocolSelectorOrder, IsStrictAndWeak)
{
    using Numbers = std::vector<unsigned short>;

    const auto make = [](std::mt19937& random) {
        const auto protocol  = pick(random, Numbers{0, 6, 40000});
        const auto dstPort   = pick(random, Numbers{0, 53, 40000});
        const auto srcPort   = pick(random, Numbers{0, 53, 40000});
        const auto direction = pick<Direction>(random, {PROTO_IN, PROTO_OUT, PROTO_INOUT});
        return Selector(protocol, dstPort, srcPort, direction, random() % 2 == 0);
    };
    const auto key = [](const Selector& s) {
        const bool out    = s.direction == PROTO_OUT;
        const int  first  = s.protocol == 0 ? 0 : (out ? s.srcPort : s.dstPort);
        const int  second = s.protocol == 0 ? 0 : (out ? s.dstPort : s.srcPort);
        return std::make_tuple(s.protocol == 0, first == 0, second == 0, s.mirrored, s.direction.valueGet(),
                               int{s.protocol}, first, second);
    };
    expectStrictWeakOrder<Selector>(make, [key](const Selector& a, const Selector& b) { return key(a) < key(b); });
}

TEST(ProtocolSelectorEquality, LooksAtAllFieldsButTheName)
{
    const Selector selector("a", 6, 80, 1024, PROTO_OUT, true);
    EXPECT_TRUE(selector == Selector("b", 6, 80, 1024, PROTO_OUT, true));
    EXPECT_FALSE(selector != Selector("b", 6, 80, 1024, PROTO_OUT, true));

    for (const Selector& other :
         {Selector("a", 17, 80, 1024, PROTO_OUT, true), Selector("a", 0, 80, 1024, PROTO_OUT, true),
          Selector("a", 6, 81, 1024, PROTO_OUT, true), Selector("a", 6, 80, 1025, PROTO_OUT, true),
          Selector("a", 6, 80, 1024, PROTO_INOUT, true), Selector("a", 6, 80, 1024, PROTO_OUT, false)}) {
        EXPECT_FALSE(selector == other) << fieldsOf(other);
        EXPECT_FALSE(other == selector) << fieldsOf(other);
        EXPECT_TRUE(selector != other) << fieldsOf(other);
    }
}

TEST(ProtocolSelectorEquality, DoesNotSwapThePortsByTheDirection)
{
    EXPECT_FALSE(Selector(6, 80, 81, PROTO_OUT, true) == Selector(6, 81, 80, PROTO_OUT, true));
    EXPECT_FALSE(Selector(6, 80, 81, PROTO_OUT, true) == Selector(6, 81, 80, PROTO_IN, true));
}

TEST(ProtocolSelectorEquality, IgnoresThePortsOfAnyProtocol)
{
    EXPECT_TRUE(Selector(0, 80, 81, PROTO_IN, true) == Selector(0, 0, 7, PROTO_IN, true));
    EXPECT_FALSE(Selector(0, 80, 81, PROTO_IN, true) == Selector(0, 80, 81, PROTO_IN, false));
    EXPECT_FALSE(Selector(0, 80, 81, PROTO_IN, true) == Selector(0, 80, 81, PROTO_OUT, true));
}

} // namespace
} // namespace ipsecimpl
