#ifndef IPSEC_POLICY_SOURCE_H
#define IPSEC_POLICY_SOURCE_H

/// \file
/// Where a document says what a configuration holds, and where it says something else.

#include "entry_details.h"
#include "entry_index.h"
#include "entry_outline.h"
#include "group_matcher.h"
#include "misreading.h"
#include "objects.h"
#include "span.h"

#include <array>
#include <cstddef>
#include <map>
#include <string_view>
#include <vector>

/// A document beside the configuration that it loaded as.
///
/// To make one takes about as long as to load the document: the configuration is stored once, into nothing, and each
/// line compared with the document's own text. What find() and secretsIn() do takes a search among the entries, and
/// then no longer in a long entry than in a short one; only the first time they go through it. (Where a path does not
/// lead to a member of a list, find() goes through the entry as far as needed each time.)
///
/// A value, which one thread uses at a time, also where it is const.
class Source {
  public:
    /// REQUIRES: `document` loads as `config`, which has not been changed since. Both must outlive the object. Where it
    /// turns out that they do not belong together, std::logic_error is thrown.
    Source(std::string_view document, const ipsecimpl::IPsecConfig& config);

    /// The text of the leaf that `path` names, without white space around it; or the element if it has children or no
    /// text, but no more of it than is on its first line. What the document does not have is where it would be: a leaf
    /// or a member of a list in the element that should hold it, an object in its collection.
    ///
    /// The field "id" is an entry's ID. With ID 0 the path leads to the collection itself, and with the field
    /// "nextpolicy" (and its like) to the next ID, to the last one if the document has several.
    Span find(const ObjectPath& path) const;

    /// The texts in `span` that must not be shown, in their order: pre-shared keys, manual keys and the IV; and what
    /// stands in place of a number without being one, because a slip of the pen can make that a key (see
    /// isPrintableNumber()). They may begin before `span` and end behind it. It should be no longer than what is to be
    /// shown: the time this takes grows with it.
    std::vector<Span> secretsIn(Span span) const;

    std::string_view document() const { return document_; }

    /// Collection by collection.
    const std::vector<Misreading>& misreadings() const { return misreadings_; }

    const EntryIndex& indexOf(Kind kind) const { return indexes_[static_cast<std::size_t>(kind)]; }

    /// Under which number the `number`th selector of a group in the document is to be found in the configuration.
    std::size_t storedNumber(Kind kind, unsigned int id, std::size_t number) const;

  private:
    const SelectorPlaces* placesOf(Kind kind, unsigned int id) const;

    Span findInCollection(const ObjectPath& path) const;
    Span findBelow(std::size_t element, std::string_view field) const;

    std::size_t takeMember(const ObjectPath& path, const SourceEntry& entry, std::string_view& field) const;
    const std::vector<std::size_t>* membersOf(const ObjectPath& path, const SourceEntry& entry,
                                              std::vector<std::size_t> EntryDetails::*list) const;

    const EntryDetails* detailsOf(const SourceEntry& entry) const;
    void                addSecrets(const SourceEntry& entry, Span span, std::vector<Span>& secrets) const;

    std::string_view             document_;
    std::array<EntryIndex, 4>    indexes_;
    std::array<PlacesByGroup, 4> places_;
    Misreadings                  misreadings_;

    mutable std::map<std::size_t, EntryDetails> details_; // of long entries, by their offset
    mutable EntryOutline                        outline_; // of the entry that was looked into last
};

#endif
