#include "support/documents.h"
#include "actions/samples.h"

#include <ipsecimpl/actions.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace ipsecimpl {
namespace {

const std::string DEFAULT = "<action>\n"
                            "<changeCount>0</changeCount>\n"
                            "<name></name>\n"
                            "<builtinName>0</builtinName>\n"
                            "<descr></descr>\n"
                            "<builtinDescr>0</builtinDescr>\n"
                            "<type>0</type>\n"
                            "<state>0</state>\n"
                            "<spdAction>NONE</spdAction>\n"
                            "</action>\n";

const std::string EMPTY_PHASE1 = "<ikePhase1>\n"
                                 "<authType>PSK</authType>\n"
                                 "<presharedKey></presharedKey>\n"
                                 "<proposal>\n"
                                 "<dhGroup>NONE</dhGroup>\n"
                                 "<keyLifetime>28800</keyLifetime>\n"
                                 "<keyLifetimeUnits>SECS</keyLifetimeUnits>\n"
                                 "</proposal>\n"
                                 "</ikePhase1>\n";

const std::string EMPTY_PHASE2 = "<ikePhase2>\n"
                                 "<dhGroup>NONE</dhGroup>\n"
                                 "<keyLifetime>28800</keyLifetime>\n"
                                 "<keyLifetimeUnits>SECS</keyLifetimeUnits>\n"
                                 "</ikePhase2>\n";

/// A tunnel by IKE, of type 5 and state 6, that has no field at its default: a manual key waits behind the others.
IPsecAction sample()
{
    IPsecAction action =
        read<IPsecAction>("<action>\n<changeCount>9</changeCount>\n<name>name</name>\n"
                          "<builtinName>-3</builtinName>\n<descr>descr</descr>\n"
                          "<builtinDescr>-4</builtinDescr>\n<type>5</type>\n<state>6</state>\n"
                          "<spdAction>TUNNEL</spdAction>\n<tunnelEndpoint>2001:db8::1</tunnelEndpoint>\n"
                          "<keyMgr>IKE</keyMgr>\n" +
                          RSA_DOCUMENT + PHASE2_DOCUMENT + "</action>\n");
    action.keyMgrSet(KEYMGR_MKM);
    action.manualKeySet(sampleKey());
    action.keyMgrSet(KEYMGR_IKE);
    return action;
}

/// An action that is nothing but `type` and `state`.
IPsecAction target(const std::string& type, const std::string& state)
{
    return read<IPsecAction>(withText(withText(DEFAULT, "type", type), "state", state));
}

/// What everythingOf() gives for an action that differs in `type` and `state` alone. (Copies of it have 0 there
/// anyway.)
std::string everythingWith(const IPsecAction& action, const std::string& type, const std::string& state)
{
    const std::string document = written(action);
    const std::string rest     = everythingOf(action).substr(document.size());
    return withText(withText(document, "type", type), "state", state) + rest;
}

TEST(IPsecActionValue, StartsWithNothingInForceAndEmptyKeying)
{
    IPsecAction action;
    EXPECT_EQ(written(action), DEFAULT);
    EXPECT_FALSE(action.isBuiltIn());
    EXPECT_EQ(action.spdActionGet(), SPD_NONE);
    EXPECT_EQ(action.changeCountGet(), 0);

    action.spdActionSet(SPD_TUNNEL);
    EXPECT_EQ(action.tunnelEndpointGet(), "");
    EXPECT_EQ(action.keyMgrGet(), KEYMGR_NONE);
    action.keyMgrSet(KEYMGR_MKM);
    EXPECT_EQ(everythingOf(action.manualKeyGet()), everythingOf(MKM()));
    action.keyMgrSet(KEYMGR_IKE);
    EXPECT_EQ(written(action.ikePhase1Get()), EMPTY_PHASE1);
    EXPECT_EQ(everythingOf(action.ikePhase1Get()), everythingOf(read<IKEPhase1>(EMPTY_PHASE1)));
    EXPECT_EQ(written(action.ikePhase2Get()), EMPTY_PHASE2);
}

TEST(IPsecActionValue, IsMadeFromSixValuesAndTheDefaults)
{
    EXPECT_EQ(written(IPsecAction(SPD_TUNNEL, "a name", -7, "a description", 2147483647, KEYMGR_IKE)),
              "<action>\n"
              "<changeCount>0</changeCount>\n"
              "<name>a name</name>\n"
              "<builtinName>-7</builtinName>\n"
              "<descr>a description</descr>\n"
              "<builtinDescr>2147483647</builtinDescr>\n"
              "<type>0</type>\n"
              "<state>0</state>\n"
              "<spdAction>TUNNEL</spdAction>\n"
              "<tunnelEndpoint></tunnelEndpoint>\n"
              "<keyMgr>IKE</keyMgr>\n" +
                  EMPTY_PHASE1 + EMPTY_PHASE2 + "</action>\n");
    EXPECT_EQ(everythingOf(IPsecAction(SPD_NONE, "", 0, "", 0, KEYMGR_NONE)), everythingOf(IPsecAction()));
}

TEST(IPsecActionValue, IsCopiedWithTypeAndStateAtZero)
{
    const IPsecAction original = sample();
    const IPsecAction copy(original);
    EXPECT_EQ(textIn(written(original), "type"), "5");
    EXPECT_EQ(everythingOf(copy), everythingWith(original, "0", "0"));
}

TEST(IPsecActionValue, IsAssignedButForTypeAndState)
{
    const IPsecAction original = sample();
    IPsecAction       action   = target("7", "-8");
    EXPECT_EQ(&(action = original), &action);
    EXPECT_EQ(everythingOf(action), everythingWith(original, "7", "-8"));
    EXPECT_EQ(textIn(written(original), "type"), "5");
}

TEST(IPsecActionValue, KeepsTypeAndStateAlsoWhenATemporaryIsAssigned)
{
    IPsecAction action = target("7", "-8");
    EXPECT_EQ(&(action = sample()), &action);
    EXPECT_EQ(everythingOf(action), everythingWith(sample(), "7", "-8"));

    IPsecAction source = sample();
    IPsecAction other  = target("1", "2");
    other              = std::move(source);
    EXPECT_EQ(everythingOf(other), everythingWith(sample(), "1", "2"));
}

TEST(IPsecActionValue, IsMovedWithTypeAndState)
{
    IPsecAction       original = sample();
    const std::string before   = everythingOf(original);
    const IPsecAction moved(std::move(original));
    EXPECT_EQ(everythingOf(moved), before);
    EXPECT_EQ(textIn(written(moved), "type"), "5");
    EXPECT_EQ(textIn(written(moved), "state"), "6");
    static_assert(std::is_nothrow_move_constructible_v<IPsecAction>);
}

TEST(IPsecActionValue, CanBeAssignedToAfterItWasMovedFrom)
{
    IPsecAction       action = sample();
    const IPsecAction moved(std::move(action));
    action = moved;
    EXPECT_EQ(everythingWith(action, "5", "6"), everythingOf(moved));
}

TEST(IPsecActionValue, ComesFromItsReaderWithTypeAndState)
{
    const IPsecAction action = target("5", "6");
    EXPECT_EQ(written(action), withText(withText(DEFAULT, "type", "5"), "state", "6"));

    const auto throughAnother = [] {
        IPsecAction read = target("-5", "2147483647");
        return read;
    };
    EXPECT_EQ(written(throughAnother()), withText(withText(DEFAULT, "type", "-5"), "state", "2147483647"));
}

TEST(IPsecActionValue, IsUnchangedByAssignmentToItself)
{
    IPsecAction       action = sample();
    const std::string before = everythingOf(action);
    expectKeptByAssignmentToItself(action);
    EXPECT_EQ(everythingOf(action), before);
    EXPECT_EQ(textIn(written(action), "type"), "5");
}

TEST(IPsecActionValue, IsUnchangedByMoveIntoItself)
{
    IPsecAction action = sample();
    expectKeptByMoveIntoItself(action);
}

TEST(IPsecActionValue, IsIndependentOfItsCopies)
{
    const IPsecAction original = sample();
    const std::string before   = everythingOf(original);
    IPsecAction       copy(original);
    IPsecAction       assigned;
    assigned = original;
    for (IPsecAction* action : {&copy, &assigned}) {
        action->nameSet("x");
        action->descrSet("x");
        action->tunnelEndpointSet("x");
        action->ikePhase1Set(samplePhase1(IKE_AUTH_PSK));
        action->ikePhase2Set(IKEPhase2({}, DH_GROUP_NONE, 0, KEYLIFETIME_KB));
        action->keyMgrSet(KEYMGR_MKM);
        action->manualKeySet(MKM());
        action->spdActionSet(SPD_NONE);
    }
    EXPECT_EQ(everythingOf(original), before);
}

TEST(IPsecActionValue, TakesTheSourcesCounterWhenAssignedAndDoesNotCountTheAssignment)
{
    IPsecAction action;
    action.spdActionSet(SPD_BYPASS);
    action.spdActionSet(SPD_DISCARD);
    const IPsecAction fresh;
    action = fresh;
    EXPECT_EQ(action.changeCountGet(), 0);
    action = sample();
    EXPECT_EQ(action.changeCountGet(), sample().changeCountGet());
}

TEST(IPsecActionValue, TakesTheSourcesBuiltInStatusWhenAssigned)
{
    IPsecAction action(SPD_BYPASS, "name", 1, "descr", 1, KEYMGR_NONE);
    EXPECT_TRUE(action.isBuiltIn());
    const IPsecAction plain;
    action = plain;
    EXPECT_FALSE(action.isBuiltIn());
    EXPECT_EQ(action.nameSet("free"), "free");
}

TEST(IPsecActionValue, KeepsWhatIsOutOfForceUntilItsModeReturns)
{
    IPsecAction action = sample();
    action.spdActionSet(SPD_BYPASS);
    action.keyMgrSet(KEYMGR_NONE);
    EXPECT_EQ(written(action).find("tunnelEndpoint"), std::string::npos);
    EXPECT_EQ(errorOf<invalid_operation>([&] { action.tunnelEndpointGet(); }),
              "tunnelEndpoint is only defined for IPSEC-TUNNEL");

    action.spdActionSet(SPD_TUNNEL);
    EXPECT_EQ(action.tunnelEndpointGet(), "2001:db8::1");
    action.keyMgrSet(KEYMGR_MKM);
    EXPECT_EQ(everythingOf(action.manualKeyGet()), everythingOf(sampleKey()));
    action.keyMgrSet(KEYMGR_IKE);
    EXPECT_EQ(written(action.ikePhase1Get()), RSA_DOCUMENT);
    EXPECT_EQ(written(action.ikePhase2Get()), PHASE2_DOCUMENT);
}

TEST(IPsecActionValue, GivesReferencesThatSeeLaterChanges)
{
    IPsecAction        action = sample();
    const SPDAction&   spd    = action.spdActionGet();
    const std::string& name   = action.nameGet();
    action.nameSet("later");
    action.spdActionSet(SPD_BYPASS);
    EXPECT_EQ(name, "later");
    EXPECT_EQ(spd, SPD_BYPASS);
}

} // namespace
} // namespace ipsecimpl
