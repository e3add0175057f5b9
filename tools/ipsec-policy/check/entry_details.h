#ifndef IPSEC_POLICY_ENTRY_DETAILS_H
#define IPSEC_POLICY_ENTRY_DETAILS_H

/// \file
/// What one looks for in an entry of a document.

#include "entry_index.h"
#include "lexer.h"
#include "span.h"

#include <cstddef>
#include <map>
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

/// The details of long entries, each of which is gone through once. What is looked for in shorter ones is found as fast
/// without.
class LongEntries {
  public:
    /// Null if the entry is short. The details are kept.
    const EntryDetails* detailsOf(std::string_view document, const SourceEntry& entry);

  private:
    std::map<std::size_t, EntryDetails> details_; // by the offset of the entry
};

/// Appends what secretsIn() has of an entry to `secrets`.
void addSecretsIn(std::string_view document, Span entry, Span span, std::vector<Span>& secrets);

#endif
