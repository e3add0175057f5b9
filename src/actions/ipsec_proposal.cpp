#include <ipsecimpl/actions.h>

#include "enum/read_enum.h"
#include "enum/write_enum.h"
#include "xml/element.h"

namespace ipsecimpl {

IPsecProposal::IPsecProposal(const IPsecProtocol& proto, unsigned long encryptionNumber, unsigned long hashNumber)
    : protocol(proto)
    , encryption(encryptionNumber)
    , hash(hashNumber)
{
}

IPsecProposal IPsecProposal::importXML(XMLParser& parser)
{
    IPsecProposal proposal(IPSEC_NONE, 0, 0);
    openElement(parser, "saProposal");
    proposal.protocol   = readEnum<IPsecProtocol>(parser, "protocol", "invalid value", "<protocol> in <saProposal>");
    proposal.encryption = readUnsigned(parser, "encryption");
    proposal.hash       = readUnsigned(parser, "hash");
    parser.parse_end_tag();
    return proposal;
}

std::ostream& IPsecProposal::exportXML(std::ostream& out) const
{
    openTag(out, "saProposal");
    writeLeaf(out, "protocol",   protocol);
    writeLeaf(out, "encryption", encryption);
    writeLeaf(out, "hash",       hash);
    return closeTag(out, "saProposal");
}

} // namespace ipsecimpl
