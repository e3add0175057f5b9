#ifndef IPSEC_POLICY_SELECTOR_LINES_H
#define IPSEC_POLICY_SELECTOR_LINES_H

#include "lexer.h"
#include "misreading.h"
#include "store_lines.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// Compares what is stored of one selector with what the document says of it, in whatever order.
class SelectorLines : public StoreLines {
  public:
    SelectorLines(std::string_view document, Misreadings& misreadings)
        : document_(document)
        , misreadings_(misreadings)
    {
    }

    /// `selector` is what the element at `offset` was read as, and `path` what it is called in the configuration.
    /// Returns where the element ends.
    template <class Selector>
    std::size_t match(const Selector& selector, std::size_t offset, const ObjectPath& path)
    {
        const std::size_t end = readChildren(offset);
        path_                 = &path;
        store(selector);
        matchUnstored();
        return end;
    }

  private:
    struct Child {
        Leaf leaf;
        bool isStored;
    };

    std::size_t readChildren(std::size_t offset);
    void        line(std::string_view line) final;
    void        matchUnstored();
    void        match(const Leaf& leaf, std::string_view stored);

    std::string_view   document_;
    Misreadings&       misreadings_;
    const ObjectPath*  path_ = nullptr;
    std::vector<Child> children_;
};

#endif
