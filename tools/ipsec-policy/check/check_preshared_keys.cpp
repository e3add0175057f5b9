#include "checks.h"

#include <algorithm>
#include <functional>
#include <tuple>

using namespace ipsecimpl;

namespace {

const Rule SHARED = {"shared-preshared-key", Level::WARNING, "Two peers have the same pre-shared key",
                     "Each of them can pass for the other, and whoever gets hold of the key at one has\n"
                     "it for both. Only peers that are certain are compared: tunnel end points, and in\n"
                     "transport mode single hosts.\n"
                     "Draw a key of its own for each peer.",
                     ""};

const Rule CONFLICTING = {"conflicting-preshared-keys", Level::WARNING,
                          "Two actions have different pre-shared keys for the same peer",
                          "The main mode of IKE version 1 finds the pre-shared key by the peer's address,\n"
                          "before it knows what the exchange is for. So one of the keys serves both\n"
                          "actions, and one of the two fails. Only peers that are certain are compared:\n"
                          "tunnel end points, and in transport mode single hosts.\n"
                          "Write the same key in both.",
                          "RFC 2409 section 5.4"};

/// An action's peer, if one address is certain to be it.
struct Peer {
    std::optional<Address> address;
    bool                   isSeveral = false;

    void add(const std::optional<Address>& other)
    {
        isSeveral = isSeveral || !other || (address && !isSame(*address, *other));
        address   = isSeveral ? std::nullopt : other;
    }

    static bool isSame(const Address& a, const Address& b) { return a.family == b.family && a.bytes == b.bytes; }
};

/// A pre-shared key in force.
struct Use {
    const Entry<IPsecAction>* action; // in the order of the IDs
    const std::string*        key;
    std::size_t               hash; ///< tells different keys apart at once, mostly
    Peer                      peer;
};

/// The group's host, if it is one alone.
std::optional<Address> onlyHostOf(const HostGroup& group)
{
    const bool isSingle = group.selectors.size() == 1 && group.selectors.begin()->selectorType == HOST_SINGLE;
    return isSingle ? addressIn(group.selectors.begin()->addr1, group.selectors.begin()->family) : std::nullopt;
}

/// The peers of tunnels.
std::vector<Use> usesIn(const Model& model)
{
    std::vector<Use> uses;
    for (const KeyExchange& exchange : model.keyExchanges()) {
        if (exchange.phase1->authTypeGet() != IKE_AUTH_PSK || exchange.phase1->presharedKeyGet().empty())
            continue;
        const std::string& key = exchange.phase1->presharedKeyGet();
        uses.push_back({exchange.action, &key, std::hash<std::string_view>()(key), {}});
        uses.back().peer.address = model.endPointOf(*exchange.action);
    }
    return uses;
}

/// The peers of transport mode: the hosts of the policies.
void addHosts(const Model& model, std::vector<Use>& uses)
{
    std::vector<Use*> transports; // by the place of the action
    for (Use& use : uses) {
        if (use.action->object->spdActionGet() != SPD_TRANSPORT)
            continue;
        transports.resize(model.actions().size());
        transports[model.actions().placeOf(*use.action)] = &use;
    }
    if (transports.empty())
        return;
    for (const Tie& tie : model.ties())
        if (tie.action != nullptr && tie.hostGroup != nullptr)
            if (Use* const use = transports[model.actions().placeOf(*tie.action)])
                use->peer.add(onlyHostOf(*tie.hostGroup->object));
}

/// A use that does not go with another one, which comes before it.
struct Fault {
    const Use*  use;
    const Rule* rule;
    const Use*  before;
};

bool operator<(const Fault& a, const Fault& b)
{
    return std::make_pair(a.use, a.rule == &CONFLICTING) < std::make_pair(b.use, b.rule == &CONFLICTING);
}

auto keyOf(const Use& use)
{
    return std::tie(use.hash, *use.key);
}

auto peerOf(const Use& use)
{
    return std::make_tuple(use.peer.address->family.valueGet(), std::cref(use.peer.address->bytes));
}

/// In each row of uses that have the same of one thing, those that differ from the row's first in the other.
template <class Same, class Other>
void findFaults(std::vector<const Use*>& uses, const Rule& rule, const Same& same, const Other& other,
                std::vector<Fault>& faults)
{
    std::sort(uses.begin(), uses.end(), [&](const Use* a, const Use* b) {
        const auto sameA = same(*a);
        const auto sameB = same(*b);
        return sameA < sameB || (!(sameB < sameA) && a < b);
    });
    const Use* first = nullptr;
    for (const Use* const use : uses) {
        if (first == nullptr || same(*first) < same(*use))
            first = use;
        else if (other(*first) < other(*use) || other(*use) < other(*first))
            faults.push_back({use, &rule, first});
    }
}

void reportFault(const Fault& fault, Findings& findings)
{
    const std::string before = named(Kind::ACTION, *fault.before->action);
    report(findings, *fault.rule, Kind::ACTION, fault.use->action->id, {"ikePhase1/presharedKey"},
           fault.rule == &SHARED ? joined({"The pre-shared key is also that of ", before,
                                           ", which has another peer. Draw a key of its own for each peer."})
                                 : joined({capitalised(before), " has another pre-shared key for the same peer, ",
                                           textOf(*fault.use->peer.address), ". Write the same key in both."}));
}

} // namespace

Rules presharedKeyRules()
{
    return {&SHARED, &CONFLICTING};
}

void checkPresharedKeys(const Model& model, Findings& findings)
{
    std::vector<Use> uses = usesIn(model);
    if (uses.size() < 2)
        return;
    addHosts(model, uses);
    std::vector<const Use*> known;
    known.reserve(uses.size());
    for (const Use& use : uses)
        if (use.peer.address)
            known.push_back(&use);

    std::vector<Fault> faults;
    findFaults(known, SHARED, keyOf, peerOf, faults);
    findFaults(known, CONFLICTING, peerOf, keyOf, faults);
    std::sort(faults.begin(), faults.end());
    for (const Fault& fault : faults)
        reportFault(fault, findings);
}
