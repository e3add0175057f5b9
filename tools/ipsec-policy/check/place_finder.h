#ifndef IPSEC_POLICY_PLACE_FINDER_H
#define IPSEC_POLICY_PLACE_FINDER_H

#include "entry_details.h"
#include "entry_outline.h"
#include "objects.h"
#include "source.h"
#include "span.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// Finds in a document where it says what a configuration holds.
///
/// That takes a search among the entries, and then no longer in a long entry than in a short one; only the first time
/// it goes through it. (Where a path does not lead to a member of a list, it goes through the entry as far as needed,
/// if that is not the one in which something was found last.)
class PlaceFinder {
  public:
    /// The source must outlive the object.
    explicit PlaceFinder(const Source& source)
        : source_(source)
        , document_(source.document())
        , outline_(document_)
    {
    }

    /// The text of the leaf that `path` names, without white space around it; or the element if it has children or no
    /// text, but no more of it than is on its first line. What the document does not have is where it would be: a leaf
    /// or a member of a list in the element that should hold it, an object in its collection.
    ///
    /// The field "id" is an entry's ID. With ID 0 the path leads to the collection itself, and with the field
    /// "nextpolicy" (and its like) to the next ID, to the last one if the document has several.
    Span find(const ObjectPath& path);

  private:
    Span findInCollection(const ObjectPath& path) const;
    Span findBelow(std::size_t element, std::string_view field);

    std::size_t takeMember(const ObjectPath& path, const SourceEntry& entry, std::string_view& field);
    const std::vector<std::size_t>* membersOf(const ObjectPath& path, const SourceEntry& entry,
                                              std::vector<std::size_t> EntryDetails::*list);

    const Source&    source_;
    std::string_view document_;
    EntryOutline     outline_; // of the entry, or the member of a list, that was looked into last
    LongEntries      longEntries_;
};

#endif
