#include <ipsecimpl/actions.h>

#include "actions/defaults.h"
#include "enum/read_enum.h"
#include "enum/write_enum.h"
#include "xml/element.h"

namespace ipsecimpl {

IKEPhase1Proposal::IKEPhase1Proposal(const std::list<IKEPhase1Transform>& transformList, const DHGroup& group,
                                     unsigned long lifetime, const KeyLifetimeUnits& units)
    : transforms(transformList)
    , dhGroup(group)
    , keyLifetime(lifetime)
    , keyLifetimeUnits(units)
{
}

IKEPhase1Proposal& IKEPhase1Proposal::operator=(const IKEPhase1Proposal& other)
{
    if (this != &other)
        *this = IKEPhase1Proposal(other);
    return *this;
}

IKEPhase1Proposal& IKEPhase1Proposal::operator=(IKEPhase1Proposal&& other) noexcept
{
    transforms.swap(other.transforms);
    dhGroup          = other.dhGroup;
    keyLifetime      = other.keyLifetime;
    keyLifetimeUnits = other.keyLifetimeUnits;
    return *this;
}

// The messages say <ikePhase1Proposal> though the tag is <proposal>.
IKEPhase1Proposal IKEPhase1Proposal::importXML(XMLParser& parser)
{
    IKEPhase1Proposal proposal = emptyPhase1Proposal();
    openElement(parser, "proposal");
    proposal.dhGroup = readEnum<DHGroup>(parser, "dhGroup", "invalid value", "<dhGroup> in <ikePhase1Proposal>");
    proposal.keyLifetime      = readUnsigned(parser, "keyLifetime");
    proposal.keyLifetimeUnits = readEnum<KeyLifetimeUnits>(parser, "keyLifetimeUnits", "invalid value",
                                                           "<keyLifetimeUnits> in <ikePhase1Proposal>");
    while (parser.parse_body() == PARSE_CHILD)
        proposal.transforms.push_back(readEnum<IKEPhase1Transform>(parser, "transform", "invalid value",
                                                                   "<transform> in <ikePhase1Proposal>"));
    parser.parse_end_tag();
    return proposal;
}

std::ostream& IKEPhase1Proposal::exportXML(std::ostream& out) const
{
    openTag(out, "proposal");
    writeLeaf(out, "dhGroup",          dhGroup);
    writeLeaf(out, "keyLifetime",      keyLifetime);
    writeLeaf(out, "keyLifetimeUnits", keyLifetimeUnits);
    for (const IKEPhase1Transform& transform : transforms)
        writeLeaf(out, "transform", transform);
    return closeTag(out, "proposal");
}

IKEPhase1Proposal& IKEPhase1ProposalDefault()
{
    static IKEPhase1Proposal proposal = emptyPhase1Proposal();
    // At every call, on purpose: callers know that the list grows, and copy the result of the first.
    proposal.keyLifetime      = defaultKeyLifetime;
    proposal.keyLifetimeUnits = KEYLIFETIME_SECS;
    proposal.transforms.insert(proposal.transforms.end(), {IKE_AESCBC_SHA1, IKE_3DES_MD5});
    return proposal;
}

} // namespace ipsecimpl
