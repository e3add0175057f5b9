#ifndef IPSEC_POLICY_BUILTINS_H
#define IPSEC_POLICY_BUILTINS_H

/// \file
/// The library's built-in objects by the words of edit commands.

#include "fields.h"
#include "objects.h"

#include <ipsecimpl/actions.h>
#include <ipsecimpl/selectors.h>

#include <string>
#include <vector>

/// Each returns the object that `word` names, or throws a Failure that tells the words there are.
/// @{
const ipsecimpl::HostGroup&     builtInHostGroup(const std::string& word);     ///< such as "any4"
const ipsecimpl::ProtocolGroup& builtInProtocolGroup(const std::string& word); ///< "all" or "system"
const ipsecimpl::IPsecAction&   builtInAction(const std::string& word);        ///< "discard" or "bypass"
/// @}

/// The words for the built-in objects of that kind.
std::vector<std::string> wordsOfBuiltIns(Kind kind);

/// The word of the built-in object of that kind with these fields; null if there is none. An action's change counter,
/// `type` and `state` may be any.
const char* wordOfBuiltIn(Kind kind, const std::vector<Field>& fields);

#endif
