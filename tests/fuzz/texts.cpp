#include "texts.h"

#include "input.h"

#include <gtest/gtest.h>

#include <string>

namespace ipsecimpl {
namespace {

/// Each text of this configuration is `text`.
IPsecConfig withTexts(const std::string& text)
{
    HostGroup hosts(text, 0, text, 0);
    hosts.selectors.insert(HostSelector(HOST_INET, HOST_RANGE, text, text));
    ProtocolGroup protocols(text, 0, text, 0);
    protocols.selectors.insert(ProtocolSelector(text, 6, 80, 0, PROTO_IN, false));

    MKM key;
    key.saProposal     = IPsecProposal(IPSEC_ESP, 2, 2);
    key.inboundDecrKey = key.inboundAuthKey = key.outboundEncrKey = key.outboundAuthKey = key.outboundEncrIV = text;
    IPsecAction manual(SPD_TUNNEL, text, 1, text, 1, KEYMGR_MKM);
    manual.tunnelEndpointSet(text);
    manual.manualKeySet(key);
    const IKEPhase1Proposal proposal({}, DH_GROUP_NONE, 28800, KEYLIFETIME_SECS);
    IPsecAction             psk(SPD_TRANSPORT, text, 0, text, 0, KEYMGR_IKE);
    psk.ikePhase1Set(IKEPhase1(IKE_AUTH_PSK, "", "", text, proposal));
    IPsecAction rsa(SPD_TRANSPORT, text, 0, text, 0, KEYMGR_IKE);
    rsa.ikePhase1Set(IKEPhase1(IKE_AUTH_RSA, text, text, "", proposal));

    IPsecConfig config;
    config.hostGroups.add(hosts);
    config.protocolGroups.add(protocols);
    for (const IPsecAction& action : {manual, psk, rsa})
        config.actions.add(action);
    return config;
}

TEST(Texts, AllOfThemAreChanged)
{
    IPsecConfig config = withTexts("before"), expected = withTexts("after");
    changeTexts(config, [](std::string& text) { text = "after"; });
    EXPECT_EQ(stored(config), stored(expected));
}

TEST(Texts, MarkupIsSeenAndRemovedEverywhere)
{
    IPsecConfig config = withTexts("a<b<"), expected = withTexts("a(b(");
    EXPECT_TRUE(hasMarkup(config));
    EXPECT_FALSE(hasMarkup(expected));
    removeMarkup(config);
    EXPECT_EQ(stored(config), stored(expected));
}

TEST(Texts, WhiteSpaceIsRemovedAtTheirEndsAlone)
{
    IPsecConfig config = withTexts(" \t\n\v\f\ra b\xA0 \t\n\v\f\r"), expected = withTexts("a b\xA0");
    trimTexts(config);
    EXPECT_EQ(stored(config), stored(expected));
}

TEST(Texts, OfTwoSelectorsThatBecomeEqualTheFirstOneStays)
{
    HostGroup group("hosts", 0, "", 0);
    for (const char* address : {"::1", " ::1", "::2"})
        group.selectors.insert(HostSelector(HOST_INET6, HOST_SINGLE, address, ""));
    IPsecConfig config;
    config.hostGroups.add(group);
    trimTexts(config);
    EXPECT_EQ(config.hostGroups.at(1).selectors.size(), 2U);
}

TEST(Texts, ASelectorNamedWithWhiteSpaceIsUnnamed)
{
    IPsecConfig blank = withTexts(" \v"), named = withTexts("a"), none = withTexts("");
    EXPECT_TRUE(hasUnnamedSelector(blank));
    EXPECT_TRUE(hasUnnamedSelector(none));
    EXPECT_FALSE(hasUnnamedSelector(named));
    nameSelectors(blank);
    EXPECT_EQ(blank.protocolGroups.at(1).selectors.begin()->name, "unnamed");
    nameSelectors(named);
    EXPECT_EQ(named.protocolGroups.at(1).selectors.begin()->name, "a");
}

} // namespace
} // namespace ipsecimpl
