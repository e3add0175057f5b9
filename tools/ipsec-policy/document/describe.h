#ifndef IPSEC_POLICY_DESCRIBE_H
#define IPSEC_POLICY_DESCRIBE_H

/// \file
/// Configured objects in words.

#include "lines.h"

#include <ipsecimpl/actions.h>

/// Adds to a line what the action does, and where to.
void describeMode(const ipsecimpl::IPsecAction& action, Lines& lines);

/// Adds lines: what the action does, where to, its description, and with which keys. Key texts only with `showKeys`.
void describe(const ipsecimpl::IPsecAction& action, bool showKeys, Lines& lines);

/// Adds to a line a key, if it may be shown, or what is there instead.
void describeKey(const std::string& key, bool showKeys, Lines& lines);

/// What stands for a text that is empty.
inline constexpr char EMPTY[] = "(empty)";

#endif
