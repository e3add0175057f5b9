#include <ipsecimpl/config.h>

#include "xml/element.h"

#include <utility>

namespace ipsecimpl {

IPsecConfig::IPsecConfig() = default;

IPsecConfig::IPsecConfig(const HostGroups& hosts, const ProtocolGroups& protocols, const Actions& acts,
                         const Policies& pols)
    : hostGroups(hosts)
    , protocolGroups(protocols)
    , actions(acts)
    , policies(pols)
{
}

IPsecConfig::IPsecConfig(const IPsecConfig&)     = default;
IPsecConfig::IPsecConfig(IPsecConfig&&) noexcept = default;

IPsecConfig& IPsecConfig::operator=(const IPsecConfig& other)
{
    if (this != &other)
        *this = IPsecConfig(other); // all four copies are made before the first is put in place
    return *this;
}

IPsecConfig& IPsecConfig::operator=(IPsecConfig&&) noexcept = default;

IPsecConfig::~IPsecConfig() = default;

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
