#include "checks.h"

#include <algorithm>
#include <array>
#include <list>
#include <tuple>

using namespace ipsecimpl;

namespace {

const Rule REPEATED_TRANSFORM = {"repeated-transform", Level::NOTE, "IKE phase 1 offers a transform twice",
                                 "The second of the two is never chosen. If it was copied to be changed, the\n"
                                 "change is missing.\n"
                                 "Remove it, or name what was meant.",
                                 ""};

const Rule REPEATED_PROPOSAL = {"repeated-proposal", Level::NOTE, "IKE phase 2 offers an SA proposal twice",
                                "The second of the two is never chosen. If it was copied to be changed, the\n"
                                "change is missing.\n"
                                "Remove it, or write what it was meant to be.",
                                ""};

/// Each transform is held against the first that is the same.
void checkTransforms(unsigned int action, const std::list<IKEPhase1Transform>& transforms, Findings& findings)
{
    std::array<std::size_t, __IKEPhase1TransformNum__> firsts = {}; // by value, from 1
    std::size_t                                        number = 0;
    for (const IKEPhase1Transform& transform : transforms) {
        std::size_t& first = firsts[static_cast<std::size_t>(transform.valueGet())];
        ++number;
        if (first == 0)
            first = number;
        else
            report(findings, REPEATED_TRANSFORM, Kind::ACTION, action, {"ikePhase1/proposal/transform", number},
                   "Transform " + std::to_string(first) + " is the same. Remove one of the two.");
    }
}

bool isSame(const IPsecProposal& a, const IPsecProposal& b)
{
    return a.protocol == b.protocol && a.encryption == b.encryption && a.hash == b.hash;
}

/// A proposal in its list.
struct Offer {
    const IPsecProposal* proposal;
    std::size_t          number; ///< from 1
};

bool operator<(const Offer& a, const Offer& b)
{
    const auto key = [](const Offer& offer) {
        const IPsecProposal& proposal = *offer.proposal;
        return std::make_tuple(proposal.protocol.valueGet(), proposal.encryption, proposal.hash, offer.number);
    };
    return key(a) < key(b);
}

/// Each proposal is held against the first that is the same.
void checkProposals(unsigned int action, const std::list<IPsecProposal>& proposals, Findings& findings)
{
    if (proposals.size() < 2)
        return;
    std::vector<Offer> offers;
    offers.reserve(proposals.size());
    for (const IPsecProposal& proposal : proposals)
        offers.push_back({&proposal, offers.size() + 1});
    std::sort(offers.begin(), offers.end());

    for (std::size_t first = 0, i = 1; i < offers.size(); ++i) {
        if (isSame(*offers[first].proposal, *offers[i].proposal))
            report(findings, REPEATED_PROPOSAL, Kind::ACTION, action, {"ikePhase2/saProposal", offers[i].number},
                   "SA proposal " + std::to_string(offers[first].number) + " is the same. Remove one of the two.");
        else
            first = i;
    }
}

} // namespace

Rules repeatedOfferRules()
{
    return {&REPEATED_TRANSFORM, &REPEATED_PROPOSAL};
}

void checkRepeatedOffers(const Entry<IPsecAction>& entry, Findings& findings)
{
    if (const IKEPhase1* const phase1 = phase1Of(*entry.object)) {
        checkTransforms(entry.id, phase1->proposalGet().transforms, findings);
        checkProposals(entry.id, phase2Of(*entry.object)->proposals, findings);
    }
}
