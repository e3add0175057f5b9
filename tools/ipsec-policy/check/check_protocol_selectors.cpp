#include "checks.h"

#include <algorithm>
#include <iterator>

using namespace ipsecimpl;

namespace {

const Rule NUMBER = {"protocol-number", Level::ERROR, "A protocol number above 255, which no packet has",
                     "The number of the protocol has 8 bits in a packet, so that the selector matches\n"
                     "nothing. Where the upper bits are dropped, it matches another protocol. A number\n"
                     "above 255 is often a port in the wrong place.\n"
                     "Write the protocol's number, such as 6 for TCP or 17 for UDP.",
                     "RFC 791 section 3.1"};

const Rule PORT = {"meaningless-port", Level::WARNING, "A port of a protocol that has no ports",
                   "Packets of GRE, ESP, OSPF and their like carry no ports. Some systems refuse\n"
                   "such a selector, others match nothing with it, or leave the port out. (ICMP is\n"
                   "not looked at: some take the ports for its type and code.)\n"
                   "Write 0 for the port, or correct the protocol.",
                   "RFC 4301 section 4.4.1.1"};

const unsigned int LAST_NUMBER = 255;

/// Of which it is certain that no number in their packets is ever called a port.
const unsigned short WITHOUT_PORTS[] = {
    2,   // IGMP
    4,   // IPv4 in IP
    41,  // IPv6 in IP
    46,  // RSVP
    47,  // GRE
    50,  // ESP
    51,  // AH
    88,  // EIGRP
    89,  // OSPF
    94,  // IP in IP
    103, // PIM
    108, // IPComp
    112, // VRRP
    115, // L2TP
};

bool hasNoPorts(unsigned short protocol)
{
    return std::binary_search(std::begin(WITHOUT_PORTS), std::end(WITHOUT_PORTS), protocol);
}

void checkSelector(unsigned int group, std::size_t number, const ProtocolSelector& selector, Findings& findings)
{
    const auto reportField = [&](const Rule& rule, const char* field, std::string message) {
        report(findings, rule, Kind::PROTOCOL_GROUP, group, {"selectors", number, field}, std::move(message));
    };
    if (selector.protocol > LAST_NUMBER)
        reportField(NUMBER, "protocol",
                    std::to_string(selector.protocol) +
                        " is no protocol number. Write one from 0 to 255, such as 6 for TCP.");
    else if ((selector.dstPort != 0 || selector.srcPort != 0) && hasNoPorts(selector.protocol))
        reportField(PORT, selector.dstPort != 0 ? "dstPort" : "srcPort",
                    joined({"Protocol ", std::to_string(selector.protocol),
                            " has no ports. Write 0, or correct the protocol."}));
}

} // namespace

Rules protocolSelectorRules()
{
    return {&NUMBER, &PORT};
}

void checkProtocolSelectors(const Entry<ProtocolGroup>& entry, Findings& findings)
{
    std::size_t number = 0;
    for (const ProtocolSelector& selector : entry.object->selectors)
        checkSelector(entry.id, ++number, selector, findings);
}
