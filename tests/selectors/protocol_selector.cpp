#include "selectors/fields.h"
#include "support/xml.h"

#include <ipsecimpl/selectors.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace ipsecimpl {
namespace {

const ProtocolSelector web("web", 6, 80, 1024, PROTO_OUT, true);

TEST(ProtocolSelector, StoresItsArgumentsUnchecked)
{
    EXPECT_EQ(fieldsOf(web), "'web' 6 dst 80 src 1024 OUT mirrored");
    EXPECT_EQ(fieldsOf(ProtocolSelector("", 0, 65535, 1, PROTO_INOUT, false)), "'' 0 dst 65535 src 1 INOUT");
    EXPECT_EQ(fieldsOf(ProtocolSelector("a<b", 65535, 0, 0, PROTO_IN, false)), "'a<b' 65535 dst 0 src 0 IN");
}

TEST(ProtocolSelector, IsCalledProtocolWhereItIsGivenNoName)
{
    EXPECT_EQ(fieldsOf(ProtocolSelector(6, 80, 0, PROTO_IN, false)), "'Protocol' 6 dst 80 src 0 IN");
    EXPECT_EQ(fieldsOf(ProtocolSelector(17, 67, 68, PROTO_OUT, true)), "'Protocol' 17 dst 67 src 68 OUT mirrored");
}

TEST(ProtocolSelector, IsAValueWithoutVirtuals)
{
    EXPECT_TRUE(std::is_copy_constructible_v<ProtocolSelector>);
    EXPECT_TRUE(std::is_copy_assignable_v<ProtocolSelector>);
    EXPECT_FALSE(std::is_default_constructible_v<ProtocolSelector>);
    EXPECT_FALSE(std::is_polymorphic_v<ProtocolSelector>);
}

TEST(ProtocolSelector, TakesTheNameAlongWhenItIsCopyConstructed)
{
    const ProtocolSelector copy(web);
    EXPECT_EQ(fieldsOf(copy), fieldsOf(web));
}

TEST(ProtocolSelector, TakesTheNameAlongWhenItIsMoveConstructed)
{
    ProtocolSelector       source(web);
    const ProtocolSelector moved(std::move(source));
    EXPECT_EQ(fieldsOf(moved), fieldsOf(web));
}

TEST(ProtocolSelector, KeepsItsOwnNameWhenItIsAssignedTo)
{
    ProtocolSelector target("mail", 17, 1, 2, PROTO_IN, false);
    EXPECT_EQ(&(target = web), &target);
    EXPECT_EQ(fieldsOf(target), "'mail' 6 dst 80 src 1024 OUT mirrored");
    EXPECT_EQ(fieldsOf(web), "'web' 6 dst 80 src 1024 OUT mirrored");
}

TEST(ProtocolSelector, KeepsItsOwnNameWhenATemporaryIsAssigned)
{
    ProtocolSelector target("mail", 17, 1, 2, PROTO_IN, true);
    target = ProtocolSelector("web", 6, 80, 1024, PROTO_INOUT, false);
    EXPECT_EQ(fieldsOf(target), "'mail' 6 dst 80 src 1024 INOUT");

    ProtocolSelector source(web);
    target = std::move(source);
    EXPECT_EQ(fieldsOf(target), "'mail' 6 dst 80 src 1024 OUT mirrored");
    EXPECT_EQ(source.name, "web");
}

TEST(ProtocolSelector, TakesPortsOverAlsoWhereTheyDoNotCount)
{
    ProtocolSelector target("mail", 17, 1, 2, PROTO_IN, true);
    target = ProtocolSelector("any", 0, 5, 6, PROTO_IN, false);
    EXPECT_EQ(fieldsOf(target), "'mail' 0 dst 5 src 6 IN");
}

TEST(ProtocolSelector, IsUnchangedByAssignmentToItself)
{
    ProtocolSelector        selector(web);
    const ProtocolSelector& same = selector;
    selector                     = same;
    EXPECT_EQ(fieldsOf(selector), fieldsOf(web));
}

} // namespace
} // namespace ipsecimpl
