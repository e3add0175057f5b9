#include "properties/random_model.h"

#include "support/xml.h"

#include <array>
#include <cstddef>
#include <list>
#include <utility>

// In what order the arguments of a call are evaluated is the compiler's choice, but for those in braces. So no two
// random numbers stand in one call.

namespace ipsecimpl {
namespace {

const char BLANKS[] = " \t\n\v\f\r";

std::string trimmed(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(BLANKS);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(BLANKS) + 1 - first);
}

template <class E>
struct CountOf;

template <int Num, auto Names>
struct CountOf<Enum<Num, Names>> {
    static constexpr unsigned int value = Num;
};

} // namespace

template <class E>
E RandomModel::oneOf()
{
    return E(static_cast<int>(random_.below(CountOf<E>::value)));
}

std::string RandomModel::text()
{
    // Among the lengths are those around which a string holds its text within itself, and the room for a line.
    static const unsigned int lengths[] = {0, 1, 2, 8, 15, 16, 22, 23, 31, 40, 470, 500, 530, 3000};

    const unsigned int kind   = random_.below(4);
    const unsigned int length = random_.percent(90) ? random_.below(24) : random_.oneOf(lengths);
    std::string        text;
    while (text.size() < length) {
        const unsigned int c = kind == 0 ? random_.below(256) : random_.from(' ', '~');
        if (c != '<')
            text += static_cast<char>(c);
    }
    return trimmed(text);
}

std::string RandomModel::visibleText()
{
    std::string result = text();
    return result.empty() ? "x" : result;
}

unsigned int RandomModel::number()
{
    static const unsigned int limits[] = {0, 1, 2, 9, 10, 65535, 65536, 2147483646, 2147483647, 2147483648, 4294967295};

    const unsigned int kind = random_.below(3);
    if (kind == 0)
        return random_.oneOf(limits);
    if (kind == 1)
        return random_.below(300);
    const unsigned int high = random_.below(65536);
    return high << 16 | random_.below(65536);
}

std::string RandomModel::address()
{
    static const char* const addresses[] = {"10.0.0.1", "10.0.0.2", "192.0.2.0", "2001:db8::", "::1", "fe80::1%eth0"};
    return random_.percent(50) ? random_.oneOf(addresses) : text();
}

/// Also one with holes.
std::string RandomModel::mask(const AddressFamily& family)
{
    if (random_.percent(50))
        return HostSelector::len2mask(family, static_cast<int>(random_.below(family == HOST_INET ? 33 : 129)));
    std::string result;
    for (int i = 0; i < 4; ++i) {
        if (family == HOST_INET)
            result += (i > 0 ? "." : "") + std::to_string(random_.below(256));
        else
            result += random_.hexDigits(4) + ":";
    }
    return family == HOST_INET ? result : result + ":";
}

HostSelector RandomModel::hostSelector()
{
    const AddressType type   = oneOf<AddressType>();
    AddressFamily     family = oneOf<AddressFamily>();
    if (type == HOST_SINGLE)
        return {family, type, address(), ""};
    if (type == HOST_RANGE) {
        const std::string first = address();
        return {family, type, first, address()};
    }
    if (type != HOST_SUBNET_LENGTH && type != HOST_SUBNET_MASK)
        return {family, type, "", ""};

    if (family == HOST_INETANY) // of which there are no masks
        family = HOST_INET6;
    const std::string subnet = address();
    if (type == HOST_SUBNET_MASK)
        return {family, type, subnet, mask(family)};
    return {family, type, subnet, random_.percent(80) ? static_cast<int>(random_.below(130)) : signedNumber()};
}

ProtocolSelector RandomModel::protocolSelector()
{
    ProtocolSelector selector(visibleText(), 0, 0, 0, PROTO_IN, false);
    selector.direction = oneOf<Direction>();
    selector.mirrored  = random_.percent(50);
    if (random_.percent(20))
        return selector;
    const auto port   = [this] { return static_cast<unsigned short>(random_.percent(30) ? 0 : number() & 0xFFFFU); };
    selector.protocol = static_cast<unsigned short>(random_.percent(50) ? random_.from(1, 255) : port());
    if (selector.protocol == 0)
        return selector;
    selector.dstPort = port();
    selector.srcPort = port();
    return selector;
}

template <class Group, class Make>
Group RandomModel::group(Make make)
{
    Group result;
    result.name         = text();
    result.builtinName  = signedNumber();
    result.descr        = text();
    result.builtinDescr = signedNumber();
    for (unsigned int left = random_.percent(95) ? random_.below(6) : random_.below(60); left > 0; --left)
        result.selectors.insert(make());
    return result;
}

HostGroup RandomModel::hostGroup()
{
    return group<HostGroup>([this] { return hostSelector(); });
}

ProtocolGroup RandomModel::protocolGroup()
{
    return group<ProtocolGroup>([this] { return protocolSelector(); });
}

IPsecProposal RandomModel::saProposal()
{
    const IPsecProtocol protocol   = oneOf<IPsecProtocol>();
    const unsigned long encryption = number();
    return {protocol, encryption, number()};
}

IKEPhase1Proposal RandomModel::proposal()
{
    std::list<IKEPhase1Transform> transforms;
    for (unsigned int left = random_.below(4); left > 0; --left)
        transforms.push_back(oneOf<IKEPhase1Transform>());
    const DHGroup       group    = oneOf<DHGroup>();
    const unsigned long lifetime = number();
    return {transforms, group, lifetime, oneOf<KeyLifetimeUnits>()};
}

