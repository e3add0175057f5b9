#ifndef IPSEC_POLICY_SHOW_JSON_H
#define IPSEC_POLICY_SHOW_JSON_H

/// \file
/// A configuration for scripts, as docs/show.md tells.

#include "blocks.h"
#include "objects.h"

#include <ipsecimpl/config.h>

#include <vector>

/// Appends all objects of these kinds, and their next IDs.
void appendJson(Blocks& out, const ipsecimpl::IPsecConfig& config, const std::vector<Kind>& kinds, bool showKeys);

/// Appends one object, which must exist.
void appendJson(Blocks& out, const ipsecimpl::IPsecConfig& config, Kind kind, unsigned int id, bool showKeys);

#endif
