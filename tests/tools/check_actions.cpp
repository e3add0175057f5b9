#include "check_samples.h"

using namespace ipsecimpl;

namespace {

IPsecConfig lifetimes(unsigned long first, const KeyLifetimeUnits& firstUnits, unsigned long second,
                      const KeyLifetimeUnits& secondUnits)
{
    IPsecAction action = phase2([&](IKEPhase2& phase2) {
        phase2.keyLifetime      = second;
        phase2.keyLifetimeUnits = secondUnits;
    });
    IKEPhase1   phase1 = action.ikePhase1Get();
    phase1.proposalSet(IKEPhase1Proposal({IKE_AESCBC_SHA1}, DH_GROUP_14, first, firstUnits));
    action.ikePhase1Set(phase1);
    return having(action);
}

IPsecConfig transforms(const std::list<IKEPhase1Transform>& list)
{
    return having(phase1([&](IKEPhase1Proposal& proposal) { proposal.transforms = list; }));
}

IPsecConfig proposals(const std::list<IPsecProposal>& list)
{
    return having(phase2([&](IKEPhase2& phase2) { phase2.proposals = list; }));
}

} // namespace

Samples actionSamples()
{
    const std::string ZERO = "A lifetime of 0 is no limit, or none at all. Write how long a key may live, such as ";
    const std::string PSK  = "Tr0ub4dor-and-3-more-words";
    return {
        {"no-key-manager",
         {"actions/1/keyMgr: TRANSPORT needs keys, but nothing makes them. Write IKE."},
         having(transport(KEYMGR_NONE)),
         having(transport(KEYMGR_MKM))},
        {"no-key-manager",
         {"actions/1/keyMgr: TUNNEL needs keys, but nothing makes them. Write IKE."},
         having(tunnel(KEYMGR_NONE)),
         having(IPsecAction(SPD_DISCARD, "Drop", 0, "", 0, KEYMGR_NONE))},
        {"no-transforms",
         {"actions/1/ikePhase1/proposal: Phase 1 offers no transform. Add one, such as IKE_AES_SHA."},
         transforms({}),
         transforms({IKE_NONE})},
        {"no-proposals",
         {"actions/1/ikePhase2: Phase 2 offers no SA proposal. Add one."},
         proposals({}),
         proposals({IPsecProposal(IPSEC_NONE, 0, 0)})},
        {"none-transform",
         {"actions/1/ikePhase1/proposal/transform/2: IKE_NONE has neither encryption nor hash. Remove it, or write "
          "IKE_AES_SHA."},
         transforms({IKE_AESCBC_SHA1, IKE_NONE}),
         transforms({IKE_AESCBC_SHA1, IKE_DES_MD5})},
        {"zero-lifetime",
         {"actions/1/ikePhase1/proposal/keyLifetime: " + ZERO + "28800 SECS.",
          "actions/1/ikePhase2/keyLifetime: " + ZERO + "3600 SECS."},
         lifetimes(0, KEYLIFETIME_HRS, 0, KEYLIFETIME_KB),
         lifetimes(1, KEYLIFETIME_SECS, 1, KEYLIFETIME_SECS)},
        {"phase2-outlives-phase1",
         {"actions/1/ikePhase2/keyLifetime: Phase 2 keys live 28801 SECS, longer than those of phase 1 with 8 HRS. "
          "Make "
          "them the shorter-lived."},
         lifetimes(8, KEYLIFETIME_HRS, 28801, KEYLIFETIME_SECS),
         lifetimes(8, KEYLIFETIME_HRS, 28800, KEYLIFETIME_SECS)},
        {"phase2-outlives-phase1",
         {"actions/1/ikePhase2/keyLifetime: Phase 2 keys live 4294967295 HRS, longer than those of phase 1 with "
          "4294967295 MINS. Make them the shorter-lived."},
         lifetimes(4294967295U, KEYLIFETIME_MINS, 4294967295U, KEYLIFETIME_HRS),
         lifetimes(4294967295U, KEYLIFETIME_HRS, 4294967295U, KEYLIFETIME_MINS)},
        {"phase2-outlives-phase1",
         {"actions/1/ikePhase2/keyLifetime: Phase 2 keys live 61 SECS, longer than those of phase 1 with 1 MINS. Make "
          "them the shorter-lived."},
         lifetimes(1, KEYLIFETIME_MINS, 61, KEYLIFETIME_SECS),
         lifetimes(1, KEYLIFETIME_KB, 61, KEYLIFETIME_SECS)},
        {"phase2-outlives-phase1",
         {"actions/1/ikePhase2/keyLifetime: Phase 2 keys live 2 SECS, longer than those of phase 1 with 1 SECS. Make "
          "them the shorter-lived."},
         lifetimes(1, KEYLIFETIME_SECS, 2, KEYLIFETIME_SECS),
         lifetimes(1, KEYLIFETIME_SECS, 2, KEYLIFETIME_KB)},
        {"phase2-outlives-phase1",
         {"actions/1/ikePhase2/keyLifetime: Phase 2 keys live 2 SECS, longer than those of phase 1 with 1 SECS. Make "
          "them the shorter-lived."},
         lifetimes(1, KEYLIFETIME_SECS, 2, KEYLIFETIME_SECS),
         lifetimes(0, KEYLIFETIME_SECS, 2, KEYLIFETIME_SECS)},
        {"phase2-outlives-phase1",
         {"actions/1/ikePhase2/keyLifetime: Phase 2 keys live 1001 KB, longer than those of phase 1 with 1000 KB. Make "
          "them the shorter-lived."},
         lifetimes(1000, KEYLIFETIME_KB, 1001, KEYLIFETIME_KB),
         lifetimes(1000, KEYLIFETIME_KB, 1000, KEYLIFETIME_KB)},
        {"phase1-lifetime-in-kilobytes",
         {"actions/1/ikePhase1/proposal/keyLifetimeUnits: Phase 1 has so little traffic that its keys are hardly ever "
          "renewed by it. Write a time, such as 28800 SECS."},
         lifetimes(1000, KEYLIFETIME_KB, 3600, KEYLIFETIME_SECS),
         lifetimes(1000, KEYLIFETIME_SECS, 3600, KEYLIFETIME_KB)},
        {"phase1-lifetime-in-kilobytes",
         {"actions/1/ikePhase1/proposal/keyLifetimeUnits: Phase 1 has so little traffic that its keys are hardly ever "
          "renewed by it. Write a time, such as 28800 SECS."},
         lifetimes(1, KEYLIFETIME_KB, 1, KEYLIFETIME_KB),
         lifetimes(0, KEYLIFETIME_KB, 1, KEYLIFETIME_KB)},
        {"no-credential",
         {"actions/1/ikePhase1/presharedKey: There is no pre-shared key. Fill it in."},
         having(authenticated(IKE_AUTH_PSK, "gw.pem", "ca.pem", "")),
         having(authenticated(IKE_AUTH_PSK, "", "", PSK))},
        {"no-credential",
         {"actions/1/ikePhase1/localCert: There is no certificate of this node's own. Fill it in.",
          "actions/1/ikePhase1/peerTrust: There is no trust anchor for the peer's certificate. Fill it in."},
         having(authenticated(IKE_AUTH_RSA, "", "", PSK)),
         having(authenticated(IKE_AUTH_RSA, "gw.pem", "ca.pem", ""))},
    };
}
