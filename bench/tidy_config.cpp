#include "generator.h"

#include <algorithm>

namespace bench {

using namespace ipsecimpl;

namespace {

HostGroup makeNetwork(unsigned int number)
{
    HostGroup         group("Site " + std::to_string(number), 0, "Its networks", 0);
    const std::string start = "10." + std::to_string(number / 256 % 256) + '.' + std::to_string(number % 256) + '.';
    group.selectors.insert(HostSelector(HOST_INET, HOST_SUBNET_LENGTH, start + '0', 25));
    group.selectors.insert(HostSelector(HOST_INET, HOST_SUBNET_MASK, start + "128", "255.255.255.192"));
    group.selectors.insert(HostSelector(HOST_INET, HOST_RANGE, start + "200", start + "220"));
    return group;
}

IPsecAction makeTunnel(Random& random, unsigned int number)
{
    const std::string address = "198.51.100." + std::to_string(number % 250 + 1);
    // Characters of more than one class, however the digits turn out.
    const std::string       key = "Kx" + random.hexDigits(30);
    const IKEPhase1Proposal proposal({IKE_AESCBC_SHA1}, DH_GROUP_14, 28800, KEYLIFETIME_SECS);
    IPsecAction             action{SPD_TUNNEL, "Tunnel " + std::to_string(number), 0, "To the site", 0, KEYMGR_IKE};
    action.tunnelEndpointSet(address);
    action.ikePhase1Set(IKEPhase1(IKE_AUTH_PSK, "", "", key, proposal));
    action.ikePhase2Set(IKEPhase2({IPsecProposal{IPSEC_ESP, 12, 5}}, DH_GROUP_14, 3600, KEYLIFETIME_SECS));
    return action;
}

} // namespace

IPsecConfig makeTidyConfig(unsigned int policies, std::uint64_t seed)
{
    const unsigned int hostGroups     = std::max(policies / 2, 1U);
    const unsigned int protocolGroups = std::max(policies / 4, 1U);
    const unsigned int actions        = std::max(policies / 2, 1U);

    Random      random(seed);
    IPsecConfig config;
    for (unsigned int i = 1; i <= hostGroups; ++i)
        config.hostGroups.add(makeNetwork(i));
    for (unsigned int i = 1; i <= protocolGroups; ++i)
        config.protocolGroups.add(makeProtocolGroup(random, i));
    for (unsigned int i = 1; i <= actions; ++i)
        config.actions.add(makeTunnel(random, i));
    // A host group comes again with the next protocol group.
    for (unsigned int i = 0; i < policies; ++i)
        config.policies.add(Policy{i % hostGroups + 1, (i + i / hostGroups) % protocolGroups + 1, i % actions + 1});
    return config;
}

} // namespace bench
