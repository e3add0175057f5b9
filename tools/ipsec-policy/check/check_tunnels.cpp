#include "address.h"
#include "checks.h"

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
                         "name is no address, and who can forge its look-up leads the tunnel elsewhere.\n"
                         "Write an IPv4 or IPv6 address.",
                         ""};

const Rule OTHER_FAMILY = {"tunnel-family", Level::WARNING,
                           "A tunnel's end point is of a family that its policy's hosts do not have",
                           "One family can be carried in a tunnel of the other, if both ends are made for\n"
                           "it; more often the end point or the host group is the wrong one.\n"
                           "Correct it, or make sure that both ends mean it so.",
                           ""};

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
    return {&MISSING, &NO_ADDRESS, &OTHER_FAMILY};
}

void checkTunnelEndPoint(const Entry<IPsecAction>& entry, Findings& findings)
{
    if (entry.object->spdActionGet() != SPD_TUNNEL)
        return;
    const std::string& text = entry.object->tunnelEndpointGet();
    if (text.empty())
        report(findings, MISSING, Kind::ACTION, entry.id, {"tunnelEndpoint"},
               "The tunnel has no end point. Write the address of its far end.");
    else if (!addressIn(text))
        report(findings, NO_ADDRESS, Kind::ACTION, entry.id, {"tunnelEndpoint"},
               quoted(text) + " is no address. Write the IPv4 or IPv6 address of the tunnel's far end.");
}

void checkTunnelFamilies(const Model& model, Findings& findings)
{
    for (const Tie& tie : model.ties())
        if (tie.hostGroup != nullptr && tie.action != nullptr)
            if (const std::optional<Address>& endPoint = model.endPointOf(*tie.action))
                checkTie(tie, model.familiesOf(*tie.hostGroup), *endPoint, findings);
}
