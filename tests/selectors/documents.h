#ifndef IPSECIMPL_TESTS_SELECTORS_DOCUMENTS_H
#define IPSECIMPL_TESTS_SELECTORS_DOCUMENTS_H

/// \file
/// Selectors and groups in the written form.

#include "support/documents.h"

#include <string>

namespace ipsecimpl {

/// The selector ("web", 6, 80, 1024, OUT, mirrored).
inline const std::string webSelector = R"(<protocolSelector>
<protocol>6</protocol>
<name>web</name>
<dstPort>80</dstPort>
<srcPort>1024</srcPort>
<direction>OUT</direction>
<mirrored>MIRRORED</mirrored>
</protocolSelector>
)";

/// The selector ("everything", 0, 0, 0, INOUT, not mirrored).
inline const std::string anySelector = R"(<protocolSelector>
<protocol>0</protocol>
<name>everything</name>
<direction>INOUT</direction>
<mirrored>NOTMIRRORED</mirrored>
</protocolSelector>
)";

inline const std::string hosts = R"(<hostGroup>
<name>Branch</name>
<builtinName>0</builtinName>
<descr>A subnet and a host</descr>
<builtinDescr>-7</builtinDescr>
<selectors>
<hostSelector>
<family>AF_INET</family>
<selectorType>SINGLE</selectorType>
<addr1>10.9.8.7</addr1>
</hostSelector>
<hostSelector>
<family>AF_INET6</family>
<selectorType>SUBNET_LENGTH</selectorType>
<addr1>fd00::</addr1>
<length>64</length>
</hostSelector>
</selectors>
</hostGroup>
)";

inline const std::string protocols = R"(<protocolGroup>
<name>Services</name>
<builtinName>15</builtinName>
<descr>Web</descr>
<builtinDescr>16</builtinDescr>
<selectors>
<protocolSelector>
<protocol>6</protocol>
<name>web</name>
<dstPort>80</dstPort>
<srcPort>0</srcPort>
<direction>OUT</direction>
<mirrored>MIRRORED</mirrored>
</protocolSelector>
</selectors>
</protocolGroup>
)";

/// A group's document with these selectors.
inline std::string groupOf(const std::string& tag, const std::string& content)
{
    return "<" + tag + ">\n<name></name>\n<builtinName>0</builtinName>\n<descr></descr>\n" +
           "<builtinDescr>0</builtinDescr>\n<selectors>\n" + content + "</selectors>\n</" + tag + ">\n";
}

/// An IPv4 subnet.
inline std::string subnet(const std::string& address, const std::string& length)
{
    return "<hostSelector>\n<family>AF_INET</family>\n<selectorType>SUBNET_LENGTH</selectorType>\n" +
           leaf("addr1", address) + "\n" + leaf("length", length) + "\n</hostSelector>\n";
}

/// All traffic of a protocol.
inline std::string service(const std::string& protocol, const std::string& name)
{
    return "<protocolSelector>\n" + leaf("protocol", protocol) + "\n" + leaf("name", name) +
           "\n<direction>IN</direction>\n<mirrored>MIRRORED</mirrored>\n</protocolSelector>\n";
}

} // namespace ipsecimpl

#endif
