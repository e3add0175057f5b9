#include <ipsecimpl/xml.h>

#include <gtest/gtest.h>

#include <string>

namespace ipsecimpl {
namespace {

/// Compiles only for what a template argument may be: the address of an object with linkage.
template <auto tag>
const char* textOf()
{
    return *tag;
}

const std::string beforeMain = __policiesTag;

TEST(Tags, AreTheWordsOfTheCollections)
{
    EXPECT_STREQ(__hostGroupsTag, "hostGroups");
    EXPECT_STREQ(__hostGroupTag, "hostGroup");
    EXPECT_STREQ(__protocolGroupsTag, "protocolGroups");
    EXPECT_STREQ(__protocolGroupTag, "protocolGroup");
    EXPECT_STREQ(__actionsTag, "actions");
    EXPECT_STREQ(__actionTag, "action");
    EXPECT_STREQ(__policiesTag, "policies");
    EXPECT_STREQ(__policyTag, "policy");
}

TEST(Tags, AreTemplateArgumentsByTheirAddress)
{
    EXPECT_EQ(textOf<&__hostGroupsTag>(), __hostGroupsTag);
    EXPECT_EQ(textOf<&__hostGroupTag>(), __hostGroupTag);
    EXPECT_EQ(textOf<&__protocolGroupsTag>(), __protocolGroupsTag);
    EXPECT_EQ(textOf<&__protocolGroupTag>(), __protocolGroupTag);
    EXPECT_EQ(textOf<&__actionsTag>(), __actionsTag);
    EXPECT_EQ(textOf<&__actionTag>(), __actionTag);
    EXPECT_EQ(textOf<&__policiesTag>(), __policiesTag);
    EXPECT_EQ(textOf<&__policyTag>(), __policyTag);
}

TEST(Tags, CanBeUsedBeforeMainStarts)
{
    EXPECT_EQ(beforeMain, "policies");
}

} // namespace
} // namespace ipsecimpl
