#ifndef IPSEC_POLICY_ENTRY_INDEX_H
#define IPSEC_POLICY_ENTRY_INDEX_H

/// \file
/// Where the entries of a collection stand in a document.

#include "objects.h"
#include "span.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The tags that a collection's name gives.
struct CollectionTags {
    explicit CollectionTags(Kind kind);

    std::string collection; ///< "policies"
    std::string entry;      ///< "policyEntry"
    std::string next;       ///< "nextpolicy"
};

/// One entry, or one next-ID element, whose ID is 0.
struct SourceEntry {
    unsigned int id = 0;
    Span         span;
};

/// A collection's element, and what is directly in it.
class EntryIndex {
  public:
    /// An empty one, for add().
    EntryIndex() = default;

    /// Of the collection that begins at `offset`, white space before it or not.
    EntryIndex(std::string_view document, std::size_t offset, const CollectionTags& tags);

    /// What comes next in the document.
    void add(const SourceEntry& entry);

    /// The collection ends; there is nothing more to add.
    void finish(Span collection);

    Span collection() const { return collection_; }

    /// The last next-ID element, of length 0 if there is none.
    Span nextID() const { return nextID_; }

    std::size_t size() const { return byID_.size(); }

    /// The entries in ascending order of their IDs.
    const SourceEntry& operator[](std::size_t number) const { return children_[byID_[number]]; }

    /// The entry, or null.
    const SourceEntry* find(unsigned int id) const;

    /// Entries and next-ID elements in the order of the document.
    const std::vector<SourceEntry>& children() const { return children_; }

    /// The first of them that does not end before `offset`.
    std::vector<SourceEntry>::const_iterator firstFrom(std::size_t offset) const;

  private:
    Span                     collection_;
    Span                     nextID_;
    std::vector<SourceEntry> children_;
    std::vector<std::size_t> byID_; // places in children_
};

#endif
