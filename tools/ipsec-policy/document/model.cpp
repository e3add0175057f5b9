#include "model.h"

using namespace ipsecimpl;

namespace {

Families familiesIn(const HostGroup& group)
{
    Families families;
    for (const HostSelector& selector : group.selectors) {
        if (selector.selectorType == HOST_NONE)
            continue;
        families.v4 |= selector.family != HOST_INET6;
        families.v6 |= selector.family != HOST_INET;
        if (families.v4 && families.v6)
            break;
    }
    return families;
}

} // namespace

Model::Model(const IPsecConfig& config)
    : hostGroups_(config.hostGroups.size())
    , protocolGroups_(config.protocolGroups.size())
    , actions_(config.actions.size())
{
    ties_.reserve(config.policies.size());
    families_.reserve(config.hostGroups.size());
    endPoints_.reserve(config.actions.size());
}

const Entry<HostGroup>& Model::add(unsigned int id, const HostGroup& group)
{
    families_.push_back(familiesIn(group));
    return hostGroups_.add(id, group, group.selectors.empty());
}

const Entry<ProtocolGroup>& Model::add(unsigned int id, const ProtocolGroup& group)
{
    return protocolGroups_.add(id, group, group.selectors.empty());
}

const Entry<IPsecAction>& Model::add(unsigned int id, const IPsecAction& action)
{
    const Entry<IPsecAction>& entry = actions_.add(id, action, action.spdActionGet() == SPD_NONE);
    endPoints_.push_back(action.spdActionGet() == SPD_TUNNEL ? addressIn(action.tunnelEndpointGet()) : std::nullopt);
    if (const MKM* const key = manualKeyOf(action))
        manualKeys_.push_back({&entry, key});
    if (const IKEPhase1* const phase1 = phase1Of(action))
        keyExchanges_.push_back({&entry, phase1});
    return entry;
}

void Model::add(unsigned int id, const Policy& policy)
{
    ties_.push_back({id, policy, hostGroups_.use(policy.hostGroupID), protocolGroups_.use(policy.protocolGroupID),
                     actions_.use(policy.actionID)});
}

bool needsKeys(const IPsecAction& action)
{
    return action.spdActionGet() == SPD_TRANSPORT || action.spdActionGet() == SPD_TUNNEL;
}

const MKM* manualKeyOf(const IPsecAction& action)
{
    return needsKeys(action) && action.keyMgrGet() == KEYMGR_MKM ? &action.manualKeyGet() : nullptr;
}

const IKEPhase1* phase1Of(const IPsecAction& action)
{
    return needsKeys(action) && action.keyMgrGet() == KEYMGR_IKE ? &action.ikePhase1Get() : nullptr;
}

const IKEPhase2* phase2Of(const IPsecAction& action)
{
    return needsKeys(action) && action.keyMgrGet() == KEYMGR_IKE ? &action.ikePhase2Get() : nullptr;
}

bool hasESP(const IPsecProposal& proposal)
{
    return proposal.protocol == IPSEC_ESP || proposal.protocol == IPSEC_ESP_AH;
}

bool hasAH(const IPsecProposal& proposal)
{
    return proposal.protocol == IPSEC_AH || proposal.protocol == IPSEC_ESP_AH;
}

bool hasEncryption(const IPsecProposal& proposal)
{
    return proposal.encryption > 1;
}

bool hasHash(const IPsecProposal& proposal)
{
    return proposal.hash > 1;
}
