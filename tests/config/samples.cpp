// The documents under examples/configs: they load, they are in the written form, and they show what the format can say.

#include "support/samples.h"
#include "support/xml.h"

#include <ipsecimpl/ipsecimpl.h>

#include <gmock/gmock.h>

#include <set>
#include <string>
#include <vector>

namespace ipsecimpl {
namespace {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::MatchesRegex;
using testing::Not;
using testing::NotNull;

IPsecConfig load(const std::string& sample)
{
    return read<IPsecConfig>(sampleText(sample));
}

const std::vector<std::string>& samples = sampleNames();

bool hasKeyMgr(const IPsecAction& action)
{
    return action.spdActionGet() == SPD_TRANSPORT || action.spdActionGet() == SPD_TUNNEL;
}

bool usesKeyMgr(const IPsecAction& action, const IPsecKeyMgr& keyMgr)
{
    return hasKeyMgr(action) && action.keyMgrGet() == keyMgr;
}

/// The values of each enumeration that configurations use.
struct Used {
    std::set<SPDAction>     spdActions;
    std::set<IPsecKeyMgr>   keyMgrs;
    std::set<IKEAuthType>   authTypes;
    std::set<AddressFamily> families;
    std::set<AddressType>   selectorTypes;
    std::set<Direction>     directions;

