#include "generator.h"

#include <algorithm>

namespace bench {

using namespace ipsecimpl;

namespace {

const char* const sites[]    = {"Amsterdam",  "Bratislava", "Copenhagen", "Dortmund", "Edinburgh", "Florence",
                                "Gothenburg", "Hamburg",    "Innsbruck",  "Leipzig",  "Marseille", "Zurich"};
const char* const purposes[] = {"branch office", "warehouse", "data centre", "guest network",
                                "telephony",     "backup",    "laboratory",  "management"};

struct Service {
    const char*    name;
    unsigned short protocol;
    unsigned short dstPort;
};

// clang-format off
const Service services[] = {
    {"SSH",          6,  22},   {"DNS over UDP", 17, 53},   {"DNS over TCP",    6,  53},   {"Web",            6,  80},
    {"Web over TLS", 6,  443},  {"SNMP",         17, 161},  {"SNMP traps",      17, 162},  {"Syslog",         17, 514},
    {"Syslog, TLS",  6,  6514}, {"SIP",          17, 5060}, {"SIP over TLS",    6,  5061}, {"NTP",            17, 123},
    {"SMB",          6,  445},  {"Kerberos",     6,  88},   {"Directory, TLS",  6,  636},  {"Remote desktop", 6,  3389},
    {"Database",     6,  5432}, {"ICMP",         1,  0},    {"IPv6 ICMP",       58, 0},    {"GRE",            47, 0},
};
// clang-format on

// In what order the arguments of a call are evaluated is the compiler's choice, but for those in braces. So no two
// random numbers stand in one call, nor in one sum of texts.

/// The first three bytes.
std::string subnetV4(Random& random)
{
    const std::string second = std::to_string(random.below(256));
    return "10." + second + '.' + std::to_string(random.below(256));
}

std::string addressV4(Random& random)
{
    const std::string subnet = subnetV4(random);
    return subnet + '.' + std::to_string(random.from(1, 254));
}

std::string addressV6(Random& random)
{
    const std::string digits = random.hexDigits(12);
    return "2001:db8:" + digits.substr(0, 4) + ':' + digits.substr(4, 4) + "::" + digits.substr(8);
}

HostSelector makeSubnet(Random& random)
{
    if (random.percent(25)) {
        const int length = static_cast<int>(random.from(48, 64));
        return HostSelector(HOST_INET6, HOST_SUBNET_LENGTH, "2001:db8:" + random.hexDigits(4) + "::", length);
    }
    const std::string subnet = subnetV4(random) + ".0";
    const int         length = static_cast<int>(random.from(16, 24));
    if (random.percent(50))
        return HostSelector(HOST_INET, HOST_SUBNET_LENGTH, subnet, length);
    return HostSelector(HOST_INET, HOST_SUBNET_MASK, subnet, HostSelector::len2mask(HOST_INET, length));
}

HostSelector makeRange(Random& random)
{
    const std::string subnet = subnetV4(random);
    const std::string first  = subnet + '.' + std::to_string(random.from(1, 99));
    const std::string last   = subnet + '.' + std::to_string(random.from(100, 254));
    return HostSelector(HOST_INET, HOST_RANGE, first, last);
}

std::string describe(Random& random, const char* what)
{
    const std::string purpose = random.oneOf(purposes);
    return what + (" of the " + purpose) + " in " + random.oneOf(sites);
}

std::string nameOf(Random& random, unsigned int number)
{
    return std::string(random.oneOf(sites)) + ' ' + std::to_string(number);
}

IPsecProposal makeProposal(Random& random)
{
    const IPsecProtocol protocols[] = {IPSEC_ESP, IPSEC_ESP, IPSEC_ESP, IPSEC_AH, IPSEC_ESP_AH};
    const IPsecProtocol protocol    = random.oneOf(protocols);
    return IPsecProposal{protocol, protocol == IPSEC_AH ? 0 : random.from(2, 12), random.from(2, 5)};
}

MKM makeManualKey(Random& random)
{
    MKM key;
    key.saProposal = makeProposal(random);
    const bool esp = key.saProposal.protocol == IPSEC_ESP || key.saProposal.protocol == IPSEC_ESP_AH;
    const bool ah  = key.saProposal.protocol == IPSEC_AH || key.saProposal.protocol == IPSEC_ESP_AH;
    if (esp) {
        key.inboundESPSPI  = random.from(256, 99999);
        key.outboundESPSPI = random.from(256, 99999);
    }
    if (ah) {
        key.inboundAHSPI  = random.from(256, 99999);
        key.outboundAHSPI = random.from(256, 99999);
    }
    if (key.saProposal.encryption > 1) {
        key.inboundDecrKey  = random.hexDigits(48);
        key.outboundEncrKey = random.hexDigits(48);
        key.outboundEncrIV  = random.hexDigits(16);
    }
    key.inboundAuthKey  = random.hexDigits(40);
    key.outboundAuthKey = random.hexDigits(40);
    return key;
}

IKEPhase1 makePhase1(Random& random, const IKEAuthType& authType)
{
    const IKEPhase1Transform transforms[] = {IKE_AESCBC_SHA1, IKE_AESCBC_MD5, IKE_3DES_SHA1, IKE_3DES_MD5};
    const DHGroup            groups[]     = {DH_GROUP_2, DH_GROUP_14};

    IKEPhase1Proposal proposal({}, random.oneOf(groups), 28800, KEYLIFETIME_SECS);
    for (unsigned int i = random.from(1, 3); i > 0; --i)
        proposal.transforms.push_back(random.oneOf(transforms));

    if (authType == IKE_AUTH_PSK)
        return IKEPhase1(authType, "", "", random.hexDigits(random.from(16, 32)), proposal);
    return IKEPhase1(authType, "CN=gw" + std::to_string(random.below(1000)) + ".example.com, O=Example, C=DE",
                     "CN=Example VPN CA, O=Example, C=DE", "", proposal);
}

IKEPhase2 makePhase2(Random& random)
{
    const DHGroup groups[] = {DH_GROUP_NONE, DH_GROUP_2, DH_GROUP_14};
    const bool    time     = random.percent(80);

    IKEPhase2 phase2({}, random.oneOf(groups), time ? 3600 : 4608000, time ? KEYLIFETIME_SECS : KEYLIFETIME_KB);
    for (unsigned int i = random.from(1, 2); i > 0; --i)
        phase2.proposals.push_back(makeProposal(random));
    return phase2;
}

/// An action in tunnel mode (mostly) or transport mode, still without keys.
IPsecAction makeProtectingAction(Random& random, unsigned int number, const IPsecKeyMgr& keyMgr)
{
    const bool  tunnel = random.percent(75);
    IPsecAction action{tunnel ? SPD_TUNNEL : SPD_TRANSPORT,
                       nameOf(random, number),
                       0,
                       describe(random, tunnel ? "Tunnel" : "Hosts"),
                       0,
                       keyMgr};
    action.typeSet(tunnel ? 2 : 1);
    action.stateSet(static_cast<int>(random.below(2)));
    if (tunnel)
        action.tunnelEndpointSet(random.percent(80) ? addressV4(random) : addressV6(random));
    return action;
}

IPsecAction makeAction(Random& random, unsigned int number)
{
    const unsigned int kind = random.below(100);
    if (kind < 30)
        return makeIKEAction(random, number, IKE_AUTH_PSK);
    if (kind < 45)
        return makeIKEAction(random, number, IKE_AUTH_RSA);
    if (kind < 75)
        return makeManualAction(random, number);
    return makePlainAction(random, number);
}

} // namespace

std::string Random::hexDigits(unsigned int count)
{
    std::string digits(count, '0');
    for (char& digit : digits)
        digit = "0123456789abcdef"[below(16)];
    return digits;
}

HostSelector makeHostSelector(Random& random)
{
    const unsigned int kind = random.below(100);
    if (kind < 30)
        return HostSelector(HOST_INET, HOST_SINGLE, addressV4(random), "");
    if (kind < 40)
        return HostSelector(HOST_INET6, HOST_SINGLE, addressV6(random), "");
    if (kind < 80)
        return makeSubnet(random);
    if (kind < 95)
        return makeRange(random);
    const AddressType symbolic[] = {HOST_LOCAL, HOST_ANY, HOST_MCAST};
    return HostSelector{random.percent(50) ? HOST_INET : HOST_INET6, random.oneOf(symbolic), "", ""};
}

ProtocolSelector makeProtocolSelector(Random& random)
{
    const Direction directions[] = {PROTO_IN, PROTO_OUT, PROTO_INOUT};
    const Service&  service      = random.oneOf(services);
    const bool      fixedSource  = service.dstPort != 0 && random.percent(10);
    const auto      source       = static_cast<unsigned short>(fixedSource ? random.from(1024, 65535) : 0);
    return ProtocolSelector{service.name, service.protocol,         service.dstPort,
                            source,       random.oneOf(directions), random.percent(80)};
}

HostGroup makeHostGroup(Random& random, unsigned int number)
{
    HostGroup         group{nameOf(random, number), 0, describe(random, "Hosts"), 0};
    const std::size_t size = random.from(1, 5);
    while (group.selectors.size() < size)
        group.selectors.insert(makeHostSelector(random));
    return group;
}

ProtocolGroup makeProtocolGroup(Random& random, unsigned int number)
{
    ProtocolGroup     group{nameOf(random, number), 0, describe(random, "Services"), 0};
    const std::size_t size = random.from(1, 5);
    while (group.selectors.size() < size)
        group.selectors.insert(makeProtocolSelector(random));
    return group;
}

IPsecAction makeIKEAction(Random& random, unsigned int number, const IKEAuthType& authType)
{
    IPsecAction action = makeProtectingAction(random, number, KEYMGR_IKE);
    action.ikePhase1Set(makePhase1(random, authType));
    action.ikePhase2Set(makePhase2(random));
    return action;
}

IPsecAction makeManualAction(Random& random, unsigned int number)
{
    IPsecAction action = makeProtectingAction(random, number, KEYMGR_MKM);
    action.manualKeySet(makeManualKey(random));
    return action;
}

IPsecAction makePlainAction(Random& random, unsigned int number)
{
    const bool  bypass = random.percent(50);
    IPsecAction action{
        bypass ? SPD_BYPASS : SPD_DISCARD, nameOf(random, number), 0, describe(random, "Traffic"), 0, KEYMGR_NONE};
    action.stateSet(1);
    return action;
}

IPsecConfig makeConfig(unsigned int policies, std::uint64_t seed)
{
    const unsigned int hostGroups     = std::max(policies / 2, 1U);
    const unsigned int protocolGroups = std::max(policies / 4, 1U);
    const unsigned int actions        = std::max(policies / 2, 1U);

    Random      random(seed);
    IPsecConfig config;
    for (unsigned int i = 1; i <= hostGroups; ++i)
        config.hostGroups.add(makeHostGroup(random, i));
    for (unsigned int i = 1; i <= protocolGroups; ++i)
        config.protocolGroups.add(makeProtocolGroup(random, i));
    for (unsigned int i = 1; i <= actions; ++i)
        config.actions.add(makeAction(random, i));
    for (unsigned int i = 1; i <= policies; ++i)
        config.policies.add(
            Policy{random.from(1, hostGroups), random.from(1, protocolGroups), random.from(1, actions)});
    return config;
}

std::string makeDocument(unsigned int policies, std::uint64_t seed)
{
    return stored(makeConfig(policies, seed));
}

} // namespace bench
