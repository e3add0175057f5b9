#ifndef IPSECIMPL_FUZZ_ELEMENTS_H
#define IPSECIMPL_FUZZ_ELEMENTS_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace ipsecimpl {

/// Where an element stands in a text: `<name>` to `</name>`, and a line end behind it. Without an end tag of its own it
/// is its start tag alone.
struct Element {
    std::size_t begin        = 0;
    std::size_t contentBegin = 0;
    std::size_t contentEnd   = 0;
    std::size_t end          = 0;
    bool        isLeaf       = false;

    std::string_view in(std::string_view text) const { return text.substr(begin, end - begin); }
    std::string_view contentIn(std::string_view text) const
    {
        return text.substr(contentBegin, contentEnd - contentBegin);
    }
    std::string_view nameIn(std::string_view text) const;
};

/// Where the start tags are.
std::vector<std::size_t> startTags(std::string_view text);

/// The element whose start tag stands at `begin`.
Element elementAt(std::string_view text, std::size_t begin);

} // namespace ipsecimpl

#endif
