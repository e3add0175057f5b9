#include "input.h"
#include "model.h"

namespace ipsecimpl::model {
namespace {

template <auto Tag, class Selector>
Group groupOf(const SelectorGroup<Tag, Selector>& group)
{
    Group entry{*Tag, group.name, group.builtinName, group.descr, group.builtinDescr, ""};
    for (const Selector& selector : group.selectors)
        entry.selectors += ipsecimpl::stored(selector);
    return entry;
}

Phase1 phase1Of(const IKEPhase1& phase)
{
    Phase1 entry;
    entry.authType = word(phase.authTypeGet());
    if (phase.authTypeGet() == IKE_AUTH_PSK) {
        entry.presharedKey = phase.presharedKeyGet();
    } else {
        entry.localCert = phase.localCertGet();
        entry.peerTrust = phase.peerTrustGet();
    }
    entry.proposal = ipsecimpl::stored(phase.proposalGet());
    return entry;
}

template <class Entry, class Entries>
void fill(Collection<Entry>& collection, const Entries& entries)
{
    for (const auto& [id, entry] : entries)
        collection.entries.emplace(id, entryOf(entry));
    collection.nextID = entries.nextIDGet();
}

} // namespace

Group entryOf(const HostGroup& group)
{
    return groupOf(group);
}

Group entryOf(const ProtocolGroup& group)
{
    return groupOf(group);
}

Policy entryOf(const ipsecimpl::Policy& policy)
{
    return {policy.hostGroupID, policy.protocolGroupID, policy.actionID};
}

Action entryOf(const IPsecAction& action)
{
    Action entry;
    entry.spdAction    = word(action.spdActionGet());
    entry.changeCount  = action.changeCountGet();
    entry.name         = action.nameGet();
    entry.builtinName  = action.builtinNameGet();
    entry.descr        = action.descrGet();
    entry.builtinDescr = action.builtinDescrGet();
    entry.type         = action.typeGet();
    entry.state        = action.stateGet();
    if (entry.spdAction == "TUNNEL")
        entry.tunnelEndpoint = action.tunnelEndpointGet();
    if (!entry.isProtected())
        return entry;
    entry.keyMgr = word(action.keyMgrGet());
    if (entry.keyMgr == "MKM")
        entry.manualKey = ipsecimpl::stored(action.manualKeyGet());
    if (entry.keyMgr == "IKE") {
        entry.phase1 = phase1Of(action.ikePhase1Get());
        entry.phase2 = ipsecimpl::stored(action.ikePhase2Get());
    }
    return entry;
}

Config loaded(const IPsecConfig& config)
{
    Config result;
    fill(result.hostGroups, config.hostGroups);
    fill(result.protocolGroups, config.protocolGroups);
    fill(result.actions, config.actions);
    fill(result.policies, config.policies);
    return result;
}

} // namespace ipsecimpl::model
