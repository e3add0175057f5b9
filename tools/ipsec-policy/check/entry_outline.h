#ifndef IPSEC_POLICY_ENTRY_OUTLINE_H
#define IPSEC_POLICY_ENTRY_OUTLINE_H

#include "lexer.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// The elements in an element, such as an entry, read as far as something is looked for, and kept: mostly there is more
/// than one thing to find in an entry. The element itself has number 0.
class EntryOutline {
  public:
    static constexpr std::size_t NONE = std::string_view::npos;

    explicit EntryOutline(std::string_view document)
        : document_(document)
        , lexer_(document)
    {
    }

    /// Goes to the element that begins at `offset`, unless it is there.
    void enter(std::size_t offset);

    /// The child of an element that has this name, or the `number`th of them; an empty name is any. NONE if there is
    /// none.
    std::size_t childOf(std::size_t element, std::string_view name, std::size_t number = 1);

    std::size_t offsetOf(std::size_t element) const { return elements_[element].offset; }

  private:
    struct Element {
        std::size_t      offset;
        std::size_t      depth;
        std::string_view name;
    };

    bool readElement();

    std::string_view     document_;
    Lexer                lexer_;     // behind the last element's start tag, or all of it if that is a leaf
    std::size_t          depth_ = 0; // of what comes next
    std::vector<Element> elements_;  // in the order of the document
};

#endif
