#include "support/documents.h"
#include "actions/samples.h"

#include <ipsecimpl/actions.h>

#include <gtest/gtest.h>

#include <climits>
#include <functional>

namespace ipsecimpl {
namespace {

IPsecAction tunnel(const IPsecKeyMgr& keyMgr)
{
    return IPsecAction(SPD_TUNNEL, "name", 0, "descr", 0, keyMgr);
}

TEST(IPsecActionCounter, CountsAChosenKeyManagerBeforeItIsInForce)
{
    IPsecAction action;
    EXPECT_FALSE(action.isBuiltIn());
    EXPECT_EQ(action.keyMgrSet(KEYMGR_IKE), KEYMGR_IKE);
    EXPECT_EQ(action.changeCountGet(), 1);
    EXPECT_EQ(errorOf<invalid_operation>([&] { action.keyMgrGet(); }),
              "key manager is only defined for IPSEC-TRANSPORT and IPSEC-TUNNEL");
    EXPECT_EQ(action.spdActionSet(SPD_TRANSPORT), SPD_TRANSPORT);
    EXPECT_EQ(action.changeCountGet(), 2);
    EXPECT_EQ(action.keyMgrGet(), KEYMGR_IKE);
    EXPECT_EQ(action.ikePhase1Get().authTypeGet(), IKE_AUTH_PSK);
}

TEST(IPsecActionCounter, CountsAnSPDActionOnlyWhenItDiffers)
{
    for (int from = 0; from < __SPDActionNum__; ++from)
        for (int to = 0; to < __SPDActionNum__; ++to) {
            IPsecAction action(from, "", 0, "", 0, KEYMGR_NONE);
            EXPECT_EQ(action.spdActionSet(to), SPDAction(to));
            EXPECT_EQ(action.changeCountGet(), from == to ? 0 : 1);
            EXPECT_EQ(action.spdActionSet(to), SPDAction(to));
            EXPECT_EQ(action.changeCountGet(), from == to ? 0 : 1);
        }
}

TEST(IPsecActionCounter, CountsAKeyManagerOnlyWhenItDiffers)
{
    for (int from = 0; from < __IPsecKeyMgrNum__; ++from)
        for (int to = 0; to < __IPsecKeyMgrNum__; ++to) {
            IPsecAction action(SPD_BYPASS, "", 0, "", 0, from);
            EXPECT_EQ(action.keyMgrSet(to), IPsecKeyMgr(to));
            EXPECT_EQ(action.changeCountGet(), from == to ? 0 : 1);
            EXPECT_EQ(action.keyMgrSet(to), IPsecKeyMgr(to));
            EXPECT_EQ(action.changeCountGet(), from == to ? 0 : 1);
        }
}

TEST(IPsecActionCounter, CountsATunnelEndpointOnlyWhenLengthOrBytesDiffer)
{
    using namespace std::string_literals;
    IPsecAction action = tunnel(KEYMGR_NONE);
    int         count  = 0;
    for (const std::string& text :
         {"192.0.2.1"s, "192.0.2.2"s, "192.0.2.21"s, "192.0.2.2"s, "A"s, "a"s, "a\0"s, "a\0b"s, "a\0c"s, ""s, " "s}) {
        EXPECT_EQ(action.tunnelEndpointSet(text), text);
        EXPECT_EQ(action.changeCountGet(), ++count) << text;
        EXPECT_EQ(action.tunnelEndpointSet(text), text);
        EXPECT_EQ(action.tunnelEndpointSet(action.tunnelEndpointGet()), text);
        EXPECT_EQ(action.changeCountGet(), count) << text;
    }
    EXPECT_EQ(tunnel(KEYMGR_NONE).tunnelEndpointSet(""), "");
}

TEST(IPsecActionCounter, DoesNotCountTheEmptyEndpointOfANewAction)
{
    IPsecAction action = tunnel(KEYMGR_NONE);
    action.tunnelEndpointSet("");
    EXPECT_EQ(action.changeCountGet(), 0);
}

TEST(IPsecActionCounter, DoesNotCountNamesAndDescriptions)
{
    IPsecAction action;
    for (const char* text : {"a", "b", "b", ""}) {
        EXPECT_EQ(action.nameSet(text), text);
        EXPECT_EQ(action.descrSet(text), text);
        EXPECT_EQ(action.changeCountGet(), 0);
    }
}

TEST(IPsecActionCounter, CountsTheKeyingObjectsEachTimeAlsoWhenEqual)
{
    IPsecAction manual = tunnel(KEYMGR_MKM);
    for (int count = 1; count <= 3; ++count) {
        manual.manualKeySet(MKM());
        EXPECT_EQ(manual.changeCountGet(), count);
    }

    IPsecAction ike = tunnel(KEYMGR_IKE);
    for (int count = 1; count <= 3; ++count) {
        ike.ikePhase1Set(samplePhase1(IKE_AUTH_PSK));
        EXPECT_EQ(ike.changeCountGet(), 2 * count - 1);
        ike.ikePhase2Set(samplePhase2());
        EXPECT_EQ(ike.changeCountGet(), 2 * count);
    }
}

TEST(IPsecActionCounter, CountsAnActionsOwnKeyingObjectsWhichStayAsTheyAre)
{
    IPsecAction manual = tunnel(KEYMGR_MKM);
    manual.manualKeySet(sampleKey());
    EXPECT_EQ(everythingOf(manual.manualKeySet(manual.manualKeyGet())), everythingOf(sampleKey()));
    EXPECT_EQ(manual.changeCountGet(), 2);

    IPsecAction ike = tunnel(KEYMGR_IKE);
    ike.ikePhase1Set(samplePhase1(IKE_AUTH_RSA));
    ike.ikePhase2Set(samplePhase2());
    EXPECT_EQ(everythingOf(ike.ikePhase1Set(ike.ikePhase1Get())), everythingOf(samplePhase1(IKE_AUTH_RSA)));
    EXPECT_EQ(written(ike.ikePhase2Set(ike.ikePhase2Get())), PHASE2_DOCUMENT);
    EXPECT_EQ(ike.changeCountGet(), 4);
}

TEST(IPsecActionCounter, KeepsItsOwnNameAndDescriptionGivenBack)
{
    IPsecAction action = tunnel(KEYMGR_NONE);
    EXPECT_EQ(action.nameSet(action.nameGet()), "name");
    EXPECT_EQ(action.descrSet(action.descrGet()), "descr");
    EXPECT_EQ(action.nameSet(action.descrGet()), "descr");
    EXPECT_EQ(action.spdActionSet(action.spdActionGet()), SPD_TUNNEL);
    EXPECT_EQ(action.keyMgrSet(action.keyMgrGet()), KEYMGR_NONE);
    EXPECT_EQ(action.changeCountGet(), 0);
}

TEST(IPsecActionCounter, DoesNotCountRefusedChanges)
{
    IPsecAction action;
    EXPECT_THROW(action.tunnelEndpointSet("x"), invalid_operation);
    EXPECT_THROW(action.manualKeySet(MKM()), invalid_operation);
    EXPECT_THROW(action.ikePhase1Set(samplePhase1(IKE_AUTH_PSK)), invalid_operation);
    EXPECT_THROW(action.ikePhase2Set(samplePhase2()), invalid_operation);
    EXPECT_EQ(action.changeCountGet(), 0);
}

TEST(IPsecActionCounter, CountsKeyingOfABuiltInAction)
{
    IPsecAction action(SPD_TUNNEL, "name", 1, "descr", 1, KEYMGR_MKM);
    action.tunnelEndpointSet("192.0.2.1");
    action.manualKeySet(sampleKey());
    EXPECT_EQ(action.changeCountGet(), 2);
}

TEST(IPsecActionCounter, GoesOnFromTheDocumentsNumber)
{
    for (const auto& [from, to] :
         {std::pair{41, 42}, {-1, 0}, {-7, -6}, {INT_MAX - 1, INT_MAX}, {INT_MIN, INT_MIN + 1}}) {
        IPsecAction action = read<IPsecAction>(withText(written(IPsecAction()), "changeCount", std::to_string(from)));
        EXPECT_EQ(action.changeCountGet(), from);
        action.spdActionSet(SPD_BYPASS);
        EXPECT_EQ(action.changeCountGet(), to);
    }
}

TEST(IPsecActionCounter, GoesOnWithTheLeastNumberAfterTheGreatestInEverySetter)
{
    const struct {
        IPsecKeyMgr                       keyMgr;
        std::function<void(IPsecAction&)> change;
    } changes[] = {
        {KEYMGR_NONE, [](IPsecAction& action) { action.spdActionSet(SPD_TRANSPORT); }},
        {KEYMGR_NONE, [](IPsecAction& action) { action.keyMgrSet(KEYMGR_IKE); }},
        {KEYMGR_NONE, [](IPsecAction& action) { action.tunnelEndpointSet("192.0.2.1"); }},
        {KEYMGR_MKM, [](IPsecAction& action) { action.manualKeySet(MKM()); }},
        {KEYMGR_IKE, [](IPsecAction& action) { action.ikePhase1Set(samplePhase1(IKE_AUTH_PSK)); }},
        {KEYMGR_IKE, [](IPsecAction& action) { action.ikePhase2Set(samplePhase2()); }},
    };
    for (const auto& [keyMgr, change] : changes) {
        IPsecAction action = read<IPsecAction>(withText(written(tunnel(keyMgr)), "changeCount", "2147483647"));
        change(action);
        EXPECT_EQ(action.changeCountGet(), INT_MIN);
        EXPECT_EQ(textIn(written(action), "changeCount"), "-2147483648");
        EXPECT_EQ(rewritten<IPsecAction>(written(action)), written(action));
    }
}

} // namespace
} // namespace ipsecimpl
