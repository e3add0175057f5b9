#include "describe.h"

#include <cstdio>

using namespace ipsecimpl;

namespace {

/// The word of the document.
template <int Num, auto Names>
std::string word(const Enum<Num, Names>& value)
{
    return (*Names)[value.valueGet()];
}

std::string familyName(const AddressFamily& family)
{
    if (family == HOST_INET)
        return "IPv4";
    return family == HOST_INET6 ? "IPv6" : "IP";
}

std::string hosts(const HostSelector& selector)
{
    const AddressType& type = selector.selectorType;
    if (type == HOST_SINGLE)
        return selector.addr1;
    if (type == HOST_RANGE)
        return selector.addr1 + " - " + selector.addr2;
    if (type == HOST_SUBNET_LENGTH)
        return selector.addr1 + "/" + std::to_string(selector.length);
    if (type == HOST_SUBNET_MASK)
        return selector.addr1 + " mask " + selector.addr2;
    if (type == HOST_LOCAL)
        return "local subnets";
    if (type == HOST_ANY)
        return "any host";
    if (type == HOST_MCAST)
        return "broadcast, multicast";
    return "no host";
}

std::string protocolName(unsigned short protocol)
{
    static const struct {
        unsigned short number;
        const char*    name;
    } NAMES[] = {{0, "any protocol"}, {1, "ICMP"}, {6, "TCP"},     {17, "UDP"},  {47, "GRE"},
                 {50, "ESP"},         {51, "AH"},  {58, "ICMPv6"}, {89, "OSPF"}, {132, "SCTP"}};
    for (const auto& entry : NAMES)
        if (entry.number == protocol)
            return entry.name;
    return "protocol " + std::to_string(protocol);
}

std::string directionName(const Direction& direction)
{
    if (direction == PROTO_IN)
        return "in";
    return direction == PROTO_OUT ? "out" : "in/out";
}

std::string orEmpty(const std::string& text)
{
    return text.empty() ? "(empty)" : text;
}

std::string shownKey(const std::string& key, bool showKeys)
{
    if (key.empty())
        return "(empty)";
    return showKeys ? '"' + key + '"' : "(hidden)";
}

std::string lifetime(unsigned long amount, const KeyLifetimeUnits& units)
{
    return std::to_string(amount) + " " + word(units);
}

std::string describe(const IPsecProposal& proposal)
{
    return word(proposal.protocol) + ", encryption " + std::to_string(proposal.encryption) + ", hash " +
           std::to_string(proposal.hash);
}

std::string securityParameterIndexes(const char* protocol, unsigned long inbound, unsigned long outbound)
{
    char text[80];
    std::snprintf(text, sizeof text, "  %s SPI in %lu (0x%lx), out %lu (0x%lx)", protocol, inbound, inbound, outbound,
                  outbound);
    return text;
}

void describe(const IKEPhase1& phase1, bool showKeys, std::vector<std::string>& lines)
{
    const IKEPhase1Proposal& proposal = phase1.proposalGet();
    lines.push_back("phase 1: DH group " + word(proposal.dhGroup) + ", " +
                    lifetime(proposal.keyLifetime, proposal.keyLifetimeUnits));
    for (const IKEPhase1Transform& transform : proposal.transforms)
        lines.push_back("  " + word(transform));
    if (phase1.authTypeGet() == IKE_AUTH_PSK) {
        lines.push_back("  pre-shared key " + shownKey(phase1.presharedKeyGet(), showKeys));
    } else {
        lines.push_back("  certificate: " + orEmpty(phase1.localCertGet()));
        lines.push_back("  peer trusted by: " + orEmpty(phase1.peerTrustGet()));
    }
}

void describe(const IKEPhase2& phase2, std::vector<std::string>& lines)
{
    lines.push_back("phase 2: DH group " + word(phase2.dhGroup) + ", " +
                    lifetime(phase2.keyLifetime, phase2.keyLifetimeUnits));
    for (const IPsecProposal& proposal : phase2.proposals)
        lines.push_back("  " + describe(proposal));
}

/// What the document holds of it, by the rules of MKM.
void describe(const MKM& key, bool showKeys, std::vector<std::string>& lines)
{
    const IPsecProposal& proposal = key.saProposal;
    lines.push_back("manual key: " + describe(proposal));
    if (proposal.protocol == IPSEC_ESP || proposal.protocol == IPSEC_ESP_AH)
        lines.push_back(securityParameterIndexes("ESP", key.inboundESPSPI, key.outboundESPSPI));
    if (proposal.protocol == IPSEC_AH || proposal.protocol == IPSEC_ESP_AH)
        lines.push_back(securityParameterIndexes("AH", key.inboundAHSPI, key.outboundAHSPI));
    if (proposal.encryption > 1) {
        lines.push_back("  encryption key in " + shownKey(key.inboundDecrKey, showKeys));
        lines.push_back("  encryption key out " + shownKey(key.outboundEncrKey, showKeys));
        lines.push_back("  encryption IV out " + shownKey(key.outboundEncrIV, showKeys));
    }
    if (proposal.hash > 1) {
        lines.push_back("  authentication key in " + shownKey(key.inboundAuthKey, showKeys));
        lines.push_back("  authentication key out " + shownKey(key.outboundAuthKey, showKeys));
    }
}

} // namespace

std::string describe(const HostSelector& selector)
{
    return familyName(selector.family) + " " + hosts(selector);
}

std::string describe(const ProtocolSelector& selector)
{
    std::string text;
    if (!selector.name.empty() && selector.name != "Protocol")
        text = selector.name + ": ";
    text += directionName(selector.direction) + " " + protocolName(selector.protocol);
    // The ports mean nothing without a protocol.
    if (selector.protocol != 0 && selector.dstPort != 0)
        text += " to " + std::to_string(selector.dstPort);
    if (selector.protocol != 0 && selector.srcPort != 0)
        text += " from " + std::to_string(selector.srcPort);
    return selector.mirrored ? text + ", mirrored" : text;
}

std::vector<std::string> describe(const IPsecAction& action, bool showKeys)
{
    const SPDAction&         spdAction = action.spdActionGet();
    std::vector<std::string> lines     = {word(spdAction)};
    if (spdAction == SPD_TUNNEL)
        lines.front() += " to " + orEmpty(action.tunnelEndpointGet());
    if (!action.descrGet().empty())
        lines.push_back('"' + action.descrGet() + '"');
    if (spdAction != SPD_TUNNEL && spdAction != SPD_TRANSPORT)
        return lines;

    if (action.keyMgrGet() == KEYMGR_MKM) {
        describe(action.manualKeyGet(), showKeys, lines);
    } else if (action.keyMgrGet() == KEYMGR_IKE) {
        describe(action.ikePhase1Get(), showKeys, lines);
        describe(action.ikePhase2Get(), lines);
    } else {
        lines.push_back("no key manager");
    }
    return lines;
}
