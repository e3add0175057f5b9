#include "rebuild.h"

#include "peer.h"

#include <utility>

namespace bench {

using namespace ipsecimpl;

namespace {

template <class Group>
Group rebuiltGroup(const Group& group)
{
    Group twin(group.name, group.builtinName, group.descr, group.builtinDescr);
    for (const auto& selector : group.selectors)
        twin.selectors.insert(twin.selectors.end(), selector);
    return twin;
}

IPsecAction rebuiltAction(const IPsecAction& action)
{
    const auto spdAction = action.spdActionGet();
    const bool protects  = spdAction == SPD_TUNNEL || spdAction == SPD_TRANSPORT;
    const auto keyMgr    = protects ? action.keyMgrGet() : KEYMGR_NONE;

    IPsecAction twin(spdAction, action.nameGet(), action.builtinNameGet(), action.descrGet(), action.builtinDescrGet(),
                     keyMgr);
    twin.typeSet(action.typeGet());
    twin.stateSet(action.stateGet());
    if (spdAction == SPD_TUNNEL)
        twin.tunnelEndpointSet(action.tunnelEndpointGet());
    if (keyMgr == KEYMGR_MKM) {
        twin.manualKeySet(action.manualKeyGet());
    } else if (keyMgr == KEYMGR_IKE) {
        twin.ikePhase1Set(action.ikePhase1Get());
        twin.ikePhase2Set(action.ikePhase2Get());
    }
    return twin;
}

} // namespace

IPsecConfig rebuild(const IPsecConfig& config)
{
    IPsecConfig twin;
    for (const auto& [id, group] : config.hostGroups)
        addEntry(twin.hostGroups, id, rebuiltGroup(group));
    for (const auto& [id, group] : config.protocolGroups)
        addEntry(twin.protocolGroups, id, rebuiltGroup(group));
    for (const auto& [id, action] : config.actions)
        addEntry(twin.actions, id, rebuiltAction(action));
    for (const auto& [id, policy] : config.policies)
        addEntry(twin.policies, id, policy);
    return twin;
}

} // namespace bench
