#include <ipsecimpl/config.h>

#include "xml/element.h"

namespace ipsecimpl {

IPsecConfig IPsecConfig::importXML(XMLParser& parser)
{
    IPsecConfig config;
    openElement(parser, "ipsec");
    config.hostGroups     = HostGroups::importXML(parser);
    config.protocolGroups = ProtocolGroups::importXML(parser);
    config.actions        = Actions::importXML(parser);
    config.policies       = Policies::importXML(parser);
    parser.parse_end_tag();
    return config;
}

std::ostream& IPsecConfig::exportXML(std::ostream& out)
{
    openTag(out, "ipsec");
    hostGroups.exportXML(out);
    protocolGroups.exportXML(out);
    actions.exportXML(out);
    policies.exportXML(out);
    return closeTag(out, "ipsec");
}

} // namespace ipsecimpl
