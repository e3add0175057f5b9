#include "commands.h"
#include "document.h"
#include "files.h"
#include "random_key.h"

#include <ipsecimpl/ipsecimpl.h>

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

using namespace ipsecimpl;

namespace {

// Numbers on which the IANA's registries of IPsec algorithms and the kernels' key interface agree.
const unsigned long AES_CBC         = 12;
const unsigned long HMAC_SHA2_256   = 5;
const unsigned long PHASE1_LIFETIME = 28800;
const unsigned long PHASE2_LIFETIME = 3600;

/// AES with SHA, and group 14 in both phases, so that a key that becomes known gives away its own traffic alone.
void setKeyExchange(IPsecAction& action, const IKEPhase1& credentials)
{
    IKEPhase1 phase1 = credentials;
    phase1.proposalSet({{IKE_AESCBC_SHA1}, DH_GROUP_14, PHASE1_LIFETIME, KEYLIFETIME_SECS});
    action.ikePhase1Set(phase1);
    action.ikePhase2Set({{{IPSEC_ESP, AES_CBC, HMAC_SHA2_256}}, DH_GROUP_14, PHASE2_LIFETIME, KEYLIFETIME_SECS});
}

IPsecAction sampleTunnel(const IKEPhase1Proposal& none)
{
    IPsecAction action(SPD_TUNNEL, "Tunnel to head office", 0,
                       "CHANGE ME: the tunnel end point, the certificate, and what the peer's is trusted by. The "
                       "numbers in phase 2 mean AES-CBC and HMAC-SHA2-256: see that your IPsec system agrees.",
                       0, KEYMGR_IKE);
    action.tunnelEndpointSet("192.0.2.1");
    setKeyExchange(action,
                   IKEPhase1(IKE_AUTH_RSA, "CHANGE-ME-this-node.pem", "CHANGE-ME-peer-authority.pem", "", none));
    return action;
}

IPsecAction sampleTransport(const IKEPhase1Proposal& none)
{
    IPsecAction action(SPD_TRANSPORT, "Protect the file server", 0,
                       "CHANGE ME: the server needs the same pre-shared key. This one is random and was made for this "
                       "file alone. The numbers in phase 2 are as in the tunnel.",
                       0, KEYMGR_IKE);
    // Not one text for all: what stays in a file that nobody changed is to be a secret all the same.
    setKeyExchange(action, IKEPhase1(IKE_AUTH_PSK, "", "", randomKey(), none));
    return action;
}

HostGroup sampleGroup(const char* name, const char* descr, const HostSelector& selector)
{
    HostGroup group(name, 0, descr, 0);
    group.selectors.insert(selector);
    return group;
}

IPsecConfig starter()
{
    IPsecConfig config;

    const unsigned int anyHost = config.hostGroups.add(HostGroupAny());
    config.hostGroups.add(HostGroupLocal());
    config.hostGroups.add(HostGroupAnyv4());
    config.hostGroups.add(HostGroupLocalv4());
    config.hostGroups.add(HostGroupAnyv6());
    config.hostGroups.add(HostGroupLocalv6());
    config.hostGroups.add(HostGroupMcast());
    config.hostGroups.add(HostGroupMcastv4());
    config.hostGroups.add(HostGroupMcastv6());
    const unsigned int headOffice =
        config.hostGroups.add(sampleGroup("Head office", "CHANGE ME: the network behind the tunnel's far end",
                                          HostSelector(HOST_INET, HOST_SUBNET_LENGTH, "198.51.100.0", 24)));
    const unsigned int fileServer = config.hostGroups.add(sampleGroup(
        "File server", "CHANGE ME: the server's address", HostSelector(HOST_INET, HOST_SINGLE, "203.0.113.10", "")));

    const unsigned int allTraffic     = config.protocolGroups.add(ProtocolGroupAll());
    const unsigned int systemServices = config.protocolGroups.add(ProtocolGroupSystem());

    const IKEPhase1Proposal none({}, DH_GROUP_NONE, 0, KEYLIFETIME_SECS);
    config.actions.add(ActionDiscard());
    const unsigned int bypass    = config.actions.add(ActionBypass());
    const unsigned int tunnel    = config.actions.add(sampleTunnel(none));
    const unsigned int transport = config.actions.add(sampleTransport(none));

    // The key exchange itself has to pass before there are keys.
    config.policies.add(Policy(anyHost, systemServices, bypass));
    config.policies.add(Policy(headOffice, allTraffic, tunnel));
    config.policies.add(Policy(fileServer, allTraffic, transport));
    return config;
}

ExitStatus create(const std::string& output)
{
    IPsecConfig       config = starter();
    const std::string text   = storeDocument(config, "the starter configuration");
    if (isStandardStream(output))
        writeStandardOutput(text);
    else
        createFile(output, text);
    return ExitStatus::CLEAN;
}

std::function<ExitStatus()> declare(CLI::App& arguments)
{
    const auto output = std::make_shared<std::string>("-");
    arguments.add_option("-o,--output", *output, "The file to make; standard output if not given")->type_name("OUT");
    return [output] { return create(*output); };
}

} // namespace

const Command NEW_COMMAND = {
    "new",
    "Make a starter configuration",
    "The configuration holds the groups and actions that are the library's own, a\n"
    "tunnel with certificates, and a transport with a pre-shared key, both with AES,\n"
    "SHA and Diffie-Hellman group 14. 'CHANGE ME' stands where your addresses and\n"
    "names belong. The pre-shared key is random, 32 characters that the kernel gave\n"
    "(getrandom), so that no two configurations have the same: the peer needs it too\n"
    "('show --show-keys' tells it). All else is the same each time.\n\n"
    "OUT is made for its owner alone (mode 0600), because it holds a key; a file that\n"
    "exists is never overwritten. What a redirect ('new > policy.xml') makes can be\n"
    "read by others, unless the umask forbids it.",
    "ipsec-policy new -o policy.xml       # then look for CHANGE ME in it\n"
    "ipsec-policy new | ipsec-policy show -",
    declare,
};
