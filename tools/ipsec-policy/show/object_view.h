#ifndef IPSEC_POLICY_OBJECT_VIEW_H
#define IPSEC_POLICY_OBJECT_VIEW_H

/// \file
/// One object of a configuration in full.

#include "blocks.h"
#include "objects.h"

#include <ipsecimpl/config.h>

/// Appends a table of the object's fields, and a line of who uses it. The object must exist.
void appendObject(Blocks& out, const ipsecimpl::IPsecConfig& config, Kind kind, unsigned int id, bool showKeys);

#endif
