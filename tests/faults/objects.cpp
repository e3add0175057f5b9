#include "faults/objects.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace ipsecimpl {

IKEPhase1Proposal proposal()
{
    return {{IKE_AESCBC_SHA1, IKE_3DES_SHA1}, DH_GROUP_14, 28800, KEYLIFETIME_SECS};
}

IKEPhase1 certificates(const std::string& text)
{
    return {IKE_AUTH_RSA, text, text, text, proposal()};
}

IKEPhase1 sharedKey(const std::string& text)
{
    return {IKE_AUTH_PSK, text, text, text, proposal()};
}

IKEPhase2 phase2()
{
    return {{{IPSEC_ESP, 12, 5}, {IPSEC_AH, 0, 5}}, DH_GROUP_2, 3600, KEYLIFETIME_MINS};
}

MKM manualKey(const std::string& text)
{
    MKM key;
    key.saProposal     = IPsecProposal(IPSEC_ESP_AH, 12, 5);
    key.inboundDecrKey = key.inboundAuthKey = text;
    key.outboundEncrKey = key.outboundAuthKey = key.outboundEncrIV = text;
    return key;
}

IPsecAction ikeAction(const std::string& text)
{
    IPsecAction action(SPD_TUNNEL, text, 0, text, 0, KEYMGR_IKE);
    action.tunnelEndpointSet(text);
    action.ikePhase1Set(certificates(text));
    action.ikePhase2Set(phase2());
    action.typeSet(3);
    action.stateSet(4);
    return action;
}

IPsecAction manualAction(const std::string& text)
{
    IPsecAction action(SPD_TRANSPORT, text, 0, text, 0, KEYMGR_MKM);
    action.manualKeySet(manualKey(text));
    return action;
}

IPsecAction builtInAction(const std::string& text)
{
    return {SPD_DISCARD, text, 19, text, 20, KEYMGR_NONE};
}

HostSelector hostRange(const std::string& text)
{
    return {HOST_INET6, HOST_RANGE, text, text};
}

ProtocolSelector protocolSelector(const std::string& text)
{
    return {text, 6, 80, static_cast<unsigned short>(text.size()), PROTO_OUT, true};
}

HostGroup hostGroup(const std::string& text)
{
    HostGroup group(text, 0, text, 0);
    group.selectors.insert(hostRange(text));
    group.selectors.emplace(HOST_INET, HOST_SUBNET_LENGTH, text, 24);
    return group;
}

ProtocolGroup protocolGroup(const std::string& text)
{
    ProtocolGroup group(text, 0, text, 0);
    group.selectors.insert(protocolSelector(text));
    return group;
}

IPsecConfig configuration()
{
    IPsecConfig config;
    config.hostGroups.add(hostGroup(LONG));
    config.hostGroups.add(hostGroup(OTHER));
    config.protocolGroups.add(protocolGroup(LONG));
    config.actions.add(ikeAction(LONG));
    config.actions.add(manualAction(LONG));
    config.policies.add(Policy(1, 1, 1));
    return config;
}

std::string sample(const std::string& name)
{
    std::ifstream      file(std::string(EXAMPLES_DIR) + "/configs/" + name + ".xml");
    std::ostringstream text;
    text << file.rdbuf();
    EXPECT_GT(text.str().size(), 1000U) << name;
    return text.str();
}

} // namespace ipsecimpl
