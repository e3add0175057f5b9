#include "address.h"
#include "checks.h"

#include <algorithm>

using namespace ipsecimpl;

namespace {

const Rule MISSING = {"no-tunnel-end-point", Level::ERROR, "A tunnel has no end point",
                      "Packets of a tunnel are sent to its end point. Without one they go nowhere, or\n"
                      "out unprotected.\n"
                      "Write the address of the gateway at the far end.",
                      "RFC 4301 section 4.4.1.2"};

const Rule NO_ADDRESS = {"bad-tunnel-end-point", Level::ERROR, "A tunnel's end point is no address",
                         "The library keeps it as a text and does not look into it. What reads it later\n"
                         "may refuse the configuration, or take a text that it cannot read for 0.0.0.0. A\n"
                         "name is no address, and whoever forges the answer when it is looked up leads the\n"
                         "tunnel elsewhere.\n"
                         "Write an IPv4 or IPv6 address.",
                         ""};

const Rule SPECIAL = {"special-tunnel-end-point", Level::WARNING,
                      "A tunnel's end point is not the address of one other node",
                      "Loopback addresses are each node's own, 0.0.0.0 and :: are nobody's, and\n"
                      "multicast and broadcast addresses are those of many at once. A key exchange\n"
                      "needs one peer, and a packet one receiver. (Some systems take 0.0.0.0 for any\n"
                      "peer: such a tunnel can only be opened from the far end.)\n"
                      "Write the address of the gateway at the far end.",
                      "RFC 1122 section 3.2.1.3 and RFC 4291 sections 2.5 and 2.7"};

const Rule OTHER_FAMILY = {"tunnel-family", Level::WARNING,
                           "A tunnel's end point is of a family that its policy's hosts do not have",
                           "One family can be carried in a tunnel of the other, if both ends are made for\n"
                           "it; more often the end point or the host group is the wrong one.\n"
                           "Correct it, or make sure that both ends mean it so.",
                           ""};

/// Why the address is not that of one other node; null if it may be.
const char* faultOf(const Address& address)
{
    const auto& bytes = address.bytes;
    const auto  last  = bytes.begin() + bitsOf(address.family) / 8 - 1;
    const bool  isV4  = address.family == HOST_INET;
    if (std::all_of(bytes.begin(), last, [](unsigned char byte) { return byte == 0; }) && *last <= (isV4 ? 0 : 1))
        return *last == 0 ? "stands for no address" : "is each node's own loopback address";
    if (isV4 && bytes[0] == 127)
        return "is each node's own loopback address";
    if (isV4 ? (bytes[0] & 0xF0U) == 0xE0U : bytes[0] == 0xFFU)
        return "is a multicast address";
    if (isV4 && std::all_of(bytes.begin(), last + 1, [](unsigned char byte) { return byte == 255; }))
        return "is the broadcast address";
    return nullptr;
}

void checkTie(const Tie& tie, const Families& families, const Address& endPoint, Findings& findings)
{
    const bool isV4 = endPoint.family == HOST_INET;
    if (families.v4 == families.v6 || families.v4 == isV4)
        return;
    report(findings, OTHER_FAMILY, Kind::POLICY, tie.id, {"actionID"},
           joined({"The end point of ", named(Kind::ACTION, *tie.action), " is an ", nameOf(endPoint.family),
                   " address, but ", named(Kind::HOST_GROUP, *tie.hostGroup), " has ", isV4 ? "IPv6" : "IPv4",
                   " hosts alone. Correct one of the two, or see that both ends of the tunnel mean it so."}));
}

} // namespace

Rules tunnelRules()
{
    return {&MISSING, &NO_ADDRESS, &SPECIAL, &OTHER_FAMILY};
}

void checkTunnelEndPoint(const Entry<IPsecAction>& entry, Findings& findings)
{
    if (entry.object->spdActionGet() != SPD_TUNNEL)
        return;
    const std::string& text      = entry.object->tunnelEndpointGet();
    const auto         reportEnd = [&](const Rule& rule, std::string message) {
        report(findings, rule, Kind::ACTION, entry.id, {"tunnelEndpoint"}, std::move(message));
    };
    if (text.empty()) {
        reportEnd(MISSING, "The tunnel has no end point. Write the address of its far end.");
        return;
    }
    const std::optional<Address> address = addressIn(text);
    if (!address)
        reportEnd(NO_ADDRESS,
                  inQuotes(text) + " is no address. Write the IPv4 or IPv6 address of the tunnel's far end.");
    else if (const char* const fault = faultOf(*address))
        reportEnd(SPECIAL, joined({text, " ", fault, ". Write the address of the tunnel's far end."}));
}

void checkTunnelFamilies(const Model& model, Findings& findings)
{
    for (const Tie& tie : model.ties())
        if (tie.hostGroup != nullptr && tie.action != nullptr)
            if (const std::optional<Address>& endPoint = model.endPointOf(*tie.action))
                checkTie(tie, model.familiesOf(*tie.hostGroup), *endPoint, findings);
}