    void add(const IPsecConfig& config)
    {
        for (const auto& [id, group] : config.hostGroups) {
            for (const HostSelector& selector : group.selectors) {
                families.insert(selector.family);
                selectorTypes.insert(selector.selectorType);
            }
        }
        for (const auto& [id, group] : config.protocolGroups)
            for (const ProtocolSelector& selector : group.selectors)
                directions.insert(selector.direction);
        for (const auto& [id, action] : config.actions) {
            spdActions.insert(action.spdActionGet());
            if (hasKeyMgr(action))
                keyMgrs.insert(action.keyMgrGet());
            if (usesKeyMgr(action, KEYMGR_IKE))
                authTypes.insert(action.ikePhase1Get().authTypeGet());
        }
    }
};

Used usedBy(const std::vector<std::string>& names)
{
    Used used;
    for (const std::string& name : names)
        used.add(load(name));
    return used;
}

template <int Num, auto Names>
void expectAll(const std::set<Enum<Num, Names>>& used)
{
    for (int i = 0; i < Num; ++i)
        EXPECT_EQ(used.count(Enum<Num, Names>(i)), 1u) << (*Names)[i];
}

std::vector<std::string> builtInHostGroups()
{
    return {written(HostGroupAny()),     written(HostGroupLocal()),   written(HostGroupAnyv4()),
            written(HostGroupLocalv4()), written(HostGroupAnyv6()),   written(HostGroupLocalv6()),
            written(HostGroupMcast()),   written(HostGroupMcastv4()), written(HostGroupMcastv6())};
}

std::vector<std::string> builtInProtocolGroups()
{
    return {written(ProtocolGroupAll()), written(ProtocolGroupSystem())};
}

std::vector<std::string> builtInActions()
{
    return {written(ActionDiscard()), written(ActionBypass())};
}

/// What the entries of built-in groups write, in the order of their IDs.
template <class Groups>
std::vector<std::string> builtInGroupsOf(const Groups& groups)
{
    std::vector<std::string> texts;
    for (const auto& [id, group] : groups)
        if (group.builtinName != 0)
            texts.push_back(written(group));
    return texts;
}

/// The same for actions, without the type and state that belong to the caller: a copy leaves them out.
std::vector<std::string> builtInActionsOf(const Actions& actions)
{
    std::vector<std::string> texts;
    for (const auto& [id, action] : actions)
        if (action.isBuiltIn())
            texts.push_back(written(IPsecAction(action)));
    return texts;
}

class Sample : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Configs, Sample, testing::ValuesIn(samples),
                         [](const auto& sample) { return testName(sample.param); });

TEST_P(Sample, LoadsEntriesIntoEachCollection)
{
    const IPsecConfig config = load(GetParam());

    EXPECT_FALSE(config.hostGroups.empty());
    EXPECT_FALSE(config.protocolGroups.empty());
    EXPECT_FALSE(config.actions.empty());
    EXPECT_FALSE(config.policies.empty());
}

TEST_P(Sample, IsStoredByteForByteAsItWasLoaded)
{
    const std::string text = sampleText(GetParam());

    EXPECT_EQ(rewritten<IPsecConfig>(text), text);
}

TEST_P(Sample, HasWhatItsPoliciesName)
{
    const IPsecConfig config = load(GetParam());

    for (const auto& [id, policy] : config.policies) {
        SCOPED_TRACE(id);
        EXPECT_THAT(config.hostGroups.find(policy.hostGroupID), NotNull());
        EXPECT_THAT(config.protocolGroups.find(policy.protocolGroupID), NotNull());
        EXPECT_THAT(config.actions.find(policy.actionID), NotNull());
    }
}

TEST_P(Sample, HasBuiltInEntriesAsTheLibraryOffersThem)
{
    const IPsecConfig config = load(GetParam());

    EXPECT_THAT(builtInHostGroups(), IsSupersetOf(builtInGroupsOf(config.hostGroups)));
    EXPECT_THAT(builtInProtocolGroups(), IsSupersetOf(builtInGroupsOf(config.protocolGroups)));
    EXPECT_THAT(builtInActions(), IsSupersetOf(builtInActionsOf(config.actions)));
}

TEST(Samples, HaveManualKeysOfTheLengthsOfAesAndSha)
{
    std::vector<std::string> encryption;
    std::vector<std::string> authentication;
    for (const std::string& sample : samples) {
        const IPsecConfig config = load(sample);
        for (const auto& [id, action] : config.actions) {
            if (!usesKeyMgr(action, KEYMGR_MKM))
                continue;
            const MKM& key = action.manualKeyGet();
            if (key.saProposal.protocol != IPSEC_AH)
                encryption.insert(encryption.end(), {key.inboundDecrKey, key.outboundEncrKey, key.outboundEncrIV});
            authentication.insert(authentication.end(), {key.inboundAuthKey, key.outboundAuthKey});
        }
    }

    EXPECT_THAT(encryption, AllOf(Not(IsEmpty()), Each(MatchesRegex("[0-9a-f]{32}"))));
    EXPECT_THAT(authentication, AllOf(Not(IsEmpty()), Each(MatchesRegex("[0-9a-f]{40}"))));
}

TEST(Samples, CoverEveryActionButNone)
{
    EXPECT_THAT(usedBy(samples).spdActions, IsSupersetOf({SPD_BYPASS, SPD_DISCARD, SPD_TRANSPORT, SPD_TUNNEL}));
}

TEST(Samples, CoverEveryKeyManager)
{
    expectAll(usedBy(samples).keyMgrs);
}

TEST(Samples, CoverEveryAuthenticationType)
{
    expectAll(usedBy(samples).authTypes);
}

TEST(Samples, CoverEveryAddressFamily)
{
    expectAll(usedBy(samples).families);
}

TEST(Samples, CoverEverySelectorType)
{
    expectAll(usedBy(samples).selectorTypes);
}

TEST(Samples, CoverEveryDirection)
{
    expectAll(usedBy(samples).directions);
}

TEST(BranchOffice, AloneCoversSelectorTypesDirectionsKeyManagersAndAuthentication)
{
    const Used used = usedBy({"branch-office"});

    expectAll(used.selectorTypes);
    expectAll(used.directions);
    expectAll(used.keyMgrs);
    expectAll(used.authTypes);
}

TEST(ServerFarm, HoldsEveryBuiltInGroupAndAction)
{
    const IPsecConfig config = load("server-farm");

    EXPECT_EQ(builtInGroupsOf(config.hostGroups), builtInHostGroups());
    EXPECT_EQ(builtInGroupsOf(config.protocolGroups), builtInProtocolGroups());
    EXPECT_EQ(builtInActionsOf(config.actions), builtInActions());
}

TEST(ServerFarm, ProtectsInTransportModeAlone)
{
    EXPECT_THAT(usedBy({"server-farm"}).spdActions, ElementsAre(SPD_BYPASS, SPD_DISCARD, SPD_TRANSPORT));
}

} // namespace
} // namespace ipsecimpl
