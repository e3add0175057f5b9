#ifndef IPSECIMPL_TESTS_FAULTS_OBJECTS_H
#define IPSECIMPL_TESTS_FAULTS_OBJECTS_H

/// \file
/// Objects of all kinds to run out of memory with. All their texts are `text`, so that those of two are told apart.

#include <ipsecimpl/ipsecimpl.h>

#include <string>

namespace ipsecimpl {

// Texts that no string holds within itself.
inline const std::string LONG  = "a text that is too long for a string to hold within itself";
inline const std::string OTHER = "another text that is too long for a string to hold within itself";

IKEPhase1Proposal proposal();
IKEPhase1         certificates(const std::string& text);
IKEPhase1         sharedKey(const std::string& text);
IKEPhase2         phase2();
MKM               manualKey(const std::string& text);
IPsecAction       ikeAction(const std::string& text);
IPsecAction       manualAction(const std::string& text);
IPsecAction       builtInAction(const std::string& text);
HostSelector      hostRange(const std::string& text);
ProtocolSelector  protocolSelector(const std::string& text);
HostGroup         hostGroup(const std::string& text);
ProtocolGroup     protocolGroup(const std::string& text);

/// A few of all of them.
IPsecConfig configuration();

/// The text of one of the example configurations, such as "home-router".
std::string sample(const std::string& name);

} // namespace ipsecimpl

#endif
