#ifndef IPSEC_POLICY_EDIT_KEYING_H
#define IPSEC_POLICY_EDIT_KEYING_H

/// \file
/// The fields of an action below manualKey, ikePhase1 and ikePhase2.

#include "edit_fields.h"

#include <ipsecimpl/actions.h>

void appendKeying(KnownFields& known);

/// Whether any of these fields is given.
bool hasKeying(const GivenFields& fields);

/// Sets the fields that are given, with one call of a setter for each of the three that is concerned.
void setKeying(ipsecimpl::IPsecAction& action, const GivenFields& fields);

#endif
