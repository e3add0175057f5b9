#include "checks.h"

#include <cstdint>
#include <list>

using namespace ipsecimpl;

namespace {

const Rule NO_KEY_MANAGER = {"no-key-manager", Level::ERROR, "Transport or tunnel mode without a key manager",
                             "IPsec needs keys, and nothing makes them. The traffic is dropped, or passes\n"
                             "unprotected.\n"
                             "Choose IKE. Manual keys (MKM) are for where no key exchange can run.",
                             ""};

const Rule NO_TRANSFORMS = {"no-transforms", Level::ERROR, "IKE phase 1 offers no transform",
                            "The peers have nothing to agree on, so no key exchange ever succeeds.\n"
                            "Add a transform, such as IKE_AES_SHA.",
                            ""};

const Rule NO_PROPOSALS = {"no-proposals", Level::ERROR, "IKE phase 2 offers no SA proposal",
                           "The peers have nothing to agree on, so no traffic ever gets a key.\n"
                           "Add an SA proposal with the protocol, encryption and hash that the peer has\n"
                           "too.",
                           ""};

const Rule NONE_TRANSFORM = {"none-transform", Level::ERROR, "A transform of IKE phase 1 is IKE_NONE",
                             "It has neither encryption nor hash. No key exchange can use it, and a system\n"
                             "that accepted it would protect nothing.\n"
                             "Remove it from the list, or name what is meant.",
                             ""};

const Rule ZERO_LIFETIME = {"zero-lifetime", Level::WARNING, "A key lifetime is 0",
                            "Some systems take 0 for no limit, so that a key serves until it is broken;\n"
                            "others for a key that is dead at once, or refuse it. Often it is a slip: text\n"
                            "that is no number reads as 0.\n"
                            "Write how long a key may live. Eight hours for phase 1 and one for phase 2 are\n"
                            "usual.",
                            ""};

const Rule LIFETIME_ORDER = {"phase2-outlives-phase1", Level::WARNING, "Phase 2 keys live longer than those of phase 1",
                             "Phase 1 protects the exchange of phase 2 keys. Systems that drop phase 2 with\n"
                             "its phase 1 cut its lifetime short; the others go on without a way to end it.\n"
                             "Time is compared with time and kilobytes with kilobytes; which of a time and an\n"
                             "amount of traffic ends first, nobody can tell.\n"
                             "Make phase 2 the shorter one.",
                             ""};

const Rule PHASE1_KILOBYTES = {"phase1-lifetime-in-kilobytes", Level::WARNING,
                               "The lifetime of phase 1 keys is an amount of traffic",
                               "Phase 1 keys protect nothing but key exchanges, which are small and rare: an\n"
                               "amount that the traffic of phase 2 uses up in an hour lasts for years here, and\n"
                               "the keys stay as long.\n"
                               "Write a time, such as 28800 SECS, on the peer too.",
                               ""};

const Rule NO_CREDENTIAL = {"no-credential", Level::ERROR, "A credential of IKE is empty",
                            "With an empty pre-shared key everybody can be the peer. With certificates two\n"
                            "things are needed: this node's own certificate, and what the peer's is trusted\n"
                            "by, such as the authority that issued it.\n"
                            "Fill in what is missing.",
                            ""};

/// How much it is of what is counted: seconds or kilobytes.
std::uint64_t amountIn(unsigned long lifetime, const KeyLifetimeUnits& units)
{
    const std::uint64_t unit = units == KEYLIFETIME_HRS ? 3600 : units == KEYLIFETIME_MINS ? 60 : 1;
    return lifetime * unit;
}

/// Time against traffic cannot be told.
bool areComparable(const KeyLifetimeUnits& a, const KeyLifetimeUnits& b)
{
    return (a == KEYLIFETIME_KB) == (b == KEYLIFETIME_KB);
}

std::string lifetime(unsigned long amount, const KeyLifetimeUnits& units)
{
    return std::to_string(amount) + ' ' + __KeyLifetimeUnitsNames__[units.valueGet()];
}

/// One action.
class ActionCheck {
  public:
    ActionCheck(const Entry<IPsecAction>& entry, Findings& findings)
        : id_(entry.id)
        , action_(*entry.object)
        , findings_(findings)
    {
    }

    void check();

  private:
    void reportField(const Rule& rule, const FieldPath& field, std::string message)
    {
        report(findings_, rule, Kind::ACTION, id_, field, std::move(message));
    }

    void checkCredential(const char* field, const char* what, const std::string& text);
    void checkPhase1(const IKEPhase1& phase1);
    void checkTransforms(const std::list<IKEPhase1Transform>& transforms);
    void checkLifetimes(const IKEPhase1Proposal& phase1, const IKEPhase2& phase2);

