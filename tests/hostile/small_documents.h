#ifndef IPSECIMPL_TESTS_HOSTILE_SMALL_DOCUMENTS_H
#define IPSECIMPL_TESTS_HOSTILE_SMALL_DOCUMENTS_H

/// \file
/// A small document of every element in each shape that it has, short enough to be damaged at every byte.

#include "support/outcomes.h"

#include <string>
#include <vector>

namespace ipsecimpl {

struct SmallDocument {
    std::string name;    ///< the element, and in which shape; good for a file's name
    Element     element; ///< the outermost one, which the document is read with
    std::string text;
    bool        written = true; ///< in the form that the library writes, or in another that it reads
};

inline void PrintTo(const SmallDocument& document, std::ostream* out)
{
    *out << document.name;
}

const std::vector<SmallDocument>& smallDocuments();

/// The one called so.
const SmallDocument& smallDocument(const std::string& name);

} // namespace ipsecimpl

#endif
