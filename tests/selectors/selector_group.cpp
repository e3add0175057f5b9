#include "selectors/fields.h"
#include "support/xml.h"

#include <ipsecimpl/selectors.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace ipsecimpl {
namespace {

const ProtocolSelector web("web", 6, 80, 0, PROTO_OUT, true);
const ProtocolSelector mail("mail", 6, 25, 0, PROTO_OUT, true);
const ProtocolSelector dns("dns", 17, 53, 0, PROTO_OUT, true);

ProtocolGroup services()
{
    ProtocolGroup group("Services", 3, "Web and mail", 4);
    group.selectors = {web, mail};
    return group;
}

const std::string servicesFields = "'Services' 3 'Web and mail' 4\n"
                                   "'mail' 6 dst 25 src 0 OUT mirrored\n"
                                   "'web' 6 dst 80 src 0 OUT mirrored";

HostGroup branch()
{
    HostGroup group("Branch", 0, "Two subnets", 0);
    group.selectors.emplace(HOST_INET, HOST_SUBNET_LENGTH, "10.1.0.0", 16);
    group.selectors.emplace(HOST_INET, HOST_SUBNET_LENGTH, "10.2.3.0", 24);
    return group;
}

const std::string branchFields = "'Branch' 0 'Two subnets' 0\n"
                                 "AF_INET SUBNET_LENGTH '10.2.3.0' '255.255.255.0' 24\n"
                                 "AF_INET SUBNET_LENGTH '10.1.0.0' '255.255.0.0' 16";

/// A group whose selectors are, for the order, those of services(), but are called otherwise, and one more.
ProtocolGroup otherServices()
{
    ProtocolGroup group("Others", 5, "", 6);
    group.selectors = {ProtocolSelector("www", 6, 80, 0, PROTO_OUT, true),
                       ProtocolSelector("smtp", 6, 25, 0, PROTO_OUT, true), dns};
    return group;
}

const std::string otherServicesFields = "'Others' 5 '' 6\n"
                                        "'smtp' 6 dst 25 src 0 OUT mirrored\n"
                                        "'www' 6 dst 80 src 0 OUT mirrored\n"
                                        "'dns' 17 dst 53 src 0 OUT mirrored";

TEST(SelectorGroup, StartsEmptyWithoutTextNumbers)
{
    EXPECT_EQ(fieldsOf(HostGroup()), "'' 0 '' 0");
    EXPECT_EQ(fieldsOf(ProtocolGroup()), "'' 0 '' 0");
}

TEST(SelectorGroup, StoresTextsAndTextNumbersUnchecked)
{
    EXPECT_EQ(fieldsOf(HostGroup("Branch", 1, "a<b", -2)), "'Branch' 1 'a<b' -2");
    EXPECT_EQ(fieldsOf(ProtocolGroup("", -1, "All of it", 2147483647)), "'' -1 'All of it' 2147483647");
}

TEST(SelectorGroup, IsAValueWithoutVirtuals)
{
    EXPECT_FALSE(std::is_polymorphic_v<HostGroup>);
    EXPECT_FALSE(std::is_polymorphic_v<ProtocolGroup>);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<HostGroup>);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<ProtocolGroup>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<HostGroup>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<ProtocolGroup>);
}

TEST(SelectorGroup, KeepsItsSelectorsInTheirOrder)
{
    EXPECT_EQ(fieldsOf(branch()), branchFields);
    EXPECT_EQ(fieldsOf(services()), servicesFields);
}

TEST(SelectorGroup, KeepsTheFirstOfEqualSelectors)
{
    ProtocolGroup group = services();
    EXPECT_FALSE(group.selectors.insert(ProtocolSelector("www", 6, 80, 0, PROTO_OUT, true)).second);
    EXPECT_EQ(fieldsOf(group), servicesFields);
}

TEST(SelectorGroup, KeepsSelectorsThatDifferInTheLengthAlone)
{
    HostSelector longer(HOST_INET, HOST_SUBNET_LENGTH, "10.1.0.0", 16);
    longer.length = 17;

    HostGroup group = branch();
    EXPECT_TRUE(group.selectors.insert(longer).second);
    EXPECT_EQ(group.selectors.size(), 3U);
}

