#include "faults/objects.h"
#include "faults/operations.h"
#include "support/xml.h"

#include <string>
#include <utility>

namespace ipsecimpl {
namespace {

/// What compares two selectors of either kind.
template <class Selector, class Make>
Operations& compares(Operations& operations, const std::string& type, const Make& two)
{
    const std::string other = "(const " + type + "& other) const";
    return operations.cannotFail("compare" + other, two, [](auto& s) { return s.first.compare(s.second); })
        .cannotFail("operator<" + other, two, [](auto& s) { return s.first < s.second; })
        .cannotFail("operator<=" + other, two, [](auto& s) { return s.first <= s.second; })
        .cannotFail("operator>" + other, two, [](auto& s) { return s.first > s.second; })
        .cannotFail("operator>=" + other, two, [](auto& s) { return s.first >= s.second; })
        .cannotFail("operator==" + other, two, [](auto& s) { return s.first == s.second; })
        .cannotFail("operator!=" + other, two, [](auto& s) { return s.first != s.second; });
}

std::vector<Operation> hostOperations()
{
    using Hosts    = Two<HostSelector>;
    const auto two = [] { return Hosts{hostRange(LONG), hostRange(OTHER)}; };
    const auto one = [] { return hostRange(LONG); };

    Operations host("HostSelector::");
    host.cannotFail("HostSelector()", nothing, [](Nothing&) { return HostSelector(); })
        .fails(
            "HostSelector(AddressFamily family, AddressType type, const std::string& addr1, const std::string& addr2)",
            nothing, [](Nothing&) { return hostRange(LONG); })
        .fails(
            "HostSelector(AddressFamily family, AddressType type, const std::string& addr1, const std::string& addr2)"
            " [refused]",
            nothing, [](Nothing&) { return HostSelector(HOST_INET, HOST_SUBNET_MASK, LONG, OTHER); })
        .fails("HostSelector(AddressFamily family, AddressType type, const std::string& addr1, int length)", nothing,
               [](Nothing&) { return HostSelector(HOST_INET6, HOST_SUBNET_LENGTH, LONG, 128); })
        .fails("HostSelector(AddressFamily family, AddressType type, const std::string& addr1, int length) [refused]",
               nothing, [](Nothing&) { return HostSelector(HOST_INETANY, HOST_SUBNET_LENGTH, LONG, 24); })
        .fails("HostSelector(const HostSelector&)", one, [](HostSelector& s) { return HostSelector(s); })
        .cannotFail("HostSelector(HostSelector&&)", one, [](HostSelector& s) { return HostSelector(std::move(s)); })
        .fails(
            "operator=(const HostSelector& other)", two, [](Hosts & s) -> auto& { return s.first = s.second; })
        .cannotFail(
            "operator=(HostSelector&&)", two, [](Hosts & s) -> auto& { return s.first = std::move(s.second); })
        .cannotFail("mask2len(const AddressFamily& family, const char* mask)", nothing,
                    [](Nothing&) { return HostSelector::mask2len(HOST_INET, "255.255.255.0"); })
        .fails("mask2len(const AddressFamily& family, const char* mask) [refused]", nothing,
               [](Nothing&) { return HostSelector::mask2len(HOST_INET, "::"); })
        .fails("len2mask(const AddressFamily& family, int length)", nothing,
               [](Nothing&) { return HostSelector::len2mask(HOST_INET6, 128); })
        .fails("len2mask(const AddressFamily& family, int length) [refused]", nothing,
               [](Nothing&) { return HostSelector::len2mask(HOST_INETANY, 128); });
    compares<HostSelector>(host, "HostSelector", two)
        .reads<HostSelector>("importXML(XMLParser& parser)", written(hostRange(LONG)))
        .reads<HostSelector>("importXML(XMLParser& parser)",
                             written(HostSelector(HOST_INET6, HOST_SUBNET_MASK, LONG, "ffff:ffff:ffff:ffff:ffff::")))
        .reads<HostSelector>("importXML(XMLParser& parser)",
                             written(HostSelector(HOST_INET6, HOST_SUBNET_LENGTH, LONG, 120)))
        .reads<HostSelector>("importXML(XMLParser& parser) [refused]", "<hostSelector><family>AF_UNIX</family>")
        .stores("exportXML(std::ostream& os) const", one, [](const auto& s, std::ostream& os) { s.exportXML(os); });
    return host.all();
}

std::vector<Operation> protocolOperations()
{
    using Protocols = Two<ProtocolSelector>;
    const auto two  = [] { return Protocols{protocolSelector(LONG), protocolSelector(OTHER)}; };
    const auto one  = [] { return protocolSelector(LONG); };

    const std::string text = written(one());
    const std::string body = text.substr(0, text.find("</protocolSelector>"));
    const std::string unknown(40, 'x');

    Operations protocol("ProtocolSelector::");
    protocol
        .fails("ProtocolSelector(std::string name, unsigned short protocol, unsigned short dstPort, unsigned short"
               " srcPort, Direction direction, bool mirrored)",
               nothing, [](Nothing&) { return protocolSelector(LONG); })
        .cannotFail(
            "ProtocolSelector(unsigned short protocol, unsigned short dstPort, unsigned short srcPort, Direction"
            " direction, bool mirrored)",
            nothing, [](Nothing&) { return ProtocolSelector(6, 80, 0, PROTO_IN, true); })
        .fails("ProtocolSelector(const ProtocolSelector&)", one, [](auto& s) { return ProtocolSelector(s); })
        .cannotFail("ProtocolSelector(ProtocolSelector&&)", one, [](auto& s) { return ProtocolSelector(std::move(s)); })
        .cannotFail(
            "operator=(const ProtocolSelector& other)", two, [](auto& s) -> auto& { return s.first = s.second; });
    compares<ProtocolSelector>(protocol, "ProtocolSelector", two)
        .reads<ProtocolSelector>("importXML(XMLParser& parser)", text)
        .reads<ProtocolSelector>("importXML(XMLParser& parser) [refused]", body + "<mirrored>MIRRORED</mirrored>")
        .reads<ProtocolSelector>("importXML(XMLParser& parser) [refused]",
                                 body + "<" + unknown + ">x</" + unknown + ">")
        .reads<ProtocolSelector>("importXML(XMLParser& parser) [refused]", "<protocolSelector></protocolSelector>")
        .stores("exportXML(std::ostream& os) const", one, [](const auto& s, std::ostream& os) { s.exportXML(os); });
    return protocol.all();
}

} // namespace

std::vector<Operation> selectorOperations()
{
    return joined({hostOperations(), protocolOperations()});
}

} // namespace ipsecimpl
