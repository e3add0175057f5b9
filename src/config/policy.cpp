#include <ipsecimpl/config.h>

#include "xml/element.h"

namespace ipsecimpl {

Policy::Policy(unsigned int hostGroup, unsigned int protocolGroup, unsigned int action)
    : hostGroupID(hostGroup)
    , protocolGroupID(protocolGroup)
    , actionID(action)
{
}

Policy Policy::importXML(XMLParser& parser)
{
    Policy policy(0, 0, 0);
    openElement(parser, "policy");
    policy.hostGroupID     = readUnsigned(parser, "hostGroupID");
    policy.protocolGroupID = readUnsigned(parser, "protocolGroupID");
    policy.actionID        = readUnsigned(parser, "actionID");
    parser.parse_end_tag();
    return policy;
}

std::ostream& Policy::exportXML(std::ostream& out) const
{
    openTag(out, "policy");
    writeLeaf(out, "hostGroupID",     hostGroupID);
    writeLeaf(out, "protocolGroupID", protocolGroupID);
    writeLeaf(out, "actionID",        actionID);
    return closeTag(out, "policy");
}

} // namespace ipsecimpl
