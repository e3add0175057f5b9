#include "objects.h"

#include "failure.h"

#include <ipsecimpl/ipsecimpl.h>

#include <gtest/gtest.h>

using namespace ipsecimpl;

namespace {

/// Host groups 1 "web", 2 "mail", 3 "mail", 4 "7"; one policy.
IPsecConfig sample()
{
    IPsecConfig config;
    for (const char* name : {"web", "mail", "mail", "7"})
        config.hostGroups.add(HostGroup(name, 0, "", 0));
    config.policies.add(Policy(1, 0, 0));
    return config;
}

std::string refusal(Kind kind, const std::string& reference)
{
    try {
        return "found " + std::to_string(findObject(sample(), kind, reference));
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.status, ExitStatus::TROUBLE);
        return failure.what();
    }
}

TEST(FindObject, DigitsAreAnID)
{
    EXPECT_EQ(findObject(sample(), Kind::HOST_GROUP, "2"), 2U);
    EXPECT_EQ(findObject(sample(), Kind::POLICY, "1"), 1U);
}

TEST(FindObject, AnythingElseIsAUniqueName)
{
    EXPECT_EQ(findObject(sample(), Kind::HOST_GROUP, "web"), 1U);
}

TEST(FindObject, ANameOfDigitsIsGivenWithItsPrefix)
{
    EXPECT_EQ(findObject(sample(), Kind::HOST_GROUP, "name=7"), 4U);
}

TEST(FindObject, WhatIsNotThereIsRefusedWithWhatThereIs)
{
    EXPECT_EQ(refusal(Kind::HOST_GROUP, "5"), "no host group has ID 5");
    EXPECT_EQ(refusal(Kind::HOST_GROUP, "0"), "no host group has ID 0");
    EXPECT_EQ(refusal(Kind::HOST_GROUP, "99999999999999999999"), "no host group has ID 99999999999999999999");
    EXPECT_EQ(refusal(Kind::HOST_GROUP, "4294967298"), "no host group has ID 4294967298");
    EXPECT_EQ(refusal(Kind::PROTOCOL_GROUP, "x\n"), "no protocol group is named 'x\\n'");
    EXPECT_EQ(refusal(Kind::ACTION, ""), "no action is named ''");
    EXPECT_EQ(refusal(Kind::HOST_GROUP, "mail"), "2 host groups are named 'mail' (IDs 2, 3): give the ID");
    EXPECT_EQ(refusal(Kind::POLICY, "web"), "'web' is no policy: policies have no names, give the ID");
}

TEST(ObjectPath, IsWrittenWithTheTagsOfTheDocument)
{
    EXPECT_EQ(textOf({Kind::POLICY, 3, "actionID"}), "policies/3/actionID");
    EXPECT_EQ(textOf({Kind::HOST_GROUP, 12, ""}), "hostGroups/12");
}

TEST(ObjectPath, WithoutAnIDLeadsToTheCollection)
{
    EXPECT_EQ(textOf({Kind::ACTION, 0, ""}), "actions");
    EXPECT_EQ(textOf({Kind::POLICY, 0, "nextpolicy"}), "policies/nextpolicy");
}

} // namespace
