#include <ipsecimpl/actions.h>

#include "actions/defaults.h"
#include "enum/read_enum.h"
#include "enum/write_enum.h"
#include "xml/element.h"

namespace ipsecimpl {

IKEPhase2::IKEPhase2(const std::list<IPsecProposal>& saProposals, const DHGroup& group, unsigned long lifetime,
                     const KeyLifetimeUnits& units)
    : proposals(saProposals)
    , dhGroup(group)
    , keyLifetime(lifetime)
    , keyLifetimeUnits(units)
{
}

IKEPhase2& IKEPhase2::operator=(const IKEPhase2& other)
{
    if (this != &other)
        *this = IKEPhase2(other);
    return *this;
}

IKEPhase2& IKEPhase2::operator=(IKEPhase2&& other) noexcept
{
    proposals.swap(other.proposals);
    dhGroup          = other.dhGroup;
    keyLifetime      = other.keyLifetime;
    keyLifetimeUnits = other.keyLifetimeUnits;
    return *this;
}

IKEPhase2 IKEPhase2::importXML(XMLParser& parser)
{
    IKEPhase2 phase2 = emptyPhase2();
    openElement(parser, "ikePhase2");
    phase2.dhGroup          = readEnum<DHGroup>(parser, "dhGroup", "invalid value", "<dhGroup> in <ikePhase2>");
    phase2.keyLifetime      = readUnsigned(parser, "keyLifetime");
    phase2.keyLifetimeUnits = readEnum<KeyLifetimeUnits>(parser, "keyLifetimeUnits", "invalid value",
                                                         "<keyLifetimeUnits> in <ikePhase2>");
    while (parser.parse_body() == PARSE_CHILD)
        phase2.proposals.push_back(IPsecProposal::importXML(parser));
    parser.parse_end_tag();
    return phase2;
}

std::ostream& IKEPhase2::exportXML(std::ostream& out) const
{
    openTag(out, "ikePhase2");
    writeLeaf(out, "dhGroup",          dhGroup);
    writeLeaf(out, "keyLifetime",      keyLifetime);
    writeLeaf(out, "keyLifetimeUnits", keyLifetimeUnits);
    for (const IPsecProposal& proposal : proposals)
        proposal.exportXML(out);
    return closeTag(out, "ikePhase2");
}

} // namespace ipsecimpl
