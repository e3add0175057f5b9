#ifndef IPSEC_POLICY_EDIT_POLICIES_H
#define IPSEC_POLICY_EDIT_POLICIES_H

/// \file
/// What edit commands do to policies.

#include "edit_fields.h"
#include "edited_config.h"

#include <ipsecimpl/config.h>

#include <array>
#include <string>

/// A field of a policy.
struct Reference {
    const char*  path;
    Kind         kind;
    unsigned int ipsecimpl::Policy::*id;
};

/// In the order of the document; they stay where they are.
const std::array<Reference, 3>& referencesOfPolicies();

/// What a policy is to refer to: an ID or a name of what there is in `config`, "0" for none, or "missing=N" for an ID
/// that nothing has. Throws a Failure for anything else.
unsigned int readReference(const EditedConfig& config, Kind kind, const std::string& text);

KnownFields fieldsOfPolicies();
void        setFields(ipsecimpl::Policy& policy, const GivenFields& fields, const EditedConfig& config);

#endif
