#ifndef IPSECIMPL_TESTS_HOSTILE_LARGE_CONFIG_H
#define IPSECIMPL_TESTS_HOSTILE_LARGE_CONFIG_H

/// \file
/// Groups, actions and configurations of as much as one likes.

#include <ipsecimpl/ipsecimpl.h>

#include <cstddef>
#include <list>
#include <string>

namespace ipsecimpl {

// Selectors number 0, 1, ... in the order of their groups.

inline HostSelector selectorOf(const HostGroup& /*group*/, std::size_t number)
{
    return {HOST_INET, HOST_SINGLE, "address number " + std::to_string(99'999'999 - number), std::string()};
}

inline ProtocolSelector selectorOf(const ProtocolGroup& /*group*/, std::size_t number)
{
    const auto high = static_cast<unsigned short>(1 + number / 60'000);
    const auto low  = static_cast<unsigned short>(1 + number % 60'000);
    return {"a name that has a block of its own", 6, high, low, PROTO_IN, false};
}

template <class Group>
Group groupOf(std::size_t selectors)
{
    Group group("a name that has a block of its own", 0, "a description that has one, too", 0);
    for (std::size_t i = 0; i < selectors; ++i)
        group.selectors.insert(group.selectors.end(), selectorOf(group, i));
    return group;
}

inline IPsecAction actionOf(std::size_t proposals)
{
    IPsecAction action(SPD_TRANSPORT, "a name that has a block of its own", 0, "", 0, KEYMGR_IKE);
    action.ikePhase1Set({IKE_AUTH_PSK,
                         "",
                         "",
                         "a key that has a block of its own",
                         {std::list(proposals, IKE_AESCBC_SHA1), DH_GROUP_2, 28'800, KEYLIFETIME_SECS}});
    action.ikePhase2Set({std::list(proposals, IPsecProposal(IPSEC_ESP, 3, 2)), DH_GROUP_2, 28'800, KEYLIFETIME_SECS});
    return action;
}

// What is in each entry of a collection.

inline HostGroup entryOf(const HostGroups& /*entries*/)
{
    return groupOf<HostGroup>(2);
}

inline ProtocolGroup entryOf(const ProtocolGroups& /*entries*/)
{
    return groupOf<ProtocolGroup>(2);
}

inline IPsecAction entryOf(const Actions& /*entries*/)
{
    return actionOf(2);
}

inline Policy entryOf(const Policies& /*entries*/)
{
    return {1, 2, 3};
}

template <class Entries>
void addTo(Entries& entries, std::size_t count)
{
    const auto entry = entryOf(entries);
    for (std::size_t i = 0; i < count; ++i)
        entries.add(entry);
}

template <class Use>
void useEach(IPsecConfig& config, const Use& use)
{
    use(config.hostGroups);
    use(config.protocolGroups);
    use(config.actions);
    use(config.policies);
}

/// A configuration of `count` entries of each kind.
inline IPsecConfig configOf(std::size_t count)
{
    IPsecConfig config;
    useEach(config, [count](auto& entries) { addTo(entries, count); });
    return config;
}

} // namespace ipsecimpl

#endif
