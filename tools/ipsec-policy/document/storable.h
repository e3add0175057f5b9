#ifndef IPSEC_POLICY_STORABLE_H
#define IPSEC_POLICY_STORABLE_H

/// \file
/// What a document can hold so that it comes back. Texts that it cannot hold can be in a configuration all the same:
/// there are more ways to write them than the one that the library writes.

#include "fields.h"

#include <string_view>

/// Why a document cannot hold this, or null if it can: "a document cannot hold a text with '<' in it".
/// @{
const char* obstacleToStoring(std::string_view text);
const char* obstacleToStoring(const FieldValue& value); ///< looks at all texts in selectors
/// @}

#endif
