#ifndef IPSEC_POLICY_SOURCE_H
#define IPSEC_POLICY_SOURCE_H

/// \file
/// Where a document says what a configuration holds, and where it says something else.

#include "entry_details.h"
#include "entry_index.h"
#include "group_matcher.h"
#include "misreading.h"
#include "objects.h"
#include "span.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

/// A document beside the configuration that it loaded as.
///
/// To make one takes about as long as to load the document: the configuration is stored once, into nothing, and each
/// line compared with the document's own text. What secretsIn() does takes a search among the entries, and then no
/// longer in a long entry than in a short one; only the first time it goes through it.
///
/// A value. Several threads may use it at a time where it is const, but for secretsIn().
class Source {
  public:
    /// REQUIRES: `document` loads as `config`, which has not been changed since. Both must outlive the object. Where it
    /// turns out that they do not belong together, std::logic_error is thrown.
    Source(std::string_view document, const ipsecimpl::IPsecConfig& config);

    /// The texts in `span` that must not be shown, in their order: pre-shared keys, manual keys and the IV; and what
    /// stands in place of a number without being one, because a slip of the pen can make that a key (see
    /// isPrintableNumber()). They may begin before `span` and end behind it. It should be no longer than what is to be
    /// shown: the time this takes grows with it.
    std::vector<Span> secretsIn(Span span) const;

    std::string_view document() const { return document_; }

    /// Collection by collection.
    const std::vector<Misreading>& misreadings() const { return misreadings_; }

    const EntryIndex& indexOf(Kind kind) const { return indexes_[static_cast<std::size_t>(kind)]; }

    /// Where the selectors of a group are; null if in the order in which they are stored.
    const SelectorPlaces* placesOf(Kind kind, unsigned int id) const;

    /// Under which number the `number`th selector of a group in the document is to be found in the configuration.
    std::size_t storedNumber(Kind kind, unsigned int id, std::size_t number) const;

  private:
    void addSecrets(const SourceEntry& entry, Span span, std::vector<Span>& secrets) const;

    std::string_view             document_;
    std::array<EntryIndex, 4>    indexes_;
    std::array<PlacesByGroup, 4> places_;
    Misreadings                  misreadings_;

    mutable LongEntries longEntries_;
};

#endif
