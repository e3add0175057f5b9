#ifndef IPSEC_POLICY_LOAD_JSON_H
#define IPSEC_POLICY_LOAD_JSON_H

#include "json.h"
#include "load_message.h"

/// The names of the open elements, the outermost first; null where a name is not of the format.
Json elementsMember(const LoadFault& fault);

/// Adds what scripts are told of a document that does not load, but for its message and place: `elements`, and `first`,
/// the place of the first ID, where one is repeated.
void addFault(Json& object, const LoadFault& fault);

#endif
