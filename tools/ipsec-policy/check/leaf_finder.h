#ifndef IPSEC_POLICY_LEAF_FINDER_H
#define IPSEC_POLICY_LEAF_FINDER_H

#include "path_walker.h"
#include "source.h"

#include <cstddef>

/// Tells what stands where in a document, from place to place on.
class LeafFinder {
  public:
    explicit LeafFinder(const Source& source)
        : source_(source)
        , walker_(source.document())
    {
    }

    /// Goes to the leaf that `offset`, which is not before the last one, is in. False if it is in none of an entry.
    bool goTo(std::size_t offset);

    const ObjectPath& path() const { return path_; }
    const Leaf&       leaf() const { return walker_.leaf(); }

  private:
    const Source& source_;
    PathWalker    walker_;
    std::size_t   entry_ = 0; ///< where the entry begins that walker_ is in; 0 for none
    ObjectPath    path_;
};

#endif
