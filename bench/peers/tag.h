#ifndef IPSECIMPL_BENCH_PEERS_TAG_H
#define IPSECIMPL_BENCH_PEERS_TAG_H

#include <cstddef>
#include <string_view>

namespace bench {

/// The document's element names, with their texts in tag.cpp in the same order.
// clang-format off
enum class Tag : unsigned char {
    ipsec, hostGroups, protocolGroups, actions, policies,
    nexthostGroup, nextprotocolGroup, nextaction, nextpolicy,
    hostGroupEntry, protocolGroupEntry, actionEntry, policyEntry, id,
    hostGroup, protocolGroup, action, policy,
    name, builtinName, descr, builtinDescr, selectors,
    hostSelector, family, selectorType, addr1, addr2, length, mask,
    protocolSelector, protocol, dstPort, srcPort, direction, mirrored,
    changeCount, type, state, spdAction, tunnelEndpoint, keyMgr,
    manualKey, inboundESPSPI, outboundESPSPI, inboundAHSPI, outboundAHSPI,
    inboundDecrKey, outboundEncrKey, outboundEncrIV, inboundAuthKey, outboundAuthKey,
    ikePhase1, authType, presharedKey, localCert, peerTrust, proposal, transform,
    ikePhase2, saProposal, dhGroup, keyLifetime, keyLifetimeUnits, encryption, hash,
    hostGroupID, protocolGroupID, actionID,
};
// clang-format on

constexpr std::size_t tagCount = static_cast<std::size_t>(Tag::actionID) + 1;

/// Throws std::runtime_error if no element is called so.
Tag toTag(std::string_view name);

} // namespace bench

#endif
