#include "selectors/order.h"

#include <ipsecimpl/selectors.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace ipsecimpl {
namespace {

HostSelector host(AddressFamily family, AddressType type, int length, const std::string& addr1,
                  const std::string& addr2)
{
    HostSelector selector;
    selector.family       = family;
    selector.selectorType = type;
    selector.length       = length;
    selector.addr1        = addr1;
    selector.addr2        = addr2;
    return selector;
}

const HostSelector subnet = host(HOST_INET, HOST_SUBNET_LENGTH, 16, "10.1.0.0", "255.255.0.0");

// In each row the fields that are looked at later say the opposite.
// clang-format off
TEST(HostSelectorOrder, LooksAtTheFamilyFirst)
{
    expectFirstBeforeSecond<HostSelector>({
        {host(HOST_INET,  HOST_MCAST, 1, "a", "a"), host(HOST_INET6,   HOST_NONE, 2, "b", "b")},
        {host(HOST_INET,  HOST_MCAST, 1, "a", "a"), host(HOST_INETANY, HOST_NONE, 2, "b", "b")},
        {host(HOST_INET6, HOST_MCAST, 1, "a", "a"), host(HOST_INETANY, HOST_NONE, 2, "b", "b")},
    });
}

TEST(HostSelectorOrder, LooksAtTheTypeNext)
{
    for (int type = 0; type + 1 < __AddressTypeNum__; ++type)
        expectFirstBeforeSecond<HostSelector>({
            {host(HOST_INET, type, 1, "a", "a"), host(HOST_INET, type + 1, 2, "b", "b")},
        });
}

TEST(HostSelectorOrder, PutsTheLongerPrefixFirst)
{
    expectFirstBeforeSecond<HostSelector>({
        {host(HOST_INET, HOST_SINGLE, 24,         "a", "a"), host(HOST_INET, HOST_SINGLE, 16,          "b", "b")},
        {host(HOST_INET, HOST_SINGLE, 0,          "a", "a"), host(HOST_INET, HOST_SINGLE, -1,          "b", "b")},
        {host(HOST_INET, HOST_SINGLE, 2147483647, "a", "a"), host(HOST_INET, HOST_SINGLE, -2147483647 - 1, "b", "b")},
    });
}

TEST(HostSelectorOrder, PutsTheGreaterFirstAddressFirst)
{
    expectFirstBeforeSecond<HostSelector>({
        {host(HOST_INET, HOST_SINGLE, 0, "10.0.0.2", "a"), host(HOST_INET, HOST_SINGLE, 0, "10.0.0.1",  "b")},
        {host(HOST_INET, HOST_SINGLE, 0, "10.0.0.9", "a"), host(HOST_INET, HOST_SINGLE, 0, "10.0.0.10", "b")},
        {host(HOST_INET, HOST_SINGLE, 0, "10.0.0.1", "a"), host(HOST_INET, HOST_SINGLE, 0, "10.0.0.",   "b")},
        {host(HOST_INET, HOST_SINGLE, 0, "a",        "a"), host(HOST_INET, HOST_SINGLE, 0, "",          "b")},
        {host(HOST_INET, HOST_SINGLE, 0, "fd00::a",  "a"), host(HOST_INET, HOST_SINGLE, 0, "fd00::A",   "b")},
        {host(HOST_INET, HOST_SINGLE, 0, "\xFF",     "a"), host(HOST_INET, HOST_SINGLE, 0, "~",         "b")},
    });
}

TEST(HostSelectorOrder, PutsTheGreaterSecondAddressFirst)
{
    expectFirstBeforeSecond<HostSelector>({
        {host(HOST_INET, HOST_RANGE, 0, "a", "10.0.0.2"), host(HOST_INET, HOST_RANGE, 0, "a", "10.0.0.1")},
        {host(HOST_INET, HOST_RANGE, 0, "a", "10.0.0.1"), host(HOST_INET, HOST_RANGE, 0, "a", "10.0.0.")},
        {host(HOST_INET, HOST_RANGE, 0, "a", "a"),        host(HOST_INET, HOST_RANGE, 0, "a", "")},
        {host(HOST_INET, HOST_RANGE, 0, "a", "\x80"),     host(HOST_INET, HOST_RANGE, 0, "a", "\x7F")},
    });
}
// clang-format on

TEST(HostSelectorOrder, FindsNoDifferenceWhereAllFieldsAreEqual)
{
    expectOrder(subnet, HostSelector(subnet), 0);
    expectOrder(HostSelector(), HostSelector(), 0);
}

TEST(HostSelectorOrder, TellsTheTwoKindsOfSubnetsApart)
{
    const HostSelector byLength(HOST_INET, HOST_SUBNET_LENGTH, "10.0.0.0", 8);
    const HostSelector byMask(HOST_INET, HOST_SUBNET_MASK, "10.0.0.0", "255.0.0.0");
    expectOrder(byLength, byMask, -1);
    EXPECT_TRUE(byLength != byMask);
    EXPECT_FALSE(byLength == byMask);
}

TEST(HostSelectorOrder, IsStrictAndWeak)
{
    const auto make = [](std::mt19937& random) {
        return host(pick<AddressFamily>(random, {HOST_INET, HOST_INET6}),
                    pick<AddressType>(random, {HOST_SINGLE, HOST_SUBNET_MASK}), pick<int>(random, {-1, 0, 24}),
                    pick<std::string>(random, {"", "10.0.0.1", "10.0.0.10"}),
                    pick<std::string>(random, {"", "\xFF", "a"}));
    };
    const auto less = [](const HostSelector& a, const HostSelector& b) {
        return std::make_tuple(a.family.valueGet(), a.selectorType.valueGet(), b.length, b.addr1, b.addr2) <
               std::make_tuple(b.family.valueGet(), b.selectorType.valueGet(), a.length, a.addr1, a.addr2);
    };
    expectStrictWeakOrder<HostSelector>(make, less);
}

TEST(HostSelectorEquality, LooksAtAllFieldsButTheLength)
{
    const HostSelector equal = subnet;
    EXPECT_TRUE(subnet == equal);
    EXPECT_FALSE(subnet != equal);

    std::vector<HostSelector> others(6, subnet);
    others[0].family       = HOST_INET6;
    others[1].selectorType = HOST_SUBNET_MASK;
    others[2].addr1        = "10.2.0.0";
    others[3].addr2        = "255.255.1.0";
    others[4].addr1        = "10.1.0.";
    others[5].addr2        = "255.255.0.0 ";
    for (const HostSelector& other : others) {
        EXPECT_FALSE(subnet == other) << fieldsOf(other);
        EXPECT_FALSE(other == subnet) << fieldsOf(other);
        EXPECT_TRUE(subnet != other) << fieldsOf(other);
    }
}

TEST(HostSelectorEquality, DoesNotSeeALengthThatTheOrderSees)
{
    HostSelector longer = subnet;
    longer.length       = 24;
    EXPECT_TRUE(longer == subnet);
    EXPECT_FALSE(longer != subnet);
    expectOrder(longer, subnet, -1);
}

} // namespace
} // namespace ipsecimpl
