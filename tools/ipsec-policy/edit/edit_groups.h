#ifndef IPSEC_POLICY_EDIT_GROUPS_H
#define IPSEC_POLICY_EDIT_GROUPS_H

/// \file
/// What edit commands do to host and protocol groups.

#include "edit_fields.h"

#include <ipsecimpl/selectors.h>

#include <string_view>

/// \name Fields
/// The name is one of them, but not of a new group.
/// @{
KnownFields fieldsOfGroups(bool isNew);
void        setFields(ipsecimpl::HostGroup& group, const GivenFields& fields);
void        setFields(ipsecimpl::ProtocolGroup& group, const GivenFields& fields);
/// @}

/// \name Selectors
/// `list` as it was spelt. Each throws a Failure for an empty list, and for a selector that is there already, or is
/// not.
/// @{
void addSelectors(ipsecimpl::HostGroup& group, std::string_view list);
void addSelectors(ipsecimpl::ProtocolGroup& group, std::string_view list);
void removeSelectors(ipsecimpl::HostGroup& group, std::string_view list);
void removeSelectors(ipsecimpl::ProtocolGroup& group, std::string_view list);
/// @}

#endif
