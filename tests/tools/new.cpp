#include "program.h"
#include "support/golden.h"

#include "support/xml.h"

#include <ipsecimpl/ipsecimpl.h>

#include <gmock/gmock.h>

#include <filesystem>
#include <set>
#include <string>

#include <sys/stat.h>

using namespace ipsecimpl;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

IPsecConfig starter()
{
    return read<IPsecConfig>(run({"new"}).out);
}

TEST(New, PrintsADocumentInTheWrittenForm)
{
    const Outcome starter = run({"new"});
    EXPECT_EQ(starter, printed(rewritten<IPsecConfig>(starter.out)));
}

TEST(New, HoldsTheBuiltInHostGroupsFirst)
{
    IPsecConfig            config   = starter();
    unsigned int           id       = 0;
    const HostGroup* const groups[] = {&HostGroupAny(),     &HostGroupLocal(),   &HostGroupAnyv4(),
                                       &HostGroupLocalv4(), &HostGroupAnyv6(),   &HostGroupLocalv6(),
                                       &HostGroupMcast(),   &HostGroupMcastv4(), &HostGroupMcastv6()};
    for (const HostGroup* group : groups)
        EXPECT_EQ(written(config.hostGroups.at(++id)), written(*group));
}

TEST(New, HoldsTheBuiltInProtocolGroupsAndActionsFirst)
{
    IPsecConfig config = starter();
    EXPECT_EQ(written(config.protocolGroups.at(1)), written(ProtocolGroupAll()));
    EXPECT_EQ(written(config.protocolGroups.at(2)), written(ProtocolGroupSystem()));
    EXPECT_EQ(written(config.actions.at(1)), written(ActionDiscard()));
    EXPECT_EQ(written(config.actions.at(2)), written(ActionBypass()));
}

TEST(New, EveryPolicyNamesEntriesThatExist)
{
    IPsecConfig config = starter();
    ASSERT_FALSE(config.policies.empty());
    for (const auto& [id, policy] : config.policies) {
        EXPECT_NE(config.hostGroups.find(policy.hostGroupID), nullptr) << id;
        EXPECT_NE(config.protocolGroups.find(policy.protocolGroupID), nullptr) << id;
        EXPECT_NE(config.actions.find(policy.actionID), nullptr) << id;
    }
}

TEST(New, EveryKeyExchangeUsesAesWithShaAndGroup14AndShorterLivesInPhase2)
{
    int exchanges = 0;
    for (const auto& [id, action] : starter().actions) {
        if (action.spdActionGet() != SPD_TRANSPORT && action.spdActionGet() != SPD_TUNNEL)
            continue;
        ++exchanges;
        ASSERT_EQ(action.keyMgrGet(), KEYMGR_IKE) << id;
        const IKEPhase1Proposal& phase1 = action.ikePhase1Get().proposalGet();
        const IKEPhase2&         phase2 = action.ikePhase2Get();
        EXPECT_THAT(phase1.transforms, ElementsAre(IKE_AESCBC_SHA1)) << id;
        EXPECT_EQ(phase1.dhGroup, DH_GROUP_14) << id;
        EXPECT_EQ(phase2.dhGroup, DH_GROUP_14) << id;
        ASSERT_EQ(phase2.proposals.size(), 1U) << id;
        EXPECT_EQ(phase2.proposals.front().protocol, IPSEC_ESP) << id;
        EXPECT_EQ(phase2.proposals.front().encryption, 12U) << id;
        EXPECT_EQ(phase2.proposals.front().hash, 5U) << id;
        EXPECT_EQ(phase1.keyLifetimeUnits, KEYLIFETIME_SECS) << id;
        EXPECT_EQ(phase2.keyLifetimeUnits, KEYLIFETIME_SECS) << id;
        EXPECT_LT(phase2.keyLifetime, phase1.keyLifetime) << id;
        EXPECT_GT(phase2.keyLifetime, 0U) << id;
    }
    EXPECT_EQ(exchanges, 2);
}

TEST(New, ShowsATunnelWithCertificatesAndATransportWithAPresharedKey)
{
    IPsecConfig config = starter();
    EXPECT_EQ(config.actions.at(3).spdActionGet(), SPD_TUNNEL);
    EXPECT_EQ(config.actions.at(3).ikePhase1Get().authTypeGet(), IKE_AUTH_RSA);
    EXPECT_EQ(config.actions.at(4).spdActionGet(), SPD_TRANSPORT);
    EXPECT_EQ(config.actions.at(4).ikePhase1Get().authTypeGet(), IKE_AUTH_PSK);
}

