#include "selectors/fields.h"
#include "support/xml.h"

#include <ipsecimpl/selectors.h>

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace ipsecimpl {
namespace {

using namespace std::string_literals;

/// Why the constructor refuses these arguments.
template <class... Arguments>
std::string refusalOfNew(const Arguments&... arguments)
{
    return errorOf<std::invalid_argument>([&] { HostSelector(arguments...); });
}

TEST(HostSelector, StartsAsAnIPv4SelectorOfNothing)
{
    EXPECT_EQ(fieldsOf(HostSelector()), "AF_INET NONE '' '' 0");
}

TEST(HostSelector, IsAValueWithoutVirtuals)
{
    EXPECT_TRUE(std::is_copy_constructible_v<HostSelector>);
    EXPECT_TRUE(std::is_copy_assignable_v<HostSelector>);
    EXPECT_FALSE(std::is_polymorphic_v<HostSelector>);
}

TEST(HostSelector, StoresTwoTextsUncheckedForTypesWithoutMask)
{
    for (const AddressFamily& family : {HOST_INET, HOST_INET6, HOST_INETANY})
        for (const AddressType& type : {HOST_NONE, HOST_SINGLE, HOST_RANGE, HOST_LOCAL, HOST_ANY, HOST_MCAST}) {
            const HostSelector selector(family, type, "no address", " neither ");
            EXPECT_TRUE(selector.family == family);
            EXPECT_TRUE(selector.selectorType == type);
            EXPECT_EQ(selector.addr1, "no address");
            EXPECT_EQ(selector.addr2, " neither ");
            EXPECT_EQ(selector.length, 0);
        }
}

TEST(HostSelector, StoresALengthUncheckedForTypesWithoutMask)
{
    for (const AddressFamily& family : {HOST_INET, HOST_INET6, HOST_INETANY})
        for (const AddressType& type : {HOST_NONE, HOST_SINGLE, HOST_RANGE, HOST_LOCAL, HOST_ANY, HOST_MCAST}) {
            const HostSelector selector(family, type, "no address", -5);
            EXPECT_TRUE(selector.family == family);
            EXPECT_TRUE(selector.selectorType == type);
            EXPECT_EQ(selector.addr1, "no address");
            EXPECT_EQ(selector.addr2, "");
            EXPECT_EQ(selector.length, -5);
        }
}

TEST(HostSelector, ComputesTheLengthOfAMask)
{
    EXPECT_EQ(fieldsOf(HostSelector(HOST_INET, HOST_SUBNET_MASK, "10.0.0.0", "255.0.0.0")),
              "AF_INET SUBNET_MASK '10.0.0.0' '255.0.0.0' 8");
    EXPECT_EQ(fieldsOf(HostSelector(HOST_INET6, HOST_SUBNET_MASK, "fd00::", "FFFF:ff00::")),
              "AF_INET6 SUBNET_MASK 'fd00::' 'FFFF:ff00::' 24");
}

TEST(HostSelector, ComputesTheMaskOfALength)
{
    EXPECT_EQ(fieldsOf(HostSelector(HOST_INET, HOST_SUBNET_LENGTH, "10.0.0.0", 8)),
              "AF_INET SUBNET_LENGTH '10.0.0.0' '255.0.0.0' 8");
    EXPECT_EQ(fieldsOf(HostSelector(HOST_INET6, HOST_SUBNET_LENGTH, "fd00::", 24)),
              "AF_INET6 SUBNET_LENGTH 'fd00::' 'ffff:ff00::' 24");
}

TEST(HostSelector, KeepsALengthThatNoMaskHas)
{
    EXPECT_EQ(fieldsOf(HostSelector(HOST_INET, HOST_SUBNET_LENGTH, "", 33)),
              "AF_INET SUBNET_LENGTH '' '255.255.255.255' 33");
    EXPECT_EQ(fieldsOf(HostSelector(HOST_INET, HOST_SUBNET_LENGTH, "", std::numeric_limits<int>::min())),
              "AF_INET SUBNET_LENGTH '' '255.255.255.255' -2147483648");
}

TEST(HostSelector, DoesNotCheckTheSubnetsAddress)
{
    EXPECT_EQ(fieldsOf(HostSelector(HOST_INET, HOST_SUBNET_MASK, "fd00::", "255.255.0.0")),
              "AF_INET SUBNET_MASK 'fd00::' '255.255.0.0' 16");
    EXPECT_EQ(fieldsOf(HostSelector(HOST_INET, HOST_SUBNET_LENGTH, "x", 16)),
              "AF_INET SUBNET_LENGTH 'x' '255.255.0.0' 16");
}

TEST(HostSelector, KeepsAWholeMaskTextOfWhichOnlyThePartBeforeANulIsParsed)
{
    const HostSelector selector(HOST_INET, HOST_SUBNET_MASK, "10.0.0.0", "255.240.0.0\0 and more"s);
    EXPECT_EQ(selector.addr2, "255.240.0.0\0 and more"s);
    EXPECT_EQ(selector.length, 12);
    EXPECT_EQ(refusalOfNew(HOST_INET, HOST_SUBNET_MASK, "10.0.0.0", "\000255.0.0.0"s), "invalid mask");
}

TEST(HostSelector, RefusesASubnetLengthWithoutLength)
{
    for (const AddressFamily& family : {HOST_INET, HOST_INET6, HOST_INETANY})
        for (const char* mask : {"255.0.0.0", "", "x"})
            EXPECT_EQ(refusalOfNew(family, HOST_SUBNET_LENGTH, "10.0.0.0", mask), "prefix length not specified");
}

TEST(HostSelector, RefusesASubnetMaskWithoutMask)
{
    for (const AddressFamily& family : {HOST_INET, HOST_INET6, HOST_INETANY})
        for (const int length : {8, 0, -1})
            EXPECT_EQ(refusalOfNew(family, HOST_SUBNET_MASK, "10.0.0.0", length), "subnet mask not specified");
}

TEST(HostSelector, RefusesAMaskThatIsNoAddressOfItsFamily)
{
    EXPECT_EQ(refusalOfNew(HOST_INET, HOST_SUBNET_MASK, "10.0.0.0", ""), "invalid mask");
    EXPECT_EQ(refusalOfNew(HOST_INET, HOST_SUBNET_MASK, "10.0.0.0", "ffff::"), "invalid mask");
    EXPECT_EQ(refusalOfNew(HOST_INET6, HOST_SUBNET_MASK, "fd00::", "255.0.0.0"), "invalid mask");
}

TEST(HostSelector, RefusesSubnetsOfAnyFamily)
{
    EXPECT_EQ(refusalOfNew(HOST_INETANY, HOST_SUBNET_MASK, "10.0.0.0", "255.0.0.0"), "invalid address family");
    EXPECT_EQ(refusalOfNew(HOST_INETANY, HOST_SUBNET_LENGTH, "10.0.0.0", 8), "invalid address family");
}

TEST(HostSelector, StaysAsItWasWhenARefusedSelectorIsAssigned)
{
    HostSelector selector(HOST_INET, HOST_SUBNET_LENGTH, "10.0.0.0", 8);
    EXPECT_EQ(errorOf<std::invalid_argument>(
                  [&] { selector = HostSelector(HOST_INET, HOST_SUBNET_MASK, "10.0.0.0", "255"); }),
              "invalid mask");
    EXPECT_EQ(fieldsOf(selector), "AF_INET SUBNET_LENGTH '10.0.0.0' '255.0.0.0' 8");
}

TEST(HostSelector, CopiesAllFieldsAlsoThoseOutOfStep)
{
    HostSelector source(HOST_INET6, HOST_SUBNET_LENGTH, "fd00::", 64);
    source.addr2  = "changed";
    source.length = 7;

    const HostSelector copy(source);
    HostSelector       target;
    EXPECT_EQ(&(target = source), &target);

    const std::string expected = "AF_INET6 SUBNET_LENGTH 'fd00::' 'changed' 7";
    EXPECT_EQ(fieldsOf(copy), expected);
    EXPECT_EQ(fieldsOf(target), expected);
    EXPECT_EQ(fieldsOf(source), expected);
}

TEST(HostSelector, IsUnchangedByAssignmentToItself)
{
    HostSelector        selector(HOST_INET, HOST_RANGE, "10.0.0.1", "10.0.0.9");
    const HostSelector& same = selector;
    selector                 = same;
    EXPECT_EQ(fieldsOf(selector), "AF_INET RANGE '10.0.0.1' '10.0.0.9' 0");
}

} // namespace
} // namespace ipsecimpl
