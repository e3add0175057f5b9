#ifndef IPSEC_POLICY_EDIT_ACTIONS_H
#define IPSEC_POLICY_EDIT_ACTIONS_H

/// \file
/// What edit commands do to actions. What the library's setters refuse, they throw.

#include "edit_fields.h"

#include <ipsecimpl/actions.h>

#include <string>

/// The fields that can be set, or given to a new action.
KnownFields fieldsOfActions(bool isNew);

/// Sets fields by the library's setters, in the order of the document. Also throws a Failure for a field that the
/// document would not hold in the action's mode.
void setFields(ipsecimpl::IPsecAction& action, const GivenFields& fields);

ipsecimpl::IPsecAction newAction(const std::string& name, const GivenFields& fields);

/// Makes `action` what `fresh` is, with a change counter that counts on, so that nobody takes it for the old one.
/// `type` and `state` stay unless they are given.
void replace(ipsecimpl::IPsecAction& action, const ipsecimpl::IPsecAction& fresh, const GivenFields& fields);

#endif
