#ifndef IPSEC_POLICY_DESCRIBE_H
#define IPSEC_POLICY_DESCRIBE_H

/// \file
/// Configured objects in words.

#include "lines.h"

#include <ipsecimpl/actions.h>
#include <ipsecimpl/selectors.h>

/// Adds to a line, such as "IPv4 10.2.0.0/16". "IP" stands for both families.
void describe(const ipsecimpl::HostSelector& selector, Lines& lines);

/// Adds to a line, such as "out UDP to 67 from 68, mirrored", with the selector's name in front unless it is the
/// library's own.
void describe(const ipsecimpl::ProtocolSelector& selector, Lines& lines);

/// Adds to a line what the action does, and where to.
void describeMode(const ipsecimpl::IPsecAction& action, Lines& lines);

/// Adds lines: what the action does, where to, its description, and with which keys. Key texts only with `showKeys`.
void describe(const ipsecimpl::IPsecAction& action, bool showKeys, Lines& lines);

/// Adds to a line a key, if it may be shown, or what is there instead.
void describeKey(const std::string& key, bool showKeys, Lines& lines);

/// What stands for a text that is empty.
inline constexpr char EMPTY[] = "(empty)";

#endif
