#ifndef IPSECIMPL_TESTS_HOSTILE_ELEMENTS_H
#define IPSECIMPL_TESTS_HOSTILE_ELEMENTS_H

/// \file
/// The elements of a document in the written form, and what can be done to one.

#include <cstddef>
#include <string>
#include <vector>

namespace ipsecimpl {

/// Where an element stands in its document. Its line end is part of it.
struct ElementPlace {
    std::string path; ///< such as "policy/actionID"
    std::size_t begin;
    std::size_t content;    ///< behind the start tag
    std::size_t contentEnd; ///< at the end tag
    std::size_t end;

    bool isLeaf(const std::string& document) const { return document[content] != '\n'; }
};

/// In the order of their start tags.
std::vector<ElementPlace> elementsIn(const std::string& document);

struct ElementChange {
    std::string name;   ///< such as "doubled"
    std::string result; ///< the changed document
};

/// The element empty, self-closed, with an attribute, doubled, missing, swapped with the next one in the same element,
/// and more.
std::vector<ElementChange> changesOf(const std::string& document, const std::vector<ElementPlace>& all,
                                     const ElementPlace& element);

} // namespace ipsecimpl

#endif
