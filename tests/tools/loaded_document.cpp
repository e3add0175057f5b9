#include "loaded_document.h"

#include <sstream>

using ipsecimpl::IPsecConfig;

IPsecConfig loadedFrom(const std::string& text)
{
    std::istringstream   in(text);
    ipsecimpl::XMLParser parser(in);
    return IPsecConfig::importXML(parser);
}

std::string storedText(const IPsecConfig& config)
{
    std::ostringstream out;
    out << "<ipsec>\n";
    config.hostGroups.exportXML(out);
    config.protocolGroups.exportXML(out);
    config.actions.exportXML(out);
    config.policies.exportXML(out);
    out << "</ipsec>\n";
    return out.str();
}
