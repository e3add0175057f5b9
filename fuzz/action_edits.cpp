#include "action_edits.h"

#include "some.h"

#include <stdexcept>

namespace ipsecimpl {
namespace {

struct Credential {
    const char* name;
    const std::string& (IKEPhase1::*get)() const;
    const std::string& (IKEPhase1::*set)(const std::string&);
    std::string model::Phase1::*holds;
};

void editCredential(Program& program, IKEPhase1& phase, model::Phase1& expected)
{
    static constexpr Credential credentials[] = {
        {"presharedKey", &IKEPhase1::presharedKeyGet, &IKEPhase1::presharedKeySet, &model::Phase1::presharedKey},
        {"localCert", &IKEPhase1::localCertGet, &IKEPhase1::localCertSet, &model::Phase1::localCert},
        {"peerTrust", &IKEPhase1::peerTrustGet, &IKEPhase1::peerTrustSet, &model::Phase1::peerTrust}};

    const Credential&    credential = credentials[program.below(3)];
    const std::string&   text       = someText(program);
    const model::Refusal refusal    = expected.refusal(credential.name);
    std::string&         holds      = expected.*credential.holds;
    if (program.below(2) == 0) {
        if (refusal.empty())
            holds = text;
        require(credential.name, refusal, refusalOf<std::invalid_argument>([&] {
                    require("stored credential", text, (phase.*credential.set)(text));
                }));
    }
    require(credential.name, refusal,
            refusalOf<std::invalid_argument>([&] { require("credential", holds, (phase.*credential.get)()); }));
}

void editPhase1(Program& program, IKEPhase1& phase, model::Phase1& expected)
{
    for (unsigned int steps = program.below(4); steps > 0; --steps) {
        switch (program.below(3)) {
        case 0: {
            const auto authType = someWord<IKEAuthType>(program, __IKEAuthTypeNum__);
            expected.authType   = model::word(authType);
            require("authTypeSet", expected.authType, model::word(phase.authTypeSet(authType)));
            break;
        }
        case 1: {
            const IKEPhase1Proposal proposal = somePhase1Proposal(program);
            expected.proposal                = stored(proposal);
            require("proposalSet", expected.proposal, stored(phase.proposalSet(proposal)));
            break;
        }
        default:
            editCredential(program, phase, expected);
        }
        require("ikePhase1", expected.written(), stored(phase));
    }
}

/// The phase 1 of an action, or a new one; changed, and perhaps given to the action.
void editPhase1Of(Program& program, IPsecAction& action, model::Action& expected)
{
    const auto authType = someWord<IKEAuthType>(program, __IKEAuthTypeNum__);
    IKEPhase1  phase(authType, "cert", "trust", "key", somePhase1Proposal(program));

    model::Phase1 holds{model::word(authType), "cert", "trust", "key", stored(phase.proposalGet())};
    if (program.below(2) == 0) {
        const model::Refusal refusal = expected.keyingGet("ikePhase1", "IKE");
        require("ikePhase1Get", refusal, refusalOf<invalid_operation>([&] { phase = action.ikePhase1Get(); }));
        if (refusal.empty())
            holds = expected.phase1;
    }
    editPhase1(program, phase, holds);
    require("ikePhase1Set", expected.phase1Set(holds), refusalOf<invalid_operation>([&] {
                require("stored ikePhase1", holds.written(), stored(action.ikePhase1Set(phase)));
            }));
}

/// Fields that are not in force show in a copy whose mode is theirs.
void reveal(const IPsecAction& action, const model::Action& expected)
{
    IPsecAction   copy(action);
    model::Action holds = expected;
    holds.type = holds.state = 0;
    for (const SPDAction& mode : {SPD_TRANSPORT, SPD_TUNNEL})
        for (const IPsecKeyMgr& keyMgr : {KEYMGR_MKM, KEYMGR_IKE}) {
            require("spdActionSet", holds.spdActionSet(model::word(mode)),
                    refusalOf<invalid_operation>([&] { copy.spdActionSet(mode); }));
            require("keyMgrSet", holds.keyMgrSet(model::word(keyMgr)),
                    refusalOf<invalid_operation>([&] { copy.keyMgrSet(keyMgr); }));
            require("what was not in force", holds.written(), stored(copy));
        }
}

struct TextField {
    const char* setter;
    model::Refusal (model::Action::*expectedSet)(const std::string&);
    const std::string& (IPsecAction::*set)(const std::string&);
};

void setText(Program& program, IPsecAction& action, model::Action& expected)
{
    static constexpr TextField fields[] = {
        {"nameSet", &model::Action::nameSet, &IPsecAction::nameSet},
        {"descrSet", &model::Action::descrSet, &IPsecAction::descrSet},
        {"tunnelEndpointSet", &model::Action::tunnelEndpointSet, &IPsecAction::tunnelEndpointSet}};

    const TextField&   field = fields[program.below(3)];
    const std::string& text  = someText(program);
    require(field.setter, (expected.*field.expectedSet)(text),
            refusalOf<invalid_operation>([&] { require("stored text", text, (action.*field.set)(text)); }));
}

template <class Get, class Show>
void checkGetter(const char* name, const model::Refusal& refusal, const std::string& expected, Get get, Show show)
{
    require(name, refusal, refusalOf<invalid_operation>([&] { require(name, expected, show(get())); }));
}

void readAction(Program& program, const IPsecAction& action, const model::Action& expected)
{
    const auto text    = [](const std::string& value) { return value; };
    const auto written = [](const auto& value) { return stored(value); };
    switch (program.below(5)) {
    case 0:
        checkGetter(
            "keyMgrGet", expected.keyMgrGet(), expected.keyMgr, [&] { return action.keyMgrGet(); },
            [](const IPsecKeyMgr& value) { return model::word(value); });
        break;
    case 1:
        checkGetter(
            "tunnelEndpointGet", expected.tunnelEndpointGet(), expected.tunnelEndpoint,
            [&] { return action.tunnelEndpointGet(); }, text);
        break;
    case 2:
        checkGetter(
            "manualKeyGet", expected.keyingGet("manualKey", "MKM"), expected.manualKey,
            [&] { return action.manualKeyGet(); }, written);
        break;
    case 3:
        checkGetter(
            "ikePhase2Get", expected.keyingGet("ikePhase2", "IKE"), expected.phase2,
            [&] { return action.ikePhase2Get(); }, written);
        break;
    default:
        require("isBuiltIn", expected.isBuiltIn() ? "yes" : "no", action.isBuiltIn() ? "yes" : "no");
        reveal(action, expected);
    }
}

} // namespace

NewAction::NewAction(Program& program)
{
    const auto spdAction = someWord<SPDAction>(program, __SPDActionNum__);
    const auto keyMgr    = someWord<IPsecKeyMgr>(program, __IPsecKeyMgrNum__);
    holds.spdAction      = model::word(spdAction);
    holds.keyMgr         = model::word(keyMgr);
    holds.name           = someText(program);
    holds.descr          = someText(program);
    holds.builtinName    = someBuiltinNumber(program);
    holds.builtinDescr   = someBuiltinNumber(program);
    action      = IPsecAction(spdAction, holds.name, holds.builtinName, holds.descr, holds.builtinDescr, keyMgr);
    holds.type  = action.typeSet(static_cast<int>(program.below(3)));
    holds.state = action.stateSet(static_cast<int>(program.below(3)));
}

void editAction(Program& program, IPsecAction& action, model::Action& expected)
{
    switch (program.below(11)) {
    case 0: {
        const auto value = someWord<SPDAction>(program, __SPDActionNum__);
        require("spdActionSet", expected.spdActionSet(model::word(value)),
                refusalOf<invalid_operation>([&] { action.spdActionSet(value); }));
        break;
    }
    case 1: {
        const auto value = someWord<IPsecKeyMgr>(program, __IPsecKeyMgrNum__);
        require("keyMgrSet", expected.keyMgrSet(model::word(value)),
                refusalOf<invalid_operation>([&] { action.keyMgrSet(value); }));
        break;
    }
    case 2:
    case 3:
    case 4:
        setText(program, action, expected);
        break;
    case 5: {
        const MKM value = someManualKey(program);
        require("manualKeySet", expected.manualKeySet(stored(value)),
                refusalOf<invalid_operation>([&] { action.manualKeySet(value); }));
        break;
    }
    case 6: {
        const IKEPhase2 value = somePhase2(program);
        require("ikePhase2Set", expected.phase2Set(stored(value)),
                refusalOf<invalid_operation>([&] { action.ikePhase2Set(value); }));
        break;
    }
    case 7:
        editPhase1Of(program, action, expected);
        break;
    case 8:
        expected.type  = action.typeSet(someBuiltinNumber(program));
        expected.state = action.stateSet(someBuiltinNumber(program));
        break;
    case 9: {
        const NewAction other(program);
        expected.assign(other.holds);
        action = other.action;
        break;
    }
    default:
        readAction(program, action, expected);
    }
}

} // namespace ipsecimpl