    unsigned int       id_;
    const IPsecAction& action_;
    Findings&          findings_;
};

void ActionCheck::checkCredential(const char* field, const char* what, const std::string& text)
{
    if (text.empty())
        reportField(NO_CREDENTIAL, {field}, std::string("There is no ") + what + ". Fill it in.");
}

void ActionCheck::checkPhase1(const IKEPhase1& phase1)
{
    if (phase1.authTypeGet() == IKE_AUTH_PSK) {
        checkCredential("ikePhase1/presharedKey", "pre-shared key", phase1.presharedKeyGet());
    } else {
        checkCredential("ikePhase1/localCert", "certificate of this node's own", phase1.localCertGet());
        checkCredential("ikePhase1/peerTrust", "trust anchor for the peer's certificate", phase1.peerTrustGet());
    }

    checkTransforms(phase1.proposalGet().transforms);
}

void ActionCheck::checkTransforms(const std::list<IKEPhase1Transform>& transforms)
{
    if (transforms.empty())
        reportField(NO_TRANSFORMS, {"ikePhase1/proposal"},
                    "Phase 1 offers no transform. Add one, such as IKE_AES_SHA.");
    std::size_t number = 0;
    for (const IKEPhase1Transform& transform : transforms) {
        ++number;
        if (transform == IKE_NONE)
            reportField(NONE_TRANSFORM, {"ikePhase1/proposal/transform", number},
                        "IKE_NONE has neither encryption nor hash. Remove it, or write IKE_AES_SHA.");
    }
}

void ActionCheck::checkLifetimes(const IKEPhase1Proposal& phase1, const IKEPhase2& phase2)
{
    if (phase1.keyLifetime == 0) // which may be no limit
        return;
    if (phase1.keyLifetimeUnits == KEYLIFETIME_KB)
        reportField(PHASE1_KILOBYTES, {"ikePhase1/proposal/keyLifetimeUnits"},
                    "Phase 1 has so little traffic that its keys are hardly ever renewed by it. Write a time, such as "
                    "28800 SECS.");
    if (areComparable(phase1.keyLifetimeUnits, phase2.keyLifetimeUnits) &&
        amountIn(phase2.keyLifetime, phase2.keyLifetimeUnits) > amountIn(phase1.keyLifetime, phase1.keyLifetimeUnits))
        reportField(LIFETIME_ORDER, {"ikePhase2/keyLifetime"},
                    "Phase 2 keys live " + lifetime(phase2.keyLifetime, phase2.keyLifetimeUnits) +
                        ", longer than those of phase 1 with " + lifetime(phase1.keyLifetime, phase1.keyLifetimeUnits) +
                        ". Make them the shorter-lived.");
}

void ActionCheck::check()
{
    if (needsKeys(action_) && action_.keyMgrGet() == KEYMGR_NONE)
        reportField(NO_KEY_MANAGER, {"keyMgr"},
                    std::string(action_.spdActionGet() == SPD_TUNNEL ? "TUNNEL" : "TRANSPORT") +
                        " needs keys, but nothing makes them. Write IKE.");

    if (const IKEPhase1* const phase1 = phase1Of(action_)) {
        const IKEPhase2& phase2 = *phase2Of(action_);
        checkPhase1(*phase1);
        if (phase2.proposals.empty())
            reportField(NO_PROPOSALS, {"ikePhase2"}, "Phase 2 offers no SA proposal. Add one.");
        checkZeroLifetimes(id_, *phase1, phase2, findings_);
        checkLifetimes(phase1->proposalGet(), phase2);
    }
}

} // namespace

Rules actionRules()
{
    return {&NO_KEY_MANAGER, &NO_TRANSFORMS,  &NO_PROPOSALS,     &NONE_TRANSFORM,
            &ZERO_LIFETIME,  &LIFETIME_ORDER, &PHASE1_KILOBYTES, &NO_CREDENTIAL};
}

void checkZeroLifetimes(unsigned int action, const IKEPhase1& phase1, const IKEPhase2& phase2, Findings& findings)
{
    if (phase1.proposalGet().keyLifetime == 0)
        report(findings, ZERO_LIFETIME, Kind::ACTION, action, {"ikePhase1/proposal/keyLifetime"},
               "A lifetime of 0 is no limit, or none at all. Write how long a key may live, such as 28800 SECS.");
    if (phase2.keyLifetime == 0)
        report(findings, ZERO_LIFETIME, Kind::ACTION, action, {"ikePhase2/keyLifetime"},
               "A lifetime of 0 is no limit, or none at all. Write how long a key may live, such as 3600 SECS.");
}

void checkAction(const Entry<IPsecAction>& entry, Findings& findings)
{
    ActionCheck(entry, findings).check();
}