TEST(New, MarksWhatTheOperatorHasToChange)
{
    IPsecConfig config = starter();
    EXPECT_THAT(config.hostGroups.at(10).descr, HasSubstr("CHANGE ME"));
    EXPECT_THAT(config.hostGroups.at(11).descr, HasSubstr("CHANGE ME"));
    EXPECT_THAT(config.actions.at(3).descrGet(), HasSubstr("CHANGE ME"));
    EXPECT_THAT(config.actions.at(3).ikePhase1Get().localCertGet(), HasSubstr("CHANGE-ME"));
    EXPECT_THAT(config.actions.at(3).ikePhase1Get().peerTrustGet(), HasSubstr("CHANGE-ME"));
    EXPECT_THAT(config.actions.at(4).descrGet(), HasSubstr("CHANGE ME"));
}

TEST(New, ThePresharedKeyIsRandomLongAndOfSeveralCharacterClasses)
{
    std::set<std::string> keys;
    for (int i = 0; i < 20; ++i) {
        const std::string key = starter().actions.at(4).ikePhase1Get().presharedKeyGet();
        EXPECT_THAT(key, testing::MatchesRegex("[A-Za-z0-9_-]+"));
        EXPECT_EQ(key.size(), 32U);
        for (const char* characters : {"ABCDEFGHIJKLMNOPQRSTUVWXYZ", "abcdefghijklmnopqrstuvwxyz", "0123456789"})
            EXPECT_NE(key.find_first_of(characters), std::string::npos) << key;
        keys.insert(key);
    }
    EXPECT_EQ(keys.size(), 20U) << "each is another";
}

TEST(New, AllButThePresharedKeyIsTheSameEachTime)
{
    EXPECT_EQ(withoutKey(run({"new"}).out), withoutKey(run({"new"}).out));
    expectGolden("new.xml", withoutKey(run({"new"}).out));
}

class NewOutput : public InFolder {};

TEST_F(NewOutput, GoesToANewFileForItsOwnerAlone)
{
    EXPECT_EQ(run({"new", "-o", "policy.xml"}, "", [] { umask(0); }), printed(""));
    EXPECT_EQ(withoutKey(contentOf("policy.xml")), withoutKey(run({"new"}).out));
    EXPECT_EQ(modeOf("policy.xml"), 0600U);
    EXPECT_THAT(fileNames(), ElementsAre("policy.xml"));
}

TEST_F(NewOutput, MayBeStandardOutput)
{
    const Outcome outcome = run({"new", "--output", "-"});
    EXPECT_EQ(printed(withoutKey(outcome.out)), printed(withoutKey(run({"new"}).out)));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(fileNames(), ElementsAre());
}

TEST_F(NewOutput, NeverOverwritesWhatExists)
{
    writeFile("policy.xml", "old");
    EXPECT_EQ(run({"new", "-o", "policy.xml"}), troubled("policy.xml: File exists"));
    EXPECT_EQ(contentOf("policy.xml"), "old");
    EXPECT_THAT(fileNames(), ElementsAre("policy.xml"));
}

TEST_F(NewOutput, DoesNotFollowASymbolicLink)
{
    std::filesystem::create_symlink("nowhere", "policy.xml");
    EXPECT_EQ(run({"new", "-o", "policy.xml"}), troubled("policy.xml: File exists"));
    EXPECT_THAT(fileNames(), ElementsAre("policy.xml"));
}

TEST_F(NewOutput, IsNotBegunWhenWritingFailsPartWay)
{
    EXPECT_EQ(run({"new", "-o", "policy.xml"}, "", limitFileSize), troubled("policy.xml: File too large"));
    EXPECT_THAT(fileNames(), ElementsAre());
}

TEST_F(NewOutput, CannotBeInAFolderThatIsMissing)
{
    EXPECT_EQ(run({"new", "-o", "none/policy.xml"}), troubled("none/policy.xml: No such file or directory"));
    EXPECT_THAT(fileNames(), ElementsAre());
}

} // namespace
