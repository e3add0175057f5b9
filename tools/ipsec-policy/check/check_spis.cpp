#include "address.h"
#include "checks.h"

#include <algorithm>
#include <cstdint>
#include <tuple>

using namespace ipsecimpl;

namespace {

const Rule RESERVED = {"reserved-spi", Level::ERROR, "An SPI is one of the reserved numbers 0 to 255",
                       "0 is for a system's own use and must never be sent. 1 to 255 are reserved for\n"
                       "uses that may be agreed on for all systems.\n"
                       "Write 256 or more, and the same at the peer.",
                       "RFC 4303 section 2.1 and RFC 4302 section 2.4"};

const Rule INBOUND = {"repeated-inbound-spi", Level::ERROR, "Two actions receive with the same SPI",
                      "A node finds the key of a packet that it receives by protocol and SPI. With one\n"
                      "SPI for two keys, the traffic of one action is dropped, or taken for the\n"
                      "other's.\n"
                      "Choose another SPI for one of them, and the same at the peer.",
                      "RFC 4301 section 4.1"};

const Rule OUTBOUND = {"repeated-outbound-spi", Level::ERROR, "Two actions send to the same peers with the same SPI",
                       "The peer finds the key of a packet by protocol and SPI. Different peers may\n"
                       "well have chosen the same number; one that has it twice drops the traffic of\n"
                       "one action, or takes it for the other's. Peers are the same if the tunnel end\n"
                       "point is, or in transport mode if a host group is.\n"
                       "Choose another SPI for one of them, and the same at the peer.",
                       "RFC 4301 section 4.1"};

const unsigned long LAST_RESERVED = 255;

enum class Protocol { ESP, AH };

/// Whom packets are sent to: the kind, and a number of that kind. Inbound there is but one, this node.
struct Receiver {
    enum class Kind { NODE, HOST_GROUP, IPV4, IPV6 };

    Kind                          kind = Kind::NODE;
    std::array<unsigned char, 16> bytes{};
    unsigned int                  hostGroup = 0;
};

/// An SPI of an action.
struct Use {
    Protocol                  protocol;
    unsigned long             spi;
    Receiver                  receiver;
    const Entry<IPsecAction>* action;
    const char*               field;
};

auto numberOf(const Use& use)
{
    return std::tie(use.protocol, use.spi, use.receiver.kind, use.receiver.bytes, use.receiver.hostGroup);
}

bool isInbound(const Use& use)
{
    return use.receiver.kind == Receiver::Kind::NODE;
}

std::string protocolName(const Use& use)
{
    return use.protocol == Protocol::ESP ? "ESP" : "AH";
}

Receiver receiverAt(const Address& address)
{
    return {address.family == HOST_INET ? Receiver::Kind::IPV4 : Receiver::Kind::IPV6, address.bytes, 0};
}

/// All SPIs in force.
class Uses {
  public:
    explicit Uses(const Model& model)
    {
        for (const ManualKey& manual : model.manualKeys()) {
            addInbound(*manual.action, *manual.key);
            if (const std::optional<Address>& endPoint = model.endPointOf(*manual.action))
                addOutbound(*manual.action, *manual.key, receiverAt(*endPoint));
        }
        for (const Tie& tie : model.ties())
            if (tie.action != nullptr && tie.hostGroup != nullptr)
                addHosts(*tie.action, *tie.hostGroup);
    }

    std::vector<Use> uses;

  private:
    void add(Protocol protocol, unsigned long spi, const Receiver& receiver, const Entry<IPsecAction>& action,
             const char* field)
    {
        uses.push_back({protocol, spi, receiver, &action, field});
    }

    void addInbound(const Entry<IPsecAction>& action, const MKM& key)
    {
        if (hasESP(key.saProposal))
            add(Protocol::ESP, key.inboundESPSPI, {}, action, "manualKey/inboundESPSPI");
        if (hasAH(key.saProposal))
            add(Protocol::AH, key.inboundAHSPI, {}, action, "manualKey/inboundAHSPI");
    }

