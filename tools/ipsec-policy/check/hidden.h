#ifndef IPSEC_POLICY_HIDDEN_H
#define IPSEC_POLICY_HIDDEN_H

/// \file
/// What must not be shown of a document.

#include "source.h"

#include <string_view>
#include <vector>

/// All texts of a document that loads which are not for everybody, in ascending order: those that Source::secretsIn()
/// tells for a piece of it.
std::vector<Span> secretsOf(const Source& source);

/// Those of them that stand in place of a number, which takes no search in the document.
std::vector<Span> strayNumbersOf(const Source& source);

/// Whether there is a pre-shared key, a manual key or an IV in a document.
bool holdsKeys(std::string_view document);

/// The pieces of `piece`, which is part of a document that does not load: all but the format's own tags and white
/// space. Their places are those in the document.
std::vector<Span> hiddenInBroken(std::string_view document, Span piece);

#endif
