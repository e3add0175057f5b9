#include "check_samples.h"

using namespace ipsecimpl;

namespace {

IPsecConfig transforms(const std::list<IKEPhase1Transform>& list)
{
    return having(phase1([&](IKEPhase1Proposal& proposal) { proposal.transforms = list; }));
}

IPsecConfig exchanged(const std::list<IPsecProposal>& proposals)
{
    return having(phase2([&](IKEPhase2& phase2) { phase2.proposals = proposals; }));
}

} // namespace

Samples repeatedOfferSamples()
{
    return {
        {"repeated-transform",
         {"actions/1/ikePhase1/proposal/transform/3: Transform 1 is the same. Remove one of the two.",
          "actions/1/ikePhase1/proposal/transform/4: Transform 2 is the same. Remove one of the two.",
          "actions/1/ikePhase1/proposal/transform/5: Transform 1 is the same. Remove one of the two."},
         transforms({IKE_AESCBC_SHA1, IKE_3DES_SHA1, IKE_AESCBC_SHA1, IKE_3DES_SHA1, IKE_AESCBC_SHA1}),
         transforms({IKE_AESCBC_SHA1, IKE_3DES_SHA1, IKE_DES_SHA1, IKE_AESCBC_MD5, IKE_3DES_MD5, IKE_DES_MD5})},
        {"repeated-transform",
         {"actions/1/ikePhase1/proposal/transform/2: Transform 1 is the same. Remove one of the two."},
         transforms({IKE_NONE, IKE_NONE}),
         transforms({IKE_NONE})},
        {"repeated-proposal",
         {"actions/1/ikePhase2/saProposal/2: SA proposal 1 is the same. Remove one of the two.",
          "actions/1/ikePhase2/saProposal/4: SA proposal 1 is the same. Remove one of the two."},
         exchanged({IPsecProposal(IPSEC_ESP, 12, 5), IPsecProposal(IPSEC_ESP, 12, 5), IPsecProposal(IPSEC_AH, 12, 5),
                    IPsecProposal(IPSEC_ESP, 12, 5)}),
         exchanged({IPsecProposal(IPSEC_ESP, 12, 5), IPsecProposal(IPSEC_ESP, 12, 4), IPsecProposal(IPSEC_AH, 12, 5),
                    IPsecProposal(IPSEC_ESP, 11, 5)})},
        {"repeated-proposal",
         {"actions/1/ikePhase2/saProposal/3: SA proposal 1 is the same. Remove one of the two."},
         exchanged({IPsecProposal(IPSEC_ESP, 5, 5), IPsecProposal(IPSEC_ESP, 4, 5), IPsecProposal(IPSEC_ESP, 5, 5)}),
         exchanged({})},
    };
}