TEST(SelectorGroup, IsCopiedWhole)
{
    const ProtocolGroup source = services();
    const ProtocolGroup copy(source);
    EXPECT_EQ(fieldsOf(copy), servicesFields);
    EXPECT_EQ(fieldsOf(source), servicesFields);

    const HostGroup hosts = branch();
    const HostGroup hostsCopy(hosts);
    EXPECT_EQ(fieldsOf(hostsCopy), branchFields);
}

TEST(SelectorGroup, OwnsItsSelectorsAfterACopy)
{
    ProtocolGroup source = services();
    ProtocolGroup copy(source);
    source.selectors.clear();
    source.name = "changed";
    EXPECT_EQ(fieldsOf(copy), servicesFields);
    copy.selectors.insert(dns);
    EXPECT_EQ(fieldsOf(source), "'changed' 3 'Web and mail' 4");
}

TEST(SelectorGroup, BecomesEqualMemberByMemberWhenAGroupIsAssigned)
{
    const ProtocolGroup source = services();
    ProtocolGroup       target = otherServices();
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(fieldsOf(target), servicesFields);
    EXPECT_EQ(fieldsOf(source), servicesFields);

    const ProtocolGroup larger = otherServices();
    target                     = larger;
    EXPECT_EQ(fieldsOf(target), otherServicesFields);
}

TEST(SelectorGroup, BecomesEqualMemberByMemberWhenATemporaryIsAssigned)
{
    ProtocolGroup target = otherServices();
    EXPECT_EQ(&(target = services()), &target);
    EXPECT_EQ(fieldsOf(target), servicesFields);

    HostGroup hosts("x", 1, "y", 2);
    hosts = branch();
    EXPECT_EQ(fieldsOf(hosts), branchFields);
}

TEST(SelectorGroup, IsEmptiedByTheAssignmentOfAnEmptyGroup)
{
    const ProtocolGroup empty;
    ProtocolGroup       target = services();
    target                     = empty;
    EXPECT_EQ(fieldsOf(target), "'' 0 '' 0");
}

TEST(SelectorGroup, IsUnchangedByAssignmentToItself)
{
    ProtocolGroup        group = services();
    const ProtocolGroup& same  = group;
    group                      = same;
    EXPECT_EQ(fieldsOf(group), servicesFields);
}

TEST(SelectorGroup, IsMovedWhole)
{
    ProtocolGroup source = services();
    ProtocolGroup moved(std::move(source));
    EXPECT_EQ(fieldsOf(moved), servicesFields);

    ProtocolGroup target = otherServices();
    EXPECT_EQ(&(target = std::move(moved)), &target);
    EXPECT_EQ(fieldsOf(target), servicesFields);

    HostGroup hosts = branch();
    HostGroup hostsMoved(std::move(hosts));
    EXPECT_EQ(fieldsOf(hostsMoved), branchFields);
}

TEST(SelectorGroup, KeepsItsSelectorsInPlaceWhenItIsMoved)
{
    ProtocolGroup                 source = services();
    const ProtocolSelector* const first  = &*source.selectors.begin();
    const ProtocolGroup           moved(std::move(source));
    EXPECT_EQ(&*moved.selectors.begin(), first);
}

TEST(SelectorGroup, CanBeUsedAgainAfterItWasMovedFrom)
{
    ProtocolGroup source = services();
    ProtocolGroup moved(std::move(source));
    source = otherServices();
    EXPECT_EQ(fieldsOf(source), otherServicesFields);
    EXPECT_EQ(fieldsOf(moved), servicesFields);
}

TEST(SelectorGroup, LosesNothingWhenGroupsAreSwapped)
{
    ProtocolGroup a = services();
    ProtocolGroup b = otherServices();
    std::swap(a, b);
    EXPECT_EQ(fieldsOf(a), otherServicesFields);
    EXPECT_EQ(fieldsOf(b), servicesFields);
}

} // namespace
} // namespace ipsecimpl
