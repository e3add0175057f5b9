#include "texts.h"

#include <algorithm>
#include <set>
#include <utility>

namespace ipsecimpl {
namespace {

using Change = std::function<void(std::string&)>;

/// No object here is really constant: it is only that the rules keep a text from being changed.
void changeAnyway(const std::string& text, const Change& change)
{
    change(const_cast<std::string&>(text));
}

void changeTexts(HostSelector& selector, const Change& change)
{
    change(selector.addr1);
    change(selector.addr2);
}

void changeTexts(ProtocolSelector& selector, const Change& change)
{
    change(selector.name);
}

template <auto Tag, class Selector>
void changeTexts(SelectorGroup<Tag, Selector>& group, const Change& change)
{
    change(group.name);
    change(group.descr);
    std::set<Selector> before;
    before.swap(group.selectors);
    while (!before.empty()) {
        auto node = before.extract(before.begin());
        changeTexts(node.value(), change);
        group.selectors.insert(std::move(node));
    }
}

void changeTexts(const MKM& key, const Change& change)
{
    for (const std::string* text :
         {&key.inboundDecrKey, &key.inboundAuthKey, &key.outboundEncrKey, &key.outboundAuthKey, &key.outboundEncrIV})
        changeAnyway(*text, change);
}

void changeTexts(const IKEPhase1& phase, const Change& change)
{
    if (phase.authTypeGet() == IKE_AUTH_PSK) {
        changeAnyway(phase.presharedKeyGet(), change);
    } else {
        changeAnyway(phase.localCertGet(), change);
        changeAnyway(phase.peerTrustGet(), change);
    }
}

void changeTexts(const IPsecAction& action, const Change& change)
{
    changeAnyway(action.nameGet(), change);
    changeAnyway(action.descrGet(), change);
    if (action.spdActionGet() == SPD_TUNNEL)
        changeAnyway(action.tunnelEndpointGet(), change);
    if (action.spdActionGet() != SPD_TRANSPORT && action.spdActionGet() != SPD_TUNNEL)
        return;
    if (action.keyMgrGet() == KEYMGR_MKM)
        changeTexts(action.manualKeyGet(), change);
    else if (action.keyMgrGet() == KEYMGR_IKE)
        changeTexts(action.ikePhase1Get(), change);
}

void trim(std::string& text)
{
    constexpr char space[] = " \t\n\v\f\r";
    text.erase(0, std::min(text.find_first_not_of(space), text.size()));
    text.erase(text.find_last_not_of(space) + 1);
}

bool isUnnamed(const ProtocolSelector& selector)
{
    std::string name = selector.name;
    trim(name);
    return name.empty();
}

} // namespace

void changeTexts(IPsecConfig& config, const Change& change)
{
    for (auto& [id, group] : config.hostGroups)
        changeTexts(group, change);
    for (auto& [id, group] : config.protocolGroups)
        changeTexts(group, change);
    for (auto& [id, action] : config.actions)
        changeTexts(action, change);
}

bool hasMarkup(IPsecConfig& config)
{
    bool has = false;
    changeTexts(config, [&has](const std::string& text) { has = has || text.find('<') != std::string::npos; });
    return has;
}

void removeMarkup(IPsecConfig& config)
{
    changeTexts(config, [](std::string& text) { std::replace(text.begin(), text.end(), '<', '('); });
}

void trimTexts(IPsecConfig& config)
{
    changeTexts(config, trim);
}

bool hasUnnamedSelector(const IPsecConfig& config)
{
    for (const auto& [id, group] : config.protocolGroups)
        if (std::any_of(group.selectors.begin(), group.selectors.end(), isUnnamed))
            return true;
    return false;
}

void nameSelectors(IPsecConfig& config)
{
    for (auto& [id, group] : config.protocolGroups) {
        std::set<ProtocolSelector> named;
        for (ProtocolSelector selector : group.selectors) {
            if (isUnnamed(selector))
                selector.name = "unnamed";
            named.insert(named.end(), std::move(selector));
        }
        group.selectors.swap(named);
    }
}

} // namespace ipsecimpl
