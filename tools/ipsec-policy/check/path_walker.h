#ifndef IPSEC_POLICY_PATH_WALKER_H
#define IPSEC_POLICY_PATH_WALKER_H

#include "lexer.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Tells which field of an object stands where, going through entries from leaf to leaf.
class PathWalker {
  public:
    explicit PathWalker(std::string_view document)
        : document_(document)
        , lexer_(document)
    {
    }

    /// What to() is asked next is in the entry at this place.
    void enter(std::size_t entry);

    /// Goes on to the next leaf of the entry that begins or ends behind `offset`, and tells its field. The selectors of
    /// a group are counted as they stand in the document.
    std::string to(std::size_t offset);

    /// The leaf that it went to.
    const Leaf& leaf() const { return leaf_; }

  private:
    /// An open element.
    struct Frame {
        std::string_view name;
        std::string      field;
        std::size_t      members = 0; ///< of the list in it, so far
    };

    std::string fieldOf(std::string_view name);

    std::string_view   document_;
    Lexer              lexer_;
    Leaf               leaf_;
    std::string        field_; ///< of the leaf
    std::vector<Frame> open_;
};

#endif
