#include "support/documents.h"
#include "actions/samples.h"

#include <ipsecimpl/actions.h>

#include <gtest/gtest.h>

#include <future>

namespace ipsecimpl {
namespace {

const std::string DISCARD = "<action>\n"
                            "<changeCount>0</changeCount>\n"
                            "<name>Discard</name>\n"
                            "<builtinName>19</builtinName>\n"
                            "<descr>block unencrypted traffic</descr>\n"
                            "<builtinDescr>20</builtinDescr>\n"
                            "<type>0</type>\n"
                            "<state>0</state>\n"
                            "<spdAction>DISCARD</spdAction>\n"
                            "</action>\n";

const std::string BYPASS = "<action>\n"
                           "<changeCount>0</changeCount>\n"
                           "<name>Bypass</name>\n"
                           "<builtinName>17</builtinName>\n"
                           "<descr>allow unencrypted traffic</descr>\n"
                           "<builtinDescr>18</builtinDescr>\n"
                           "<type>0</type>\n"
                           "<state>0</state>\n"
                           "<spdAction>BYPASS</spdAction>\n"
                           "</action>\n";

TEST(BuiltinActions, HaveTheirFields)
{
    EXPECT_EQ(ActionDiscard().spdActionGet(), SPD_DISCARD);
    EXPECT_EQ(ActionDiscard().nameGet(), "Discard");
    EXPECT_EQ(ActionDiscard().descrGet(), "block unencrypted traffic");
    EXPECT_EQ(ActionDiscard().changeCountGet(), 0);
    EXPECT_TRUE(ActionDiscard().isBuiltIn());

    EXPECT_EQ(ActionBypass().spdActionGet(), SPD_BYPASS);
    EXPECT_EQ(ActionBypass().nameGet(), "Bypass");
    EXPECT_EQ(ActionBypass().descrGet(), "allow unencrypted traffic");
    EXPECT_EQ(ActionBypass().changeCountGet(), 0);
    EXPECT_TRUE(ActionBypass().isBuiltIn());
}

TEST(BuiltinActions, AreWrittenWithTheirNumbers)
{
    EXPECT_EQ(written(ActionDiscard()), DISCARD);
    EXPECT_EQ(written(ActionBypass()), BYPASS);
}

TEST(BuiltinActions, AreStillBuiltInWhenReadFromADocument)
{
    for (const std::string& document : {DISCARD, BYPASS}) {
        EXPECT_TRUE(read<IPsecAction>(document).isBuiltIn());
        EXPECT_EQ(rewritten<IPsecAction>(document), document);
    }
}

TEST(BuiltinActions, AreOneObjectEach)
{
    EXPECT_EQ(&ActionDiscard(), &ActionDiscard());
    EXPECT_EQ(&ActionBypass(), &ActionBypass());
    EXPECT_NE(&ActionDiscard(), &ActionBypass());
}

TEST(BuiltinActions, AreOneObjectForThreadsThatRaceForTheFirstCall)
{
    for (IPsecAction& (*factory)() : {&ActionDiscard, &ActionBypass}) {
        std::vector<std::future<IPsecAction*>> calls;
        for (int i = 0; i < 8; ++i)
            calls.push_back(std::async(std::launch::async, [factory] { return &factory(); }));
        for (std::future<IPsecAction*>& call : calls)
            EXPECT_EQ(call.get(), &factory());
    }
}

TEST(BuiltinActions, RefuseEveryChangeAndEveryGuardedGetter)
{
    for (IPsecAction& (*factory)() : {&ActionDiscard, &ActionBypass}) {
        IPsecAction&      action = factory();
        const std::string before = everythingOf(action);
        const auto        error  = [](auto&& call) { return errorOf<invalid_operation>(call); };

        EXPECT_EQ(error([&] { action.nameSet("x"); }), "cannot change name of a built-in object");
        EXPECT_EQ(error([&] { action.descrSet("x"); }), "cannot change description of a built-in object");
        EXPECT_EQ(error([&] { action.spdActionSet(SPD_TUNNEL); }), "cannot change spd action for a built-in object");
        EXPECT_EQ(error([&] { action.keyMgrSet(KEYMGR_IKE); }), "cannot change key manager for a built-in object");
        EXPECT_EQ(error([&] { action.tunnelEndpointSet("x"); }), "tunnelEndpoint is only defined for IPSEC-TUNNEL");
        EXPECT_EQ(error([&] { action.manualKeySet(MKM()); }), "key is only defined for IPSEC-MKM");
        EXPECT_EQ(error([&] { action.ikePhase1Set(samplePhase1(IKE_AUTH_PSK)); }),
                  "ikePhase1 is only defined for IPSEC-IKE");
        EXPECT_EQ(error([&] { action.ikePhase2Set(samplePhase2()); }), "ikePhase2 is only defined for IPSEC-IKE");

        EXPECT_EQ(error([&] { action.keyMgrGet(); }),
                  "key manager is only defined for IPSEC-TRANSPORT and IPSEC-TUNNEL");
        EXPECT_EQ(error([&] { action.tunnelEndpointGet(); }), "tunnelEndpoint is only defined for IPSEC-TUNNEL");
        EXPECT_EQ(error([&] { action.manualKeyGet(); }), "manualKey is only defined for IPSEC-MKM");
        EXPECT_EQ(error([&] { action.ikePhase1Get(); }), "ikePhase1 is only defined for IPSEC-IKE");
        EXPECT_EQ(error([&] { action.ikePhase2Get(); }), "ikePhase2 is only defined for IPSEC-IKE");
        EXPECT_EQ(everythingOf(action), before);
    }
}

TEST(BuiltinActions, AreBuiltInAsCopiesToo)
{
    IPsecAction copy(ActionDiscard());
    EXPECT_TRUE(copy.isBuiltIn());
    EXPECT_EQ(errorOf<invalid_operation>([&] { copy.nameSet("x"); }), "cannot change name of a built-in object");
    copy = ActionBypass();
    EXPECT_EQ(written(copy), BYPASS);
    copy = IPsecAction();
    EXPECT_EQ(copy.nameSet("x"), "x");
    EXPECT_EQ(written(ActionBypass()), BYPASS);
    EXPECT_EQ(written(ActionDiscard()), DISCARD);
}

} // namespace
} // namespace ipsecimpl
