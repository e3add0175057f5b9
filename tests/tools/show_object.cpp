#include "program.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using testing::HasSubstr;

namespace {

/// Host groups 1 and 3, protocol group 2, action 5, and policies 1 (which names them), 2 and 7 (which name others too).
std::string sample()
{
    return document(entry("hostGroup", 1, group("hostGroup", "Peers", "Far away", "")) +
                        entry("hostGroup", 3, group("hostGroup", "7", "", "")),
                    entry("protocolGroup", 2, group("protocolGroup", "Web", "", "")),
                    entry("action", 5,
                          "<action><changeCount>-9</changeCount><name>Pass</name><builtinName>3</builtinName><descr/>"
                          "<builtinDescr>4</builtinDescr><type>6</type><state>-7</state><spdAction>BYPASS</spdAction>"
                          "</action>"),
                    entry("policy", 1, policy(1, 2, 5)) + entry("policy", 2, policy(1, 4294967295U, 0)) +
                        entry("policy", 7, policy(1, 2, 5)));
}

Outcome shown(const std::vector<std::string>& arguments)
{
    std::vector<std::string> all = {"show", "-"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return run(all, sample());
}

TEST(ShowObject, AGroupTellsWhoUsesIt)
{
    EXPECT_EQ(shown({"host-groups", "1"}), printed(R"(Host group 1

FIELD         VALUE
name          Peers
builtinName   0
descr         Far away
builtinDescr  0
selectors     (none)

Used by: policies 1, 2, 7
)"));
}

TEST(ShowObject, OneThatNobodyUsesSaysSo)
{
    EXPECT_EQ(shown({"host-groups", "3"}), printed(R"(Host group 3

FIELD         VALUE
name          7
builtinName   0
descr         (empty)
builtinDescr  0
selectors     (none)

Used by: nobody
)"));
}

TEST(ShowObject, AnActionTellsItsCountersAndNumbers)
{
    EXPECT_EQ(shown({"actions", "Pass"}), printed(R"(Action 5 [built-in]

FIELD         VALUE
changeCount   -9
name          Pass
builtinName   3
descr         (empty)
builtinDescr  4
type          6
state         -7
spdAction     BYPASS

Used by: policies 1, 7
)"));
}

TEST(ShowObject, APolicyNamesWhatItTiesAndMarksWhatIsMissing)
{
    EXPECT_EQ(shown({"policies", "1"}), printed("Policy 1\n\n"
                                                "FIELD            VALUE\n"
                                                "hostGroupID      1 Peers\n"
                                                "protocolGroupID  2 Web\n"
                                                "actionID         5 Pass\n"));
    EXPECT_EQ(shown({"policies", "2"}), printed("Policy 2\n\n"
                                                "FIELD            VALUE\n"
                                                "hostGroupID      1 Peers\n"
                                                "protocolGroupID  4294967295 !! missing\n"
                                                "actionID         0 !! missing\n"));
}

TEST(ShowObject, IsFoundByItsIDOrItsName)
{
    const Outcome peers = shown({"host-groups", "1"});
    EXPECT_EQ(shown({"host-groups", "Peers"}), peers);
    EXPECT_EQ(shown({"host-group", "name=Peers"}), peers);
    EXPECT_EQ(shown({"host-groups", "name=7"}), shown({"host-groups", "3"}));
}

TEST(ShowObject, WhatIsNotThereIsRefused)
{
    EXPECT_EQ(shown({"host-groups", "7"}), troubled("no host group has ID 7"));
    EXPECT_EQ(shown({"actions", "Web"}), troubled("no action is named 'Web'"));
    EXPECT_EQ(shown({"actions", ""}), troubled("no action is named ''"));
    EXPECT_EQ(shown({"--json", "policies", "Peers"}),
              troubled("'Peers' is no policy: policies have no names, give the ID"));
}

TEST(ShowObject, AnUnknownKindIsRefusedBeforeTheFileIsRead)
{
    EXPECT_EQ(
        run({"show", "none.xml", "rules\x1b"}),
        troubled("'rules\\x1b' is no kind of object: there are host-groups, protocol-groups, actions and policies"));
    EXPECT_EQ(run({"show", "none.xml", ""}),
              troubled("'' is no kind of object: there are host-groups, protocol-groups, actions and policies"));
}

TEST(ShowObject, ManyUsersAreWrapped)
{
    std::string policies;
    for (unsigned int id = 1; id <= 40; ++id)
        policies += entry("policy", id, policy(1, 1, 1));
    const Outcome outcome = run({"show", "-", "host-groups", "1"},
                                document(entry("hostGroup", 1, group("hostGroup", "g", "", "")), "", "", policies));
    EXPECT_THAT(outcome.out,
                HasSubstr("\nUsed by: policies 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18,\n"
                          "  19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, 36, 37,\n"
                          "  38, 39, 40\n"));
}

TEST(ShowObject, ListsAreNumberedAndKeysAreHidden)
{
    const std::string action = entry(
        "action", 1,
        ::action("t", "",
                 "<spdAction>TRANSPORT</spdAction><keyMgr>IKE</keyMgr><ikePhase1><authType>PSK</authType>"
                 "<presharedKey>Secret</presharedKey><proposal><dhGroup>G2</dhGroup><keyLifetime>1</keyLifetime>"
                 "<keyLifetimeUnits>MINS</keyLifetimeUnits><transform>IKE_AES_SHA</transform><transform>IKE_3DES_SHA"
                 "</transform></proposal></ikePhase1><ikePhase2><dhGroup>G1</dhGroup><keyLifetime>5</keyLifetime>"
                 "<keyLifetimeUnits>KB</keyLifetimeUnits></ikePhase2>"));
    EXPECT_THAT(run({"show", "-", "actions", "1"}, document("", "", action)).out, HasSubstr(R"(
keyMgr                IKE
ikePhase1
  authType            PSK
  presharedKey        (hidden)
  proposal
    dhGroup           G2
    keyLifetime       1
    keyLifetimeUnits  MINS
    transform/1       IKE_AES_SHA
    transform/2       IKE_3DES_SHA
ikePhase2
  dhGroup             G1
  keyLifetime         5
  keyLifetimeUnits    KB
  saProposal          (none)
)"));
    EXPECT_THAT(run({"show", "-", "actions", "1", "--show-keys"}, document("", "", action)).out,
                HasSubstr("\n  presharedKey        \"Secret\"\n"));
}

} // namespace
