#include "model.h"

#include "input.h"

#include <limits>

namespace ipsecimpl::model {
namespace {

std::string leaf(const std::string& tag, const std::string& text)
{
    return "<" + tag + ">" + text + "</" + tag + ">\n";
}

std::string leaf(const std::string& tag, long long number)
{
    return leaf(tag, std::to_string(number));
}

std::string element(const std::string& tag, const std::string& children)
{
    return "<" + tag + ">\n" + children + "</" + tag + ">\n";
}

} // namespace

std::string Group::written() const
{
    return element(tag, leaf("name", name) + leaf("builtinName", builtinName) + leaf("descr", descr) +
                            leaf("builtinDescr", builtinDescr) + element("selectors", selectors));
}

std::string Policy::written() const
{
    return element("policy", leaf("hostGroupID", hostGroupID) + leaf("protocolGroupID", protocolGroupID) +
                                 leaf("actionID", actionID));
}

Refusal Phase1::refusal(const std::string& name) const
{
    const std::string needed = name == "presharedKey" ? "PSK" : "RSA";
    return authType == needed ? "" : name + " is only valid for IKE_AUTH_" + needed;
}

std::string Phase1::written() const
{
    const std::string credentials = authType == "PSK" ? leaf("presharedKey", presharedKey)
                                                      : leaf("localCert", localCert) + leaf("peerTrust", peerTrust);
    return element("ikePhase1", leaf("authType", authType) + credentials + proposal);
}

Action::Action()
    : manualKey(element("manualKey",
                        element("saProposal", leaf("protocol", "NONE") + leaf("encryption", 0) + leaf("hash", 0))))
    , phase2(
          element("ikePhase2", leaf("dhGroup", "NONE") + leaf("keyLifetime", 28800) + leaf("keyLifetimeUnits", "SECS")))
{
    phase1.proposal =
        element("proposal", leaf("dhGroup", "NONE") + leaf("keyLifetime", 28800) + leaf("keyLifetimeUnits", "SECS"));
}

Refusal Action::keyMgrGet() const
{
    return isProtected() ? "" : "key manager is only defined for IPSEC-TRANSPORT and IPSEC-TUNNEL";
}

Refusal Action::tunnelEndpointGet() const
{
    return spdAction == "TUNNEL" ? "" : "tunnelEndpoint is only defined for IPSEC-TUNNEL";
}

Refusal Action::keyingGet(const std::string& what, const std::string& keyManager) const
{
    return keyMgr == keyManager ? "" : what + " is only defined for IPSEC-" + keyManager;
}

Refusal Action::notBuiltIn(const std::string& change) const
{
    return isBuiltIn() ? "cannot change " + change + " built-in object" : "";
}

void Action::count()
{
    changeCount = changeCount == std::numeric_limits<int>::max() ? std::numeric_limits<int>::min() : changeCount + 1;
}

Refusal Action::change(std::string& field, const std::string& value)
{
    if (field != value)
        count();
    field = value;
    return "";
}

Refusal Action::spdActionSet(const std::string& value)
{
    const Refusal refusal = notBuiltIn("spd action for a");
    return refusal.empty() ? change(spdAction, value) : refusal;
}

Refusal Action::keyMgrSet(const std::string& value)
{
    const Refusal refusal = notBuiltIn("key manager for a");
    return refusal.empty() ? change(keyMgr, value) : refusal;
}

Refusal Action::nameSet(const std::string& value)
{
    const Refusal refusal = notBuiltIn("name of a");
    if (refusal.empty())
        name = value;
    return refusal;
}

Refusal Action::descrSet(const std::string& value)
{
    const Refusal refusal = notBuiltIn("description of a");
    if (refusal.empty())
        descr = value;
    return refusal;
}

Refusal Action::tunnelEndpointSet(const std::string& value)
{
    const Refusal refusal = tunnelEndpointGet();
    return refusal.empty() ? change(tunnelEndpoint, value) : refusal;
}

Refusal Action::manualKeySet(const std::string& value)
{
    const Refusal refusal = keyingGet("key", "MKM");
    if (refusal.empty()) {
        manualKey = value;
        count();
    }
    return refusal;
}

Refusal Action::phase1Set(const Phase1& value)
{
    const Refusal refusal = keyingGet("ikePhase1", "IKE");
    if (refusal.empty()) {
        phase1 = value;
        count();
    }
    return refusal;
}

Refusal Action::phase2Set(const std::string& value)
{
    const Refusal refusal = keyingGet("ikePhase2", "IKE");
    if (refusal.empty()) {
        phase2 = value;
        count();
    }
    return refusal;
}

void Action::assign(const Action& other)
{
    const int ownType = type, ownState = state;
    *this = other;
    type  = ownType;
    state = ownState;
}

std::string Action::written() const
{
    std::string children = leaf("changeCount", changeCount) + leaf("name", name) + leaf("builtinName", builtinName) +
                           leaf("descr", descr) + leaf("builtinDescr", builtinDescr) + leaf("type", type) +
                           leaf("state", state) + leaf("spdAction", spdAction);
    if (spdAction == "TUNNEL")
        children += leaf("tunnelEndpoint", tunnelEndpoint);
    if (isProtected()) {
        children += leaf("keyMgr", keyMgr);
        if (keyMgr == "MKM")
            children += manualKey;
        if (keyMgr == "IKE")
            children += phase1.written() + phase2;
    }
    return element("action", children);
}

template <class Entry>
std::string Collection<Entry>::written() const
{
    std::string children = leaf("next" + singular, nextID);
    for (const auto& [id, entry] : entries)
        children += element(singular + "Entry", leaf("id", id) + entry.written());
    return element(plural, children);
}

std::string Config::written() const
{
    return element("ipsec", hostGroups.written() + protocolGroups.written() + actions.written() + policies.written());
}

} // namespace ipsecimpl::model
