#ifndef IPSEC_POLICY_MATCHER_H
#define IPSEC_POLICY_MATCHER_H

#include "entry_index.h"
#include "misreading.h"
#include "path_walker.h"
#include "store_lines.h"

#include <cstddef>
#include <string>
#include <string_view>

/// Compares what is stored of a collection with what the document says, and finds the entries on its way.
///
/// As long as the document says it in the order in which it is stored, a line costs no more than to compare its bytes.
/// Where the entries come in another order, or the next ID is anywhere else than stored, all entries are looked up
/// before it goes on. What is stored of an entry comes in the document's order, but for the selectors of groups, which
/// are left to GroupMatcher.
class Matcher : public StoreLines {
  public:
    /// The collection comes at `offset` of the document.
    Matcher(std::string_view document, std::size_t offset, Kind kind, Misreadings& misreadings);

    /// To be called when all is stored. Throws std::logic_error if that is not what the document says.
    EntryIndex takeIndex();

  protected:
    /// The selectors of the group `id`, whose element begins at `offset`, are not stored as they stand there. Returns
    /// where the element ends. What is stored of them is not looked at any more.
    virtual std::size_t matchSelectors(unsigned int id, std::size_t offset);

    std::string_view document() const { return document_; }
    Kind             kind() const { return kind_; }
    Misreadings&     misreadings() { return misreadings_; }

  private:
    enum class State { COLLECTION, ENTRY_ID, OBJECT, SELECTORS, SKIPPED_SELECTORS };

    void line(std::string_view line) final;
    void match(std::string_view line);
    bool matches(std::string_view line);
    bool matchesIndented(std::string_view line);

    void matchInCollection(std::string_view line);
    void lookUpEntries();
    void goToEntry();
    void matchEntryID(std::string_view line);
    void matchInEntry(std::string_view line);
    void beginSelectors(std::string_view line);
    void matchInSelectors(std::string_view line);
    void matchTokens(std::string_view line);
    void matchLeaf(const Leaf& leaf, std::string_view stored);
    void endEntry();
    void matchNextIDs();

    std::string_view     document_;
    const Kind           kind_;
    const CollectionTags tags_;
    const std::string    entryStart_; // lines
    const std::string    entryEnd_;
    const std::size_t    begin_;
    Misreadings&         misreadings_;
    PathWalker           walker_;

    State       state_ = State::COLLECTION;
    std::size_t offset_;             // the document is compared up to here
    std::size_t lineOffset_ = 0;     // where the line began that matched last
    std::size_t selectors_  = 0;     // where the element began
    std::size_t entries_    = 0;     // that were stored
    bool        isLookedUp_ = false; // index_ is complete already
    bool        isWalked_   = false; // walker_ is in this entry
    SourceEntry entry_;
    std::string nextID_; // as stored
    EntryIndex  index_;
};

#endif
