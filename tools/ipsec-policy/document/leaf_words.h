#ifndef IPSEC_POLICY_LEAF_WORDS_H
#define IPSEC_POLICY_LEAF_WORDS_H

/// \file
/// What the leaves of a document hold, by their tags.

#include <string>
#include <string_view>
#include <vector>

/// A pre-shared key, a manual key, or the IV.
bool isSecretTag(std::string_view tag);

/// A number, in an SA proposal's `protocol` a word.
bool isNumberTag(std::string_view tag);

/// A number that is always decimal, whatever its first characters.
bool isDecimalTag(std::string_view tag);

/// All words of which the leaf holds one; none if it holds something else.
std::vector<std::string> wordsIn(std::string_view tag);

#endif