    /// The peers of transport mode.
    void addHosts(const Entry<IPsecAction>& action, const Entry<HostGroup>& hosts)
    {
        const MKM* const key = manualKeyOf(*action.object);
        if (key != nullptr && action.object->spdActionGet() == SPD_TRANSPORT)
            addOutbound(action, *key, {Receiver::Kind::HOST_GROUP, {}, hosts.id});
    }

    void addOutbound(const Entry<IPsecAction>& action, const MKM& key, const Receiver& receiver)
    {
        if (hasESP(key.saProposal))
            add(Protocol::ESP, key.outboundESPSPI, receiver, action, "manualKey/outboundESPSPI");
        if (hasAH(key.saProposal))
            add(Protocol::AH, key.outboundAHSPI, receiver, action, "manualKey/outboundAHSPI");
    }
};

void checkReserved(unsigned int action, const char* field, unsigned long spi, Findings& findings)
{
    if (spi <= LAST_RESERVED)
        report(findings, RESERVED, Kind::ACTION, action, {field},
               "SPI " + std::to_string(spi) + " is reserved. Write 256 or more, and the same at the peer.");
}

/// An SPI that another action has too.
struct Repetition {
    const Use* use;
    const Use* before;
};

/// In each row of equal SPIs, all but those of the first action. Two actions may share more than one host group: one
/// repetition is kept for each SPI of an action.
std::vector<Repetition> repetitionsIn(std::vector<Use>& uses)
{
    std::sort(uses.begin(), uses.end(), [](const Use& a, const Use& b) {
        const auto numberA = numberOf(a);
        const auto numberB = numberOf(b);
        return numberA != numberB ? numberA < numberB : a.action->id < b.action->id;
    });

    std::vector<Repetition> repetitions;
    const Use*              first = nullptr;
    for (const Use& use : uses) {
        if (first == nullptr || numberOf(*first) != numberOf(use))
            first = &use;
        else if (use.action != first->action)
            repetitions.push_back({&use, first});
    }

    const auto place = [](const Repetition& r) {
        return std::make_tuple(r.use->action->id, r.use->protocol, !isInbound(*r.use));
    };
    std::stable_sort(repetitions.begin(), repetitions.end(),
                     [place](const Repetition& a, const Repetition& b) { return place(a) < place(b); });
    const auto same = [place](const Repetition& a, const Repetition& b) { return place(a) == place(b); };
    repetitions.erase(std::unique(repetitions.begin(), repetitions.end(), same), repetitions.end());
    return repetitions;
}

void reportRepetition(const Repetition& repetition, Findings& findings)
{
    const Use&        use  = *repetition.use;
    const std::string spi  = protocolName(use) + " SPI " + std::to_string(use.spi);
    const std::string that = named(Kind::ACTION, *repetition.before->action);
    if (isInbound(use))
        report(findings, INBOUND, Kind::ACTION, use.action->id, {use.field},
               spi + " is also that of what " + that + " receives. Choose another, and the same at the peer.");
    else
        report(findings, OUTBOUND, Kind::ACTION, use.action->id, {use.field},
               spi + " is also that of what " + that +
                   " sends to the same peers. Choose another, and the same at the peer.");
}

} // namespace

Rules spiRules()
{
    return {&RESERVED, &INBOUND, &OUTBOUND};
}

void checkReservedSPIs(unsigned int action, const MKM& key, Findings& findings)
{
    if (hasESP(key.saProposal)) {
        checkReserved(action, "manualKey/inboundESPSPI", key.inboundESPSPI, findings);
        checkReserved(action, "manualKey/outboundESPSPI", key.outboundESPSPI, findings);
    }
    if (hasAH(key.saProposal)) {
        checkReserved(action, "manualKey/inboundAHSPI", key.inboundAHSPI, findings);
        checkReserved(action, "manualKey/outboundAHSPI", key.outboundAHSPI, findings);
    }
}

void checkSPIs(const Model& model, Findings& findings)
{
    for (const ManualKey& manual : model.manualKeys())
        checkReservedSPIs(manual.action->id, *manual.key, findings);

    Uses all(model);
    for (const Repetition& repetition : repetitionsIn(all.uses))
        reportRepetition(repetition, findings);
}
