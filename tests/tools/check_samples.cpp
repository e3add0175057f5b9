#include "check_samples.h"

#include "check_model.h"

#include <optional>

using namespace ipsecimpl;

Samples allSamples()
{
    Samples all;
    for (const auto samples :
         {referenceSamples, textSamples, characterSamples, nameSamples, hostSelectorSamples, protocolSelectorSamples,
          tunnelSamples, actionSamples, proposalSamples, repeatedOfferSamples, manualKeySamples, spiSamples,
          keyReuseSamples, strengthSamples, presharedKeySamples}) {
        const Samples some = samples();
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

std::string textOf(const Finding& finding)
{
    return (finding.isAboutFile ? "" : textOf(finding.path) + ": ") + finding.message;
}

Findings findingsIn(const IPsecConfig& config, const std::string& algorithms)
{
    std::optional<Algorithms> read;
    if (!algorithms.empty())
        read = Algorithms::parse(algorithms);
    Findings findings;
    checkModel(config, read ? &*read : nullptr, findings);
    return findings;
}

std::vector<std::string> textsOf(const Findings& findings, const std::string& code)
{
    std::vector<std::string> texts;
    for (const Finding& finding : findings) {
        if (code.empty())
            texts.push_back(finding.rule->code + (' ' + textOf(finding)));
        else if (code == finding.rule->code)
            texts.push_back(textOf(finding));
    }
    return texts;
}

IPsecConfig plain(const Change& change)
{
    HostGroup hosts("Server", 0, "", 0);
    hosts.selectors.insert(HostSelector(HOST_INET, HOST_SINGLE, "192.0.2.7", ""));
    ProtocolGroup protocols("Web", 0, "", 0);
    protocols.selectors.insert(ProtocolSelector("Web", 6, 443, 0, PROTO_OUT, true));

    IPsecConfig config;
    config.hostGroups.add(hosts);
    config.protocolGroups.add(protocols);
    config.actions.add(IPsecAction(SPD_BYPASS, "Pass", 0, "", 0, KEYMGR_NONE));
    config.policies.add(Policy(1, 1, 1));
    change(config);
    return config;
}

IPsecConfig plain()
{
    return plain([](IPsecConfig&) {});
}

IPsecConfig having(const IPsecAction& action)
{
    return plain([&](IPsecConfig& config) { config.actions.replace(1, action); });
}

IPsecConfig having(const HostSelector& selector)
{
    return plain([&](IPsecConfig& config) { config.hostGroups.at(1).selectors = {selector}; });
}

MKM sampleKey()
{
    MKM key;
    key.saProposal      = IPsecProposal(IPSEC_ESP, 12, 5);
    key.inboundESPSPI   = 1000;
    key.outboundESPSPI  = 2000;
    key.inboundAHSPI    = 3000;
    key.outboundAHSPI   = 4000;
    key.inboundDecrKey  = "00112233445566778899aabbccddee01";
    key.outboundEncrKey = "00112233445566778899aabbccddee02";
    key.inboundAuthKey  = "00112233445566778899aabbccddee03";
    key.outboundAuthKey = "00112233445566778899aabbccddee04";
    return key;
}

namespace {

IPsecAction withKeys(IPsecAction action)
{
    if (action.keyMgrGet() == KEYMGR_MKM) {
        action.manualKeySet(sampleKey());
    } else if (action.keyMgrGet() == KEYMGR_IKE) {
        const IKEPhase1Proposal proposal({IKE_AESCBC_SHA1}, DH_GROUP_14, 28800, KEYLIFETIME_SECS);
        action.ikePhase1Set(IKEPhase1(IKE_AUTH_PSK, "", "", "Tr0ub4dor-and-3-more-words", proposal));
        action.ikePhase2Set(IKEPhase2({IPsecProposal(IPSEC_ESP, 12, 5)}, DH_GROUP_14, 3600, KEYLIFETIME_SECS));
    }
    return action;
}

} // namespace

IPsecAction transport(const IPsecKeyMgr& keyMgr)
{
    return withKeys(IPsecAction(SPD_TRANSPORT, "Protect", 0, "", 0, keyMgr));
}

IPsecAction tunnel(const IPsecKeyMgr& keyMgr, const std::string& endPoint)
{
    IPsecAction action(SPD_TUNNEL, "Tunnel", 0, "", 0, keyMgr);
    action.tunnelEndpointSet(endPoint);
    return withKeys(action);
}

IPsecAction phase1(const ProposalChange& change)
{
    IPsecAction       action   = transport(KEYMGR_IKE);
    IKEPhase1         exchange = action.ikePhase1Get();
    IKEPhase1Proposal proposal = exchange.proposalGet();
    change(proposal);
    exchange.proposalSet(proposal);
    action.ikePhase1Set(exchange);
    return action;
}

IPsecAction phase2(const Phase2Change& change)
{
    IPsecAction action   = transport(KEYMGR_IKE);
    IKEPhase2   exchange = action.ikePhase2Get();
    change(exchange);
    action.ikePhase2Set(exchange);
    return action;
}

IPsecAction authenticated(const IKEAuthType& type, const std::string& localCert, const std::string& peerTrust,
                          const std::string& presharedKey)
{
    IPsecAction action = transport(KEYMGR_IKE);
    action.ikePhase1Set(
        IKEPhase1(type, localCert, peerTrust, presharedKey, IKEPhase1Proposal(action.ikePhase1Get().proposalGet())));
    return action;
}

IPsecAction manual(const KeyChange& change)
{
    IPsecAction action = transport(KEYMGR_MKM);
    MKM         key    = sampleKey();
    change(key);
    action.manualKeySet(key);
    return action;
}
