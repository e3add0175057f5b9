// Builds a configuration from nothing and writes its document to standard output: one tunnel to another site, with keys by
// IKE, and whatever else is bypassed.
//
//     build_config PEER LOCAL_NET REMOTE_NET < PRESHARED_KEY
//
// The networks are IPv4, as 192.0.2.0/24. The key comes by standard input, where other users of the machine do not see it.
// Exit status: 0, or 2 for wrong usage, no key, or an output that cannot be written.

#include <ipsecimpl/ipsecimpl.h>

#include <cstdio>
#include <iostream>
#include <string>

#include <arpa/inet.h>

using namespace ipsecimpl;

namespace {

// A group of one network. The library stores an address as it is given: whether it is one is the caller's to check.
HostGroup network(const std::string& name, const std::string& text)
{
    const std::size_t slash   = text.find('/');
    const std::string address = text.substr(0, slash);
    const std::string digits  = slash == std::string::npos ? "" : text.substr(slash + 1);

    in_addr   parsed{};
    int       length = -1;
    const int status = std::sscanf(digits.c_str(), "%2d", &length);
    if (inet_pton(AF_INET, address.c_str(), &parsed) != 1 || status != 1 || std::to_string(length) != digits ||
        length < 0 || length > 32)
        throw std::invalid_argument("'" + text + "' is no IPv4 network such as 192.0.2.0/24");

    HostGroup group(name, 0, "", 0);
    group.selectors.insert(HostSelector(HOST_INET, HOST_SUBNET_LENGTH, address, length));
    return group;
}

// Not IKEPhase1ProposalDefault(), which offers 3DES with MD5 and no DH group.
IPsecAction tunnelTo(const std::string& peer, const std::string& presharedKey)
{
    IPsecAction action(SPD_TUNNEL, "Tunnel to " + peer, 0, "", 0, KEYMGR_IKE);
    action.tunnelEndpointSet(peer);

    const IKEPhase1Proposal proposal({IKE_AESCBC_SHA1}, DH_GROUP_14, 8, KEYLIFETIME_HRS);
    action.ikePhase1Set(IKEPhase1(IKE_AUTH_PSK, "", "", presharedKey, proposal));

    // What the numbers of the algorithms mean is a matter between the node and whoever configures it.
    action.ikePhase2Set(IKEPhase2({IPsecProposal(IPSEC_ESP, 12, 5)}, DH_GROUP_14, 1, KEYLIFETIME_HRS));
    return action;
}

IPsecConfig build(const std::string& peer, const std::string& local, const std::string& remote,
                  const std::string& presharedKey)
{
    IPsecConfig config;
    // The collections give out the IDs; a policy ties entries together by them.
    const unsigned int here     = config.hostGroups.add(network("This site", local));
    const unsigned int there    = config.hostGroups.add(network("Other site", remote));
    const unsigned int all      = config.protocolGroups.add(ProtocolGroupAll());
    const unsigned int bypass   = config.actions.add(ActionBypass());
    const unsigned int toRemote = config.actions.add(tunnelTo(peer, presharedKey));
    config.policies.add(Policy(there, all, toRemote));
    config.policies.add(Policy(here, all, bypass));
    return config;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 4) {
        std::cerr << "usage: build_config PEER LOCAL_NET REMOTE_NET < PRESHARED_KEY\n";
        return 2;
    }
    std::string presharedKey;
    if (!std::getline(std::cin, presharedKey) || presharedKey.empty()) {
        std::cerr << "build_config: no pre-shared key on standard input\n";
        return 2;
    }
    try {
        IPsecConfig config = build(argv[1], argv[2], argv[3], presharedKey);
        if (config.exportXML(std::cout))
            return 0;
        std::cerr << "build_config: standard output cannot be written\n";
    } catch (const std::logic_error& error) { // a bad network, or a change that an object's state forbids
        std::cerr << "build_config: " << error.what() << '\n';
    }
    return 2;
}
