#include "support/documents.h"
#include "actions/samples.h"

#include <ipsecimpl/actions.h>

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <regex>

namespace ipsecimpl {
namespace {

const std::string ENDPOINT = "192.0.2.1";

/// All that an action's rules look at.
struct Mode {
    SPDAction   spdAction;
    IPsecKeyMgr keyMgr;
    int         builtinName;
    int         builtinDescr;
    bool        builtIn;

    bool tunnel() const { return spdAction == SPD_TUNNEL; }
    bool protects() const { return tunnel() || spdAction == SPD_TRANSPORT; }
    bool manual() const { return keyMgr == KEYMGR_MKM; }
    bool ike() const { return keyMgr == KEYMGR_IKE; }
};

std::ostream& operator<<(std::ostream& os, const Mode& mode)
{
    return os << mode.spdAction << ", " << mode.keyMgr << ", built-in name " << mode.builtinName << ", description "
              << mode.builtinDescr;
}

std::vector<Mode> modes()
{
    struct Status {
        int  builtinName;
        int  builtinDescr;
        bool builtIn;
    };
    const Status statuses[] = {
        {0, 0, false},       {1, 0, true},       {0, 1, true},
        {19, 20, true},      {-1, 0, false},     {0, -1, false},
        {INT_MAX, -1, true}, {INT_MIN, 1, true}, {INT_MIN, INT_MIN, false},
    };
    std::vector<Mode> all;
    for (int spdAction = 0; spdAction < __SPDActionNum__; ++spdAction)
        for (int keyMgr = 0; keyMgr < __IPsecKeyMgrNum__; ++keyMgr)
            for (const Status& status : statuses)
                all.push_back({spdAction, keyMgr, status.builtinName, status.builtinDescr, status.builtIn});
    return all;
}

/// An action in this mode, with no field at its default that can have another value. (A built-in one keeps its mode, so
/// only what is in force there can be set.)
IPsecAction make(const Mode& mode)
{
    IPsecAction action;
    if (mode.builtIn) {
        action = IPsecAction(mode.spdAction, "name", mode.builtinName, "descr", mode.builtinDescr, mode.keyMgr);
        if (mode.tunnel())
            action.tunnelEndpointSet(ENDPOINT);
        if (mode.manual())
            action.manualKeySet(sampleKey());
        if (mode.ike()) {
            action.ikePhase1Set(samplePhase1(IKE_AUTH_RSA));
            action.ikePhase2Set(samplePhase2());
        }
    } else {
        action = IPsecAction(SPD_TUNNEL, "name", mode.builtinName, "descr", mode.builtinDescr, KEYMGR_MKM);
        action.tunnelEndpointSet(ENDPOINT);
        action.manualKeySet(sampleKey());
        action.keyMgrSet(KEYMGR_IKE);
        action.ikePhase1Set(samplePhase1(IKE_AUTH_RSA));
        action.ikePhase2Set(samplePhase2());
        action.keyMgrSet(mode.keyMgr);
        action.spdActionSet(mode.spdAction);
    }
    action.typeSet(5);
    action.stateSet(6);
    return action;
}

/// What everythingOf() shows, but for the change counters.
std::string uncounted(const IPsecAction& action)
{
    static const std::regex counter("<changeCount>-?[0-9]+</changeCount>");
    return std::regex_replace(everythingOf(action), counter, "");
}

struct Getter {
    const char* name;
    const char* message;
    bool (*allowed)(const Mode&);
    std::function<void(const IPsecAction&, const Mode&)> check; ///< calls the getter and looks at the result
};

struct Setter {
    const char* name;
    const char* message;
    bool (*allowed)(const Mode&);
    int                                            count;   ///< what the counter is raised by
    std::function<void(IPsecAction&, const Mode&)> change;  ///< sets another value
    std::function<void(IPsecAction&, const Mode&)> restore; ///< sets what make() has set
};

// clang-format off
bool notBuiltIn(const Mode& mode)    { return !mode.builtIn; }
bool inTunnel(const Mode& mode)      { return mode.tunnel(); }
bool inProtection(const Mode& mode)  { return mode.protects(); }
bool withManualKey(const Mode& mode) { return mode.manual(); }
bool withIKE(const Mode& mode)       { return mode.ike(); }
// clang-format on

void setSPDAction(IPsecAction& action, const SPDAction& spdAction)
{
    const SPDAction& stored = action.spdActionSet(spdAction);
    EXPECT_EQ(stored, spdAction);
    EXPECT_EQ(&stored, &action.spdActionGet());
}

void setKeyMgr(IPsecAction& action, const Mode& mode, const IPsecKeyMgr& keyMgr)
{
    const IPsecKeyMgr& stored = action.keyMgrSet(keyMgr);
    EXPECT_EQ(stored, keyMgr);
    if (mode.protects()) {
        EXPECT_EQ(&stored, &action.keyMgrGet());
    }
}

void setName(IPsecAction& action, const std::string& name)
{
    const std::string& stored = action.nameSet(name);
    EXPECT_EQ(stored, name);
    EXPECT_EQ(&stored, &action.nameGet());
}

void setDescr(IPsecAction& action, const std::string& descr)
{
    const std::string& stored = action.descrSet(descr);
    EXPECT_EQ(stored, descr);
    EXPECT_EQ(&stored, &action.descrGet());
}

void setTunnelEndpoint(IPsecAction& action, const std::string& tunnelEndpoint)
{
    const std::string& stored = action.tunnelEndpointSet(tunnelEndpoint);
    EXPECT_EQ(stored, tunnelEndpoint);
    EXPECT_EQ(&stored, &action.tunnelEndpointGet());
}

void setManualKey(IPsecAction& action, const MKM& manualKey)
{
    const MKM& stored = action.manualKeySet(manualKey);
    EXPECT_EQ(everythingOf(stored), everythingOf(manualKey));
    EXPECT_EQ(&stored, &action.manualKeyGet());
}

void setIKEPhase1(IPsecAction& action, const IKEPhase1& phase1)
{
    const IKEPhase1& stored = action.ikePhase1Set(phase1);
    EXPECT_EQ(everythingOf(stored), everythingOf(phase1));
    EXPECT_EQ(&stored, &action.ikePhase1Get());
}

void setIKEPhase2(IPsecAction& action, const IKEPhase2& phase2)
{
    const IKEPhase2& stored = action.ikePhase2Set(phase2);
    EXPECT_EQ(written(stored), written(phase2));
    EXPECT_EQ(&stored, &action.ikePhase2Get());
}

// clang-format off
const std::vector<Getter>& getters()
{
    using A = const IPsecAction&;
    using M = const Mode&;
    static const std::vector<Getter> all = {
        {"keyMgrGet", "key manager is only defined for IPSEC-TRANSPORT and IPSEC-TUNNEL", inProtection,
         [](A a, M m) { EXPECT_EQ(a.keyMgrGet(), m.keyMgr); }},
        {"tunnelEndpointGet", "tunnelEndpoint is only defined for IPSEC-TUNNEL", inTunnel,
         [](A a, M)   { EXPECT_EQ(a.tunnelEndpointGet(), ENDPOINT); }},
        {"manualKeyGet", "manualKey is only defined for IPSEC-MKM", withManualKey,
         [](A a, M)   { EXPECT_EQ(everythingOf(a.manualKeyGet()), everythingOf(sampleKey())); }},
        {"ikePhase1Get", "ikePhase1 is only defined for IPSEC-IKE", withIKE,
         [](A a, M)   { EXPECT_EQ(everythingOf(a.ikePhase1Get()), everythingOf(samplePhase1(IKE_AUTH_RSA))); }},
        {"ikePhase2Get", "ikePhase2 is only defined for IPSEC-IKE", withIKE,
         [](A a, M)   { EXPECT_EQ(written(a.ikePhase2Get()), PHASE2_DOCUMENT); }},
    };
    return all;
}

const std::vector<Setter>& setters()
{
    using A = IPsecAction&;
    using M = const Mode&;
    static const std::vector<Setter> all = {
        {"spdActionSet", "cannot change spd action for a built-in object", notBuiltIn, 1,
         [](A a, M m) { setSPDAction(a, (m.spdAction.valueGet() + 1) % __SPDActionNum__); },
         [](A a, M m) { setSPDAction(a, m.spdAction); }},
        {"keyMgrSet", "cannot change key manager for a built-in object", notBuiltIn, 1,
         [](A a, M m) { setKeyMgr(a, m, (m.keyMgr.valueGet() + 1) % __IPsecKeyMgrNum__); },
         [](A a, M m) { setKeyMgr(a, m, m.keyMgr); }},
        {"nameSet", "cannot change name of a built-in object", notBuiltIn, 0,
         [](A a, M)   { setName(a, "another name"); },
         [](A a, M)   { setName(a, "name"); }},
        {"descrSet", "cannot change description of a built-in object", notBuiltIn, 0,
         [](A a, M)   { setDescr(a, "another description"); },
         [](A a, M)   { setDescr(a, "descr"); }},
        {"tunnelEndpointSet", "tunnelEndpoint is only defined for IPSEC-TUNNEL", inTunnel, 1,
         [](A a, M)   { setTunnelEndpoint(a, "no address at all"); },
         [](A a, M)   { setTunnelEndpoint(a, ENDPOINT); }},
        {"manualKeySet", "key is only defined for IPSEC-MKM", withManualKey, 1,
         [](A a, M)   { setManualKey(a, MKM()); },
         [](A a, M)   { setManualKey(a, sampleKey()); }},
        {"ikePhase1Set", "ikePhase1 is only defined for IPSEC-IKE", withIKE, 1,
         [](A a, M)   { setIKEPhase1(a, IKEPhase1(IKE_AUTH_PSK, "", "", "", sampleProposal())); },
         [](A a, M)   { setIKEPhase1(a, samplePhase1(IKE_AUTH_RSA)); }},
        {"ikePhase2Set", "ikePhase2 is only defined for IPSEC-IKE", withIKE, 1,
         [](A a, M)   { setIKEPhase2(a, IKEPhase2({}, DH_GROUP_NONE, 0, KEYLIFETIME_SECS)); },
         [](A a, M)   { setIKEPhase2(a, samplePhase2()); }},
    };
    return all;
}
// clang-format on

TEST(IPsecAction, IsBuiltInForANameOrDescriptionNumberAboveZero)
{
    for (const Mode& mode : modes())
        EXPECT_EQ(make(mode).isBuiltIn(), mode.builtIn) << mode;
}

TEST(IPsecAction, TellsTheFieldsThatAreAlwaysInForceInEveryMode)
{
    for (const Mode& mode : modes()) {
        const IPsecAction action = make(mode);
        EXPECT_EQ(action.spdActionGet(), mode.spdAction) << mode;
        EXPECT_EQ(action.nameGet(), "name") << mode;
        EXPECT_EQ(action.descrGet(), "descr") << mode;
        EXPECT_EQ(action.builtinNameGet(), mode.builtinName) << mode;
        EXPECT_EQ(action.builtinDescrGet(), mode.builtinDescr) << mode;
        EXPECT_EQ(action.typeGet(), 5) << mode;
        EXPECT_EQ(action.stateGet(), 6) << mode;
        EXPECT_EQ(std::to_string(action.changeCountGet()), textIn(written(action), "changeCount")) << mode;
    }
}

TEST(IPsecAction, TakesAnyTypeAndStateInEveryModeAndDoesNotCountThem)
{
    for (const Mode& mode : modes())
        for (const int number : {0, 1, -1, INT_MAX, INT_MIN}) {
            IPsecAction       action = make(mode);
            const int         count  = action.changeCountGet();
            const std::string before = everythingOf(action);
            EXPECT_EQ(action.typeSet(number), number) << mode;
            EXPECT_EQ(action.stateSet(number), number) << mode;
            EXPECT_EQ(action.typeGet(), number) << mode;
            EXPECT_EQ(action.stateGet(), number) << mode;
            EXPECT_EQ(textIn(written(action), "type"), std::to_string(number)) << mode;
            EXPECT_EQ(textIn(written(action), "state"), std::to_string(number)) << mode;
            EXPECT_EQ(action.changeCountGet(), count) << mode;
            action.typeSet(5);
            action.stateSet(6);
            EXPECT_EQ(everythingOf(action), before) << mode;
        }
}

TEST(IPsecAction, AnswersOrRefusesEachGuardedGetterAsItsModeSays)
{
    for (const Mode& mode : modes())
        for (const Getter& getter : getters()) {
            const IPsecAction action = make(mode);
            const std::string before = everythingOf(action);
            SCOPED_TRACE(testing::Message() << getter.name << ": " << mode);
            if (getter.allowed(mode))
                getter.check(action, mode);
            else
                EXPECT_EQ(errorOf<invalid_operation>([&] { getter.check(action, mode); }), getter.message);
            EXPECT_EQ(everythingOf(action), before);
        }
}

TEST(IPsecAction, StoresAndCountsEachChangeThatItsModeAllows)
{
    for (const Mode& mode : modes())
        for (const Setter& setter : setters()) {
            if (!setter.allowed(mode))
                continue;
            SCOPED_TRACE(testing::Message() << setter.name << ": " << mode);
            IPsecAction       action = make(mode);
            const std::string before = uncounted(action);
            const int         count  = action.changeCountGet();

            setter.change(action, mode);
            EXPECT_EQ(action.changeCountGet(), count + setter.count);
            EXPECT_NE(uncounted(action), before);
            setter.restore(action, mode);
            EXPECT_EQ(action.changeCountGet(), count + 2 * setter.count);
            EXPECT_EQ(uncounted(action), before) << "nothing but this field has changed";
        }
}

TEST(IPsecAction, RefusesEachChangeThatItsModeForbidsAndIsUnchanged)
{
    for (const Mode& mode : modes())
        for (const Setter& setter : setters()) {
            if (setter.allowed(mode))
                continue;
            SCOPED_TRACE(testing::Message() << setter.name << ": " << mode);
            IPsecAction       action = make(mode);
            const std::string before = everythingOf(action);
            EXPECT_EQ(errorOf<invalid_operation>([&] { setter.change(action, mode); }), setter.message);
            EXPECT_EQ(everythingOf(action), before);
            EXPECT_EQ(errorOf<invalid_operation>([&] { setter.restore(action, mode); }), setter.message)
                << "also where the value would stay the same";
            EXPECT_EQ(everythingOf(action), before);
        }
}

} // namespace
} // namespace ipsecimpl