IKEPhase1 RandomModel::ikePhase1()
{
    const IKEPhase1Proposal offer = proposal();
    if (random_.percent(50))
        return {IKE_AUTH_PSK, "", "", text(), offer};
    const std::string localCert = text();
    return {IKE_AUTH_RSA, localCert, text(), "", offer};
}

IKEPhase2 RandomModel::ikePhase2()
{
    std::list<IPsecProposal> proposals;
    for (unsigned int left = random_.below(4); left > 0; --left)
        proposals.push_back(saProposal());
    const DHGroup       group    = oneOf<DHGroup>();
    const unsigned long lifetime = number();
    return {proposals, group, lifetime, oneOf<KeyLifetimeUnits>()};
}

MKM RandomModel::manualKey()
{
    MKM key;
    key.saProposal = saProposal();
    if (random_.percent(30))
        key.saProposal.encryption = random_.below(3);
    if (random_.percent(30))
        key.saProposal.hash = random_.below(3);

    const IPsecProtocol& protocol = key.saProposal.protocol;
    if (protocol == IPSEC_ESP || protocol == IPSEC_ESP_AH) {
        key.inboundESPSPI  = number();
        key.outboundESPSPI = number();
    }
    if (protocol == IPSEC_AH || protocol == IPSEC_ESP_AH) {
        key.inboundAHSPI  = number();
        key.outboundAHSPI = number();
    }
    if (key.saProposal.encryption > 1) {
        key.inboundDecrKey  = text();
        key.outboundEncrKey = text();
        key.outboundEncrIV  = text();
    }
    if (key.saProposal.hash > 1) {
        key.inboundAuthKey  = text();
        key.outboundAuthKey = text();
    }
    return key;
}

/// Built in, or with numbers that are none of a built-in text.
IPsecAction RandomModel::builtIn(const SPDAction& spdAction, const IPsecKeyMgr& keyMgr)
{
    const std::string name       = text();
    const std::string descr      = text();
    const int         nameNumber = signedNumber();
    return {spdAction, name, nameNumber, descr, signedNumber(), keyMgr};
}

/// With any count of changes: only a document can say that.
IPsecAction RandomModel::counted(const SPDAction& spdAction, const IPsecKeyMgr& keyMgr)
{
    IPsecAction action = read<IPsecAction>(
        "<action><changeCount>" + std::to_string(signedNumber()) +
        "</changeCount><name/><builtinName>0</builtinName><descr/><builtinDescr>0</builtinDescr><type>0</type>"
        "<state>0</state><spdAction>NONE</spdAction></action>");
    action.nameSet(text());
    action.descrSet(text());
    action.spdActionSet(spdAction);
    action.keyMgrSet(keyMgr);
    return action;
}

IPsecAction RandomModel::action()
{
    const SPDAction   spdAction = random_.percent(50) ? SPD_TUNNEL : oneOf<SPDAction>();
    const bool        isIPsec   = spdAction == SPD_TRANSPORT || spdAction == SPD_TUNNEL;
    const IPsecKeyMgr keyMgr    = isIPsec ? oneOf<IPsecKeyMgr>() : KEYMGR_NONE;
    IPsecAction       action    = random_.percent(50) ? builtIn(spdAction, keyMgr) : counted(spdAction, keyMgr);
    action.typeSet(signedNumber());
    action.stateSet(signedNumber());
    if (spdAction == SPD_TUNNEL)
        action.tunnelEndpointSet(address());
    if (keyMgr == KEYMGR_MKM)
        action.manualKeySet(manualKey());
    if (keyMgr == KEYMGR_IKE) {
        action.ikePhase1Set(ikePhase1());
        action.ikePhase2Set(ikePhase2());
    }
    return action;
}

Policy RandomModel::policy()
{
    Policy policy(number(), 0, 0);
    policy.protocolGroupID = number();
    policy.actionID        = number();
    return policy;
}

/// With gaps among the IDs. Where they begin, only a document can say.
template <class Collection, class Make>
Collection RandomModel::collection(const char* plural, const char* singular, Make make)
{
    const std::string  wrapper = plural, next = std::string("next") + singular;
    const unsigned int first = random_.percent(70) ? 1 : random_.percent(50) ? 2147483644 : number() >> 1 | 1U;
    Collection result = read<Collection>("<" + wrapper + "><" + next + ">" + std::to_string(first) + "</" + next +
                                         "></" + wrapper + ">");
    for (unsigned int left = random_.below(5); left > 0 && result.nextIDGet() <= 2147483647; --left) {
        const unsigned int id = result.add(make());
        if (random_.percent(15))
            result.remove(id);
    }
    return result;
}

IPsecConfig RandomModel::config()
{
    IPsecConfig result;
    result.hostGroups = collection<HostGroups>("hostGroups", "hostGroup", [this] { return hostGroup(); });
    result.protocolGroups =
        collection<ProtocolGroups>("protocolGroups", "protocolGroup", [this] { return protocolGroup(); });
    result.actions  = collection<Actions>("actions", "action", [this] { return action(); });
    result.policies = collection<Policies>("policies", "policy", [this] { return policy(); });
    return result;
}

} // namespace ipsecimpl
