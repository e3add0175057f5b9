#ifndef IPSECIMPL_TESTS_TOOLS_DOCUMENT_TREE_H
#define IPSECIMPL_TESTS_TOOLS_DOCUMENT_TREE_H

/// \file
/// Documents as people and other programs write them: the same elements, in other orders and forms.

#include "generator.h"

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

struct Element {
    std::string          name;
    bool                 isLeaf = false;
    std::string          text;     ///< of a leaf, with white space around it
    std::vector<Element> children; ///< of all others
};

/// Of a document in the written form whose texts have no line ends in them.
Element treeOf(const std::string& written);

/// Puts all that may come in any order into one: entries, next IDs, selectors, what protocol selectors consist of.
void shuffle(Element& root, bench::Random& random);

/// A document with these elements, indented or not, with attributes, and with elements that are closed at once.
std::string rendered(const Element& root, bench::Random& random);

/// Name and text of all leaves, but for ports that are 0: whether they stand there does not matter.
std::multiset<std::pair<std::string, std::string>> leavesOf(const Element& root);

/// Calls `visit` for each element below the root, and with that the path of its parent, such as
/// "ipsec/hostGroups/hostGroupEntry".
void visitElements(Element& root, const std::function<void(Element&, const std::string& parents)>& visit);

#endif
