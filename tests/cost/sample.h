#ifndef IPSECIMPL_TESTS_COST_SAMPLE_H
#define IPSECIMPL_TESTS_COST_SAMPLE_H

#include <ipsecimpl/ipsecimpl.h>

#include <string>

namespace ipsecimpl {

/// A configuration in which every kind of element comes `size` times.
inline IPsecConfig sample(int size)
{
    IPsecConfig config;
    for (int i = 0; i < size; ++i) {
        const std::string number = std::to_string(i);
        HostGroup         hosts("hosts of site " + number, 0, "all that is on site number " + number, 0);
        hosts.selectors.insert(HostSelector(HOST_INET, HOST_SINGLE, "192.0.2.1", ""));
        hosts.selectors.insert(HostSelector(HOST_INET6, HOST_SUBNET_LENGTH, "2001:db8:1:2::", 64));
        config.hostGroups.add(std::move(hosts));

        ProtocolGroup protocols("services of site " + number, 0, "", 0);
        protocols.selectors.insert(ProtocolSelector("a service with a long name", 6, 443, 0, PROTO_IN, true));
        protocols.selectors.insert(ProtocolSelector("web", 6, 80, 0, PROTO_OUT, false));
        config.protocolGroups.add(std::move(protocols));

        IPsecAction ike(SPD_TUNNEL, "tunnel to site " + number, 0, "", 0, KEYMGR_IKE);
        ike.tunnelEndpointSet("192.0.2.1");
        ike.ikePhase1Set(IKEPhase1(IKE_AUTH_PSK, "", "", "a pre-shared key of some length",
                                   IKEPhase1Proposal({IKE_AESCBC_SHA1}, DH_GROUP_14, 28800, KEYLIFETIME_SECS)));
        ike.ikePhase2Set(IKEPhase2({IPsecProposal(IPSEC_ESP, 12, 3)}, DH_GROUP_14, 3600, KEYLIFETIME_SECS));
        config.actions.add(std::move(ike));

        MKM key;
        key.saProposal      = IPsecProposal(IPSEC_ESP_AH, 12, 3);
        key.inboundDecrKey  = std::string(32, 'a');
        key.outboundEncrKey = std::string(32, 'b');
        key.inboundAuthKey  = std::string(40, 'c');
        key.outboundAuthKey = std::string(40, 'd');
        IPsecAction manual(SPD_TRANSPORT, "keys by hand", 0, "", 0, KEYMGR_MKM);
        manual.manualKeySet(key);
        config.actions.add(std::move(manual));

        config.policies.add(Policy(1, 1, 1));
    }
    return config;
}

} // namespace ipsecimpl

#endif
