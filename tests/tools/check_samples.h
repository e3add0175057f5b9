#ifndef IPSECIMPL_TESTS_TOOLS_CHECK_SAMPLES_H
#define IPSECIMPL_TESTS_TOOLS_CHECK_SAMPLES_H

/// \file
/// Configurations with a finding, and others that just miss it: for each rule of `check` one pair at least.

#include "algorithms.h"
#include "findings.h"

#include <ipsecimpl/ipsecimpl.h>

#include <functional>
#include <string>
#include <vector>

/// What `with` has and `without` just misses: all findings of one rule, as textOf() tells them.
struct Sample {
    const char*              code;
    std::vector<std::string> findings;
    ipsecimpl::IPsecConfig   with;
    ipsecimpl::IPsecConfig   without;
    const char*              algorithms = ""; ///< the file of --algorithms; none if empty
};

using Samples = std::vector<Sample>;

Samples referenceSamples();
Samples textSamples();
Samples characterSamples();
Samples nameSamples();
Samples hostSelectorSamples();
Samples protocolSelectorSamples();
Samples tunnelSamples();
Samples actionSamples();
Samples proposalSamples();
Samples repeatedOfferSamples();
Samples manualKeySamples();
Samples spiSamples();
Samples keyReuseSamples();
Samples strengthSamples();
Samples presharedKeySamples();

Samples allSamples(); ///< one of them at least for each rule of a configuration

/// Such as "policies/3/actionID: There is no ...". What is about the file has no path.
std::string textOf(const Finding& finding);

Findings findingsIn(const ipsecimpl::IPsecConfig& config, const std::string& algorithms = "");

/// Those with one code, or with all if `code` is empty, as textOf() tells them; with the code in front if it is empty.
std::vector<std::string> textsOf(const Findings& findings, const std::string& code);

/// \name Configurations to start from, in which there is one object of each kind, with ID 1
/// @{
using Change = std::function<void(ipsecimpl::IPsecConfig&)>;

/// Nothing to find: traffic of one host to one port passes. `change` is made to it.
ipsecimpl::IPsecConfig plain(const Change& change);
ipsecimpl::IPsecConfig plain();

/// The same with another action.
ipsecimpl::IPsecConfig having(const ipsecimpl::IPsecAction& action);

/// The same with another selector as the only one in the host group.
ipsecimpl::IPsecConfig having(const ipsecimpl::HostSelector& selector);
/// @}

/// \name Actions in which there is nothing to find but what their kind forces
/// @{
ipsecimpl::IPsecAction transport(const ipsecimpl::IPsecKeyMgr& keyMgr);
ipsecimpl::IPsecAction tunnel(const ipsecimpl::IPsecKeyMgr& keyMgr, const std::string& endPoint = "192.0.2.1");

using ProposalChange = std::function<void(ipsecimpl::IKEPhase1Proposal&)>;
using Phase2Change   = std::function<void(ipsecimpl::IKEPhase2&)>;
using KeyChange      = std::function<void(ipsecimpl::MKM&)>;

/// Transport mode with IKE, and a change in the proposal of phase 1.
ipsecimpl::IPsecAction phase1(const ProposalChange& change);

/// Transport mode with IKE, and a change in phase 2.
ipsecimpl::IPsecAction phase2(const Phase2Change& change);

/// Transport mode with IKE and these credentials. What does not belong to the type is not in force.
ipsecimpl::IPsecAction authenticated(const ipsecimpl::IKEAuthType& type, const std::string& localCert,
                                     const std::string& peerTrust, const std::string& presharedKey);

/// Transport mode with manual keys, ESP with encryption 12 and hash 5, and a change in these.
ipsecimpl::IPsecAction manual(const KeyChange& change);

/// The key of manual().
ipsecimpl::MKM sampleKey();
/// @}

#endif
