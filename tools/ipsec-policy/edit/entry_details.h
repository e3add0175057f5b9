#ifndef IPSEC_POLICY_ENTRY_DETAILS_H
#define IPSEC_POLICY_ENTRY_DETAILS_H

/// \file
/// What one looks for in an entry of a document.

#include "lexer.h"
#include "span.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// What takes a pass through a whole entry to find, for entries that are too long to go through again and again.
struct EntryDetails {
    std::vector<std::size_t> selectors;  ///< where the selectors of a group begin
    std::vector<std::size_t> transforms; ///< those of phase 1
    std::vector<std::size_t> proposals;  ///< the SA proposals of phase 2
    std::vector<Span>        secrets;    ///< as secretsIn() has them
};

EntryDetails detailsOf(std::string_view document, Span entry);

/// Appends what secretsIn() has of an entry to `secrets`.
void addSecretsIn(std::string_view document, Span entry, Span span, std::vector<Span>& secrets);

#endif
