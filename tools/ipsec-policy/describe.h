#ifndef IPSEC_POLICY_DESCRIBE_H
#define IPSEC_POLICY_DESCRIBE_H

/// \file
/// Configured objects in words, as lines for a table. The lines hold texts of the document as they are.

#include <ipsecimpl/actions.h>
#include <ipsecimpl/selectors.h>

#include <string>
#include <vector>

/// Such as "IPv4 10.2.0.0/16". "IP" stands for both families.
std::string describe(const ipsecimpl::HostSelector& selector);

/// Such as "out UDP to 67 from 68, mirrored", with the selector's name in front unless it is the library's own.
std::string describe(const ipsecimpl::ProtocolSelector& selector);

/// What the action does, where to, its description, and with which keys. Key texts only with `showKeys`.
std::vector<std::string> describe(const ipsecimpl::IPsecAction& action, bool showKeys);

#endif
